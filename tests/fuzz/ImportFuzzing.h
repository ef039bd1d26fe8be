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

// Writes the input to a file, the same in each round, and gives its path.
inline QString asFile(QByteArrayView bytes, const QString& name) {
    // In memory where that is possible: a disk would be most of a round's time.
    static const QString memory = QStringLiteral("/dev/shm");
    static const QTemporaryDir folder((QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) +
                                      QStringLiteral("/velmar-fuzz-XXXXXX"));
    const QString path = folder.filePath(name);
    QFile file(path);
    check(file.open(QIODevice::WriteOnly), "the input can be written to a file");
    file.write(bytes.data(), bytes.size());
    return path;
}

}  // namespace diary::fuzz
