// The backup of Daylio.
#include <QtCore/QDateTime>
#include <QtCore/QTimeZone>
#include <array>
#include <cmath>

#include "DiaryKit/AppSources/DaylioEntry.h"
#include "DiaryKit/AppSources/DaylioSource.h"
#include "DiaryKit/AppSources/JsonCursor.h"
#include "DiaryKit/AppSources/Moments.h"
#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Import/HTMLToMarkdown.h"
#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Import/LocalTime.h"
#include "DiaryKit/Import/PackagePath.h"

namespace diary::DaylioSource {

namespace {

using Kind = JsonCursor::Kind;
using Names = QHash<qint64, QString>;

[[noreturn]] void refuse() {
    throw ImportError(ImportError::Kind::unrecognized);
}

QByteArray firstEntry(const ZipArchive& archive) {
    if (archive.entries().empty()) refuse();
    return archive.contents(archive.entries().front());
}

// The bytes of the file, or of the first entry of the zip that it is.
QByteArray unpacked(const ImportPackage& package, const QString& path) {
    const QString head = package.head(path, 4);
    if (head != QLatin1String("PK\3\4") && head != QLatin1String("PK\5\6")) {
        return package.data(path);
    }
    return package.withFile(path, [](const QString& file) { return firstEntry(ZipArchive(file)); });
}

QByteArray backupText(const ImportPackage& package) {
    const QString name = QStringLiteral("backup.daylio");
    if (package.paths().contains(name)) return unpacked(package, name);
    const QStringView extension = package_path::extension(package.url());
    if (package.isFolder() || extension.compare(u"daylio", Qt::CaseInsensitive) != 0) refuse();
    if (const auto* const zip = std::get_if<ImportPackage::Zip>(&package.storage())) {
        return firstEntry(*zip->archive);
    }
    return package.data(name);
}

// An element of the lists of moods and tags, which entries name by numbers.
struct NamedItem {
    std::optional<qint64> id;
    std::optional<QString> name;
    std::optional<QString> customName;
    std::optional<qint64> predefinedName;
};

NamedItem readItem(JsonCursor& json) {
    NamedItem item;
    json.eachMember([&](const QString& key) {
        if (key == u"id") {
            item.id = json.optionalInteger();
        } else if (key == u"name") {
            item.name = json.optionalString();
        } else if (key == u"custom_name") {
            item.customName = json.optionalString();
        } else if (key == u"predefined_name_id") {
            item.predefinedName = json.optionalInteger();
        } else {
            json.skip();
        }
    });
    return item;
}

// From 1 on.
constexpr std::array<QLatin1String, 5> kPredefinedMoods = {
    QLatin1String("rad"), QLatin1String("good"), QLatin1String("meh"), QLatin1String("bad"),
    QLatin1String("awful")};

std::optional<QString> moodName(NamedItem&& item) {
    if (item.customName && !item.customName->isEmpty()) return std::move(item.customName);
    const qint64 number = item.predefinedName.value_or(0);
    if (number < 1 || number > static_cast<qint64>(kPredefinedMoods.size())) return std::nullopt;
    return kPredefinedMoods[static_cast<std::size_t>(number - 1)];
}

std::optional<QString> tagName(NamedItem&& item) {
    return std::move(item.name);
}

// The names of the list that comes next; none unless it is a list of objects.
Names readNames(JsonCursor& json, std::optional<QString> (*nameOf)(NamedItem&&)) {
    Names names;
    if (!json.skipUnless(Kind::Array)) return names;
    bool isMixed = false;
    json.eachElement([&] {
        if (!json.skipUnless(Kind::Object)) {
            isMixed = true;
            return;
        }
        NamedItem item = readItem(json);
        const std::optional<qint64> id = item.id;
        const std::optional<QString> name = nameOf(std::move(item));
        if (id && name) names.insert(*id, *name);
    });
    return isMixed ? Names() : names;
}

// The numbers of the list that comes next; none unless it is a list of integers.
std::vector<qint64> readIntegers(JsonCursor& json) {
    std::vector<qint64> integers;
    if (!json.skipUnless(Kind::Array)) return integers;
    bool isMixed = false;
    json.eachElement([&] {
        const std::optional<qint64> integer = json.optionalInteger();
        isMixed = isMixed || !integer;
        if (!isMixed) integers.push_back(*integer);
    });
    return isMixed ? std::vector<qint64>() : integers;
}

// The values of an entry that matter. Of a repeated key the last counts.
struct RawEntry {
    std::optional<double> datetime;
    std::optional<double> timeZoneOffset;
    std::optional<qint64> mood;
    std::vector<qint64> tags;
    std::optional<QString> note;
    std::optional<QString> title;
};

RawEntry readEntry(JsonCursor& json) {
    RawEntry raw;
    json.eachMember([&](const QString& key) {
        if (key == u"datetime") {
            raw.datetime = json.optionalNumber();
        } else if (key == u"timeZoneOffset") {
            raw.timeZoneOffset = json.optionalNumber();
        } else if (key == u"mood") {
            raw.mood = json.optionalInteger();
        } else if (key == u"tags") {
            raw.tags = readIntegers(json);
        } else if (key == u"note") {
            raw.note = json.optionalString();
        } else if (key == u"note_title") {
            raw.title = json.optionalString();
        } else {
            json.skip();
        }
    });
    return raw;
}

// Makes entries of what the backup holds.
class EntryMaker {
public:
    EntryMaker(const Names& moodNames, const Names& tagNames, const Moods& labels, qsizetype size)
        : m_moods(moodNames), m_tags(tagNames), m_labels(labels), m_unitsLeft(allowance(size)) {}

