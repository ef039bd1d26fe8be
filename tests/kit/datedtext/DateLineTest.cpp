#include "DiaryKit/DatedText/DateLine.h"

#include <gtest/gtest.h>

#include "tests/support/Printing.h"

namespace diary {
namespace {

// The match as a text: "2021-03-04 09:30 rest", "????" for no year, "?" behind an ambiguous date.
QString told(const QString& line) {
    const auto match = DateLine::match(line);
    if (!match) return QStringLiteral("none");
    QString text = match->year ? QString::number(*match->year) : QStringLiteral("????");
    text += QStringLiteral("-%1-%2")
                .arg(match->month, 2, 10, QLatin1Char('0'))
                .arg(match->day, 2, 10, QLatin1Char('0'));
    if (match->isAmbiguousOrder) text += u'?';
    if (match->time) text += u' ' + match->time->text();
    if (!match->rest.isEmpty()) text += u' ' + match->rest;
    return text;
}

struct Row {
    const char* name;
    const char16_t* line;
    const char16_t* told;
};

void PrintTo(const Row& row, std::ostream* stream) {
    *stream << row.name;
}

class Lines : public testing::TestWithParam<Row> {};

TEST_P(Lines, TellTheirDate) {
    EXPECT_EQ(told(QString::fromUtf16(GetParam().line)), QString::fromUtf16(GetParam().told));
}

constexpr Row kNumbers[] = {
    {"OrdinaryDate", u"2021-03-04", u"2021-03-04"},
    {"OneDigitEach", u"2021/3/4", u"2021-03-04"},
    {"MixedSeparators", u"2021.03-4", u"2021-03-04"},
    {"Chinese", u"2021年3月4日", u"2021-03-04"},
    {"SpacesWithin", u"2021 年 3 月 4 日", u"2021-03-04"},
    {"ThreeDigitsOfTheDay", u"2021-03-045", u"none"},
    {"UnknownYear", u"???\?-03-04", u"???\?-03-04"},
    {"ThreeQuestionMarks", u"??\?-03-04", u"none"},
    {"YearBeforeTheFirst", u"1899-05-01", u"none"},
    {"FirstYear", u"1900-05-01", u"1900-05-01"},
    {"LastYear", u"2100-05-01", u"2100-05-01"},
    {"YearBehindTheLast", u"2101-05-01", u"none"},
    {"LeapDay", u"2024-02-29", u"2024-02-29"},
    {"LeapDayOfACommonYear", u"2023-02-29", u"none"},
    {"LeapDayOfAnUnknownYear", u"???\?-02-29", u"???\?-02-29"},
    {"ThirtiethOfFebruary", u"???\?-02-30", u"none"},
    {"MonthZero", u"2021-00-04", u"none"},
    {"DayZero", u"2021-03-00", u"none"},
    {"FullWidthDigitsAreNoNumber", u"２０２１-03-04", u"none"},
    {"ADigitOfAnyScriptEndsNoDay", u"2021-03-04٣", u"none"},
    {"MonthFirst", u"3/4/2021", u"2021-03-04?"},
    {"Dots", u"3.4.2021", u"2021-03-04?"},
    {"EqualNumbersAreNotAmbiguous", u"4/4/2021", u"2021-04-04"},
    {"OnlyADayIsBeyondTwelve", u"12/13/2021", u"2021-12-13"},
    {"DayFirstWhereItMust", u"13/12/2021", u"2021-12-13"},
    {"NeitherIsAMonth", u"13/14/2021", u"none"},
    {"FiveDigitsOfTheYear", u"3/4/20215", u"none"},
    {"TwoDigitsOfTheYear", u"3/4/21", u"none"},
};

constexpr Row kNames[] = {
    {"MonthDayYear", u"March 3rd, 2021", u"2021-03-03"},
    {"ShortMonthWithDot", u"Mar. 3 2021", u"2021-03-03"},
    {"WeekdayAhead", u"Wednesday, March 3, 2021", u"2021-03-03"},
    {"ShortWeekdayWithDot", u"Thurs. March 4, 2021", u"2021-03-04"},
    {"DayMonthYear", u"3rd March 2021", u"2021-03-03"},
    {"DotAndComma", u"3 mar., 2021", u"2021-03-03"},
    {"MayHasNoShortForm", u"May. 3 2021", u"2021-05-03"},
    {"Sept", u"sept 3 2021", u"2021-09-03"},
    {"AnyCase", u"mOnDaY, 3 SEPTEMBER 2021", u"2021-09-03"},
    {"NoYear", u"March 3", u"none"},
    {"NoYearButATime", u"March 3, 10:30", u"none"},
    {"UnknownMonth", u"Marz 3 2021", u"none"},
    {"NothingSeparatesTheDay", u"March3 2021", u"none"},
    {"TheYearMayRunOn", u"March 3, 20215", u"2021-03-03 5"},
    {"TheLigatureOfAnOrdinal", u"1ﬆ March 2021", u"2021-03-01"},
    {"TheLongSOfAMonthIsNoMonth", u"ſept 3 2021", u"none"},
    {"NoSuchDay", u"February 30, 2021", u"none"},
};

constexpr Row kBrackets[] = {
    {"OnlyTheDate", u"[2021-03-04] text", u"2021-03-04 text"},
    {"MidnightOfTwelve", u"[2021-03-04 12:30 am] text", u"2021-03-04 00:30 text"},
    {"NoonOfTwelve", u"[2021-03-04 12:30 pm]", u"2021-03-04 12:30"},
    {"SecondsAndT", u"[2021-03-04T09:05:59PM]", u"2021-03-04 21:05"},
    {"HourBeyondTheDay", u"[2021-03-04 25:10]", u"2021-03-04 01:10"},
    {"MinuteBeyondTheHour", u"[2021-03-04 10:75]", u"2021-03-04 10:75"},
    {"DotsInTheMarker", u"[2021-03-04 9:05 p.m.]", u"none"},
    {"SlashesInside", u"[2021/03/04]", u"none"},
    {"NotClosed", u"[2021-03-04 text", u"none"},
    {"ATimeThatIsNoNumberLeavesItOpen", u"[2021-03-04 ٣:10] 7:15", u"2021-03-04 07:15"},
};

constexpr Row kBehind[] = {
    {"EverythingAtOnce", u"2021年3月4日 星期四 上午9:30 晴 20℃ 去爬山",
     u"2021-03-04 09:30 晴 20℃ 去爬山"},
    {"TwoWeekdays", u"2021-03-04 周四 Thursday, 7:05", u"2021-03-04 07:05"},
    {"AThirdWeekdayStays", u"2021-03-04 周四 Thu (木) x", u"2021-03-04 (木) x"},
    {"WeekdayInBrackets", u"2021-03-04（木曜日）散歩", u"2021-03-04 散歩"},
    {"OneKanjiAheadOfAWord", u"2021-03-04 木の下", u"2021-03-04 木の下"},
    {"OneKanjiAtTheEnd", u"2021-03-04 木", u"2021-03-04"},
    {"HourOutOfRange", u"2021-03-04 25:00 went out", u"2021-03-04 25:00 went out"},
    {"MinuteOutOfRange", u"2021-03-04 9:60", u"2021-03-04 9:60"},
    {"SecondsAreDropped", u"2021-03-04 09:30:45 x", u"2021-03-04 09:30 x"},
    {"WideColon", u"2021-03-04 9：30", u"2021-03-04 09:30"},
    {"MarkerWithDots", u"2021-03-04 9:30 p.m. x", u"2021-03-04 21:30 x"},
    {"TheMarkerCountsMoreThanTheWord", u"2021-03-04 上午9:30PM", u"2021-03-04 21:30"},
    {"AWordMayBeginLikeAMarker", u"2021-03-04 9:30 pmx", u"2021-03-04 21:30 x"},
    {"DigitsOfAnotherScript", u"2021-03-04 ٩:30", u"2021-03-04 ٩:30"},
    {"SeparatorsGo", u"2021-03-04 — · a·b · |", u"2021-03-04 a·b"},
    {"ALineEndStays", u"2021-03-04 a\n", u"2021-03-04 a\n"},
    {"ALineEndAheadOfAWeekday", u"2021-03-04\nThu", u"2021-03-04"},
};

constexpr Row kAhead[] = {
    {"Blanks", u" \t　2021-03-04", u"2021-03-04"},
    {"Heading", u"## 2021-03-04", u"2021-03-04"},
    {"Bold", u"**2021-03-04**", u"2021-03-04"},
    {"Quote", u"> 2021-03-04", u"2021-03-04"},
    {"HeadingInAQuote", u"> # 2021-03-04", u"none"},
    {"TabBehindTheMark", u"#\t2021-03-04", u"none"},
    {"ListItem", u"- 2021-03-04", u"none"},
    {"Words", u"On 2021-03-04", u"none"},
    {"Empty", u"", u"none"},
    {"OnlyMarks", u"###", u"none"},
    {"OnlyBlanks", u"　 \t", u"none"},
    {"LoneSurrogate", u"\xD835 2021-03-04", u"none"},
};

const auto kName = [](const testing::TestParamInfo<Row>& row) { return row.param.name; };
INSTANTIATE_TEST_SUITE_P(Numbers, Lines, testing::ValuesIn(kNumbers), kName);
INSTANTIATE_TEST_SUITE_P(Names, Lines, testing::ValuesIn(kNames), kName);
INSTANTIATE_TEST_SUITE_P(Brackets, Lines, testing::ValuesIn(kBrackets), kName);
INSTANTIATE_TEST_SUITE_P(Behind, Lines, testing::ValuesIn(kBehind), kName);
INSTANTIATE_TEST_SUITE_P(Ahead, Lines, testing::ValuesIn(kAhead), kName);

// Nothing is tried anew from each of the characters of a long run.
TEST(HostileLines, AreToldInOnePass) {
    const QString blanks(2'000'000, u' ');
    EXPECT_EQ(told(QStringLiteral("2021%1-03-04").arg(blanks)), QStringLiteral("2021-03-04"));
    EXPECT_EQ(told(QStringLiteral("March") + blanks + QStringLiteral("3, 2021")),
              QStringLiteral("2021-03-03"));
    EXPECT_EQ(told(QStringLiteral("2021-03-04%1x").arg(blanks)), QStringLiteral("2021-03-04 x"));
    EXPECT_EQ(told(QString(2'000'000, u'#') + QStringLiteral("2021-03-04")),
              QStringLiteral("2021-03-04"));
    EXPECT_EQ(told(QStringLiteral("2021%1x").arg(blanks)), QStringLiteral("none"));
}

struct Clock {
    const char* name;
    int hour;
    const char16_t* marker;
    int told;
};

void PrintTo(const Clock& clock, std::ostream* stream) {
    *stream << clock.name;
}

class Clocks : public testing::TestWithParam<Clock> {};

TEST_P(Clocks, TellTheHour) {
    const auto [name, hour, marker, expected] = GetParam();
    EXPECT_EQ(DateLine::clockTime(hour, 75, QStringView(marker)),
              (ImportedEntry::Time{expected, 75}));
}

constexpr Clock kClocks[] = {
    {"NoMarker", 9, u"", 9},
    {"NoMarkerBeyondTheDay", 25, u"", 1},
    {"Afternoon", 1, u"PM", 13},
    {"TwelveInTheAfternoon", 12, u"p.m.", 12},
    {"ThirteenInTheAfternoon", 13, u"pm", 13},
    {"TwelveInTheMorning", 12, u"A.M.", 0},
    {"ElevenInTheMorning", 11, u"am", 11},
    {"Evening", 8, u"晚上", 20},
    {"SmallHours", 12, u"凌晨", 0},
    {"Gogo", 3, u"午後", 15},
    {"Gozen", 12, u"午前", 0},
    {"NoonItself", 12, u"中午", 12},
    {"ShortlyBeforeNoon", 11, u"中午", 11},
    {"OneAtNoon", 1, u"中午", 13},
    {"TenAtNoon", 10, u"中午", 22},
    {"UnknownMarker", 9, u"noon", 9},
};

INSTANTIATE_TEST_SUITE_P(All, Clocks, testing::ValuesIn(kClocks),
                         [](const auto& clock) { return clock.param.name; });

}  // namespace
}  // namespace diary
