// Any bytes as a zip archive: they are read or refused, and what is given out is in proportion.
#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Import/ImportPackage.h"
#include "tests/fuzz/ImportFuzzing.h"

namespace diary::fuzz {
namespace {

// The bytes of an entry, or nothing if it is refused.
std::optional<QByteArray> contents(const ZipArchive& archive, const ZipArchive::Entry& entry) {
    try {
        return archive.contents(entry);
    } catch (const ImportError& error) {
        check(error.kind() == ImportError::Kind::badArchive, "a fault is the archive's");
        return std::nullopt;
    }
}

qsizetype readEntry(const ZipArchive& archive, const ZipArchive::Entry& entry) {
    constexpr qsizetype kPrefix = 100;
    const std::optional<QByteArray> bytes = contents(archive, entry);
    if (!bytes) return 0;
    const auto expected = entry.method == 0 ? entry.compressedSize : entry.size;
    check(static_cast<quint64>(bytes->size()) == expected, "an entry has the size it claims");
    check(archive.prefix(entry, kPrefix) == bytes->first(std::min(kPrefix, bytes->size())),
          "a prefix is the beginning of the whole");
    return bytes->size();
}

void read(const QString& path, qsizetype size) {
    try {
        const ZipArchive archive(path);
        qsizetype given = 0;
        for (const ZipArchive::Entry& entry : archive.entries()) given += readEntry(archive, entry);
        check(given <= 24 * size + 16 * 1024 * 1024, "an archive gives a multiple of its size");
    } catch (const ImportError& error) {
        check(error.kind() == ImportError::Kind::badArchive, "a fault is the archive's");
    }
}

// What a reader of a source sees of it.
void readPackage(const QString& path) {
    try {
        const ImportPackage package(path);
        for (const QString& file : package.paths()) {
            check(!package.isZip() || !ImportPackage::isJunk(file), "no junk is listed");
            (void)package.head(file, 64);
        }
    } catch (const ImportError& error) {
        check(error.kind() == ImportError::Kind::badArchive, "a fault is the archive's");
    }
}

}  // namespace
}  // namespace diary::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace diary::fuzz;
    const QString path = asFile(view(data, size), QStringLiteral("input.zip"));
    read(path, static_cast<qsizetype>(size));
    readPackage(path);
    return 0;
}
