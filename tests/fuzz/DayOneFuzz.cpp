// Any bytes as a journal of a Day One export, and as the text of an entry.
#include "DiaryKit/AppSources/DayOneSource.h"
#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Foundation/Utf8.h"
#include "DiaryKit/Import/ImportError.h"
#include "tests/fuzz/ImportFuzzing.h"

namespace diary::fuzz {
namespace {

void read(const QString& path) {
    try {
        const ImportPackage package(path);
        const ImportBatch batch = DayOneSource::read(package, QStringLiteral("x"));
        int count = 0;
        for (const ImportBatch::Journal& journal : batch.journals) count += journal.count;
        check(count == static_cast<int>(batch.entries.size()), "journals count their entries");
        for (const ImportedEntry& entry : batch.entries) {
            checkEntry(entry);
            check(entry.journal.has_value(), "an entry belongs to a journal");
        }
    } catch (const ImportError&) {
    } catch (const FileError&) {}
}

}  // namespace
}  // namespace diary::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace diary;
    using namespace diary::fuzz;
    const QByteArrayView bytes = view(data, size);
    read(asFile(bytes, QStringLiteral("input.json")));
    const QString text = utf8::decodedWithRepair(bytes);
    check(DayOneSource::cleanText(text).size() <= text.size(), "cleaning only takes away");
    return 0;
}
