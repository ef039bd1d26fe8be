// Date lines told by regular expressions in ICU: slow, and the yardstick for the scanners.
#pragma once

#include <QtCore/QHash>
#include <QtCore/QString>
#include <array>
#include <optional>
#include <vector>

#include "DiaryKit/DatedText/DateLine.h"
#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Import/LocalTime.h"
#include "tests/support/IcuPattern.h"

namespace diary::test {

#define VELMAR_WEEKDAY \
    u"(?:mon|tue|tues|wed|thu|thur|thurs|fri|sat|sun)(?:day|sday|nesday|rsday|urday)?\\.?"
#define VELMAR_MONTH                                                                  \
    u"(january|february|march|april|may|june|july|august|september|october|november|" \
    u"december|jan|feb|mar|apr|jun|jul|aug|sept|sep|oct|nov|dec)"

class PatternDateLine {
public:
    [[nodiscard]] std::optional<DateLine::Match> match(const QString& line) const {
        QString text = text::trimmedOfBlanks(line).toString();
        while (!text.isEmpty() && QStringView(u"#*>").contains(text.front())) text.remove(0, 1);
        while (text.startsWith(u' ')) text.remove(0, 1);
        DateLine::Match match;
        bool isTimeOpen = true;
        std::optional<Groups> groups;
        if ((groups = find(m_bracketed, text))) {
            if (!setDate(match, number(1), number(2), number(3))) return std::nullopt;
            if (number(4) && number(5)) {
                match.time = DateLine::clockTime(*number(4), *number(5), group(6));
                isTimeOpen = false;
            }
        } else if ((groups = find(m_yearFirst, text))) {
            const bool isUnknown = group(1).startsWith(u'?');
            const auto year = isUnknown ? std::nullopt : number(1);
            if (!isUnknown && !year) return std::nullopt;
            if (!setDate(match, year, number(2), number(3), isUnknown)) return std::nullopt;
        } else if ((groups = find(m_monthNameFirst, text))) {
            if (!setDate(match, number(3), month(1), number(2))) return std::nullopt;
        } else if ((groups = find(m_dayFirstName, text))) {
            if (!setDate(match, number(3), month(2), number(1))) return std::nullopt;
        } else if ((groups = find(m_twoNumbersFirst, text))) {
            const auto a = number(1);
            const auto b = number(2);
            if (!a || !b) return std::nullopt;
            if (!setDate(match, number(3), *a <= 12 ? a : b, *a <= 12 ? b : a)) return std::nullopt;
            match.isAmbiguousOrder = *a <= 12 && *b < 13 && *a != *b;
        } else {
            return std::nullopt;
        }
        QString rest = behind(text);
        for (int i = 0; i < 2 && find(m_weekday, rest); ++i) rest = behind(rest);
        if (isTimeOpen && find(m_clock, rest)) {
            const auto hour = number(2);
            const auto minute = number(3);
            if (hour && minute && *hour <= 23 && *minute <= 59) {
                const QString marker = group(4).isEmpty() ? group(1) : group(4);
                match.time = DateLine::clockTime(*hour, *minute, marker);
                rest = behind(rest);
            }
        }
        const auto isSeparator = [](QChar c) {
            return text::isBlank(c.unicode()) || QStringView(u" \t*·•|:：,，、-—–").contains(c);
        };
        while (!rest.isEmpty() && isSeparator(rest.front())) rest.remove(0, 1);
        while (!rest.isEmpty() && isSeparator(rest.back())) rest.chop(1);
        match.rest = rest;
        return match;
    }

private:
    using Groups = std::vector<TextRange>;

    // The groups of a match, kept for `group` and `number`.
    std::optional<Groups> find(const IcuPattern& pattern, const QString& text) const {
        const auto matches = pattern.matches(text);
        if (matches.empty()) return std::nullopt;
        m_text = text;
        m_groups = matches.front();
        return m_groups;
    }

