#include "DiaryKit/Documents/BinaryPropertyList.h"

#include <QtCore/QStringDecoder>

namespace diary::documents {

namespace {

// Behind the mark lie objects, then their offsets, then these bytes that tell where all is.
constexpr quint64 kTrailerBytes = 32;
constexpr quint8 kData = 0x4;
constexpr quint8 kAscii = 0x5;
constexpr quint8 kUtf16 = 0x6;
constexpr quint8 kDictionary = 0xD;

}  // namespace

bool BinaryPropertyList::looksLike(QByteArrayView bytes) {
    return bytes.startsWith("bplist0");
}

BinaryPropertyList::BinaryPropertyList(QByteArrayView bytes) : m_bytes(bytes) {
    const auto size = static_cast<quint64>(bytes.size());
    if (!looksLike(bytes) || size < kTrailerBytes) return;
    const quint64 trailer = size - kTrailerBytes;
    m_offsetWidth = number(trailer + 6, 1).value_or(0);
    m_referenceWidth = number(trailer + 7, 1).value_or(0);
    m_objects = number(trailer + 8, 8).value_or(0);
    m_top = number(trailer + 16, 8).value_or(0);
    m_offsets = number(trailer + 24, 8).value_or(0);
}

bool BinaryPropertyList::holds(quint64 offset, quint64 length) const {
    const auto size = static_cast<quint64>(m_bytes.size());
    return offset <= size && length <= size - offset;
}

std::optional<quint64> BinaryPropertyList::number(quint64 offset, quint64 width) const {
    if (width < 1 || width > 8 || !holds(offset, width)) return std::nullopt;
    quint64 value = 0;
    for (quint64 i = 0; i < width; ++i) {
        value = value << 8 | static_cast<quint8>(m_bytes[static_cast<qsizetype>(offset + i)]);
    }
    return value;
}

std::optional<BinaryPropertyList::Object> BinaryPropertyList::top() const {
    if (m_top >= m_objects || !content(m_top)) return std::nullopt;
    return m_top;
}

std::optional<BinaryPropertyList::Content> BinaryPropertyList::content(Object object) const {
    // No list has more objects than bytes, so the multiplication stays in bounds.
    if (object >= m_objects || object >= static_cast<quint64>(m_bytes.size())) return std::nullopt;
    if (!holds(m_offsets, 0)) return std::nullopt;
    const auto offset = number(m_offsets + object * m_offsetWidth, m_offsetWidth);
    if (!offset) return std::nullopt;
    const auto marker = number(*offset, 1);
    if (!marker) return std::nullopt;
    Content content{
        .kind = static_cast<quint8>(*marker >> 4), .count = *marker & 0xF, .start = *offset + 1};
    if (content.count != 0xF) return content;
    // A larger count follows as an object of its own: a number of 1, 2, 4 or 8 bytes.
    const auto size = number(content.start, 1);
    if (!size || *size >> 4 != 1 || (*size & 0xF) > 3) return std::nullopt;
    const quint64 width = quint64{1} << (*size & 0xF);
    const auto count = number(content.start + 1, width);
    if (!count) return std::nullopt;
    content.count = *count;
    content.start += 1 + width;
    return content;
}

std::optional<BinaryPropertyList::Object> BinaryPropertyList::value(Object dictionary,
                                                                    QStringView key) const {
    const auto found = content(dictionary);
    if (!found || found->kind != kDictionary) return std::nullopt;
    for (quint64 i = 0; i < found->count; ++i) {
        const auto name = number(found->start + i * m_referenceWidth, m_referenceWidth);
        if (!name) return std::nullopt;
        const auto keyContent = content(*name);
        // Only names of the same length are looked at, so a long one can't be asked for often.
        if (!keyContent || keyContent->count != static_cast<quint64>(key.size())) continue;
        if (text(*name) != key) continue;
        return number(found->start + (found->count + i) * m_referenceWidth, m_referenceWidth);
    }
    return std::nullopt;
}

std::optional<QByteArrayView> BinaryPropertyList::data(Object object) const {
    const auto found = content(object);
    if (!found || found->kind != kData || !holds(found->start, found->count)) return std::nullopt;
    return m_bytes.sliced(static_cast<qsizetype>(found->start),
                          static_cast<qsizetype>(found->count));
}

std::optional<QString> BinaryPropertyList::text(Object object) const {
    const auto found = content(object);
    if (!found || !holds(found->start, found->count)) return std::nullopt;
    const QByteArrayView rest = m_bytes.sliced(static_cast<qsizetype>(found->start));
    const auto count = static_cast<qsizetype>(found->count);
    if (found->kind == kAscii) return QString::fromLatin1(rest.first(count));
    if (found->kind != kUtf16 || !holds(found->start + found->count, found->count)) {
        return std::nullopt;
    }
    QStringDecoder decoder(QStringConverter::Utf16BE, QStringConverter::Flag::ConvertInitialBom);
    return decoder.decode(rest.first(2 * count));
}

}  // namespace diary::documents
