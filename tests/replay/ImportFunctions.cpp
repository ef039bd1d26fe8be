// What reads other diaries, in its JSON shapes.
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QTemporaryDir>

#include "DiaryKit/Import/ImportBatch.h"
#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Import/ImportPackage.h"
#include "DiaryKit/Import/LocalTime.h"
#include "DiaryKit/Import/PackagePath.h"
#include "DiaryKit/Import/TextDecoding.h"
#include "DiaryKit/Import/UniqueJoined.h"
#include "DiaryKit/Import/ZipArchive.h"
#include "tests/replay/ImportShapes.h"
#include "tests/replay/Replay.h"

namespace diary::replay {

namespace {

QString text(const QJsonObject& in, const char* key) {
    return in[QLatin1String(key)].toString();
}

int number(const QJsonObject& in, const char* key) {
    return in[QLatin1String(key)].toInt();
}

template <typename Value>
QJsonValue orNull(const std::optional<Value>& value) {
    return value ? QJsonValue(*value) : QJsonValue(QJsonValue::Null);
}

QJsonObject json(const DiaryDay& day) {
    return {{QStringLiteral("year"), day.year},
            {QStringLiteral("month"), day.month},
            {QStringLiteral("day"), day.day}};
}

QJsonObject json(const ImportedEntry::Time& time) {
    return {{QStringLiteral("hour"), time.hour}, {QStringLiteral("minute"), time.minute}};
}

DiaryDay day(const QJsonObject& value) {
    return {number(value, "year"), number(value, "month"), number(value, "day")};
}

QJsonValue parseSource(const QJsonObject& in) {
    const std::optional<ImportSource> source = import_source::parse(text(in, "spelling"));
    if (!source) {
        return QJsonObject{{QStringLiteral("case"), QJsonValue::Null},
                           {QStringLiteral("brandName"), QJsonValue::Null}};
    }
    return QJsonObject{{QStringLiteral("case"), import_source::spelling(*source)},
                       {QStringLiteral("brandName"), orNull(import_source::brandName(*source))}};
}

QJsonValue batchSummary(const QJsonObject& in) {
    const QJsonObject given = in[QLatin1String("batch")].toObject();
    ImportBatch batch;
    const QJsonArray entries = given[QLatin1String("entries")].toArray();
    for (const QJsonValue& entry : entries) {
        batch.entries.push_back({.day = day(entry[QLatin1String("day")].toObject())});
    }
    const QJsonObject skipped = given[QLatin1String("skipped")].toObject();
    batch.skipped = {.photos = number(skipped, "photos"),
                     .videos = number(skipped, "videos"),
                     .audios = number(skipped, "audios"),
                     .attachments = number(skipped, "attachments")};
    const std::optional<YearRange> years = batch.years();
    return QJsonObject{{QStringLiteral("years"), years ? QJsonArray{years->first, years->last}
                                                       : QJsonValue(QJsonValue::Null)},
                       {QStringLiteral("media"), batch.skipped.media()}};
}

QJsonValue splitMoment(const QJsonObject& in) {
    const auto seconds = in[QLatin1String("epochSeconds")].toInteger();
    const LocalTime::DayAndTime split = LocalTime::split(
        QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC), LocalTime::zone(text(in, "zone")));
    return QJsonObject{{QStringLiteral("day"), json(split.day)},
                       {QStringLiteral("time"), json(split.time)}};
}

QJsonValue zoneIdentifier(const QJsonObject& in) {
    const std::optional<QTimeZone> zone = LocalTime::namedZone(text(in, "name"));
    return zone ? QJsonValue(QString::fromLatin1(zone->id())) : QJsonValue(QJsonValue::Null);
}

QByteArray bytes(const QJsonObject& in, const char* key = "base64") {
    return QByteArray::fromBase64(text(in, key).toLatin1());
}

QStringList texts(const QJsonObject& in, const char* key) {
    QStringList values;
    const QJsonArray array = in[QLatin1String(key)].toArray();
    for (const QJsonValue& value : array) values.append(value.toString());
    return values;
}

void write(const QString& path, const QByteArray& content) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) file.write(content);
}

QJsonValue joinedParts(const QJsonObject& in) {
    std::vector<std::optional<QString>> parts;
    const QJsonArray given = in[QLatin1String("parts")].toArray();
    for (const QJsonValue& part : given) {
        parts.push_back(part.isString() ? std::optional(part.toString()) : std::nullopt);
    }
    return QJsonObject{
        {QStringLiteral("text"), orNull(uniqueJoined(parts, text(in, "separator")))}};
}

QJsonObject json(const ImportError& error) {
    return {{QStringLiteral("error"), errorName(error)}};
}

