// Any bytes as a backup of Daylio: as they are, and as the JSON in its base64 text.
#include "DiaryKit/AppSources/DaylioSource.h"
#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Import/LocalTime.h"
#include "tests/fuzz/ImportFuzzing.h"

namespace diary::fuzz {
namespace {

void checkEntry(const ImportedEntry& entry) {
    check(entry.day.year < 1 || LocalTime::isValid(entry.day.year, entry.day.month, entry.day.day),
          "an entry's day is one of the calendar");
    check(entry.time.has_value(), "a moment has a time");
    check(!entry.title || !entry.title->isEmpty(), "a title that is there isn't empty");
    check(!entry.mood && entry.tags.isEmpty(), "moods and activities are told in the text");
}

void read(QByteArrayView bytes) {
    try {
        const ImportPackage package(asFile(bytes, QStringLiteral("backup.daylio")));
        const DaylioSource::Moods moods = {{QStringLiteral("rad"), QStringLiteral("Great")}};
        const ImportBatch batch = DaylioSource::readBackup(package, QStringLiteral("x"), moods);
        check(batch.entries.size() <= static_cast<std::size_t>(bytes.size()),
              "an entry takes some bytes");
        for (const ImportedEntry& entry : batch.entries) checkEntry(entry);
    } catch (const ImportError& error) {
        check(error.kind() == ImportError::Kind::unrecognized ||
                  error.kind() == ImportError::Kind::badArchive,
              "no other error is known");
    }
}

}  // namespace
}  // namespace diary::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace diary::fuzz;
    const QByteArrayView bytes = view(data, size);
    read(bytes);
    read(bytes.toByteArray().toBase64());
    return 0;
}
