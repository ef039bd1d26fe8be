// Zip archives made for a test, sound or not.
#pragma once

#include <zlib.h>

#include <QtCore/QByteArray>
#include <QtCore/QtEndian>
#include <optional>
#include <vector>

namespace diary::testing {

// Raw DEFLATE, as archives hold it.
inline QByteArray deflated(const QByteArray& bytes) {
    z_stream stream = {};
    deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
    QByteArray out(static_cast<qsizetype>(deflateBound(&stream, static_cast<uLong>(bytes.size()))),
                   Qt::Uninitialized);
    QByteArray in = bytes;
    stream.next_in = reinterpret_cast<Bytef*>(in.data());
    stream.avail_in = static_cast<uInt>(in.size());
    stream.next_out = reinterpret_cast<Bytef*>(out.data());
    stream.avail_out = static_cast<uInt>(out.size());
    deflate(&stream, Z_FINISH);
    out.truncate(static_cast<qsizetype>(stream.total_out));
    deflateEnd(&stream);
    return out;
}

class ZipBuilder {
public:
    struct Item {
        QByteArray name = {};
        QByteArray packed = {};
        quint16 method = 0;
        quint16 flags = 0;
        // What the directory claims; the packed bytes' own number where absent.
        std::optional<quint64> size = {};
        QByteArray extra = {};
        // Points the record at an earlier item in place of bytes of its own.
        std::optional<std::size_t> sharesBytesOf = {};
        // Points the record at this place of the file, the same way.
        std::optional<quint64> place = {};
    };

    static Item stored(const QByteArray& name, const QByteArray& bytes) {
        return {.name = name, .packed = bytes};
    }
    static Item packed(const QByteArray& name, const QByteArray& bytes) {
        return {.name = name,
                .packed = deflated(bytes),
                .method = 8,
                .size = static_cast<quint64>(bytes.size())};
    }

    void add(const Item& item) {
        quint64 offset = static_cast<quint64>(m_bytes.size());
        if (item.sharesBytesOf) {
            offset = m_offsets[*item.sharesBytesOf];
        } else if (item.place) {
            offset = *item.place;
        } else {
            appendLocal(item);
        }
        m_offsets.push_back(offset);
        appendRecord(item, offset);
    }

    [[nodiscard]] QByteArray bytes(const QByteArray& comment = {}) const {
        return bytesWithCount(static_cast<quint16>(m_offsets.size()), comment);
    }

    // With a number of entries that may be wrong.
    [[nodiscard]] QByteArray bytesWithCount(quint16 count, const QByteArray& comment = {}) const {
        QByteArray out = m_bytes + m_directory;
        appendEnd(out, count, static_cast<quint32>(m_bytes.size()), comment);
        return out;
    }

    // With a ZIP64 end record, as archives of more than 65,535 entries have.
    [[nodiscard]] QByteArray zip64Bytes() const {
        QByteArray out = m_bytes + m_directory;
        const auto record = static_cast<quint64>(out.size());
        append<quint32>(out, 0x06064B50);
        append<quint64>(out, 44);
        append<quint32>(out, 0);
        append<quint32>(out, 0);
        append<quint32>(out, 0);
        append<quint64>(out, m_offsets.size());
        append<quint64>(out, m_offsets.size());
        append<quint64>(out, static_cast<quint64>(m_directory.size()));
        append<quint64>(out, static_cast<quint64>(m_bytes.size()));
        append<quint32>(out, 0x07064B50);
        append<quint32>(out, 0);
        append<quint64>(out, record);
        append<quint32>(out, 1);
        appendEnd(out, 0xFFFF, 0xFFFFFFFF, {});
        return out;
    }

    template <typename Number>
    static void append(QByteArray& out, Number value) {
        const Number little = qToLittleEndian(value);
        out.append(reinterpret_cast<const char*>(&little), sizeof(Number));
    }

private:
    void appendLocal(const Item& item) {
        append<quint32>(m_bytes, 0x04034B50);
        append<quint16>(m_bytes, 20);
        append<quint16>(m_bytes, item.flags);
        append<quint16>(m_bytes, item.method);
        m_bytes.append(16, '\0');
        append<quint16>(m_bytes, static_cast<quint16>(item.name.size()));
        append<quint16>(m_bytes, 0);
        m_bytes += item.name + item.packed;
    }

    void appendRecord(const Item& item, quint64 offset) {
        const auto own = static_cast<quint64>(item.packed.size());
        append<quint32>(m_directory, 0x02014B50);
        append<quint16>(m_directory, 20);
        append<quint16>(m_directory, 20);
        append<quint16>(m_directory, item.flags);
        append<quint16>(m_directory, item.method);
        m_directory.append(8, '\0');
        append<quint32>(m_directory, static_cast<quint32>(own));
        append<quint32>(m_directory, static_cast<quint32>(item.size.value_or(own)));
        append<quint16>(m_directory, static_cast<quint16>(item.name.size()));
        append<quint16>(m_directory, static_cast<quint16>(item.extra.size()));
        m_directory.append(10, '\0');
        append<quint32>(m_directory, static_cast<quint32>(offset));
        m_directory += item.name + item.extra;
    }

    void appendEnd(QByteArray& out, quint16 count, quint32 offset,
                   const QByteArray& comment) const {
        append<quint32>(out, 0x06054B50);
        append<quint32>(out, 0);
        append<quint16>(out, count);
        append<quint16>(out, count);
        append<quint32>(out, static_cast<quint32>(m_directory.size()));
        append<quint32>(out, offset);
        append<quint16>(out, static_cast<quint16>(comment.size()));
        out += comment;
    }

    QByteArray m_bytes;
    QByteArray m_directory;
    std::vector<quint64> m_offsets;
};

}  // namespace diary::testing
