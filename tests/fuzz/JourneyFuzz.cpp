// Any bytes as an entry of a Journey export.
#include "DiaryKit/AppSources/JourneySource.h"
#include "DiaryKit/Import/ImportError.h"
#include "tests/fuzz/ImportFuzzing.h"

namespace diary::fuzz {
namespace {

void read(const QString& path) {
    const ImportPackage package(path);
    try {
        const ImportBatch batch = JourneySource::read(package, QStringLiteral("x"));
        check(JourneySource::entryFiles(package).size() == 1, "what is read was recognised");
        const int found = static_cast<int>(batch.entries.size()) + batch.skipped.undated +
                          batch.skipped.otherNotes;
        check(found == 1, "a file is an entry, undated, or no entry");
        check(batch.skipped.photos >= 0, "photos are counted from 0");
        for (const ImportedEntry& entry : batch.entries) {
            checkEntry(entry);
            check(entry.time.has_value(), "an entry has its time");
        }
    } catch (const ImportError&) {
        check(JourneySource::entryFiles(package).isEmpty(), "what is recognised is read");
    }
}

}  // namespace
}  // namespace diary::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace diary::fuzz;
    const QByteArrayView bytes = view(data, size);
    // An archive in place of the file would be another format's matter.
    if (bytes.startsWith("PK")) return 0;
    read(asFile(bytes, QStringLiteral("1571425138176-a.json")));
    return 0;
}
