#include "DiaryKit/AppSources/CSV.h"

#include <gtest/gtest.h>

#include <ctime>
#include <random>

#include "tests/kit/import/MemoryOfStep.h"

namespace diary {
namespace {

using Rows = std::vector<QStringList>;

Rows rows(std::initializer_list<std::initializer_list<QStringView>> cells) {
    Rows made;
    for (const auto& row : cells) {
        made.emplace_back();
        for (const QStringView cell : row) made.back().append(cell.toString());
    }
    return made;
}

QString quoted(QString cell) {
    return u'"' + cell.replace(u'"', QLatin1String("\"\"")) + u'"';
}

double secondsOfParsing(const QString& text) {
    const std::clock_t start = std::clock();
    CSV::Reader reader(text);
    while (reader.next()) {}
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

TEST(CSV, KeepsACommaInQuotesWithinItsField) {
    EXPECT_EQ(CSV::parse(u"\"a,b\",c"), rows({{u"a,b", u"c"}}));
}

TEST(CSV, TakesTwoQuotationMarksForOne) {
    EXPECT_EQ(CSV::parse(u"\"say \"\"hi\"\"\""), rows({{u"say \"hi\""}}));
    EXPECT_EQ(CSV::parse(u"\"\"\"\""), rows({{u"\""}}));
    EXPECT_EQ(CSV::parse(u"\"\"\"a"), rows({{u"\"a"}}));
}

TEST(CSV, KeepsANewlineInQuotesWithinItsField) {
    EXPECT_EQ(CSV::parse(u"\"a\nb\r\nc\",d\n"), rows({{u"a\nb\r\nc", u"d"}}));
}

TEST(CSV, GivesTheSameRowsForAllLineEnds) {
    const Rows expected = rows({{u"a", u"b"}, {u""}, {u"c"}});
    EXPECT_EQ(CSV::parse(u"a,b\n\nc\n"), expected);
    EXPECT_EQ(CSV::parse(u"a,b\r\n\r\nc\r\n"), expected);
    EXPECT_EQ(CSV::parse(u"a,b\r\rc\r"), expected);
    EXPECT_EQ(CSV::parse(u"a,b\n\rc"), expected);
}

TEST(CSV, ReadsOnOutsideOfQuotesBehindThem) {
    EXPECT_EQ(CSV::parse(u"\"a\"b\"c,\"d\" ,e"), rows({{u"ab\"c", u"d ", u"e"}}));
    EXPECT_EQ(CSV::parse(u"\"a\" \"b\""), rows({{u"a \"b\""}}));
}

TEST(CSV, TakesAQuotationMarkWithinAFieldAsItIs) {
    EXPECT_EQ(CSV::parse(u"a\"b\",c\n \"d\""), rows({{u"a\"b\"", u"c"}, {u" \"d\""}}));
}

TEST(CSV, TakesQuotesThatNeverCloseUpToTheEnd) {
    EXPECT_EQ(CSV::parse(u"a,\"b\nc,d"), rows({{u"a", u"b\nc,d"}}));
    EXPECT_EQ(CSV::parse(u"\"a\"\""), rows({{u"a\""}}));
}

TEST(CSV, HasNoRowBehindTheLastLineEnd) {
    EXPECT_EQ(CSV::parse(u""), Rows());
    EXPECT_EQ(CSV::parse(u"\"\""), Rows());
    EXPECT_EQ(CSV::parse(u"\""), Rows());
    EXPECT_EQ(CSV::parse(u"\n"), rows({{u""}}));
    EXPECT_EQ(CSV::parse(u"a,"), rows({{u"a", u""}}));
    EXPECT_EQ(CSV::parse(u"a,\"\""), rows({{u"a", u""}}));
    EXPECT_EQ(CSV::parse(u"a\n\"\""), rows({{u"a"}}));
}

TEST(CSV, TakesACharacterWithAMarkForAnother) {
    EXPECT_EQ(CSV::parse(u"a,\u0301b,c"), rows({{u"a,\u0301b", u"c"}}));
    EXPECT_EQ(CSV::parse(u"\"\u0301a,b"), rows({{u"\"\u0301a", u"b"}}));
    EXPECT_EQ(CSV::parse(u"\"a\"\u0301,b\""), rows({{u"a\"\u0301,b"}}));
    // An Arabic number sign belongs to what follows it.
    EXPECT_EQ(CSV::parse(u"a\u0600,b,c"), rows({{u"a\u0600,b", u"c"}}));
    // A mark behind a line end starts the next row.
    EXPECT_EQ(CSV::parse(u"a\n\u0301b"), rows({{u"a"}, {u"\u0301b"}}));
    EXPECT_EQ(CSV::parse(u"a,\U0001F600,b"), rows({{u"a", u"\U0001F600", u"b"}}));
}

// A cell begins with a letter, since the mark would join the quotation mark ahead of it; nor may
// it join one that is doubled.
QString randomCell(std::mt19937& random) {
    static const QString kAlphabet = QStringLiteral("ab\",;\n\r \u65e5\u0301");
    QString cell = QStringLiteral("x");
    for (auto length = random() % 8; length > 0; --length) {
        cell += kAlphabet[static_cast<qsizetype>(random() % 10)];
    }
    while (cell.contains(QStringLiteral("\"\u0301"))) cell.remove(u'\u0301');
    return cell;
}

TEST(CSV, GivesBackWhatWasJoinedInQuotes) {
    std::mt19937 random(11);  // NOLINT: the same texts in every run.
    for (int round = 0; round < 2000; ++round) {
        Rows made;
        QString text;
        for (auto row = 1 + random() % 3; row > 0; --row) {
            made.emplace_back();
            QStringList written;
            for (auto cell = 1 + random() % 3; cell > 0; --cell) {
                made.back().append(randomCell(random));
                written.append(quoted(made.back().last()));
            }
            text += written.join(u',') + QLatin1String(round % 2 == 0 ? "\n" : "\r\n");
        }
        ASSERT_EQ(CSV::parse(text), made) << text.toStdString();
    }
}

TEST(CSV, ReadsHostileTextsInLinearTime) {
    for (const QString& piece :
         {QStringLiteral("\""), QStringLiteral("\"\""), QStringLiteral(","), QStringLiteral("\r"),
          QStringLiteral("\"a\""), QStringLiteral(",\u0301"), QStringLiteral("\"\u0301"),
          QStringLiteral("\u0600\"")}) {
        const double half = secondsOfParsing(piece.repeated(500'000));
        const double whole = secondsOfParsing(piece.repeated(1'000'000));
        EXPECT_LT(whole, 8 * half + 0.05) << piece.toStdString();
    }
}

TEST(CSV, HoldsOneCellAtATime) {
    const QString text = QStringLiteral("a,").repeated(10'000'000);
    const qint64 memory = testing::memoryOfStep([&] {
        CSV::Reader reader(text);
        while (reader.next()) {}
    });
    EXPECT_LT(memory, 4 * testing::kMebibyte);
}

}  // namespace
}  // namespace diary
