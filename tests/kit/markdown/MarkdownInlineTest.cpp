#include "DiaryKit/Markdown/MarkdownInline.h"

#include <gtest/gtest.h>

#include "tests/kit/markdown/MarkedText.h"
#include "tests/kit/markdown/RandomMarkdown.h"
#include "tests/support/IcuPattern.h"

namespace diary::markdowninline {
namespace {

struct ScannerRow {
    const char* name;
    std::vector<TextRange> (*scan)(QStringView text);
    const char16_t* pattern;
};

class Scanner : public testing::TestWithParam<ScannerRow> {};

// Texts of inline marks alone, where the patterns' guards meet each other all the time. Doubled
// marks match often enough only where few other units come between.
QString denseMarks(test::RandomMarkdown& random) {
    static constexpr QStringView kinds[] = {u"*a", u"_a", u"~a", u"`a\\",
                                            u"**__~~`a\u00E9\u65E5 .\\\n\u2028\u3000\xD83D\xDE00"};
    const QStringView units = kinds[random.below(static_cast<int>(std::size(kinds)))];
    QString text;
    for (int i = random.below(16); i > 0; --i) {
        text += units[random.below(static_cast<int>(units.size()))];
    }
    return text;
}

TEST_P(Scanner, FindsWhatItsPatternFinds) {
    const test::IcuPattern pattern(GetParam().pattern);
    test::RandomMarkdown random(7);
    int found = 0;
    for (int round = 0; round < 20000; ++round) {
        const QString text = round % 2 == 0 ? random.text(14) : denseMarks(random);
        std::vector<TextRange> expected;
        for (const auto& match : pattern.matches(text)) expected.push_back(match.front());
        ASSERT_EQ(GetParam().scan(text), expected) << text.toStdString();
        found += static_cast<int>(expected.size());
    }
    EXPECT_GT(found, 300);
}

INSTANTIATE_TEST_SUITE_P(
    Patterns, Scanner,
    testing::Values(ScannerRow{"StarBold", starBold, u"\\*\\*[^*\\n]+?\\*\\*"},
                    ScannerRow{"Bold", bold, u"\\*\\*[^*\\n]+\\*\\*|__[^_\\n]+__"},
                    ScannerRow{"StarItalic", starItalic,
                               u"(?<![*\\\\])\\*(?![*\\s])([^*\\n]+?)(?<![*\\s])\\*(?!\\*)"},
                    ScannerRow{"Italic", italic,
                               u"(?<![*\\\\])\\*(?![*\\s])[^*\\n]+?(?<![*\\s])\\*(?!\\*)|"
                               u"(?<![\\w_])_[^_\\n]+_(?![\\w_])"},
                    ScannerRow{"Strike", strike, u"~~[^~\\n]+~~"},
                    ScannerRow{"Code", code, u"`[^`\\n]+`"}),
    test::rowName<testing::TestParamInfo<ScannerRow>>);

void expectLinksOf(const char16_t* source, EmptyAddress emptyAddress) {
    const test::IcuPattern pattern(source);
    test::RandomMarkdown random(13);
    static const char16_t units[] = u"[[]](())ab\n";
    int found = 0;
    for (int round = 0; round < 20000; ++round) {
        QString text = random.text(round % 2 == 0 ? 14 : 0);
        for (int i = random.below(14); i > 0; --i) {
            text += units[random.below(static_cast<int>(std::size(units)) - 1)];
        }
        std::vector<Link> expected;
        for (const auto& match : pattern.matches(text)) {
            expected.push_back({match[0], match[1], match[2]});
        }
        ASSERT_EQ(links(text, emptyAddress), expected) << text.toStdString();
        found += static_cast<int>(expected.size());
    }
    EXPECT_GT(found, 500);
}

TEST(Links, AreWhatTheirPatternFinds) {
    expectLinksOf(u"\\[([^\\]\\n]*)\\]\\(([^)\\n]+)\\)", EmptyAddress::Refused);
    expectLinksOf(u"\\[([^\\]\\n]*)\\]\\(([^)\\n]*)\\)", EmptyAddress::Allowed);
}

// With a scanner that looks again from each mark these would take minutes.
TEST(Scanners, StayLinearInTextsOfBrokenMarks) {
    constexpr int kRepeats = 200000;
    EXPECT_TRUE(links(QStringLiteral("[").repeated(kRepeats), EmptyAddress::Refused).empty());
    EXPECT_TRUE(links(QStringLiteral("[](").repeated(kRepeats), EmptyAddress::Refused).empty());
    EXPECT_TRUE(bold(QStringLiteral("**a* ").repeated(kRepeats)).empty());
    EXPECT_TRUE(bold(QStringLiteral("**") + QStringLiteral(" _").repeated(kRepeats)).empty());
    EXPECT_TRUE(italic(QStringLiteral(" *a_b").repeated(kRepeats)).empty());
    EXPECT_TRUE(strike(QStringLiteral("~~a~ ").repeated(kRepeats)).empty());
}

}  // namespace
}  // namespace diary::markdowninline
