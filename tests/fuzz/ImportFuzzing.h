// What the fuzz targets of the import share: the input as a file, and looking through a package.
#pragma once

#include <QtCore/QByteArrayView>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QString>
#include <QtCore/QTemporaryDir>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "DiaryKit/Import/ImportedEntry.h"
#include "DiaryKit/Import/LocalTime.h"

namespace diary::fuzz {

// Ends the run, so that libFuzzer keeps the input.
inline void check(bool holds, const char* invariant) {
    if (holds) return;
    std::fprintf(stderr, "violated: %s\n", invariant);
    std::abort();
}

inline QByteArrayView view(const uint8_t* data, size_t size) {
    return {reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)};
}

// Writes the input to a file, the same in each round, and gives its path. The name may begin with
// folders.
inline QString asFile(QByteArrayView bytes, const QString& name) {
    // In memory where that is possible: a disk would be most of a round's time.
    static const QString memory = QStringLiteral("/dev/shm");
    static const QTemporaryDir folder((QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) +
                                      QStringLiteral("/velmar-fuzz-XXXXXX"));
    const QString path = folder.filePath(name);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    check(file.open(QIODevice::WriteOnly), "the input can be written to a file");
    file.write(bytes.data(), bytes.size());
    return path;
}

// What holds for the entries of every source.
inline void checkEntry(const ImportedEntry& entry) {
    check(LocalTime::isValid(entry.day.year, entry.day.month, entry.day.day),
          "an entry's day is one of the calendar");
    for (const std::optional<QString>& text :
         {entry.title, entry.place, entry.weather, entry.mood}) {
        check(!text || !text->isEmpty(), "a text that is there isn't empty");
        check(!text || text->isValidUtf16(), "a text has no lone surrogates");
    }
    check(entry.body.isValidUtf16(), "a body has no lone surrogates");
}

}  // namespace diary::fuzz
