#include "DiaryKit/Foundation/Utf8.h"

#include <gtest/gtest.h>

#include "tests/support/Printing.h"

namespace diary::utf8 {
namespace {

TEST(Utf8, KeepsAByteOrderMarkAsACharacter) {
    EXPECT_EQ(decodedStrictly("\xEF\xBB\xBFx"), QStringLiteral("\uFEFFx"));
    EXPECT_EQ(decodedStrictly("\xEF\xBB\xBFx")->toUtf8(), "\xEF\xBB\xBFx");
}

TEST(Utf8, RefusesWhatIsNotUtf8) {
    for (const char* bytes :
         {"caf\xE9", "\xC0\x80", "\xED\xA0\x80", "\xF5\x80\x80\x80", "\xE2\x80", "a\x80"}) {
        EXPECT_FALSE(decodedStrictly(bytes)) << bytes;
        EXPECT_FALSE(isValid(bytes)) << bytes;
    }
    EXPECT_TRUE(isValid("日記 😀"));
}

TEST(Utf8, RepairsWhatIsNotUtf8AndKeepsTheRest) {
    EXPECT_EQ(decodedWithRepair("caf\xE9 ok"), QStringLiteral("caf\uFFFD ok"));
    EXPECT_EQ(decodedWithRepair("a\xE2"), QStringLiteral("a\uFFFD"));
    EXPECT_EQ(decodedWithRepair(""), QString());
}

TEST(Utf8, KeepsNulAndNoncharacters) {
    const QByteArray bytes("a\0b\xEF\xBF\xBF", 6);
    EXPECT_EQ(decodedStrictly(bytes)->toUtf8(), bytes);
}

}  // namespace
}  // namespace diary::utf8
