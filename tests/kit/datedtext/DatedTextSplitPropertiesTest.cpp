// Random texts, cut as slices and line by line; and hostile ones, in linear time.
#include <gtest/gtest.h>

#include "DiaryKit/DatedText/DatedTextSplit.h"
#include "tests/kit/datedtext/PlainSplit.h"
#include "tests/kit/datedtext/RandomDateLines.h"
#include "tests/support/Printing.h"

namespace diary {
namespace {

class RandomTexts : public testing::TestWithParam<unsigned> {};

TEST_P(RandomTexts, AreCutAsLineByLine) {
    test::RandomDateLines random(GetParam());
    std::size_t entries = 0;
    int paragraphs = 0;
    int unsettled = 0;
    for (int i = 0; i < 10'000; ++i) {
        const QString text = random.text(12);
        const DatedTextSplit::Options options =
            test::splitOptions(random.below(test::kSplitOptions));
        const ImportBatch batch = DatedTextSplit::split(text, QStringLiteral("x"), options);
        ASSERT_EQ(batch, test::plainSplit(text, QStringLiteral("x"), options))
            << text.toStdString();
        entries += batch.entries.size();
        paragraphs += batch.split->placement == DatedTextSplit::Placement::paragraphStart ? 1 : 0;
        unsettled += batch.split->orderUnsettled ? 1 : 0;
    }
    // The texts are such that the comparison means something.
    EXPECT_GT(entries, 2'000U);
    EXPECT_GT(paragraphs, 1'000);
    EXPECT_GT(unsettled, 50);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomTexts, testing::Values(1U, 2U, 3U));

// No line without a date is lost, in whichever way the text is cut.
TEST(SplitWords, StandInTheBodyOfTheEntryAboveThem) {
    test::RandomDateLines random(7);
    for (int i = 0; i < 500; ++i) {
        QString text = QStringLiteral("2021-03-04 a title\n");
        QStringList words;
        for (int line = 0; line < 20; ++line) {
            if (random.below(3) == 0) {
                text += QStringLiteral("2021-05-%1\n").arg(10 + line);
                continue;
            }
            words << random.plainLine() + QString::number(line) + u'!';
            text += words.last() +
                    (random.below(3) == 0 ? QStringLiteral("\r\n\n") : QStringLiteral("\n"));
        }
        QStringList bodies;
        const auto options = test::splitOptions(random.below(test::kSplitOptions));
        for (const auto& entry : DatedTextSplit::split(text, QString(), options).entries) {
            bodies << entry.body;
        }
        const QStringList lines = bodies.join(u'\n').split(u'\n');
        qsizetype at = 0;
        for (const QString& word : words) {
            at = lines.indexOf(word, at);
            ASSERT_GE(at, 0) << word.toStdString() << " of " << text.toStdString();
            ++at;
        }
    }
}

}  // namespace
}  // namespace diary
