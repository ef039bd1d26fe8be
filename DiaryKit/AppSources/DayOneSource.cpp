#include "DiaryKit/AppSources/DayOneSource.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <iterator>

#include "DiaryKit/AppSources/JsonCursor.h"
#include "DiaryKit/AppSources/JsonValues.h"
#include "DiaryKit/AppSources/Moments.h"
#include "DiaryKit/AppSources/WeatherDegrees.h"
#include "DiaryKit/AppSources/ZoneCache.h"
#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Import/LocalTime.h"
#include "DiaryKit/Import/PackagePath.h"
#include "DiaryKit/Import/UniqueJoined.h"

namespace diary::DayOneSource {

namespace {

using Kind = JsonCursor::Kind;

// The values of an entry that matter, as the file has them. Of a repeated key the last counts.
struct RawEntry {
    ImportBatch::Skipped media;
    std::optional<QString> creationDate;
    std::optional<QString> timeZone;
    std::optional<QString> text;
    std::optional<QString> place;
    std::optional<QString> weather;
    QStringList tags;
    bool isAllDay = false;
};

struct JournalContent {
    std::vector<ImportedEntry> entries;
    ImportBatch::Skipped skipped;
};

std::optional<QString> readPlace(JsonCursor& json) {
    if (!json.skipUnless(Kind::Object)) return std::nullopt;
    std::array<std::optional<QString>, 2> near;
    std::array<std::optional<QString>, 2> far;
    json.eachMember([&](const QString& key) {
        if (key == u"localityName") {
            near[0] = json.optionalString();
        } else if (key == u"placeName") {
            near[1] = json.optionalString();
        } else if (key == u"administrativeArea") {
            far[0] = json.optionalString();
        } else if (key == u"country") {
            far[1] = json.optionalString();
        } else {
            json.skip();
        }
    });
    static constexpr QStringView kSeparator = u" · ";
    const std::optional<QString> place = uniqueJoined(near, kSeparator);
    return place ? place : uniqueJoined(far, kSeparator);
}

std::optional<QString> readWeather(JsonCursor& json) {
    if (!json.skipUnless(Kind::Object)) return std::nullopt;
    std::optional<QString> conditions;
    std::optional<double> celsius;
    json.eachMember([&](const QString& key) {
        if (key == u"conditionsDescription") {
            conditions = json.optionalString();
        } else if (key == u"temperatureCelsius") {
            celsius = json.optionalNumber();
        } else {
            json.skip();
        }
    });
    return uniqueJoined(std::array{conditions, weatherDegrees(celsius)}, u" ");
}

bool readMediaMember(JsonCursor& json, const QString& key, ImportBatch::Skipped& media) {
    int* const count = key == u"photos"           ? &media.photos
                       : key == u"videos"         ? &media.videos
                       : key == u"audios"         ? &media.audios
                       : key == u"pdfAttachments" ? &media.attachments
                                                  : nullptr;
    if (count == nullptr) return false;
    *count = json.elementCount();
    return true;
}

void readMember(JsonCursor& json, const QString& key, RawEntry& entry) {
    if (readMediaMember(json, key, entry.media)) return;
    if (key == u"creationDate") {
        entry.creationDate = json.optionalString();
    } else if (key == u"timeZone") {
        entry.timeZone = json.optionalString();
    } else if (key == u"text") {
        entry.text = json.optionalString();
    } else if (key == u"location") {
        entry.place = readPlace(json);
    } else if (key == u"weather") {
        entry.weather = readWeather(json);
    } else if (key == u"isAllDay") {
        entry.isAllDay = json.optionalBoolean().value_or(false);
    } else if (key == u"tags") {
        entry.tags = textList(json);
    } else {
        json.skip();
    }
}

void setTitleAndBody(ImportedEntry& entry, const QString& text) {
    if (!text.startsWith(QLatin1String("# "))) {
        entry.body = text;
        return;
    }
    const qsizetype end = text.indexOf(u'\n');
    const QStringView line = QStringView(text).first(end < 0 ? text.size() : end);
    const QStringView title = text::trimmedOfBlanks(line.sliced(2));
    if (!title.isEmpty()) entry.title = title.toString();
    if (end >= 0) entry.body = text::trimmed(QStringView(text).sliced(end)).toString();
}

std::optional<ImportedEntry> importedEntry(RawEntry&& raw, const QString& journal,
                                           ZoneCache& zones) {
    const std::optional<QDateTime> moment =
        raw.creationDate ? isoMoment(*raw.creationDate) : std::nullopt;
    if (!moment) return std::nullopt;
    const LocalTime::DayAndTime local =
        LocalTime::split(*moment, zones.named(raw.timeZone.value_or(QString())));
    ImportedEntry entry;
    entry.day = local.day;
    if (!raw.isAllDay) entry.time = local.time;
    setTitleAndBody(entry, cleanText(raw.text.value_or(QString())));
    entry.place = std::move(raw.place);
    entry.weather = std::move(raw.weather);
    entry.tags = std::move(raw.tags);
    entry.journal = journal;
    return entry;
}

void add(ImportBatch::Skipped& sum, const ImportBatch::Skipped& more) {
    sum.photos += more.photos;
    sum.videos += more.videos;
    sum.audios += more.audios;
    sum.attachments += more.attachments;
    sum.undated += more.undated;
}

// The entries that come next as the member "entries"; nothing unless that is an array of objects.
std::optional<JournalContent> readEntries(JsonCursor& json, const QString& journal,
                                          ZoneCache& zones) {
    if (!json.skipUnless(Kind::Array)) return std::nullopt;
    JournalContent content;
    bool isMixed = false;
    json.eachElement([&] {
        if (!json.skipUnless(Kind::Object)) {
            isMixed = true;
            return;
        }
        RawEntry raw;
        json.eachMember([&](const QString& key) { readMember(json, key, raw); });
        add(content.skipped, raw.media);
        if (auto entry = importedEntry(std::move(raw), journal, zones)) {
            content.entries.push_back(std::move(*entry));
        } else {
            ++content.skipped.undated;
        }
    });
    if (isMixed) return std::nullopt;
    return content;
}

// The content of a journal's file; nothing if the JSON is of another shape. Throws JsonError.
std::optional<JournalContent> readJournal(QByteArrayView utf8, const QString& journal,
                                          ZoneCache& zones) {
    JsonCursor json(utf8);
    std::optional<JournalContent> content;
    if (json.skipUnless(Kind::Object)) {
        json.eachMember([&](const QString& key) {
            if (key == u"entries") {
                content = readEntries(json, journal, zones);
            } else {
                json.skip();
            }
        });
    }
    json.finish();
    return content;
}

bool looksLikeJournal(const QString& head) {
    const auto has = [&](const char* key) { return head.contains(QLatin1String(key)); };
    return has("\"entries\"") && (has("\"metadata\"") || has("\"creationDate\""));
}

}  // namespace

QStringList journalFiles(const ImportPackage& package) {
    constexpr qsizetype kHeadBytes = 2048;
    QStringList files = package.pathsWithExtensions({QStringLiteral("json")});
    files.removeIf(
        [&](const QString& path) { return !looksLikeJournal(package.head(path, kHeadBytes)); });
    return files;
}

ImportBatch read(const ImportPackage& package, const QString& name) {
    ImportBatch batch{.source = ImportSource::dayOne, .name = name};
    ZoneCache zones;
    for (const QString& path : journalFiles(package)) {
        const QString journal = package_path::stem(path).toString();
        const QByteArray bytes = jsonUtf8(package.data(path));
        std::optional<JournalContent> content;
        try {
            content = readJournal(bytes, journal, zones);
        } catch (const JsonError&) {
            throw FileError(FileOperation::Decode, path, EILSEQ);
        }
        if (!content) continue;
        batch.journals.push_back({journal, static_cast<int>(content->entries.size())});
        add(batch.skipped, content->skipped);
        if (batch.entries.empty()) {
            batch.entries.swap(content->entries);
        } else {
            std::move(content->entries.begin(), content->entries.end(),
                      std::back_inserter(batch.entries));
        }
    }
    if (batch.journals.empty()) throw ImportError(ImportError::Kind::unrecognized);
    return batch;
}

}  // namespace diary::DayOneSource
