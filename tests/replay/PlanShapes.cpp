#include "tests/replay/PlanShapes.h"

#include <QtCore/QJsonDocument>

#include "DiaryKit/Import/EntryRenderer.h"

namespace diary::replay {

namespace {

QJsonObject additionObject(const ImportPlan::Addition& addition, ImportSource source) {
    QJsonArray keys;
    for (const ImportedEntry& one : addition.entries) {
        keys.append(EntryRenderer::identity(one, source));
    }
    return {{QStringLiteral("year"), addition.year},
            {QStringLiteral("text"), addition.text},
            {QStringLiteral("appended"), addition.appended},
            {QStringLiteral("entryKeys"), keys}};
}

QJsonObject changeObject(const ImportPlan::FileChange& change, ImportSource source) {
    QJsonArray additions;
    for (const ImportPlan::Addition& one : change.additions)
        additions.append(additionObject(one, source));
    return {{QStringLiteral("monthDay"), json(change.monthDay)},
            {QStringLiteral("existed"), change.existed},
            {QStringLiteral("entryCount"), change.entryCount},
            {QStringLiteral("additions"), additions}};
}

QJsonObject statsObject(const ImportPlan::Stats& stats) {
    return {
        {QStringLiteral("entries"), stats.entries},
        {QStringLiteral("duplicates"), stats.duplicates},
        {QStringLiteral("skippedForConflict"), stats.skippedForConflict},
        {QStringLiteral("empty"), stats.empty},
        {QStringLiteral("excluded"), stats.excluded},
        {QStringLiteral("days"), stats.days},
        {QStringLiteral("newFiles"), stats.newFiles},
        {QStringLiteral("overlapping"), stats.overlapping},
        {QStringLiteral("years"), stats.years ? QJsonArray{stats.years->first, stats.years->last}
                                              : QJsonValue(QJsonValue::Null)}};
}

ImportBatch::Skipped skipped(const QJsonValue& in) {
    return {.photos = number(in, "photos"),
            .videos = number(in, "videos"),
            .audios = number(in, "audios"),
            .attachments = number(in, "attachments"),
            .undated = number(in, "undated"),
            .otherNotes = number(in, "otherNotes")};
}

}  // namespace

QString text(const QJsonValue& in, const char* key) {
    return in[QLatin1String(key)].toString();
}

int number(const QJsonValue& in, const char* key) {
    return in[QLatin1String(key)].toInt();
}

bool flag(const QJsonValue& in, const char* key) {
    return in[QLatin1String(key)].toBool();
}

QJsonArray array(const QJsonValue& in, const char* key) {
    return in[QLatin1String(key)].toArray();
}

std::optional<QString> optionalText(const QJsonValue& in, const char* key) {
    const QJsonValue value = in[QLatin1String(key)];
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

QStringList texts(const QJsonArray& values) {
    QStringList list;
    for (const auto& value : values) list << value.toString();
    return list;
}

QJsonValue orNull(const std::optional<QString>& value) {
    return value ? QJsonValue(*value) : QJsonValue(QJsonValue::Null);
}

ImportSource source(const QJsonValue& in) {
    return import_source::parse(text(in, "source")).value_or(ImportSource::datedText);
}

ImportedEntry entry(const QJsonValue& in) {
    const QJsonValue day = in[QLatin1String("day")];
    const QJsonValue time = in[QLatin1String("time")];
    ImportedEntry entry{
        .day = {number(day, "year"), number(day, "month"), number(day, "day")},
        .title = optionalText(in, "title"),
        .body = text(in, "body"),
        .place = optionalText(in, "place"),
        .weather = optionalText(in, "weather"),
        .mood = optionalText(in, "mood"),
        .tags = texts(array(in, "tags")),
        .journal = optionalText(in, "journal"),
        .isVelmarSection = flag(in, "isVelmarSection"),
    };
    if (time.isObject()) entry.time = {number(time, "hour"), number(time, "minute")};
    return entry;
}

std::vector<ImportedEntry> entries(const QJsonValue& in) {
    std::vector<ImportedEntry> list;
    for (const auto& one : array(in, "entries")) list.push_back(entry(one));
    return list;
}

ImportOptions options(const QJsonValue& in) {
    ImportOptions options;
    options.conflict = text(in, "conflict") == QLatin1String("skip")
                           ? ImportOptions::Conflict::skip
                           : ImportOptions::Conflict::append;
    options.place = flag(in, "place");
    options.weather = flag(in, "weather");
    options.mood = flag(in, "mood");
    options.tags = flag(in, "tags");
    options.timeForSingle = flag(in, "timeForSingle");
    for (const QString& one : texts(array(in, "excludedJournals"))) {
        options.excludedJournals.insert(one);
    }
    return options;
}

std::vector<ImportRecord> records(const QJsonArray& values) {
    std::vector<ImportRecord> list;
    for (const auto& value : values) {
        auto record = ImportRecord::decode(QJsonDocument(value.toObject()).toJson());
        if (record) list.push_back(std::move(*record));
    }
    return list;
}

QJsonObject json(const MonthDay& day) {
    return {{QStringLiteral("month"), day.month}, {QStringLiteral("day"), day.day}};
}

ImportBatch batch(const QJsonValue& in) {
    return {.source = source(in),
            .name = text(in, "name"),
            .entries = entries(in),
            .skipped = skipped(in[QLatin1String("skipped")])};
}

QJsonArray json(const std::vector<ImportPlan::Sample>& samples) {
    QJsonArray list;
    for (const ImportPlan::Sample& sample : samples) {
        QJsonArray traits;
        for (const auto trait : sample.traits) traits.append(kTraits[static_cast<size_t>(trait)]);
        list.append(QJsonObject{{QStringLiteral("monthDay"), json(sample.monthDay)},
                                {QStringLiteral("year"), sample.year},
                                {QStringLiteral("existing"), sample.existing},
                                {QStringLiteral("added"), sample.added},
                                {QStringLiteral("traits"), traits}});
    }
    return list;
}

QJsonObject json(const ImportPlan& plan, ImportSource source) {
    QJsonArray changes;
    for (const ImportPlan::FileChange& change : plan.changes) {
        changes.append(changeObject(change, source));
    }
    return {{QStringLiteral("changes"), changes},
            {QStringLiteral("stats"), statsObject(plan.stats)},
            {QStringLiteral("samples"), json(plan.samples)}};
}

QJsonObject json(const ImportRecord& record) {
    return QJsonDocument::fromJson(record.encoded()).object();
}

}  // namespace diary::replay
