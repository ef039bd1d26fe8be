// Every edit gives what YearSectionParser's function gives on the whole text, whatever the lines
// are made of.
#include "DiaryKit/Vault/SectionedText.h"

#include <gtest/gtest.h>

#include <random>

#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Vault/YearSectionParser.h"
#include "tests/support/Printing.h"

namespace diary {
namespace {

constexpr MonthDay kDay{1, 2};
const QStringView kRule = u"---";

// Lines and ends of lines that the format takes in different ways.
class RandomTexts {
public:
    explicit RandomTexts(unsigned seed) : m_random(seed) {}

    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }

    int year() { return 2020 + below(5); }

    QString lines(int most) {
        static const QStringList kLines = {
            QStringLiteral("# 01-02"),    QStringLiteral("## 2021"),   QStringLiteral("## 2023"),
            QStringLiteral("## 2022 \r"), QStringLiteral("## 2020\t"), QStringLiteral("```"),
            QStringLiteral("  ```cpp"),   QStringLiteral("---"),       QString(),
            QStringLiteral("words"),      QStringLiteral("\u3000"),    QStringLiteral("a \u0301"),
            QStringLiteral("\u2029```"),  QStringLiteral("## 20245"),  QStringLiteral("## 2024 x"),
            QStringLiteral("\u0600 "),    QStringLiteral("\r")};
        static const QStringList kEnds = {QStringLiteral("\n"), QStringLiteral("\n"),
                                          QStringLiteral("\n\n"), QStringLiteral("\r\n"),
                                          QString()};
        QString text;
        for (int count = below(most); count > 0; --count) {
            text += kLines[below(static_cast<int>(kLines.size()))];
            text += kEnds[below(static_cast<int>(kEnds.size()))];
        }
        return text;
    }

private:
    std::mt19937 m_random;
};

// One edit on both; what it was, and what the whole text is then.
void edit(RandomTexts& random, SectionedText& day, QString& whole) {
    const int year = random.below(20) == 0 ? 12345 : random.year();
    const QString body = random.lines(4);
    const QStringView trimmed = text::trimmed(body);
    switch (random.below(3)) {
        case 0: {
            const QString appended =
                YearSectionParser::appendingBody(body, kRule, year, kDay, whole);
            const bool isThere = YearSectionParser::body(year, appended).contains(trimmed);
            EXPECT_EQ(day.appendWhole(body, kRule, year), isThere);
            if (isThere) whole = appended;
            break;
        }
        case 1:
            day.replaceBody(body, year);
            whole = YearSectionParser::replacingBody(body, year, kDay, whole);
            break;
        default:
            day.removeSection(year);
            whole = YearSectionParser::removingSection(year, whole);
            break;
    }
}

TEST(SectionedText, GivesWhatTheWholeTextGives) {
    for (unsigned seed = 0; seed < 20'000; ++seed) {
        RandomTexts random(seed);
        QString whole = random.lines(16);
        SectionedText day(kDay, whole);
        ASSERT_EQ(day.text(), whole);
        for (int step = 0; step < 5; ++step) {
            const QString before = whole;
            edit(random, day, whole);
            ASSERT_EQ(day.text(), whole)
                << "seed " << seed << ", step " << step << ", on " << before.toStdString();
            for (int year = 2020; year < 2025; ++year) {
                ASSERT_EQ(day.body(year).toString(), YearSectionParser::body(year, whole));
            }
            ASSERT_EQ(day.leavesFenceOpen(), YearSectionParser::leavesFenceOpen(whole));
        }
    }
}

TEST(SectionedText, HoldsTheLinesOfASection) {
    const SectionedText day(kDay, u"# 01-02\n\n## 2024\n\ntea\n\n## 2024\nmore");
    EXPECT_EQ(day.section(2024), u"\ntea\n\n");
    EXPECT_EQ(day.body(2024), u"tea");
    EXPECT_EQ(day.section(2023), std::nullopt);
}

TEST(SectionedText, ClosesTheFenceOfItsEnd) {
    SectionedText day(kDay, u"## 2024\n```\nopen");
    day.closeFence();
    EXPECT_EQ(day.text(), u"## 2024\n```\nopen\n```");
    EXPECT_FALSE(day.leavesFenceOpen());
}

}  // namespace
}  // namespace diary
