// Any bytes as text of unknown encoding.
#include "DiaryKit/Foundation/Utf8.h"
#include "DiaryKit/Import/TextDecoding.h"
#include "tests/fuzz/ImportFuzzing.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace diary;
    using namespace diary::fuzz;
    const QByteArrayView bytes = view(data, size);
    const QString text = TextDecoding::decode(bytes);
    check(text.size() <= bytes.size(), "no encoding has more units than bytes");
    check(text.isValidUtf16(), "the text has no lone surrogates");
    const std::optional<QString> plain = utf8::decodedStrictly(bytes);
    if (plain && !bytes.startsWith("\xEF\xBB\xBF")) {
        check(text == *plain, "valid UTF-8 is taken for what it is");
    }
    check(TextDecoding::legacy(bytes).isValidUtf16(), "no code page has lone surrogates");
    return 0;
}
