// Any bytes as an import's record, and as a line of its journal: what reads is written and read
// again as the same.
#include "DiaryKit/Import/ImportRecord.h"
#include "tests/fuzz/Fuzzing.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace diary;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString shown = utf8::decodedWithRepair(bytes);
    if (const auto record = ImportRecord::decode(bytes)) {
        fuzz::require(ImportRecord::decode(record->encoded()) == record,
                      "a record reads as it was written", {shown});
    }
    if (const auto file = ImportRecord::File::decode(bytes)) {
        fuzz::require(ImportRecord::File::decode(file->encoded()) == file,
                      "a line of a journal reads as it was written", {shown});
    }
    return 0;
}
