// Random lines, told by the scanners and by the patterns that they stand for.
#include <gtest/gtest.h>

#include "DiaryKit/DatedText/DateLine.h"
#include "tests/kit/datedtext/PatternDateLine.h"
#include "tests/kit/datedtext/RandomDateLines.h"
#include "tests/support/Printing.h"

namespace diary {
namespace {

void expectSame(const test::PatternDateLine& patterns, const QString& line) {
    const auto expected = patterns.match(line);
    const auto found = DateLine::match(line);
    ASSERT_EQ(found.has_value(), expected.has_value()) << line.toStdString();
    if (!found) return;
    EXPECT_EQ(found->year, expected->year) << line.toStdString();
    EXPECT_EQ(found->month, expected->month) << line.toStdString();
    EXPECT_EQ(found->day, expected->day) << line.toStdString();
    EXPECT_EQ(found->time, expected->time) << line.toStdString();
    EXPECT_EQ(found->rest, expected->rest) << line.toStdString();
    EXPECT_EQ(found->isAmbiguousOrder, expected->isAmbiguousOrder) << line.toStdString();
}

class RandomLines : public testing::TestWithParam<unsigned> {};

TEST_P(RandomLines, AreToldAsThePatternsTellThem) {
    const test::PatternDateLine patterns;
    test::RandomDateLines random(GetParam());
    int matches = 0;
    int times = 0;
    int ambiguous = 0;
    for (int i = 0; i < 40'000; ++i) {
        const QString line = random.line();
        ASSERT_NO_FATAL_FAILURE(expectSame(patterns, line));
        const auto match = DateLine::match(line);
        matches += match ? 1 : 0;
        times += match && match->time ? 1 : 0;
        ambiguous += match && match->isAmbiguousOrder ? 1 : 0;
        if (HasFailure()) return;
    }
    // The lines are such that the comparison means something.
    EXPECT_GT(matches, 8'000);
    EXPECT_LT(matches, 32'000);
    EXPECT_GT(times, 1'200);
    EXPECT_GT(ambiguous, 400);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomLines, testing::Values(1U, 2U, 3U, 4U, 5U));

// Each unit of the basic plane in the places where a class of characters decides.
TEST(DateLineCharacters, AreThoseOfThePatternsEverywhere) {
    const test::PatternDateLine patterns;
    const QStringList lines = {
        QStringLiteral("2021%1-03-04 x"),     QStringLiteral("2021-03-04%1 周四"),
        QStringLiteral("2021-03-04 木%1"),    QStringLiteral("1%1 March 2021"),
        QStringLiteral("%1un, March 3 2021"), QStringLiteral("2021-03-04 10:30%1am")};
    for (char32_t unit = 1; unit < 0x10000; ++unit) {
        // Hangul, ideographs and private use are all alike.
        if (unit == 0x3500) unit = 0x9F00;
        if (unit == 0xAD00) unit = 0xD700;
        if (unit == 0xE100) unit = 0xF800;
        const QString character = QString(QChar(static_cast<char16_t>(unit)));
        for (const QString& line : lines)
            expectSame(patterns, QString(line).replace(QLatin1String("%1"), character));
        if (HasFailure()) FAIL() << "unit " << static_cast<unsigned>(unit);
    }
}

}  // namespace
}  // namespace diary
