#include "DiaryKit/Foundation/JsonText.h"

#include <gtest/gtest.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include "DiaryKit/Foundation/Sha256.h"
#include "tests/support/Printing.h"

namespace diary {
namespace {

QByteArray written(QStringView text, json::Slash slash) {
    QByteArray json;
    EXPECT_TRUE(json::append(text, slash, json));
    return json;
}

TEST(JsonText, EscapesWhatItMust) {
    EXPECT_EQ(written(u"a\n\"b\"", json::Slash::Plain), "\"a\\n\\\"b\\\"\"");
    EXPECT_EQ(written(u"/\\\u001f\u007f\u2028", json::Slash::Plain),
              "\"/\\\\\\u001f\u007f\u2028\"");
    EXPECT_EQ(written(u"a/b", json::Slash::Escaped), "\"a\\/b\"");
    EXPECT_EQ(written(u"", json::Slash::Plain), "\"\"");
}

TEST(JsonText, IsWhatTheLibraryWritesForEachUnit) {
    for (int unit = 0; unit < 0x10000; ++unit) {
        if (QChar::isSurrogate(static_cast<char32_t>(unit))) continue;
        const QString text = QStringLiteral("a") + QChar(unit) + QStringLiteral("b");
        const QByteArray list = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
        ASSERT_EQ('[' + written(text, json::Slash::Plain) + ']', list) << unit;
    }
}

TEST(JsonText, TellsOfHalfACharacter) {
    QByteArray json;
    EXPECT_FALSE(json::append(QString(QChar(0xD83D)), json::Slash::Plain, json));
    EXPECT_TRUE(json::append(u"\U0001F600", json::Slash::Plain, json));
}

TEST(Sha256, IsTheStandards) {
    EXPECT_EQ(sha256("abc"), u"ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(sha256(QByteArrayView()),
              u"e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(sha256(QByteArray(1'000'000, 'a')),
              u"cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

}  // namespace
}  // namespace diary
