#include "DiaryKit/Search/CaseFolding.h"

#include <gtest/gtest.h>
#include <unicode/uchar.h>

#include "DiaryKit/Search/ByteNeedle.h"
#include "tests/support/Printing.h"

namespace diary::casefolding {
namespace {

TEST(CaseFolding, IsUnicodesSimpleOneForEveryCodePoint) {
    for (char32_t one = 0; one <= 0x10FFFF; ++one) {
        ASSERT_EQ(folded(one),
                  static_cast<char32_t>(u_foldCase(static_cast<UChar32>(one), U_FOLD_CASE_DEFAULT)))
            << std::hex << static_cast<unsigned>(one);
    }
}

TEST(CaseFolding, KeepsEveryPosition) {
    for (char32_t one = 0; one <= 0x10FFFF; ++one) {
        ASSERT_EQ(folded(one) > 0xFFFF, one > 0xFFFF) << std::hex << static_cast<unsigned>(one);
    }
}

TEST(CaseFolding, LeavesHalfPairsAndFoldsWholeOnes) {
    const QString deseret = QString::fromUcs4(U"\U00010400");
    EXPECT_EQ(folded(deseret), QString::fromUcs4(U"\U00010428"));
    const auto halvesAround = [&](QChar letter) {
        return QString(deseret[1]) + letter + deseret[0];
    };
    EXPECT_EQ(folded(halvesAround(u'A')), halvesAround(u'a'));
}

// What a term's bytes are sought by must know each code point that folds to one of the term's.
TEST(ByteNeedle, KnowsEveryCaseOfEveryCodePoint) {
    for (char32_t one = 0; one <= 0x10FFFF; ++one) {
        const char32_t target = folded(one);
        if (target == one) continue;
        const QByteArray bytes = "ab" + QString::fromUcs4(&one, 1).toUtf8() + "yz";
        const QString term = u'b' + QString::fromUcs4(&target, 1) + u'y';
        ASSERT_TRUE(ByteNeedle(term).mayOccurIn(bytes)) << std::hex << static_cast<unsigned>(one);
    }
}

TEST(ByteNeedle, TellsThatATermIsNotThere) {
    const QByteArray bytes = QByteArray("The kettle took its time. ").repeated(20) + "雨と雪。";
    for (const QString& term : {QStringLiteral("kettles"), QStringLiteral("雪と"),
                                QStringLiteral("q"), QStringLiteral("über")}) {
        EXPECT_FALSE(ByteNeedle(term).mayOccurIn(bytes)) << term.toStdString();
        EXPECT_FALSE(ByteNeedle(term).mayOccurIn({}));
    }
}

TEST(ByteNeedle, FindsATermAtEachPlaceOfABlock) {
    for (int length : {0, 1, 15, 16, 17, 63, 64, 65, 200}) {
        for (int place = 0; place <= length; ++place) {
            QByteArray bytes(length, 'x');
            bytes.insert(place, "QuinCe");
            ASSERT_TRUE(ByteNeedle(u"quince").mayOccurIn(bytes)) << length << ", " << place;
            ASSERT_FALSE(ByteNeedle(u"quinces").mayOccurIn(bytes)) << length << ", " << place;
        }
    }
}

TEST(ByteNeedle, FindsAByteOrderMarkLikeAnyCharacter) {
    EXPECT_TRUE(ByteNeedle(u"\uFEFF").mayOccurIn("a\uFEFFb"));
    EXPECT_FALSE(ByteNeedle(u"\uFEFF").mayOccurIn("ab"));
}

TEST(ByteNeedle, MakesNoClaimAboutWhatBytesDoNotTell) {
    EXPECT_TRUE(ByteNeedle(u"\uFFFD").mayOccurIn("\xC3("));
    EXPECT_TRUE(ByteNeedle(QString(QChar(0xD800))).mayOccurIn("a"));
}

TEST(ByteNeedle, SeeksRareTermsFirst) {
    EXPECT_LT(ByteNeedle(u"quince").commonness(), ByteNeedle(u"the").commonness());
    EXPECT_LT(ByteNeedle(u"the").commonness(), ByteNeedle(u"e").commonness());
}

}  // namespace
}  // namespace diary::casefolding
