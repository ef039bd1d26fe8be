// Rendering, records and planning in their JSON shapes.
#include <QtCore/QJsonArray>
#include <algorithm>

#include "DiaryKit/Import/EntryRenderer.h"
#include "DiaryKit/Import/ImportPlanner.h"
#include "DiaryKit/Import/ImportRecordKeys.h"
#include "tests/replay/PlanShapes.h"
#include "tests/replay/Replay.h"

namespace diary::replay {

namespace {

using Trait = ImportPlan::Sample::Trait;

MonthDay monthDay(const QJsonValue& in) {
    const QJsonValue value = in[QLatin1String("monthDay")];
    return {number(value, "month"), number(value, "day")};
}

EntryRenderer::Placement placement(const QJsonValue& in) {
    return flag(in, "appended") ? EntryRenderer::Placement::Appended
                                : EntryRenderer::Placement::Alone;
}

QJsonValue blocks(const QJsonObject& in) {
    QJsonArray out;
    for (const auto& block :
         EntryRenderer::blocks(entries(in), options(in[QLatin1String("options")]), placement(in))) {
        out.append(orNull(block));
    }
    return out;
}

QJsonValue plan(const QJsonObject& in) {
    const ImportBatch given = batch(in[QLatin1String("batch")]);
    const QJsonObject files = in[QLatin1String("files")].toObject();
    const ImportPlan plan = ImportPlanner::plan(
        given, options(in[QLatin1String("options")]),
        records(in[QLatin1String("history")].toArray()),
        [&](const MonthDay& day) -> std::optional<QString> {
            const QJsonValue file = files[day.fileName()];
            return file.isString() ? std::optional(file.toString()) : std::nullopt;
        });
    return json(plan, given.source);
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
    return record ? QJsonValue(json(*record)) : QJsonValue(QJsonValue::Null);
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
        return orNull(EntryRenderer::metaLine(entry(in[QLatin1String("entry")]),
                                              options(in[QLatin1String("options")])));
    };
    table[QStringLiteral("EntryRenderer.blocks")] = blocks;
    table[QStringLiteral("EntryRenderer.section")] = [](const QJsonObject& in) -> QJsonValue {
        return EntryRenderer::section(entries(in), options(in[QLatin1String("options")]),
                                      placement(in));
    };
    table[QStringLiteral("EntryRenderer.identity")] = [](const QJsonObject& in) -> QJsonValue {
        return EntryRenderer::identity(entry(in[QLatin1String("entry")]), source(in));
    };
    table[QStringLiteral("EntryRenderer.matchesWholeSection")] =
        [](const QJsonObject& in) -> QJsonValue {
        return EntryRenderer::matchesWholeSection(entry(in[QLatin1String("entry")]),
                                                  text(in, "body"),
                                                  options(in[QLatin1String("options")]));
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
