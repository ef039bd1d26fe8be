#include "DiaryKit/Foundation/TextSets.h"

#include <gtest/gtest.h>
#include <unicode/brkiter.h>

#include <memory>

#include "tests/support/HostileText.h"
#include "tests/support/Printing.h"

namespace diary::text {
namespace {

TEST(TextSets, TrimBodiesOfWhitespaceNewlinesAndTabs) {
    EXPECT_EQ(trimmed(u"\n a b\t\n"), u"a b");
    EXPECT_EQ(trimmed(u"\u3000\u00A0\u2028\u0085\u200B"), u"\u200B");
    EXPECT_EQ(trimmed(u" \n\t"), u"");
    EXPECT_EQ(trimmed(u"\U0001F600 "), u"\U0001F600");
}

TEST(TextSets, TrimBlanksButNotLineEnds) {
    EXPECT_EQ(trimmedOfBlanks(u" \t\u3000a\n "), u"a\n");
    EXPECT_EQ(trimmedOfBlanks(u"\r"), u"\r");
}

TEST(TextSets, CountAWhiteCharacterUnderAMarkAsContent) {
    EXPECT_EQ(withoutLeadingWhiteSpace(u"  \u0301a"), u" \u0301a");
    EXPECT_EQ(withoutLeadingWhiteSpace(u"\n\u0301a"), u"\u0301a");
    EXPECT_EQ(withoutTrailingWhiteSpace(u"a \u0301"), u"a \u0301");
    EXPECT_EQ(withoutTrailingWhiteSpace(u"a\u0600  "), u"a\u0600 ");
    EXPECT_EQ(withoutTrailingWhiteSpace(u"a\u0600\n"), u"a\u0600");
    EXPECT_EQ(withoutTrailingWhiteSpace(u"a \r\n\t"), u"a");
}

TEST(TextSets, CountCharactersAsReadersDo) {
    EXPECT_EQ(contentCharacterCount(u""), 0);
    EXPECT_EQ(contentCharacterCount(u" a\nb\r\n"), 2);
    EXPECT_EQ(contentCharacterCount(u"e\u0301"), 1);
    EXPECT_EQ(contentCharacterCount(u"日記 😀"), 3);
    EXPECT_EQ(contentCharacterCount(u"👨\u200D👩\u200D👧"), 1);
}

TEST(TextSets, CountHostileTextsAsFullSegmentationDoes) {
    test::HostileText hostile(11);
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> characters(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    for (int round = 0; round < 5000; ++round) {
        const QString text = hostile.text(12);
        characters->setText(icu::UnicodeString(text.utf16(), static_cast<int>(text.size())));
        int expected = 0;
        for (int start = 0, end = characters->next(); end != icu::BreakIterator::DONE;
             start = end, end = characters->next()) {
            if (hasContent(QStringView(text).sliced(start, end - start))) ++expected;
        }
        ASSERT_EQ(contentCharacterCount(text), expected)
            << text.toUtf8().toPercentEncoding().data();
    }
}

TEST(TextSets, CompareCanonically) {
    EXPECT_TRUE(canonicallyEqual(u"caf\u00E9", u"cafe\u0301"));
    EXPECT_TRUE(canonicallyEqual(u"\uAC00", u"\u1100\u1161"));
    EXPECT_FALSE(canonicallyEqual(u"\uFB01", u"fi"));
    EXPECT_FALSE(canonicallyEqual(u"a", u"b"));
}

TEST(TextSets, EndLinesAtALoneLfOnly) {
    EXPECT_EQ(indexOfLineEnd(u"a\nb", 0), 1);
    EXPECT_EQ(indexOfLineEnd(u"a\r\nb\nc", 0), 4);
    EXPECT_EQ(indexOfLineEnd(u"a\r\nb", 0), -1);
    EXPECT_EQ(indexOfLineEnd(u"\n", 0), 0);
}

TEST(TrimmedOf, TakesTheUnitsOffBothEnds) {
    EXPECT_EQ(trimmedOf(u"/a/b//", u"/"), u"a/b");
    EXPECT_EQ(trimmedOf(u"'\"a'b", u"\"'"), u"a'b");
    EXPECT_EQ(trimmedOf(u"[][", u"[]"), u"");
    EXPECT_EQ(trimmedOf(u"", u"[]"), u"");
}

TEST(StandsAlone, IsForCharactersWithoutMarks) {
    EXPECT_TRUE(standsAlone(u"a,b", 1));
    EXPECT_TRUE(standsAlone(u",", 0));
    EXPECT_TRUE(standsAlone(u"\u65E5,\U0001F600", 1));
    EXPECT_TRUE(standsAlone(u"\u0301,\n", 1));
    // Marks, joiners and signs of many scripts join what is ahead of them, a few what follows.
    EXPECT_FALSE(standsAlone(u"a,\u0301", 1));
    EXPECT_FALSE(standsAlone(u",\u200D", 0));
    EXPECT_FALSE(standsAlone(u",\uFE0F", 0));
    EXPECT_FALSE(standsAlone(u",\u0903", 0));
    EXPECT_FALSE(standsAlone(u",\U0001F3FB", 0));
    EXPECT_FALSE(standsAlone(u"\u0600,", 1));
    EXPECT_FALSE(standsAlone(u"\U000110BD,", 2));
}

}  // namespace
}  // namespace diary::text
