// Any bytes under names that readers look for, as a file, a folder or a zip: whichever reader takes
// them, what it can't read it refuses in the import's own way.
//
// The input's first byte tells how the package is made; behind it stand files, each a byte for its
// name and then its content, with NULs between them.
#include <array>

#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/ImportReader/ImportReader.h"
#include "tests/fuzz/ImportFuzzing.h"
#include "tests/kit/import/ZipBuilder.h"

namespace diary::fuzz {
namespace {

using diary::testing::ZipBuilder;

constexpr int kThisYear = 2026;

constexpr std::array kNames = {
    "Journal.json",
    "Entries/2021-03-04.html",
    "a.html",
    "1614852000000-a1b2.json",
    "daylio.csv",
    "backup.daylio",
    "x.daylio",
    "2021-03-04.md",
    "Data/2021/03-04.md",
    "journals/2021_03_04.md",
    "diary.txt",
    "03-04.md",
    "output/11-21.md",
    ".obsidian/daily-notes.json",
    "d/4.3.21.md",
    "diary.rtf",
    "diary.docx",
    "x.bin",
    "report.md",
    "notes.org",
};

struct File {
    const char* name;
    QByteArrayView bytes;
};

std::vector<File> files(QByteArrayView input) {
    constexpr std::size_t kMost = 4;
    std::vector<File> found;
    while (!input.isEmpty() && found.size() < kMost) {
        const qsizetype end = input.indexOf('\0');
        const QByteArrayView piece = end < 0 ? input : input.first(end);
        input = end < 0 ? QByteArrayView() : input.sliced(end + 1);
        if (piece.isEmpty()) continue;
        const auto number = static_cast<unsigned char>(piece.front());
        found.push_back({kNames[number % kNames.size()], piece.sliced(1)});
    }
    return found;
}

// What the user picks: the only file, a zip of all, or their folder.
QString picked(unsigned char form, const std::vector<File>& files) {
    const QString folder = QFileInfo(asFile({}, QStringLiteral("picked"))).path();
    QDir(folder + QStringLiteral("/package")).removeRecursively();
    QString path;
    ZipBuilder zip;
    for (const File& file : files) {
        path = asFile(file.bytes, QStringLiteral("package/") + QLatin1String(file.name));
        const QByteArray bytes = file.bytes.toByteArray();
        zip.add(form % 2 == 0 ? ZipBuilder::stored(file.name, bytes)
                              : ZipBuilder::packed(file.name, bytes));
    }
    if (files.size() == 1 && form < 0x60) return path;
    if (form < 0xA0) return asFile(zip.bytes(), QStringLiteral("package.zip"));
    return folder + QStringLiteral("/package");
}

void read(const QString& path) {
    DatedTextSource::DocumentReaders readers;
    readers.documentText = [](const QString&) { return QStringLiteral("2021-03-04\nx\n"); };
    ImportReader::Options options;
    options.currentYear = kThisYear;
    try {
        const ImportBatch batch = ImportReader::read(path, options, readers);
        check(batch.name == QFileInfo(path).fileName(), "a batch has the name of what was picked");
        check(batch.skipped.photos >= 0 && batch.skipped.undated >= 0, "what is skipped counts");
        for (const ImportedEntry& entry : batch.entries) {
            check(LocalTime::isValid(entry.day.year, entry.day.month, entry.day.day),
                  "an entry's day is one of the calendar");
        }
    } catch (const ImportError&) {
    } catch (const FileError&) {}
}

}  // namespace
}  // namespace diary::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace diary::fuzz;
    if (size < 2) return 0;
    const std::vector<File> package = files(view(data + 1, size - 1));
    if (package.empty()) return 0;
    read(picked(data[0], package));
    return 0;
}
