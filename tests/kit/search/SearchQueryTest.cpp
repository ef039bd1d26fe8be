#include "DiaryKit/Search/SearchQuery.h"

#include <gtest/gtest.h>

#include "tests/support/Printing.h"

namespace diary {
namespace {

struct Row {
    const char* name;
    QString line;
    SearchQuery expected;
};

void PrintTo(const Row& row, std::ostream* stream) {
    *stream << row.name;
}

SearchQuery words(const QStringList& terms) {
    return {terms, {}, {}, {}};
}

class Parsing : public testing::TestWithParam<Row> {};

TEST_P(Parsing, TakesDatesByTheirForm) {
    EXPECT_EQ(SearchQuery::parsing(GetParam().line), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    SearchQuery, Parsing,
    testing::Values(
        Row{"Nothing", QString(), {}}, Row{"Blank", QStringLiteral(" \t\u3000 "), {}},
        Row{"Year", QStringLiteral("2024"), {{}, 2024, {}, {}}},
        Row{"FirstYear", QStringLiteral("1900"), {{}, 1900, {}, {}}},
        Row{"LastYear", QStringLiteral("2200"), {{}, 2200, {}, {}}},
        Row{"YearTooEarly", QStringLiteral("1899"), words({QStringLiteral("1899")})},
        Row{"YearTooLate", QStringLiteral("2201"), words({QStringLiteral("2201")})},
        Row{"Month", QStringLiteral("2024-03"), {{}, 2024, 3, {}}},
        Row{"SignedMonth", QStringLiteral("2024-+9"), {{}, 2024, 9, {}}},
        Row{"MonthOutOfRange", QStringLiteral("2024-13"), words({QStringLiteral("2024-13")})},
        Row{"MonthNought", QStringLiteral("2024-00"), words({QStringLiteral("2024-00")})},
        Row{"MonthBelowNought", QStringLiteral("2024--1"), words({QStringLiteral("2024--1")})},
        Row{"MonthOfNoYear", QStringLiteral("1899-03"), words({QStringLiteral("1899-03")})},
        Row{"OtherDash", QStringLiteral("2024/03"), words({QStringLiteral("2024/03")})},
        Row{"Day", QStringLiteral("03-07"), {{}, {}, {}, MonthDay{3, 7}}},
        Row{"DayPastItsMonth", QStringLiteral("02-31"), {{}, {}, {}, MonthDay{2, 31}}},
        Row{"DayWithoutNoughts", QStringLiteral("3-7"), words({QStringLiteral("3-7")})},
        Row{"DayAndYear", QStringLiteral("03-07 2024"), {{}, 2024, {}, MonthDay{3, 7}}},
        Row{"LaterYearCounts", QStringLiteral("2024 2023"), {{}, 2023, {}, {}}},
        Row{"MonthStaysWithALaterYear", QStringLiteral("2024-03 2023"), {{}, 2023, 3, {}}},
        Row{"OtherDigits", QStringLiteral("２０２４ ٢٠٢٤"),
            words({QStringLiteral("２０２４"), QStringLiteral("٢٠٢٤")})},
        Row{"MarkOnADigit", QStringLiteral("202\u0301 2024\u0301"),
            words({QStringLiteral("202\u0301"), QStringLiteral("2024\u0301")})},
        Row{"IdeographicSpace",
            QStringLiteral("雨\u30002024\t雪"),
            {{QStringLiteral("雨"), QStringLiteral("雪")}, 2024, {}, {}}},
        Row{"LineEndSeparatesNothing", QStringLiteral("a\nb c"),
            words({QStringLiteral("a\nb"), QStringLiteral("c")})},
        Row{"CaseStays", QStringLiteral("Foo bAr"),
            words({QStringLiteral("Foo"), QStringLiteral("bAr")})}),
    [](const testing::TestParamInfo<Row>& row) { return std::string(row.param.name); });

TEST(SearchQuery, IsEmptyWithoutWordsAndDates) {
    EXPECT_TRUE(SearchQuery::parsing(u" \u3000").isEmpty());
    EXPECT_FALSE(SearchQuery::parsing(u"03-07").isEmpty());
    EXPECT_FALSE(SearchQuery::parsing(u"rain").isEmpty());
}

TEST(SearchQuery, IsDateOnlyWithADateAndNoWord) {
    EXPECT_FALSE(SearchQuery::parsing(u"").isDateOnly());
    EXPECT_TRUE(SearchQuery::parsing(u"2024").isDateOnly());
    EXPECT_TRUE(SearchQuery::parsing(u"03-07").isDateOnly());
    EXPECT_FALSE(SearchQuery::parsing(u"2024 rain").isDateOnly());
    EXPECT_TRUE((SearchQuery{{}, {}, 3, {}}).isDateOnly());
}

}  // namespace
}  // namespace diary
