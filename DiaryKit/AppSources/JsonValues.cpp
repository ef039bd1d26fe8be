#include "DiaryKit/AppSources/JsonValues.h"

#include "DiaryKit/Import/TextDecoding.h"

namespace diary {

using Kind = JsonCursor::Kind;

std::optional<QString> optionalString(JsonCursor& json) {
    if (json.kind() == Kind::String) return json.takeString();
    json.skip();
    return std::nullopt;
}

std::optional<double> optionalNumber(JsonCursor& json) {
    if (json.kind() == Kind::Number) return json.takeNumber();
    json.skip();
    return std::nullopt;
}

std::optional<bool> optionalBoolean(JsonCursor& json) {
    if (json.kind() == Kind::Boolean) return json.takeBoolean();
    json.skip();
    return std::nullopt;
}

int elementCount(JsonCursor& json) {
    int count = 0;
    if (json.kind() != Kind::Array) {
        json.skip();
        return count;
    }
    json.eachElement([&] {
        json.skip();
        ++count;
    });
    return count;
}

QStringList textList(JsonCursor& json) {
    QStringList texts;
    if (json.kind() != Kind::Array) {
        json.skip();
        return texts;
    }
    bool isMixed = false;
    json.eachElement([&] {
        const std::optional<QString> text = optionalString(json);
        if (text) texts.append(*text);
        isMixed = isMixed || !text;
    });
    return isMixed ? QStringList() : texts;
}

QByteArray jsonUtf8(const QByteArray& bytes) {
    const bool isUtf16 = bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF");
    return isUtf16 ? TextDecoding::decode(bytes).toUtf8() : bytes;
}

}  // namespace diary
