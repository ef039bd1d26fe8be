#include "DiaryKit/AppSources/JsonCursor.h"

#include <gtest/gtest.h>

#include <QtCore/QJsonDocument>
#include <limits>
#include <random>

namespace diary {
namespace {

bool isJson(const QByteArray& text) {
    try {
        JsonCursor json(text);
        json.skip();
        json.finish();
        return true;
    } catch (const JsonError&) {
        return false;
    }
}

QString stringOf(const QByteArray& text) {
    JsonCursor json(text);
    QString value = json.takeString();
    json.finish();
    return value;
}

TEST(JsonCursor, TakesJsonAndNothingElse) {
    for (const char* text :
         {"{}", "[]", " [ 1 , -0.5e+3 , \"a\" ] ", R"({"a": {"b": [true, false, null]}, "a": 1})",
          "0", "-0", "1E5", "\xEF\xBB\xBF{}", "\"\x7F\""}) {
        EXPECT_TRUE(isJson(text)) << text;
    }
    for (const char* text :
         {"",         " ",       "{",          "[1,]",        "[,1]", "[1 2]", "{\"a\"}",
          "{\"a\":}", "{a:1}",   "{\"a\":1,}", "01",          "1.",   ".5",    "+1",
          "-",        "1e",      "tru",        "True",        "nul",  "'a'",   "\"a",
          "\"\n\"",   "\"\\x\"", "\"\\u12\"",  "\"\\u12g4\"", "[]]",  "{}{}",  "\"\xFF\"",
          "NaN",      "// x\n1"}) {
        EXPECT_FALSE(isJson(text)) << text;
    }
}

TEST(JsonCursor, TakesTextsWithTheirEscapes) {
    EXPECT_EQ(stringOf(R"("a\"\\\/\b\f\n\r\té\u00e9\ud83d\ude00")"),
              QStringLiteral("a\"\\/\b\f\n\r\té\u00e9\U0001F600"));
    EXPECT_EQ(stringOf("\"\xEF\xBB\xBFx\""), QStringLiteral("\uFEFFx"));
    EXPECT_EQ(stringOf(R"("\ud83d!")"), QStringLiteral("\uFFFD!"));
    EXPECT_EQ(stringOf(R"("\ude00\ud83d\u0041")"), QStringLiteral("\uFFFD\uFFFDA"));
}

TEST(JsonCursor, NestsToItsDepthAndNoFurther) {
    const auto nested = [](int depth) { return QByteArray(depth, '[') + QByteArray(depth, ']'); };
    EXPECT_TRUE(isJson(nested(JsonCursor::kMaxDepth)));
    EXPECT_FALSE(isJson(nested(JsonCursor::kMaxDepth + 1)));
}

TEST(JsonCursor, VisitsMembersAndElementsInOrder) {
    JsonCursor json(R"({"a": [1, "x", 2], "b": true, "c": {"d": null}})");
    QStringList seen;
    json.eachMember([&](const QString& key) {
        seen.append(key);
        if (json.kind() != JsonCursor::Kind::Array) return json.skip();
        json.eachElement([&] {
            if (json.kind() == JsonCursor::Kind::Number) {
                seen.append(QString::number(json.takeNumber()));
            } else {
                seen.append(json.takeString());
            }
        });
    });
    json.finish();
    EXPECT_EQ(seen.join(u' '), QStringLiteral("a 1 x 2 b c"));
}

template <typename Value>
Value taken(const char* text, Value (JsonCursor::*take)()) {
    JsonCursor json(text);
    Value value = (json.*take)();
    json.finish();
    return value;
}

TEST(JsonCursor, PassesOverValuesOfAnotherKind) {
    EXPECT_EQ(taken("\"x\"", &JsonCursor::optionalString), QStringLiteral("x"));
    EXPECT_EQ(taken("1", &JsonCursor::optionalString), std::nullopt);
    EXPECT_EQ(taken("-2.5", &JsonCursor::optionalNumber), -2.5);
    EXPECT_EQ(taken("true", &JsonCursor::optionalNumber), std::nullopt);
    EXPECT_EQ(taken("\"1\"", &JsonCursor::optionalInteger), std::nullopt);
    EXPECT_EQ(taken("false", &JsonCursor::optionalBoolean), false);
    EXPECT_EQ(taken("[[1]]", &JsonCursor::optionalBoolean), std::nullopt);
    EXPECT_EQ(taken("[1, [2], {}]", &JsonCursor::elementCount), 3);
    EXPECT_EQ(taken("{\"a\": [1]}", &JsonCursor::elementCount), 0);

    JsonCursor object("{\"a\": 1}");
    EXPECT_FALSE(object.skipUnless(JsonCursor::Kind::Array));
    object.finish();
    JsonCursor array("[1]");
    EXPECT_TRUE(array.skipUnless(JsonCursor::Kind::Array));
    EXPECT_EQ(array.elementCount(), 1);
}

TEST(JsonCursor, TakesNumbersWithoutAFractionAsIntegers) {
    const auto integer = [](const char* text) { return JsonCursor(text).optionalInteger(); };
    EXPECT_EQ(integer("3"), 3);
    EXPECT_EQ(integer("3.0"), 3);
    EXPECT_EQ(integer("-1e3"), -1000);
    EXPECT_EQ(integer("-9223372036854775808"), std::numeric_limits<qint64>::min());
    EXPECT_EQ(integer("9223372036854775808"), std::nullopt);
    EXPECT_EQ(integer("1e999"), std::nullopt);
    EXPECT_EQ(integer("2.5"), std::nullopt);
    EXPECT_EQ(integer("true"), std::nullopt);
}

// Of lists only, since Qt's reader refuses plain values, and without decimal points and control
// characters, which it takes in places where JSON has none.
TEST(JsonCursor, AgreesWithQtOnRandomTexts) {
    const QByteArrayList pieces = {"{", "}", "[", "]", ",", ":",    "\"a\"", "\"",      "\\n", "1",
                                   "-", "e", "0", " ", "t", "true", "null",  "\\u00e9", "a"};
    std::mt19937 random(20261121);  // NOLINT: the same texts in every run.
    int sound = 0;
    for (int round = 0; round < 200'000; ++round) {
        QByteArray text = "[";
        const unsigned length = random() % 9;
        for (unsigned i = 0; i < length; ++i) {
            text += pieces[static_cast<qsizetype>(random() % 19)];
        }
        text += "]";
        QJsonParseError error;
        QJsonDocument::fromJson(text, &error);
        const bool isSound = error.error == QJsonParseError::NoError;
        sound += isSound ? 1 : 0;
        ASSERT_EQ(isJson(text), isSound) << text.toStdString();
    }
    EXPECT_GT(sound, 1'000);
}

}  // namespace
}  // namespace diary