    [[nodiscard]] QString group(std::size_t index) const {
        const TextRange range = m_groups[index];
        return range.location < 0 ? QString() : m_text.mid(range.location, range.length);
    }

    [[nodiscard]] QString behind(const QString& text) const {
        return text.mid(m_groups[0].location + m_groups[0].length);
    }

    [[nodiscard]] std::optional<int> number(std::size_t index) const {
        const QString digits = group(index);
        for (const QChar c : digits) {
            if (c < u'0' || c > u'9') return std::nullopt;
        }
        if (digits.isEmpty()) return std::nullopt;
        return digits.toInt();
    }

    [[nodiscard]] std::optional<int> month(std::size_t index) const {
        static const QStringList names = {
            QStringLiteral("january"), QStringLiteral("february"), QStringLiteral("march"),
            QStringLiteral("april"),   QStringLiteral("may"),      QStringLiteral("june"),
            QStringLiteral("july"),    QStringLiteral("august"),   QStringLiteral("september"),
            QStringLiteral("october"), QStringLiteral("november"), QStringLiteral("december")};
        const QString name = group(index).toLower();
        for (int i = 0; i < names.size(); ++i) {
            if (name == names[i] || name == names[i].left(3)) return i + 1;
        }
        return name == u"sept" ? 9 : 0;
    }

    static bool setDate(DateLine::Match& match, std::optional<int> year, std::optional<int> month,
                        std::optional<int> day, bool isYearUnknown = false) {
        if (!month || !day || (!year && !isYearUnknown)) return false;
        if (year && (*year < 1900 || *year > 2100)) return false;
        if (!LocalTime::isValid(year.value_or(2000), *month, *day)) return false;
        match.year = year;
        match.month = *month;
        match.day = *day;
        return true;
    }

    IcuPattern m_bracketed{
        u"^\\[(\\d{4})-(\\d{1,2})-(\\d{1,2})(?:[ T](\\d{1,2}):(\\d{2})(?::\\d{2})?\\s*"
        u"([AaPp][Mm])?)?\\]"};
    IcuPattern m_yearFirst{
        u"^(\\d{4}|\\?{4})\\s*(?:[-/.]|年)\\s*(\\d{1,2})\\s*(?:[-/"
        u".]|月)\\s*(\\d{1,2})(?!\\d)\\s*日?"};
    IcuPattern m_monthNameFirst{
        u"(?i)^(?:" VELMAR_WEEKDAY u",?\\s+)?" VELMAR_MONTH
        u"\\.?\\s+(\\d{1,2})(?:st|nd|rd|th)?,?\\s+(\\d{4})"};
    IcuPattern m_dayFirstName{
        u"(?i)^(?:" VELMAR_WEEKDAY u",?\\s+)?(\\d{1,2})(?:st|nd|rd|th)?\\s+" VELMAR_MONTH
        u"\\.?,?\\s+(\\d{4})"};
    IcuPattern m_twoNumbersFirst{u"^(\\d{1,2})[/.](\\d{1,2})[/.](\\d{4})(?!\\d)"};
    IcuPattern m_weekday{
        u"(?i)^[\\s,，、]*[(（]?(?:星期[一二三四五六日天]|周[一二三四五六日天]|"
        u"礼拜[一二三四五六日天]|[月火水木金土日](?:曜日?)?(?=[)）\\s]|$)"
        u"|" VELMAR_WEEKDAY u")[)）]?"};
    IcuPattern m_clock{
        u"^[\\s,，]*(?:(上午|下午|晚上|凌晨|早上|中午|午前|午後)\\s*)?(\\d{1,2})[:：](\\d{2})"
        u"(?:[:：]\\d{2})?\\s*([AaPp]\\.?[Mm]\\.?)?"};

    mutable QString m_text;
    mutable Groups m_groups;
};

#undef VELMAR_WEEKDAY
#undef VELMAR_MONTH

}  // namespace diary::test
