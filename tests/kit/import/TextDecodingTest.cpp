#include "DiaryKit/Import/TextDecoding.h"

#include <gtest/gtest.h>

namespace diary {
namespace {

struct Case {
    const char* rule;
    QByteArray bytes;
    QString text;
};

void PrintTo(const Case& one, std::ostream* stream) {
    *stream << one.rule;
}

class Decoding : public testing::TestWithParam<Case> {};

TEST_P(Decoding, GivesTheText) {
    EXPECT_EQ(TextDecoding::decode(GetParam().bytes), GetParam().text)
        << TextDecoding::decode(GetParam().bytes).toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    TextDecoding, Decoding,
    testing::Values(
        Case{"nothing", "", QString()}, Case{"UTF-8", "caf\xC3\xA9", QStringLiteral("café")},
        Case{"a mark of UTF-8 is dropped", "\xEF\xBB\xBFx", QStringLiteral("x")},
        Case{"only the first mark", "\xEF\xBB\xBF\xEF\xBB\xBFx", QStringLiteral("\uFEFFx")},
        Case{"a mark before bad UTF-8 is seen again", "\xEF\xBB\xBF\xFF",
             QStringLiteral("\u00EF\u00BB\u00BF\u00FF")},
        Case{"UTF-16, little end first", QByteArray("\xFF\xFE\x61\0", 4), QStringLiteral("a")},
        Case{"UTF-16, big end first", QByteArray("\xFE\xFF\0\x61", 4), QStringLiteral("a")},
        Case{"UTF-16 with an odd byte isn't UTF-16", QByteArray("\xFF\xFE\x61", 3),
             QStringLiteral("\u00FF\u00FEa")},
        Case{"UTF-16 with a lone surrogate isn't UTF-16", QByteArray("\xFF\xFE\x00\xD8", 4),
             QStringLiteral("\u00FF\u00FE\u0000\u00D8")},
        Case{"Shift-JIS with kana", "\x82\xC9\x82\xC1\x82\xAB", QStringLiteral("にっき")},
        Case{"Shift-JIS without kana goes on", "\x8A\xBF\x8E\x9A", QStringLiteral("娍帤")},
        Case{"code page 932 has more than the standard", "\x82\xCC\x87\x40\x81\x60",
             QStringLiteral("の①～")},
        Case{"code page 932 keeps control characters", "\x82\xCC\x1A\x1C\x7F",
             QStringLiteral("の\u001A\u001C\u007F")},
        Case{"code page 932 has a few lone bytes", "\x82\xCC\xA0\xFD\xFF",
             QStringLiteral("の\uF8F0\uF8F1\uF8F3")},
        Case{"GB 18030", "\xBD\xF1\xCC\xEC", QStringLiteral("今天")},
        Case{"GB 18030 with four bytes", "\x94\x39\xDA\x33", QStringLiteral("💩")},
        Case{"Latin 1 takes the rest", "caf\xE9", QStringLiteral("café")}));

TEST(TextDecoding, TakesAnyTwoBytes) {
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            const char bytes[] = {static_cast<char>(first), static_cast<char>(second)};
            const QString text = TextDecoding::decode(QByteArrayView(bytes, 2));
            // Two bytes are empty only where they are a mark without text.
            const bool isMark =
                (first == 0xFF && second == 0xFE) || (first == 0xFE && second == 0xFF);
            ASSERT_EQ(text.isEmpty(), isMark) << first << " " << second;
        }
    }
}

}  // namespace
}  // namespace diary
