// The vault's pure functions in their JSON shapes.
#include <QtCore/QJsonArray>

#include "DiaryKit/Vault/DiaryDay.h"
#include "DiaryKit/Vault/DocumentMerge.h"
#include "DiaryKit/Vault/MonthDay.h"
#include "DiaryKit/Vault/YearSectionParser.h"
#include "tests/replay/Replay.h"

namespace diary::replay {

namespace {

QString text(const QJsonObject& in, const char* key = "text") {
    return in[QLatin1String(key)].toString();
}

int number(const QJsonObject& in, const char* key) {
    return in[QLatin1String(key)].toInt();
}

MonthDay monthDay(const QJsonObject& in) {
    const QJsonObject value = in[QLatin1String("monthDay")].toObject();
    return {number(value, "month"), number(value, "day")};
}

QJsonValue json(const MonthDay& day) {
    return QJsonObject{{QStringLiteral("month"), day.month}, {QStringLiteral("day"), day.day}};
}

QJsonValue json(const std::optional<MonthDay>& day) {
    return day ? json(*day) : QJsonValue(QJsonValue::Null);
}

QJsonValue json(const std::optional<int>& value) {
    return value ? QJsonValue(*value) : QJsonValue(QJsonValue::Null);
}

QJsonValue json(const TextRange& range) {
    return QJsonArray{range.location, range.length};
}

QJsonValue monthDayValues(const QJsonObject& in) {
    const MonthDay day = monthDay(in);
    const int year = number(in, "year");
    return QJsonObject{{QStringLiteral("fileName"), day.fileName()},
                       {QStringLiteral("headerTitle"), day.headerTitle()},
                       {QStringLiteral("ordinalInCycle"), day.ordinalInCycle()},
                       {QStringLiteral("ordinalInYear"), day.ordinal(year)},
                       {QStringLiteral("daysInYear"), day.daysInYear(year)},
                       {QStringLiteral("weekdayInYear"), json(day.weekday(year))},
                       {QStringLiteral("advanced"), json(day.advanced(number(in, "by")))}};
}

QJsonValue diaryDayValues(const QJsonObject& in) {
    const QJsonObject value = in[QLatin1String("day")].toObject();
    const DiaryDay day{number(value, "year"), number(value, "month"), number(value, "day")};
    const DiaryDay later = day.advanced(number(in, "by"));
    return QJsonObject{
        {QStringLiteral("monthDay"), json(day.monthDay())},
        {QStringLiteral("weekday"), day.weekday()},
        {QStringLiteral("advanced"), QJsonObject{{QStringLiteral("year"), later.year},
                                                 {QStringLiteral("month"), later.month},
                                                 {QStringLiteral("day"), later.day}}}};
}

QJsonValue sections(const QJsonObject& in) {
    QJsonArray out;
    for (const YearSectionParser::Section& section : YearSectionParser::sections(text(in))) {
        out.append(QJsonObject{{QStringLiteral("year"), section.year},
                               {QStringLiteral("headerRange"), json(section.headerRange)},
                               {QStringLiteral("bodyRange"), json(section.bodyRange)}});
    }
    return out;
}

QJsonValue yearsWithContent(const QJsonObject& in) {
    QJsonArray out;
    for (const int year : YearSectionParser::yearsWithContent(text(in))) out.append(year);
    return out;
}

QJsonValue sectionBodies(const QJsonObject& in) {
    QJsonArray out;
    for (const YearSectionParser::YearBody& one : YearSectionParser::sectionBodies(text(in))) {
        out.append(
            QJsonObject{{QStringLiteral("year"), one.year}, {QStringLiteral("body"), one.body}});
    }
    return out;
}

QJsonValue ensuringSection(const QJsonObject& in) {
    const auto ensured =
        YearSectionParser::ensuringSection(number(in, "year"), monthDay(in), text(in));
    return QJsonObject{{QStringLiteral("text"), ensured.text},
                       {QStringLiteral("caretUTF16Offset"), ensured.caretUTF16Offset}};
}

QJsonValue documentPreamble(const QJsonObject& in) {
    const auto preamble = YearSectionParser::documentPreamble(text(in));
    return preamble ? QJsonValue(*preamble) : QJsonValue(QJsonValue::Null);
}

void addCalendar(Table& table) {
    table[QStringLiteral("MonthDay.parse")] = [](const QJsonObject& in) {
        return json(MonthDay::parse(text(in, "fileName")));
    };
    table[QStringLiteral("MonthDay.values")] = monthDayValues;
    table[QStringLiteral("MonthDay.isLeapYear")] = [](const QJsonObject& in) -> QJsonValue {
        return MonthDay::isLeapYear(number(in, "year"));
    };
    table[QStringLiteral("DiaryDay.values")] = diaryDayValues;
}

void addReading(Table& table) {
    table[QStringLiteral("YearSectionParser.sections")] = sections;
    table[QStringLiteral("YearSectionParser.yearsWithContent")] = yearsWithContent;
    table[QStringLiteral("YearSectionParser.sectionBodies")] = sectionBodies;
    table[QStringLiteral("YearSectionParser.documentPreamble")] = documentPreamble;
    table[QStringLiteral("YearSectionParser.isEffectivelyEmpty")] =
        [](const QJsonObject& in) -> QJsonValue {
        return YearSectionParser::isEffectivelyEmpty(text(in), text(in, "title"));
    };
}

void addEditing(Table& table) {
    table[QStringLiteral("YearSectionParser.ensuringSection")] = ensuringSection;
    table[QStringLiteral("YearSectionParser.appendingBody")] =
        [](const QJsonObject& in) -> QJsonValue {
        return YearSectionParser::appendingBody(text(in, "body"), text(in, "separator"),
                                                number(in, "year"), monthDay(in), text(in));
    };
    table[QStringLiteral("YearSectionParser.replacingBody")] =
        [](const QJsonObject& in) -> QJsonValue {
        return YearSectionParser::replacingBody(text(in, "body"), number(in, "year"), monthDay(in),
                                                text(in));
    };
    table[QStringLiteral("YearSectionParser.removingSection")] =
        [](const QJsonObject& in) -> QJsonValue {
        return YearSectionParser::removingSection(number(in, "year"), text(in));
    };
    table[QStringLiteral("YearSectionParser.mergingDocuments")] =
        [](const QJsonObject& in) -> QJsonValue {
        return YearSectionParser::mergingDocuments(text(in, "current"), text(in, "other"),
                                                   monthDay(in), text(in, "conflictMarker"));
    };
}

}  // namespace

void addVaultFunctions(Table& table) {
    addCalendar(table);
    addReading(table);
    addEditing(table);
}

}  // namespace diary::replay
