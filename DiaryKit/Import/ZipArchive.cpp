#include "DiaryKit/Import/ZipArchive.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <zlib.h>

#include <algorithm>
#include <limits>
#include <new>

#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Import/LittleEndian.h"
#include "DiaryKit/Import/ZipDirectory.h"

namespace diary {

namespace {

constexpr qint64 kMebibyte = qint64{1024} * 1024;

// Smaller archives are read as a whole: a mapping would end the process if another program cut the
// file short meanwhile.
constexpr qint64 kMapsFrom = 64 * kMebibyte;

// Diaries shrink to a tenth at best, and each entry is read once or twice. An archive that gives
// out many times its size was made to fill the memory, by few entries or by many that overlap.
constexpr qint64 kContentsPerByte = 24;
constexpr qint64 kContentsBeyond = 16 * kMebibyte;
// Prefixes cost time only, and several sources look at each.
constexpr qint64 kPrefixesPerByte = 64;
constexpr qint64 kPrefixesBeyond = 256 * kMebibyte;

constexpr quint16 kIsEncrypted = 1;
constexpr quint16 kStored = 0;
constexpr quint16 kDeflated = 8;

[[noreturn]] void fail() {
    throw ImportError(ImportError::Kind::badArchive);
}

qint64 allowance(qint64 size, qint64 perByte, qint64 beyond) {
    const qint64 most = (std::numeric_limits<qint64>::max() - beyond) / perByte;
    return std::min(size, most) * perByte + beyond;
}

void spend(std::atomic<qint64>& left, quint64 bytes) {
    constexpr quint64 kNeverLeft = std::numeric_limits<qint64>::max();
    if (bytes > kNeverLeft) fail();
    const auto amount = static_cast<qint64>(bytes);
    if (left.fetch_sub(amount) < amount) {
        left.fetch_add(amount);
        fail();
    }
}

// A raw DEFLATE stream that is read in pieces.
class Inflater {
public:
    explicit Inflater(QByteArrayView packed) : m_rest(packed) {
        // Negative: no header and no checksum around the stream.
        if (inflateInit2(&m_stream, -MAX_WBITS) != Z_OK) fail();
    }
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;
    ~Inflater() { inflateEnd(&m_stream); }

    // Fills the whole target; fails if the stream doesn't give as much.
    void fill(char* target, quint64 length) {
        while (length > 0) {
            feed();
            const auto piece = static_cast<uInt>(std::min<quint64>(length, kLargestPiece));
            m_stream.next_out = reinterpret_cast<Bytef*>(target);
            m_stream.avail_out = piece;
            const int status = inflate(&m_stream, Z_NO_FLUSH);
            const uInt made = piece - m_stream.avail_out;
            target += made;
            length -= made;
            if (length == 0) return;
            if (status != Z_OK || (made == 0 && m_stream.avail_in == 0 && m_rest.isEmpty())) fail();
        }
    }

private:
    static constexpr qsizetype kLargestPiece = 1 << 30;

    void feed() {
        if (m_stream.avail_in > 0 || m_rest.isEmpty()) return;
        const qsizetype length = std::min(m_rest.size(), kLargestPiece);
        // zlib doesn't write to its input; its type only says so where it is built to.
        m_stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(m_rest.data()));
        m_stream.avail_in = static_cast<uInt>(length);
        m_rest = m_rest.sliced(length);
    }

    z_stream m_stream = {};
    QByteArrayView m_rest;
};

QByteArray inflated(QByteArrayView packed, quint64 size) {
    if (size == 0) return {};
    QByteArray bytes(static_cast<qsizetype>(size), Qt::Uninitialized);
    Inflater(packed).fill(bytes.data(), size);
    return bytes;
}

QByteArray inflatedPrefix(QByteArrayView packed, quint64 size, qsizetype length) {
    if (size == 0) return {};
    Inflater inflater(packed);
    const quint64 kept = std::min(size, static_cast<quint64>(length));
    QByteArray bytes(static_cast<qsizetype>(kept), Qt::Uninitialized);
    inflater.fill(bytes.data(), kept);
    constexpr quint64 kPiece = quint64{256} * 1024;
    std::vector<char> passed(std::min(size - kept, kPiece));
    for (quint64 left = size - kept; left > 0;) {
        const quint64 piece = std::min<quint64>(left, passed.size());
        inflater.fill(passed.data(), piece);
        left -= piece;
    }
    return bytes;
}

}  // namespace

ZipArchive::ZipArchive(const QString& path) : m_file(path) {
    struct stat status = {};
    // Pipes and devices would block or never end.
    if (::stat(QFile::encodeName(path).constData(), &status) != 0 || !S_ISREG(status.st_mode) ||
        !m_file.open(QIODevice::ReadOnly)) {
        fail();
    }
    const qint64 size = m_file.size();
    if (size < kMapsFrom) {
        m_bytes = m_file.readAll();
        m_file.close();
        m_data = m_bytes;
    } else {
        const uchar* const mapped = m_file.map(0, size);
        if (mapped == nullptr) fail();
        m_data = QByteArrayView(mapped, size);
    }
    m_contentsLeft = allowance(m_data.size(), kContentsPerByte, kContentsBeyond);
    m_prefixesLeft = allowance(m_data.size(), kPrefixesPerByte, kPrefixesBeyond);
    m_entries = zip::directory(m_data);
}

bool ZipArchive::looksLikeZip(const QString& path) {
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return false;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    const QByteArray head = file.read(4);
    return head == QByteArrayView("PK\3\4") || head == QByteArrayView("PK\5\6");
}

QByteArrayView ZipArchive::packedBytes(const Entry& entry) const {
    constexpr quint64 kLocalHeaderBytes = 30;
    // A mapped file that has been cut short since has no bytes behind its new end.
    if (m_file.isOpen() && m_file.size() < m_data.size()) fail();
    const LittleEndianView file(m_data);
    const quint64 header = entry.localHeaderOffset;
    if ((entry.flags & kIsEncrypted) != 0 || !file.holds(header, sizeof(quint32)) ||
        file.u32(header) != zip::kLocalHeader) {
        fail();
    }
    // The lengths here count, which may differ from those in the directory.
    const quint64 start =
        header + kLocalHeaderBytes + file.u16(header + 26) + file.u16(header + 28);
    if (!file.holds(start, entry.compressedSize)) fail();
    return file.slice(start, entry.compressedSize);
}

QByteArray ZipArchive::contents(const Entry& entry) const {
    const QByteArrayView packed = packedBytes(entry);
    if (entry.method != kStored && entry.method != kDeflated) fail();
    spend(m_contentsLeft, entry.method == kStored ? entry.compressedSize : entry.size);
    try {
        return entry.method == kStored ? packed.toByteArray() : inflated(packed, entry.size);
    } catch (const std::bad_alloc&) {
        fail();
    }
}

QByteArray ZipArchive::prefix(const Entry& entry, qsizetype length) const {
    const QByteArrayView packed = packedBytes(entry);
    if (entry.method == kStored) return packed.first(std::min(length, packed.size())).toByteArray();
    if (entry.method != kDeflated) fail();
    spend(m_prefixesLeft, entry.size);
    return inflatedPrefix(packed, entry.size, length);
}

}  // namespace diary
