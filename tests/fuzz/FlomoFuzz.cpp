// Any bytes as the page of a flomo export.
#include "DiaryKit/AppSources/FlomoSource.h"
#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Import/MiniHTML.h"
#include "tests/fuzz/ImportFuzzing.h"

namespace diary::fuzz {
namespace {

void read(const QString& path) {
    const ImportPackage package(path);
    try {
        const ImportBatch batch = FlomoSource::read(package, QStringLiteral("x"));
        const HTMLDocument page = MiniHTML::parse(package.text(package.paths().first()));
        const std::size_t found = batch.entries.size() +
                                  static_cast<std::size_t>(batch.skipped.undated) +
                                  static_cast<std::size_t>(batch.skipped.otherNotes);
        check(found == page.root().allOfClass(u"memo").size(), "each memo counts once");
        check(batch.skipped.photos >= 0 && batch.skipped.audios >= 0, "media count from 0");
        for (const ImportedEntry& entry : batch.entries) checkEntry(entry);
    } catch (const ImportError&) {
        check(FlomoSource::memoFiles(package).isEmpty(), "what is recognised is read");
    }
}

}  // namespace
}  // namespace diary::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace diary::fuzz;
    const QByteArrayView bytes = view(data, size);
    // An archive in place of the page would be another format's matter.
    if (bytes.startsWith("PK")) return 0;
    read(asFile(bytes, QStringLiteral("page.html")));
    return 0;
}
