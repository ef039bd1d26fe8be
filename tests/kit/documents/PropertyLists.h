// Binary property lists made for a test, sound or not.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QtEndian>
#include <vector>

namespace diary::testing {

class BinaryListBuilder {
public:
    // Each gives the number of the object that it adds.
    int text(const QByteArray& ascii) { return add(marked(0x50, ascii.size()) + ascii); }
    int wideText(const QString& text) {
        QByteArray units;
        for (const QChar unit : text) units += big(static_cast<quint16>(unit.unicode()), 2);
        return add(marked(0x60, text.size()) + units);
    }
    int data(const QByteArray& bytes) { return add(marked(0x40, bytes.size()) + bytes); }
    // Keys and values may be objects that come later.
    int dictionary(const std::vector<std::pair<int, int>>& entries) {
        QByteArray object = marked(0xD0, static_cast<qsizetype>(entries.size()));
        for (const auto& entry : entries) object += big(static_cast<quint64>(entry.first), 2);
        for (const auto& entry : entries) object += big(static_cast<quint64>(entry.second), 2);
        return add(object);
    }

    [[nodiscard]] QByteArray bytes(int top) const {
        QByteArray offsets;
        for (const qsizetype offset : m_offsets) offsets += big(static_cast<quint64>(offset), 4);
        return m_bytes + offsets + QByteArray(6, '\0') + "\4\2" + big(m_offsets.size(), 8) +
               big(static_cast<quint64>(top), 8) + big(static_cast<quint64>(m_bytes.size()), 8);
    }

private:
    static QByteArray big(quint64 value, int width) {
        QByteArray bytes(8, '\0');
        qToBigEndian(value, bytes.data());
        return bytes.last(width);
    }
    static QByteArray marked(int kind, qsizetype count) {
        if (count < 15) return QByteArray(1, static_cast<char>(kind | count));
        return QByteArray(1, static_cast<char>(kind | 15)) + '\x12' +
               big(static_cast<quint64>(count), 4);
    }
    int add(const QByteArray& object) {
        m_offsets.push_back(m_bytes.size());
        m_bytes += object;
        return static_cast<int>(m_offsets.size()) - 1;
    }

    QByteArray m_bytes = "bplist00";
    std::vector<qsizetype> m_offsets;
};

}  // namespace diary::testing