    // Nothing without a date.
    std::optional<ImportedEntry> entry(RawEntry&& raw) {
        const std::optional<LocalTime::DayAndTime> local = moment(raw);
        if (!local) return std::nullopt;
        return DaylioSource::entry(
            {.day = local->day,
             .time = local->time,
             .mood = moodLabel(raw.mood),
             .activities = activities(raw.tags),
             .title = raw.title.value_or(QString()),
             .note = HTMLToMarkdown::markdown(raw.note.value_or(QString()))});
    }

private:
    // A name is short, and a number that stands for it a few bytes of an entry of hundreds. A
    // backup that asks for many times its size was made to fill the memory.
    static qsizetype allowance(qsizetype size) {
        constexpr qsizetype kUnitsPerByte = 32;
        constexpr qsizetype kUnitsBeyond = qsizetype{16} * 1024 * 1024;
        return size * kUnitsPerByte + kUnitsBeyond;
    }

    QString spend(const QString& name) {
        m_unitsLeft -= name.size();
        if (m_unitsLeft < 0) refuse();
        return name;
    }

    [[nodiscard]] std::optional<LocalTime::DayAndTime> moment(const RawEntry& raw) const {
        constexpr double kMostOffset = 18.0 * 60 * 60;
        const QDateTime at = momentSince1970(raw.datetime.value_or(NAN));
        if (!at.isValid()) return std::nullopt;
        const double offset = std::trunc(raw.timeZoneOffset.value_or(NAN) / 1000);
        if (!(std::abs(offset) <= kMostOffset)) {
            return LocalTime::split(at, m_currentZone);
        }
        // QTimeZone knows fewer offsets than the clocks of the world have had.
        return LocalTime::split(at.addSecs(static_cast<qint64>(offset)), QTimeZone::utc());
    }

    QString moodLabel(const std::optional<qint64>& mood) {
        const auto name = mood ? m_moods.constFind(*mood) : m_moods.constEnd();
        return name == m_moods.constEnd() ? QString() : spend(labelled(*name, m_labels));
    }

    QStringList activities(const std::vector<qint64>& tags) {
        QStringList found;
        for (const qint64 tag : tags) {
            const auto name = m_tags.constFind(tag);
            if (name != m_tags.constEnd()) found.append(spend(*name));
        }
        return found;
    }

    const Names& m_moods;
    const Names& m_tags;
    const Moods& m_labels;
    const QTimeZone m_currentZone = LocalTime::zone(QStringView());
    qsizetype m_unitsLeft;
};

// The parts of a backup, wherever they stand in it. Entries are read once all names are known.
struct Content {
    Names moods;
    Names tags;
    int assets = 0;
    std::optional<JsonCursor> entries;
};

Content readContent(JsonCursor json) {
    Content content;
    if (json.kind() != Kind::Object) refuse();
    json.eachMember([&](const QString& key) {
        if (key == u"customMoods") {
            content.moods = readNames(json, moodName);
        } else if (key == u"tags") {
            content.tags = readNames(json, tagName);
        } else if (key == u"assets") {
            content.assets = json.elementCount();
        } else {
            if (key == u"dayEntries") content.entries = json;
            json.skip();
        }
    });
    json.finish();
    return content;
}

ImportBatch readJson(QByteArrayView utf8, const QString& name, const Moods& moods) {
    Content content = readContent(JsonCursor(utf8));
    ImportBatch batch{.source = ImportSource::daylio, .name = name};
    batch.skipped.photos = content.assets;
    if (!content.entries || !content.entries->skipUnless(Kind::Array)) return batch;
    JsonCursor& json = *content.entries;
    EntryMaker maker(content.moods, content.tags, moods, utf8.size());
    json.eachElement([&] {
        if (!json.skipUnless(Kind::Object)) return;
        if (auto entry = maker.entry(readEntry(json))) {
            batch.entries.push_back(std::move(*entry));
        } else {
            ++batch.skipped.undated;
        }
    });
    return batch;
}

}  // namespace

ImportBatch readBackup(const ImportPackage& package, const QString& name, const Moods& moods) {
    try {
        // Decoded in its place; what isn't base64, such as line ends, is passed over.
        const auto decoded = QByteArray::fromBase64Encoding(backupText(package));
        return readJson(*decoded, name, moods);
    } catch (const ImportError&) {
        refuse();
    } catch (const FileError&) {
        refuse();
    } catch (const JsonError&) {
        refuse();
    }
}

}  // namespace diary::DaylioSource
