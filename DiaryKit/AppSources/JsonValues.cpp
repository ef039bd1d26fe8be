#include "DiaryKit/AppSources/JsonValues.h"

#include "DiaryKit/Import/TextDecoding.h"

namespace diary {

using Kind = JsonCursor::Kind;

QStringList textList(JsonCursor& json) {
    QStringList texts;
    if (!json.skipUnless(Kind::Array)) return texts;
    bool isMixed = false;
    json.eachElement([&] {
        const std::optional<QString> text = json.optionalString();
        if (text) texts.append(*text);
        isMixed = isMixed || !text;
    });
    return isMixed ? QStringList() : texts;
}

QByteArray jsonUtf8(const QByteArray& bytes) {
    return TextDecoding::hasUtf16Mark(bytes) ? TextDecoding::decode(bytes).toUtf8() : bytes;
}

}  // namespace diary