QJsonObject json(const ZipArchive& archive, const ZipArchive::Entry& entry) {
    QJsonObject out;
    try {
        out = {{QStringLiteral("contentsBase64"),
                QString::fromLatin1(archive.contents(entry).toBase64())}};
    } catch (const ImportError& error) {
        out = json(error);
    }
    out[QLatin1String("path")] = entry.path;
    out[QLatin1String("method")] = entry.method;
    out[QLatin1String("flags")] = entry.flags;
    out[QLatin1String("compressedSize")] = QString::number(entry.compressedSize);
    out[QLatin1String("size")] = QString::number(entry.size);
    out[QLatin1String("localHeaderOffset")] = QString::number(entry.localHeaderOffset);
    out[QLatin1String("isDirectory")] = entry.isDirectory();
    return out;
}

// A package opens an archive only where the file begins like one.
QStringList packagePaths(const QString& path, const ZipArchive& archive) {
    if (ZipArchive::looksLikeZip(path)) return ImportPackage(path).paths();
    std::set<QString> paths;
    for (const ZipArchive::Entry& entry : archive.entries()) {
        if (!entry.isDirectory() && !ImportPackage::isJunk(entry.path)) paths.insert(entry.path);
    }
    return package_path::sorted(QStringList(paths.begin(), paths.end()));
}

QJsonValue readZip(const QJsonObject& in) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("x.zip"));
    write(path, bytes(in));
    try {
        const ZipArchive archive(path);
        QJsonArray entries;
        for (const ZipArchive::Entry& entry : archive.entries()) {
            entries.append(json(archive, entry));
        }
        return QJsonObject{{QStringLiteral("entries"), entries},
                           {QStringLiteral("packagePaths"),
                            QJsonArray::fromStringList(packagePaths(path, archive))}};
    } catch (const ImportError& error) {
        return json(error);
    }
}

QJsonValue packageKind(const QJsonObject& in) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(text(in, "name"));
    if (in[QLatin1String("isDirectory")].toBool()) {
        QDir().mkpath(path);
    } else {
        write(path, bytes(in, "headBase64"));
    }
    try {
        const ImportPackage package(path);
        return package.isFolder() ? QStringLiteral("folder")
               : package.isZip()  ? QStringLiteral("zip")
                                  : QStringLiteral("file");
    } catch (const ImportError&) {
        // Only a zip can be a bad archive.
        return QStringLiteral("zip");
    }
}

QJsonValue listFolder(const QJsonObject& in) {
    const QTemporaryDir folder;
    for (const QString& path : texts(in, "files")) write(folder.filePath(path), "x");
    for (const QString& path : texts(in, "emptyFolders")) QDir().mkpath(folder.filePath(path));
    return QJsonArray::fromStringList(ImportPackage::listFolder(folder.path()));
}

QJsonValue pathsWithExtensions(const QJsonObject& in) {
    const QStringList extensions = texts(in, "extensions");
    return QJsonArray::fromStringList(package_path::withExtensions(
        texts(in, "paths"), std::set<QString>(extensions.begin(), extensions.end())));
}

void addPackages(Table& table) {
    table[QStringLiteral("uniqueJoined")] = joinedParts;
    table[QStringLiteral("TextDecoding.decode")] = [](const QJsonObject& in) -> QJsonValue {
        return TextDecoding::decode(bytes(in));
    };
    table[QStringLiteral("ZipArchive.read")] = readZip;
    table[QStringLiteral("ImportPackage.kind")] = packageKind;
    table[QStringLiteral("ImportPackage.isJunk")] = [](const QJsonObject& in) -> QJsonValue {
        return ImportPackage::isJunk(text(in, "path"));
    };
    table[QStringLiteral("ImportPackage.listFolder")] = listFolder;
    table[QStringLiteral("ImportPackage.pathsWithExtensions")] = pathsWithExtensions;
}

void addModel(Table& table) {
    table[QStringLiteral("ImportSource.parse")] = parseSource;
    table[QStringLiteral("ImportBatch.summary")] = batchSummary;
    table[QStringLiteral("ImportedEntry.Time.text")] = [](const QJsonObject& in) -> QJsonValue {
        return ImportedEntry::Time{number(in, "hour"), number(in, "minute")}.text();
    };
    table[QStringLiteral("LocalTime.isValid")] = [](const QJsonObject& in) -> QJsonValue {
        return LocalTime::isValid(number(in, "year"), number(in, "month"), number(in, "day"));
    };
    table[QStringLiteral("LocalTime.split")] = splitMoment;
    table[QStringLiteral("LocalTime.zone")] = zoneIdentifier;
}

}  // namespace

void addImportFunctions(Table& table) {
    addModel(table);
    addPackages(table);
}

}  // namespace diary::replay
