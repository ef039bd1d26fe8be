// A zip archive, read only: what export tools really make, with ZIP64 and with names in the code
// pages of old systems. Archives come from anywhere, so nothing in one is believed before it is
// checked, and a fault shows when the entry that has it is read: a bad one among good ones does no
// harm to these. Checksums aren't compared.
//
// Names are kept as they are found, and may climb out of a folder; they are for looking up only.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QByteArrayView>
#include <QtCore/QFile>
#include <QtCore/QString>
#include <atomic>
#include <vector>

namespace diary {

// Entries may be read from several threads at once.
class ZipArchive {
public:
    struct Entry {
        QString path;
        quint16 method = 0;
        quint16 flags = 0;
        quint64 compressedSize = 0;
        quint64 size = 0;
        quint64 localHeaderOffset = 0;

        [[nodiscard]] bool isDirectory() const { return path.endsWith(u'/'); }

        bool operator==(const Entry&) const = default;
    };

    // Opens the archive and reads its directory. A large file is mapped, so that only what is read
    // of it costs memory. Throws ImportError (badArchive). Blocks.
    explicit ZipArchive(const QString& path);

    ZipArchive(const ZipArchive&) = delete;
    ZipArchive& operator=(const ZipArchive&) = delete;

    // Whether the file begins like an archive; false if it can't be read.
    [[nodiscard]] static bool looksLikeZip(const QString& path);

    // In the order of the archive's directory.
    [[nodiscard]] const std::vector<Entry>& entries() const { return m_entries; }

    // The whole file. Valid as long as the archive lives.
    [[nodiscard]] QByteArrayView data() const { return m_data; }

    // The bytes of an entry. Throws ImportError (badArchive): the entry is encrypted, packed in an
    // unknown way or damaged, or more is asked of a small archive than any diary would hold.
    [[nodiscard]] QByteArray contents(const Entry& entry) const;

    // The first bytes of an entry, at most `length`. Unpacks all of it, and throws as `contents`,
    // but keeps no more than it returns.
    [[nodiscard]] QByteArray prefix(const Entry& entry, qsizetype length) const;

private:
    [[nodiscard]] QByteArrayView packedBytes(const Entry& entry) const;

    // Last first: the view is into one of the others.
    QFile m_file;
    QByteArray m_bytes;
    QByteArrayView m_data;
    std::vector<Entry> m_entries;
    // How many bytes may still be given out, whole and as prefixes.
    mutable std::atomic<qint64> m_contentsLeft{0};
    mutable std::atomic<qint64> m_prefixesLeft{0};
};

}  // namespace diary
