#include "DiaryKit/Foundation/LineEnds.h"

#include <gtest/gtest.h>

#include <QtCore/QElapsedTimer>

#include "tests/support/HostileText.h"

namespace diary::text {
namespace {

using namespace Qt::StringLiterals;

TEST(LineEnds, OfPairsAreOneLineFeedEach) {
    EXPECT_EQ(withoutCarriageReturnPairs(u""_s), u""_s);
    EXPECT_EQ(withoutCarriageReturnPairs(u"a\nb"_s), u"a\nb"_s);
    EXPECT_EQ(withoutCarriageReturnPairs(u"\r\na\r\n\r\nb\r\n"_s), u"\na\n\nb\n"_s);
    EXPECT_EQ(withoutCarriageReturnPairs(u"a\rb\r"_s), u"a\rb\r"_s);
    EXPECT_EQ(withoutCarriageReturnPairs(u"\r\r\n\n"_s), u"\r\n\n"_s);
}

TEST(LineEnds, OfAllKindsAreLineFeeds) {
    EXPECT_EQ(withLineFeeds(u"a\r\nb\rc\n\r"_s), u"a\nb\nc\n\n"_s);
    EXPECT_EQ(withLineFeeds(u"\r\r\n"_s), u"\n\n"_s);
}

TEST(LineEnds, LeaveTheCallersTextAlone) {
    const QString text = u"a\r\nb"_s;
    EXPECT_EQ(withLineFeeds(text), u"a\nb"_s);
    EXPECT_EQ(text, u"a\r\nb"_s);
}

TEST(LineEnds, AreThoseThatReplacingMakes) {
    test::HostileText hostile(7);
    for (int round = 0; round < 500; ++round) {
        QString text;
        for (int piece = hostile.below(30); piece > 0; --piece) text += hostile.piece();
        EXPECT_EQ(withoutCarriageReturnPairs(text), QString(text).replace("\r\n"_L1, "\n"_L1));
    }
}

TEST(LineEnds, OfAHugeTextAreTakenInOnePass) {
    const QString text = u"\r\n"_s.repeated(16'000'000);
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(withoutCarriageReturnPairs(text).size(), 16'000'000);
    EXPECT_LT(timer.elapsed(), 5'000);
}

}  // namespace
}  // namespace diary::text
