// Any bytes as a web archive: they are read or refused.
#include "DiaryKit/Documents/WebArchiveText.h"
#include "DiaryKit/Import/ImportError.h"
#include "tests/fuzz/ImportFuzzing.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes = diary::fuzz::view(data, size).toByteArray();
    try {
        (void)diary::documents::webArchiveText(bytes);
    } catch (const diary::ImportError& error) {
        diary::fuzz::check(error.kind() == diary::ImportError::Kind::unrecognized,
                           "a refusal is one of the kind");
    }
    return 0;
}
