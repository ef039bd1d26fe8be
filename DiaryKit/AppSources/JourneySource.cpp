#include "DiaryKit/AppSources/JourneySource.h"

#include <QtCore/QRegularExpression>
#include <algorithm>
#include <array>

#include "DiaryKit/AppSources/JsonValues.h"
#include "DiaryKit/AppSources/Moments.h"
#include "DiaryKit/AppSources/WeatherDegrees.h"
#include "DiaryKit/AppSources/ZoneCache.h"
#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Import/HTMLToMarkdown.h"
#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Import/LocalTime.h"
#include "DiaryKit/Import/PackagePath.h"
#include "DiaryKit/Import/UniqueJoined.h"

namespace diary::JourneySource {

namespace {

using Kind = JsonCursor::Kind;

// The values of an entry that matter, as the file has them. Of a repeated key the last counts.
struct RawEntry {
    int photos = 0;
    std::optional<double> milliseconds;
    std::optional<QString> timeZone;
    std::optional<QString> text;
    std::optional<QString> type;
    std::optional<QString> weather;
    std::optional<QString> address;
    std::optional<QString> title;
    QStringList tags;
};

QStringList jsonFiles(const ImportPackage& package) {
    return package.pathsWithExtensions({QStringLiteral("json")});
}

// Entries are named by the moment of their making and some letters: "1571425138176-lflfuesv.json".
bool isNamedLikeAnEntry(const QString& path) {
    static const QRegularExpression pattern(QStringLiteral("\\A\\d{10,}-[0-9A-Za-z]+\\z"));
    return pattern.match(package_path::stem(path).toString()).hasMatch();
}

std::optional<QString> readWeather(JsonCursor& json) {
    if (!json.skipUnless(Kind::Object)) return std::nullopt;
    std::optional<double> celsius;
    std::optional<QString> description;
    json.eachMember([&](const QString& key) {
        if (key == u"degree_c") {
            celsius = json.optionalNumber();
        } else if (key == u"description") {
            description = json.optionalString();
        } else {
            json.skip();
        }
    });
    // Without a reading the export writes the largest number that there is.
    constexpr double kNoReading = 1e300;
    if (celsius && *celsius >= kNoReading) celsius.reset();
    return uniqueJoined(std::array{weatherDegrees(celsius), description}, u" ");
}

void readMember(JsonCursor& json, const QString& key, RawEntry& entry) {
    if (key == u"photos") {
        entry.photos = json.elementCount();
    } else if (key == u"date_journal") {
        entry.milliseconds = json.optionalNumber();
    } else if (key == u"timezone") {
        entry.timeZone = json.optionalString();
    } else if (key == u"text") {
        entry.text = json.optionalString();
    } else if (key == u"type") {
        entry.type = json.optionalString();
    } else if (key == u"weather") {
        entry.weather = readWeather(json);
    } else if (key == u"address") {
        entry.address = json.optionalString();
    } else if (key == u"title") {
        entry.title = json.optionalString();
    } else if (key == u"tags") {
        entry.tags = textList(json);
    } else {
        json.skip();
    }
}

// The entry of a file; nothing for what is no JSON or no object.
std::optional<RawEntry> readEntry(const QByteArray& bytes) {
    const QByteArray utf8 = jsonUtf8(bytes);
    try {
        JsonCursor json(utf8);
        if (json.kind() != Kind::Object) return std::nullopt;
        RawEntry entry;
        json.eachMember([&](const QString& key) { readMember(json, key, entry); });
        json.finish();
        return entry;
    } catch (const JsonError&) {
        return std::nullopt;
    }
}

std::optional<QString> trimmedText(const std::optional<QString>& text) {
    return uniqueJoined(std::array{text}, u"");
}

QString body(const RawEntry& raw) {
    const QString text = raw.text.value_or(QString());
    if (raw.type == QLatin1String("markdown")) return HTMLToMarkdown::tidy(text);
    return HTMLToMarkdown::markdown(text);
}

std::optional<ImportedEntry> importedEntry(RawEntry&& raw, ZoneCache& zones) {
    if (!raw.milliseconds || !(*raw.milliseconds > 0)) return std::nullopt;
    const LocalTime::DayAndTime local = LocalTime::split(
        momentSince1970(*raw.milliseconds), zones.named(raw.timeZone.value_or(QString())));
    ImportedEntry entry;
    entry.day = local.day;
    entry.time = local.time;
    entry.title = trimmedText(raw.title);
    entry.body = body(raw);
    entry.place = trimmedText(raw.address);
    entry.weather = std::move(raw.weather);
    entry.tags = std::move(raw.tags);
    return entry;
}

}  // namespace

QStringList entryFiles(const ImportPackage& package) {
    constexpr qsizetype kHeadBytes = 1024;
    QStringList files = jsonFiles(package);
    files.removeIf([&](const QString& path) {
        return !package.head(path, kHeadBytes).contains(QLatin1String("\"date_journal\""));
    });
    return files;
}

ImportBatch read(const ImportPackage& package, const QString& name) {
    const QStringList files = entryFiles(package);
    if (files.isEmpty()) throw ImportError(ImportError::Kind::unrecognized);
    ImportBatch batch{.source = ImportSource::journey, .name = name};
    const QStringList named = jsonFiles(package);
    batch.skipped.otherNotes =
        static_cast<int>(std::count_if(named.begin(), named.end(), isNamedLikeAnEntry));
    ZoneCache zones;
    for (const QString& path : files) {
        std::optional<RawEntry> raw = readEntry(package.data(path));
        if (!raw) continue;
        if (isNamedLikeAnEntry(path)) --batch.skipped.otherNotes;
        batch.skipped.photos += raw->photos;
        if (auto entry = importedEntry(std::move(*raw), zones)) {
            batch.entries.push_back(std::move(*entry));
        } else {
            ++batch.skipped.undated;
        }
    }
    return batch;
}

}  // namespace diary::JourneySource
