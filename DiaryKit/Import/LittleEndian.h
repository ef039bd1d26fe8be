// Little-endian numbers at places of a file that nobody vouches for.
#pragma once

#include <QtCore/QByteArrayView>
#include <QtCore/QtEndian>

namespace diary {

// Offsets are those of a file that may claim any, so they are compared without adding them up.
class LittleEndianView {
public:
    explicit LittleEndianView(QByteArrayView bytes) : m_bytes(bytes) {}

    [[nodiscard]] quint64 size() const { return static_cast<quint64>(m_bytes.size()); }

    // Whether that stretch lies wholly inside.
    [[nodiscard]] bool holds(quint64 offset, quint64 length) const {
        return offset <= size() && length <= size() - offset;
    }

    // The stretch, which must lie inside.
    [[nodiscard]] QByteArrayView slice(quint64 offset, quint64 length) const {
        return m_bytes.sliced(static_cast<qsizetype>(offset), static_cast<qsizetype>(length));
    }

    // Numbers out of bounds are 0.
    [[nodiscard]] quint16 u16(quint64 offset) const { return number<quint16>(offset); }
    [[nodiscard]] quint32 u32(quint64 offset) const { return number<quint32>(offset); }
    [[nodiscard]] quint64 u64(quint64 offset) const { return number<quint64>(offset); }

private:
    template <typename Number>
    [[nodiscard]] Number number(quint64 offset) const {
        if (!holds(offset, sizeof(Number))) return 0;
        return qFromLittleEndian<Number>(m_bytes.data() + offset);
    }

    QByteArrayView m_bytes;
};

}  // namespace diary
