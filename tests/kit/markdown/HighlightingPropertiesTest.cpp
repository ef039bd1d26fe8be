// What holds of the look of every text, tried on random ones.
#include <gtest/gtest.h>

#include "DiaryKit/Markdown/MarkdownHighlighting.h"
#include "tests/kit/markdown/LookOfText.h"
#include "tests/kit/markdown/RandomMarkdown.h"
#include "tests/kit/markdown/SlowHighlighter.h"

namespace diary {
namespace {

constexpr MarkdownBlockMetrics kMetrics{17};

TEST(Highlighting, ByParagraphsIsThatOfTheWholeText) {
    test::RandomMarkdown random(23);
    test::SlowHighlighter slow;
    for (int round = 0; round < 5000; ++round) {
        const QString text = random.text(24);
        const std::vector<MarkdownAttributes> expected = slow.look(text);
        const MarkdownStyling styling = MarkdownHighlighting::highlight(text, kMetrics);
        for (qsizetype at = 0; at < text.size(); ++at) {
            if (text[at] == u'\n') continue;
            ASSERT_EQ(test::lookAt(styling, at), expected[static_cast<std::size_t>(at)])
                << at << " in " << text.toStdString();
        }
    }
}

TEST(Runs, AreInOrderMaximalAndWithoutLineEnds) {
    test::RandomMarkdown random(29);
    for (int round = 0; round < 5000; ++round) {
        const QString text = random.text(24);
        qsizetype end = 0;
        MarkdownAttributes last;
        for (const MarkdownRun& run : MarkdownHighlighting::highlight(text, kMetrics).runs) {
            ASSERT_GE(run.range.location, end);
            ASSERT_GT(run.range.length, 0);
            ASSERT_LE(run.range.end(), text.size());
            ASSERT_FALSE(run.range.location == end && end > 0 && run.attributes == last);
            ASSERT_NE(run.attributes, MarkdownAttributes());
            const QString units = text.sliced(run.range.location, run.range.length);
            ASSERT_FALSE(units.contains(u'\n'));
            ASSERT_FALSE(units.front().isLowSurrogate() || units.back().isHighSurrogate());
            end = run.range.end();
            last = run.attributes;
        }
    }
}

}  // namespace
}  // namespace diary
