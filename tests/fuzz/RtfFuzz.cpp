// Any bytes as rich text: they give sound text in proportion, or are refused.
#include "DiaryKit/Documents/RtfText.h"
#include "DiaryKit/Import/ImportError.h"
#include "tests/fuzz/ImportFuzzing.h"

namespace diary::fuzz {
namespace {

void read(QByteArrayView rtf) {
    try {
        const QString text = documents::rtfText(rtf);
        check(text.size() <= 2 * rtf.size(), "a text is no longer than its source");
        check(QString::fromUtf8(text.toUtf8()) == text, "a text is sound");
    } catch (const ImportError& error) {
        check(error.kind() == ImportError::Kind::unrecognized, "a refusal is one of the kind");
    }
}

}  // namespace
}  // namespace diary::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArrayView bytes = diary::fuzz::view(data, size);
    diary::fuzz::read(bytes);
    // Most inputs don't begin as rich text does.
    diary::fuzz::read("{\\rtf1" + bytes.toByteArray());
    return 0;
}
