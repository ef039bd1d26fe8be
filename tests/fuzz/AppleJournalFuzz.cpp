// Any bytes as two entries of an Apple Journal export: one with a date in its name, and one that
// only its header can date.
#include "DiaryKit/AppSources/AppleJournalSource.h"
#include "DiaryKit/Foundation/Utf8.h"
#include "DiaryKit/Import/ImportError.h"
#include "tests/fuzz/ImportFuzzing.h"

namespace diary::fuzz {
namespace {

void read(const ImportPackage& package) {
    const ImportBatch batch = AppleJournalSource::read(package, QStringLiteral("x"));
    check(batch.entries.size() + static_cast<std::size_t>(batch.skipped.undated) == 2,
          "each page counts once");
    check(batch.skipped.photos % 2 == 0 && batch.skipped.videos % 2 == 0 &&
              batch.skipped.audios % 2 == 0,
          "media count whether the entry is dated or not");
    check(!batch.entries.empty() && batch.entries[0].day == DiaryDay{2021, 3, 4},
          "a name dates its entry");
    for (const ImportedEntry& entry : batch.entries) {
        checkEntry(entry);
        ImportedEntry other = batch.entries[0];
        other.day = entry.day;
        check(entry == other, "only the day depends on the name");
    }
}

void unwrap(const QString& html) {
    const QString unwrapped = AppleJournalSource::unwrapCocoa(html);
    check(unwrapped.size() <= html.size(), "unwrapping only takes away");
    const bool isCocoa = html.contains(QLatin1String("Cocoa HTML Writer"));
    check(isCocoa || unwrapped == html, "other pages stay as they are");
    check(!isCocoa || !unwrapped.contains(QLatin1String("</p>"), Qt::CaseInsensitive),
          "no paragraph is left");
}

}  // namespace
}  // namespace diary::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace diary;
    using namespace diary::fuzz;
    const QByteArrayView bytes = view(data, size);
    (void)asFile(bytes, QStringLiteral("Entries/2021-03-04_A.html"));
    const QString page = asFile(bytes, QStringLiteral("Entries/B.html"));
    read(ImportPackage(QFileInfo(QFileInfo(page).path()).path()));
    unwrap(utf8::decodedWithRepair(bytes));
    return 0;
}
