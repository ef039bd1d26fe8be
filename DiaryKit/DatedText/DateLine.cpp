// Scanners written by hand instead of regular expressions, since every line of an import passes
// here. Each states its pattern; the tests hold all of them against the patterns in ICU.
#include "DiaryKit/DatedText/DateLine.h"

#include <algorithm>
#include <array>

#include "DiaryKit/DatedText/LineCursor.h"
#include "DiaryKit/Import/LocalTime.h"

namespace diary::DateLine {

namespace {

using Time = ImportedEntry::Time;

// What a form of date gives, before anybody has looked whether there is such a day. Numbers in
// digits outside ASCII are none.
struct Found {
    std::optional<int> year;
    std::optional<int> month;
    std::optional<int> day;
    std::optional<Time> time = {};
    bool hasUnknownYear = false;
    bool isAmbiguousOrder = false;
};

constexpr std::array<QStringView, 12> kMonths = {
    u"january", u"february", u"march",     u"april",   u"may",      u"june",
    u"july",    u"august",   u"september", u"october", u"november", u"december"};

constexpr std::array<QStringView, 10> kWeekdays = {u"mon",  u"tue",   u"tues", u"wed", u"thu",
                                                   u"thur", u"thurs", u"fri",  u"sat", u"sun"};
constexpr std::array<QStringView, 5> kWeekdayEndings = {u"day", u"sday", u"nesday", u"rsday",
                                                        u"urday"};

constexpr std::array<QStringView, 8> kDayParts = {u"上午", u"下午", u"晚上", u"凌晨",
                                                  u"早上", u"中午", u"午前", u"午後"};

// january|…|december|jan|…|sept|sep|…|dec. White space or a dot must follow, so the longest form
// that fits is the only one that can.
std::optional<int> takeMonth(LineCursor& line) {
    for (std::size_t i = 0; i < kMonths.size(); ++i) {
        const QStringView name = kMonths[i];
        if (!line.takeLetters(name.first(3))) continue;
        if (!line.takeLetters(name.sliced(3)) && name == u"september") line.takeLetters(u"t");
        return static_cast<int>(i) + 1;
    }
    return std::nullopt;
}

// (?:mon|tue|tues|wed|thu|thur|thurs|fri|sat|sun)(?:day|sday|nesday|rsday|urday)?\.? in any case.
// Takes the first reading, in the pattern's order, behind which `follows` holds.
template <typename Follows>
bool takeWeekdayName(LineCursor& line, Follows follows) {
    const auto takeUpTo = [&](LineCursor end) {
        end.take(u'.');
        if (!follows(end)) return false;
        line = end;
        return true;
    };
    for (const QStringView start : kWeekdays) {
        LineCursor stem = line;
        if (!stem.takeFolded(start)) continue;
        for (const QStringView ending : kWeekdayEndings) {
            LineCursor whole = stem;
            if (whole.takeFolded(ending) && takeUpTo(whole)) return true;
        }
        if (takeUpTo(stem)) return true;
    }
    return false;
}

// (?:W,?\s+)? with W for the name of a weekday.
void skipLeadingWeekday(LineCursor& line) {
    takeWeekdayName(line, [](LineCursor& behind) {
        behind.take(u',');
        return behind.takeWhiteSpace();
    });
}

// (?:st|nd|rd|th)? in any case. The two ligatures of s and t fold to these letters.
void skipOrdinal(LineCursor& line) {
    if (line.takeOneOf(u"\uFB05\uFB06")) return;
    for (const QStringView ending : {u"st", u"nd", u"rd", u"th"}) {
        if (line.takeFolded(ending)) return;
    }
}

// [ T](\d{1,2}):(\d{2})(?::\d{2})?\s*([AaPp][Mm])?
bool takeBracketedTime(LineCursor& line, Found& found) {
    if (!line.takeOneOf(u" T")) return false;
    const QStringView hourDigits = line.takeDigits(1, 2);
    if (hourDigits.isEmpty() || !line.take(u':')) return false;
    const QStringView minuteDigits = line.takeDigits(2, 2);
    if (minuteDigits.isEmpty()) return false;
    if (line.take(u':') && line.takeDigits(2, 2).isEmpty()) return false;
    line.skipWhiteSpace();
    const LineCursor marker = line;
    if (line.takeOneOf(u"AaPp") && !line.takeOneOf(u"Mm")) return false;
    const std::optional<int> hour = numberOf(hourDigits);
    const std::optional<int> minute = numberOf(minuteDigits);
    if (hour && minute) found.time = clockTime(*hour, *minute, line.since(marker));
    return true;
}

// ^\[(\d{4})-(\d{1,2})-(\d{1,2})(?:TIME)?\]
std::optional<Found> takeBracketed(LineCursor& line) {
    Found found;
    if (!line.take(u'[')) return std::nullopt;
    found.year = numberOf(line.takeDigits(4, 4));
    if (!line.take(u'-')) return std::nullopt;
    found.month = numberOf(line.takeDigits(1, 2));
    if (!line.take(u'-')) return std::nullopt;
    found.day = numberOf(line.takeDigits(1, 2));
    if (!line.isAt(u']') && !takeBracketedTime(line, found)) return std::nullopt;
    if (!line.take(u']')) return std::nullopt;
    return found;
}

bool takeSeparator(LineCursor& line, QStringView separators) {
    line.skipWhiteSpace();
    if (!line.takeOneOf(separators)) return false;
    line.skipWhiteSpace();
    return true;
}

// ^(\d{4}|\?{4})\s*(?:[-/.]|年)\s*(\d{1,2})\s*(?:[-/.]|月)\s*(\d{1,2})(?!\d)\s*日?
std::optional<Found> takeYearFirst(LineCursor& line) {
    Found found;
    found.hasUnknownYear = line.take(u"????");
    if (!found.hasUnknownYear) found.year = numberOf(line.takeDigits(4, 4));
    if (!takeSeparator(line, u"-/.年")) return std::nullopt;
    found.month = numberOf(line.takeDigits(1, 2));
    if (!takeSeparator(line, u"-/.月")) return std::nullopt;
    found.day = numberOf(line.takeDigits(1, 2));
    if (line.isAtDigit()) return std::nullopt;
    line.skipWhiteSpace();
    line.take(u'日');
    return found;
}

// ^(?:W,?\s+)?(MONTH)\.?\s+(\d{1,2})(?:st|nd|rd|th)?,?\s+(\d{4}), behind the weekday.
std::optional<Found> takeMonthNameFirst(LineCursor& line) {
    Found found;
    found.month = takeMonth(line);
    line.take(u'.');
    if (!line.takeWhiteSpace()) return std::nullopt;
    found.day = numberOf(line.takeDigits(1, 2));
    skipOrdinal(line);
    line.take(u',');
    if (!line.takeWhiteSpace()) return std::nullopt;
    found.year = numberOf(line.takeDigits(4, 4));
    return found;
}

// ^(?:W,?\s+)?(\d{1,2})(?:st|nd|rd|th)?\s+(MONTH)\.?,?\s+(\d{4}), behind the weekday.
std::optional<Found> takeDayFirst(LineCursor& line) {
    Found found;
    found.day = numberOf(line.takeDigits(1, 2));
    skipOrdinal(line);
    if (!line.takeWhiteSpace()) return std::nullopt;
    found.month = takeMonth(line);
    line.take(u'.');
    line.take(u',');
    if (!line.takeWhiteSpace()) return std::nullopt;
    found.year = numberOf(line.takeDigits(4, 4));
    return found;
}

// ^(\d{1,2})[/.](\d{1,2})[/.](\d{4})(?!\d)
std::optional<Found> takeTwoNumbersFirst(LineCursor& line) {
    constexpr int kMonthsOfYear = 12;
    Found found;
    const std::optional<int> a = numberOf(line.takeDigits(1, 2));
    if (!line.takeOneOf(u"/.")) return std::nullopt;
    const std::optional<int> b = numberOf(line.takeDigits(1, 2));
    if (!line.takeOneOf(u"/.")) return std::nullopt;
    found.year = numberOf(line.takeDigits(4, 4));
    if (!a || !b || line.isAtDigit()) return std::nullopt;
    const bool isMonthFirst = *a <= kMonthsOfYear;
    found.month = isMonthFirst ? *a : *b;
    found.day = isMonthFirst ? *b : *a;
    found.isAmbiguousOrder = isMonthFirst && *b <= kMonthsOfYear && *a != *b;
    return found;
}

std::optional<Found> takeAs(std::optional<Found> (*form)(LineCursor&), LineCursor& line) {
    LineCursor end = line;
    std::optional<Found> found = form(end);
    if (found) line = end;
    return found;
}

// A digit outside ASCII may begin a date too, but no number, so such a line has none anyway.
bool isDigitOrQuestionMark(QChar c) {
    return (c >= u'0' && c <= u'9') || c == u'?';
}

bool isLetterOfNames(QChar c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == QChar(0x017F);
}

// The forms begin in ways so different that at most one can match a line.
std::optional<Found> takeDate(LineCursor& line) {
    if (line.isAt(u'[')) return takeBracketed(line);
    const QChar first = line.rest().front();
    if (isLetterOfNames(first)) {
        skipLeadingWeekday(line);
        return line.isAtDigit() ? takeDayFirst(line) : takeMonthNameFirst(line);
    }
    if (!isDigitOrQuestionMark(first)) return std::nullopt;
    if (auto found = takeAs(takeYearFirst, line)) return found;
    if (auto found = takeAs(takeTwoNumbersFirst, line)) return found;
    return takeDayFirst(line);
}

// What is found as a date that may exist: 29 February does without a year.
std::optional<Match> validated(const Found& found) {
    constexpr int kFirstYear = 1900;
    constexpr int kLastYear = 2100;
    constexpr int kAnyLeapYear = 2000;
    if (!found.month || !found.day || (!found.year && !found.hasUnknownYear)) return std::nullopt;
    if (found.year && (*found.year < kFirstYear || *found.year > kLastYear)) return std::nullopt;
    if (!LocalTime::isValid(found.year.value_or(kAnyLeapYear), *found.month, *found.day)) {
        return std::nullopt;
    }
    return Match{.year = found.year,
                 .month = *found.month,
                 .day = *found.day,
                 .time = found.time,
                 .isAmbiguousOrder = found.isAmbiguousOrder};
}

// (?:星期|周|礼拜)[一二三四五六日天]
bool takeChineseWeekday(LineCursor& line) {
    return (line.take(u"星期") || line.take(u'周') || line.take(u"礼拜")) &&
           line.takeOneOf(u"一二三四五六日天");
}

// [月火水木金土日](?:曜日?)?(?=[)）\s]|$)
bool takeJapaneseWeekday(LineCursor& line) {
    if (!line.takeOneOf(u"月火水木金土日")) return false;
    if (line.take(u'曜')) line.take(u'日');
    return line.atEnd() || line.isAtOneOf(u")）") || line.isAtWhiteSpace();
}

// ^[\s,，、]*[(（]?(?:CHINESE|JAPANESE|W)[)）]?
bool skipWeekday(LineCursor& line) {
    LineCursor at = line;
    at.skipSeparators(u",，、");
    at.takeOneOf(u"(（");
    LineCursor chinese = at;
    LineCursor japanese = at;
    if (takeChineseWeekday(chinese)) {
        at = chinese;
    } else if (takeJapaneseWeekday(japanese)) {
        at = japanese;
    } else if (!takeWeekdayName(at, [](const LineCursor&) { return true; })) {
        return false;
    }
    at.takeOneOf(u")）");
    line = at;
    return true;
}

// [AaPp]\.?[Mm]\.?
QStringView takeMarker(LineCursor& line) {
    LineCursor at = line;
    if (!at.takeOneOf(u"AaPp")) return {};
    at.take(u'.');
    if (!at.takeOneOf(u"Mm")) return {};
    at.take(u'.');
    const QStringView marker = at.since(line);
    line = at;
    return marker;
}

QStringView takeDayPart(LineCursor& line) {
    for (const QStringView part : kDayParts) {
        if (line.take(part)) return part;
    }
    return {};
}

// ^[\s,，]*(?:(DAYPART)\s*)?(\d{1,2})[:：](\d{2})(?:[:：]\d{2})?\s*([AaPp]\.?[Mm]\.?)?
std::optional<Time> takeClock(LineCursor& line) {
    constexpr int kLastHour = 23;
    constexpr int kLastMinute = 59;
    LineCursor at = line;
    at.skipSeparators(u",，");
    const QStringView dayPart = takeDayPart(at);
    if (!dayPart.isEmpty()) at.skipWhiteSpace();
    const std::optional<int> hour = numberOf(at.takeDigits(1, 2));
    if (!hour || *hour > kLastHour || !at.takeOneOf(u":：")) return std::nullopt;
    const std::optional<int> minute = numberOf(at.takeDigits(2, 2));
    if (!minute || *minute > kLastMinute) return std::nullopt;
    LineCursor seconds = at;
    if (seconds.takeOneOf(u":：") && !seconds.takeDigits(2, 2).isEmpty()) at = seconds;
    at.skipWhiteSpace();
    const QStringView marker = takeMarker(at);
    line = at;
    return clockTime(*hour, *minute, marker.isEmpty() ? dayPart : marker);
}

QStringView withoutSeparators(QStringView rest) {
    const auto isSeparator = [](QChar c) {
        return text::isBlank(c.unicode()) || QStringView(u"*·•|:：,，、-—–").contains(c);
    };
    while (!rest.isEmpty() && isSeparator(rest.front())) rest = rest.sliced(1);
    while (!rest.isEmpty() && isSeparator(rest.back())) rest.chop(1);
    return rest;
}

// The line without what makes it a heading, a list item, a quote or bold.
QStringView withoutMarks(QStringView line) {
    qsizetype start = 0;
    while (start < line.size() && QStringView(u"#*>").contains(line[start])) ++start;
    while (start < line.size() && line[start] == u' ') ++start;
    return line.sliced(start);
}

}  // namespace

std::optional<Match> match(QStringView line) {
    const QStringView content = withoutMarks(text::trimmedOfBlanks(line));
    if (content.isEmpty()) return std::nullopt;
    LineCursor at(content);
    const std::optional<Found> found = takeDate(at);
    if (!found) return std::nullopt;
    std::optional<Match> match = validated(*found);
    if (!match) return std::nullopt;
    // "2021-03-04 周四 Thursday"
    if (skipWeekday(at)) skipWeekday(at);
    if (!match->time) match->time = takeClock(at);
    match->rest = withoutSeparators(at.rest()).toString();
    return match;
}

std::optional<DiaryDay> day(QStringView line) {
    const std::optional<Match> found = match(line);
    return found ? found->dayWithYear() : std::nullopt;
}

Time clockTime(int hour, int minute, QStringView marker) {
    constexpr int kHalfDay = 12;
    constexpr int kDay = 24;
    // 11:30 at noon is shortly before it, 1:30 is behind it.
    constexpr int kFirstHourOfNoon = 11;
    const QString word = marker.toString().toLower().remove(u'.');
    const auto isOneOf = [&](std::initializer_list<QStringView> words) {
        return std::find(words.begin(), words.end(), QStringView(word)) != words.end();
    };
    if (isOneOf({u"pm", u"下午", u"晚上", u"午後"}) && hour < kHalfDay) hour += kHalfDay;
    if (isOneOf({u"am", u"凌晨", u"早上", u"上午", u"午前"}) && hour == kHalfDay) hour = 0;
    if (word == u"中午" && hour < kFirstHourOfNoon) hour += kHalfDay;
    return {hour % kDay, minute};
}

}  // namespace diary::DateLine
