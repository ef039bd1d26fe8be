// Rendering, records and planning in their JSON shapes.
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <algorithm>

#include "DiaryKit/Import/EntryRenderer.h"
#include "DiaryKit/Import/ImportPlanner.h"
#include "DiaryKit/Import/ImportRecordKeys.h"
#include "tests/replay/Replay.h"

namespace diary::replay {

namespace {

using Trait = ImportPlan::Sample::Trait;

constexpr std::array<QLatin1String, 5> kTraits = {
    QLatin1String("several"), QLatin1String("appended"), QLatin1String("headings"),
    QLatin1String("longest"), QLatin1String("earliest")};

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
    for (const QJsonValue& value : values) list << value.toString();
    return list;
}

QJsonValue orNull(const std::optional<QString>& value) {
    return value ? QJsonValue(*value) : QJsonValue(QJsonValue::Null);
}

ImportSource source(const QJsonValue& in) {
    return import_source::parse(text(in, "source")).value_or(ImportSource::datedText);
}

MonthDay monthDay(const QJsonValue& in) {
    const QJsonValue value = in[QLatin1String("monthDay")];
    return {number(value, "month"), number(value, "day")};
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
    for (const QJsonValue& one : array(in, "entries")) list.push_back(entry(one));
    return list;
}

ImportOptions options(const QJsonValue& in) {
    const QJsonValue given = in[QLatin1String("options")];
    ImportOptions options;
    options.conflict = text(given, "conflict") == QLatin1String("skip")
                           ? ImportOptions::Conflict::skip
                           : ImportOptions::Conflict::append;
    options.place = flag(given, "place");
    options.weather = flag(given, "weather");
    options.mood = flag(given, "mood");
    options.tags = flag(given, "tags");
    options.timeForSingle = flag(given, "timeForSingle");
    for (const QString& one : texts(array(given, "excludedJournals"))) {
        options.excludedJournals.insert(one);
    }
    return options;
}

EntryRenderer::Placement placement(const QJsonValue& in) {
    return flag(in, "appended") ? EntryRenderer::Placement::Appended
                                : EntryRenderer::Placement::Alone;
}

std::vector<ImportRecord> records(const QJsonArray& values) {
    std::vector<ImportRecord> list;
    for (const QJsonValue& value : values) {
        auto record = ImportRecord::decode(QJsonDocument(value.toObject()).toJson());
        if (record) list.push_back(std::move(*record));
    }
    return list;
}

QJsonObject json(const MonthDay& day) {
    return {{QStringLiteral("month"), day.month}, {QStringLiteral("day"), day.day}};
}

QJsonObject json(const ImportPlan::Addition& addition, ImportSource source) {
    QJsonArray keys;
    for (const ImportedEntry& one : addition.entries) {
        keys.append(EntryRenderer::identity(one, source));
    }
    return {{QStringLiteral("year"), addition.year},
            {QStringLiteral("text"), addition.text},
            {QStringLiteral("appended"), addition.appended},
            {QStringLiteral("entryKeys"), keys}};
}

QJsonObject json(const ImportPlan::FileChange& change, ImportSource source) {
    QJsonArray additions;
    for (const ImportPlan::Addition& one : change.additions) additions.append(json(one, source));
    return {{QStringLiteral("monthDay"), json(change.monthDay)},
            {QStringLiteral("existed"), change.existed},
            {QStringLiteral("entryCount"), change.entryCount},
            {QStringLiteral("additions"), additions}};
}

QJsonObject json(const ImportPlan::Stats& stats) {
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

QJsonArray json(const std::vector<ImportPlan::Sample>& samples) {
    QJsonArray list;
    for (const ImportPlan::Sample& sample : samples) {
        QJsonArray traits;
        for (const Trait trait : sample.traits) traits.append(kTraits[static_cast<size_t>(trait)]);
        list.append(QJsonObject{{QStringLiteral("monthDay"), json(sample.monthDay)},
                                {QStringLiteral("year"), sample.year},
                                {QStringLiteral("existing"), sample.existing},
                                {QStringLiteral("added"), sample.added},
                                {QStringLiteral("traits"), traits}});
    }
    return list;
}

QJsonValue blocks(const QJsonObject& in) {
    QJsonArray out;
    for (const auto& block : EntryRenderer::blocks(entries(in), options(in), placement(in))) {
        out.append(orNull(block));
    }
    return out;
}

QJsonValue plan(const QJsonObject& in) {
    const QJsonValue given = in[QLatin1String("batch")];
    const ImportBatch batch{
        .source = source(given), .name = text(given, "name"), .entries = entries(given)};
    const QJsonObject files = in[QLatin1String("files")].toObject();
    const ImportPlan plan = ImportPlanner::plan(
        batch, options(in), records(in[QLatin1String("history")].toArray()),
        [&](const MonthDay& day) -> std::optional<QString> {
            const QJsonValue file = files[day.fileName()];
            return file.isString() ? std::optional(file.toString()) : std::nullopt;
        });
    QJsonArray changes;
    for (const ImportPlan::FileChange& change : plan.changes) {
        changes.append(json(change, batch.source));
    }
    return QJsonObject{{QStringLiteral("changes"), changes},
                       {QStringLiteral("stats"), json(plan.stats)},
                       {QStringLiteral("samples"), json(plan.samples)}};
}

QJsonValue pickSamples(const QJsonObject& in) {
    std::vector<ImportPlan::Sample> samples;
    for (const QJsonValue& value : array(in, "samples")) {
        ImportPlan::Sample sample{.monthDay = monthDay(value),
                                  .year = number(value, "year"),
                                  .existing = text(value, "existing"),
                                  .added = text(value, "added")};
        for (const QString& trait : texts(array(value, "traits"))) {
            const auto* found = std::find(kTraits.begin(), kTraits.end(), trait);
            sample.traits.insert(static_cast<Trait>(found - kTraits.begin()));
        }
        samples.push_back(std::move(sample));
    }
    return json(ImportPlanner::pickSamples(samples));
}

QJsonValue entryKeys(const QJsonObject& in) {
    const QSet<QString> keys =
        ImportLog::entryKeys(records(in[QLatin1String("records")].toArray()), source(in),
                             monthDay(in), optionalText(in, "text"));
    QStringList sorted(keys.begin(), keys.end());
    sorted.sort();
    return QJsonArray::fromStringList(sorted);
}

QJsonValue decodeRecord(const QJsonObject& in) {
    const auto record = ImportRecord::decode(text(in, "text").toUtf8());
    return record ? QJsonDocument::fromJson(record->encoded()).object()
                  : QJsonValue(QJsonValue::Null);
}

QJsonValue recordDays(const QJsonObject& in) {
    ImportRecord record;
    for (const QString& day : texts(array(in, "days"))) record.files.push_back({.day = day});
    QJsonArray out;
    for (const MonthDay& day : record.monthDays()) out.append(json(day));
    return out;
}

void addRendering(Table& table) {
    table[QStringLiteral("EntryRenderer.prepare")] = [](const QJsonObject& in) -> QJsonValue {
        return EntryRenderer::prepare(text(in, "body"));
    };
    table[QStringLiteral("EntryRenderer.metaLine")] = [](const QJsonObject& in) {
        return orNull(EntryRenderer::metaLine(entry(in[QLatin1String("entry")]), options(in)));
    };
    table[QStringLiteral("EntryRenderer.blocks")] = blocks;
    table[QStringLiteral("EntryRenderer.section")] = [](const QJsonObject& in) -> QJsonValue {
        return EntryRenderer::section(entries(in), options(in), placement(in));
    };
    table[QStringLiteral("EntryRenderer.identity")] = [](const QJsonObject& in) -> QJsonValue {
        return EntryRenderer::identity(entry(in[QLatin1String("entry")]), source(in));
    };
    table[QStringLiteral("EntryRenderer.matchesWholeSection")] =
        [](const QJsonObject& in) -> QJsonValue {
        return EntryRenderer::matchesWholeSection(entry(in[QLatin1String("entry")]),
                                                  text(in, "body"), options(in));
    };
}

void addRecognition(Table& table) {
    table[QStringLiteral("ImportLog.hash")] = [](const QJsonObject& in) -> QJsonValue {
        return ImportLog::hash(text(in, "text"));
    };
    table[QStringLiteral("ImportLog.bigramCount")] = [](const QJsonObject& in) -> QJsonValue {
        return ImportLog::bigramCount(text(in, "text"));
    };
    table[QStringLiteral("ImportLog.isStillThere")] = [](const QJsonObject& in) -> QJsonValue {
        return ImportLog::isStillThere(text(in, "entryText"), text(in, "sectionBody"));
    };
    table[QStringLiteral("ImportLog.entryKeys")] = entryKeys;
    table[QStringLiteral("ImportRecord.decode")] = decodeRecord;
    table[QStringLiteral("ImportRecord.monthDays")] = recordDays;
}

}  // namespace

void addPlanFunctions(Table& table) {
    addRendering(table);
    addRecognition(table);
    table[QStringLiteral("ImportPlanner.plan")] = plan;
    table[QStringLiteral("ImportPlanner.pickSamples")] = pickSamples;
}

}  // namespace diary::replay
