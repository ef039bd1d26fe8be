#include "tests/replay/ScenarioCases.h"

#include <QtCore/QJsonArray>
#include <QtCore/QRegularExpression>
#include <algorithm>
#include <functional>

#include "DiaryKit/Vault/YearSectionParser.h"

namespace velmar_replay {

namespace {

using Map = std::function<QJsonValue(const QJsonValue&)>;

bool hasHeader(const QJsonValue& dated) {
    const int year = dated[QLatin1String("year")].toInt();
    return year >= 1000 && year <= 9999;
}

bool leavesFenceOpen(const QJsonValue& addition) {
    return diary::YearSectionParser::leavesFenceOpen(addition[QLatin1String("text")].toString());
}

// All additions of all plans, in their order.
QJsonArray additionsOf(const QJsonValue& step) {
    QJsonArray all;
    const QJsonArray changes = step[QLatin1String("plan")][QLatin1String("changes")].toArray();
    for (const auto& change : changes) {
        for (const auto& one : change[QLatin1String("additions")].toArray()) all.append(one);
    }
    return all;
}

bool anyAddition(const QJsonObject& story, const std::function<bool(const QJsonValue&)>& holds) {
    const QJsonArray steps = story[QLatin1String("steps")].toArray();
    return std::any_of(steps.begin(), steps.end(), [&](const QJsonValue& step) {
        const QJsonArray additions = additionsOf(step);
        return std::any_of(additions.begin(), additions.end(), holds);
    });
}

QJsonArray filtered(const QJsonValue& list, const std::function<bool(const QJsonValue&)>& holds,
                    const Map& map = {}) {
    QJsonArray kept;
    for (const auto& one : list.toArray()) {
        const QJsonValue mapped = map ? map(one) : one;
        if (holds(mapped)) kept.append(mapped);
    }
    return kept;
}

// Every line that looks like a header and is none, and how many blank lines stand where, gone.
QJsonValue withoutEmptyHeaders(const QJsonValue& text) {
    static const QRegularExpression header(QStringLiteral("(?m)^## (-?\\d{1,3}|\\d{5,})$"));
    static const QRegularExpression blanks(QStringLiteral("\\n{2,}"));
    if (!text.isString()) return text;
    return text.toString().remove(header).replace(blanks, QStringLiteral("\n")).trimmed();
}

QJsonObject cleanedFiles(const QJsonObject& files) {
    QJsonObject cleaned;
    for (const QString& name : files.keys()) {
        const QJsonValue text = withoutEmptyHeaders(files[name]);
        const bool isBlank =
            text.isString() && text.toString() == QLatin1String("# ") + name.chopped(3);
        if (!isBlank) cleaned[name] = text;
    }
    return cleaned;
}

// A day in a plan or record, without its additions under `key` that have no header.
Map cleanedDay(const QString& key) {
    return [key](const QJsonValue& value) -> QJsonValue {
        QJsonObject day = value.toObject();
        day[key] = filtered(day[key], hasHeader);
        for (const char* derived : {"entryCount", "after", "before", "existed"}) {
            day.remove(QLatin1String(derived));
        }
        return day;
    };
}

QJsonArray cleanedDays(const QJsonValue& days, const QString& key) {
    return filtered(
        days, [&](const QJsonValue& day) { return !day[key].toArray().isEmpty(); },
        cleanedDay(key));
}

QJsonValue cleanedRecord(const QJsonValue& value) {
    if (!value.isObject()) return value;
    QJsonObject record = value.toObject();
    record[QLatin1String("files")] =
        cleanedDays(record[QLatin1String("files")], QStringLiteral("added"));
    record.remove(QStringLiteral("entries"));
    record.remove(QStringLiteral("days"));
    return record;
}

QJsonValue cleanedPlan(const QJsonValue& value) {
    const QJsonValue duplicates = value[QLatin1String("stats")][QLatin1String("duplicates")];
    return QJsonObject{{QStringLiteral("changes"),
                        cleanedDays(value[QLatin1String("changes")], QStringLiteral("additions"))},
                       {QStringLiteral("duplicates"), duplicates}};
}

QJsonValue cleanedStep(const QJsonValue& value) {
    if (!value.isObject()) return value;
    QJsonObject step = value.toObject();
    if (step.contains(QLatin1String("plan"))) {
        step[QLatin1String("plan")] = cleanedPlan(step[QLatin1String("plan")]);
        step[QLatin1String("record")] = cleanedRecord(step[QLatin1String("record")]);
        step.remove(QStringLiteral("progress"));
    } else if (step[QLatin1String("result")].isObject()) {
        QJsonObject result = step[QLatin1String("result")].toObject();
        result.remove(QStringLiteral("notFound"));
        step[QLatin1String("result")] = result;
    }
    return step;
}

}  // namespace

Departure departure(const QJsonObject& recordedStory) {
    const auto isLost = [](const QJsonValue& one) { return !hasHeader(one); };
    if (anyAddition(recordedStory, isLost)) return Departure::HeaderlessYears;
    return anyAddition(recordedStory, leavesFenceOpen) ? Departure::OpenFence : Departure::None;
}

QJsonObject withoutHeaderlessYears(const QJsonObject& story) {
    const auto all = [](const QJsonValue&) { return true; };
    return {
        {QStringLiteral("steps"), filtered(story[QLatin1String("steps")], all, cleanedStep)},
        {QStringLiteral("files"), cleanedFiles(story[QLatin1String("files")].toObject())},
        {QStringLiteral("records"), filtered(story[QLatin1String("records")], all, cleanedRecord)},
        {QStringLiteral("journals"), story[QLatin1String("journals")]}};
}

QJsonObject upToOpenFence(const QJsonObject& story, const QJsonObject& recordedStory) {
    QJsonArray steps;
    const QJsonArray recorded = recordedStory[QLatin1String("steps")].toArray();
    for (qsizetype i = 0; i < recorded.size(); ++i) {
        const QJsonValue step = story[QLatin1String("steps")][i];
        const QJsonArray additions = additionsOf(recorded[i]);
        if (std::none_of(additions.begin(), additions.end(), leavesFenceOpen)) {
            steps.append(step);
            continue;
        }
        QJsonArray closed;
        for (const auto& one : additionsOf(step)) {
            const QString text = one[QLatin1String("text")].toString();
            closed.append(QJsonObject{
                {QStringLiteral("year"), one[QLatin1String("year")]},
                {QStringLiteral("entryKeys"), one[QLatin1String("entryKeys")]},
                {QStringLiteral("text"), diary::YearSectionParser::closingFence(text)}});
        }
        steps.append(closed);
        break;
    }
    return {{QStringLiteral("steps"), steps}};
}

}  // namespace velmar_replay
