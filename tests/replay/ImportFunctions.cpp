// What reads other diaries, in its JSON shapes.
#include <QtCore/QJsonArray>

#include "DiaryKit/Import/ImportBatch.h"
#include "DiaryKit/Import/LocalTime.h"
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
}

}  // namespace diary::replay
