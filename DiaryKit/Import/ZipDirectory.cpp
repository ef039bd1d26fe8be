#include "DiaryKit/Import/ZipDirectory.h"

#include <algorithm>
#include <optional>

#include "DiaryKit/Foundation/Utf8.h"
#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Import/LittleEndian.h"
#include "DiaryKit/Import/TextDecoding.h"

namespace diary::zip {

namespace {

constexpr quint64 kEndRecordBytes = 22;
constexpr quint64 kLongestComment = 0xFFFF;
constexpr quint64 kZip64LocatorBytes = 20;
constexpr quint64 kZip64EndRecordBytes = 56;
constexpr quint64 kCentralRecordBytes = 46;
// Values that say "look in the ZIP64 record".
constexpr quint64 kIn64BitCount = 0xFFFF;
constexpr quint64 kIn64BitField = 0xFFFFFFFF;
constexpr quint16 kNameIsUtf8 = 1U << 11;

[[noreturn]] void fail() {
    throw ImportError(ImportError::Kind::badArchive);
}

// Where the records are said to be, and how many.
struct DirectoryPlace {
    quint64 count = 0;
    quint64 offset = 0;
    quint64 endRecord = 0;
};

struct NamedFields {
    std::optional<QString> name;
    quint64 size = 0;
    quint64 compressedSize = 0;
    quint64 localHeaderOffset = 0;
};

// The last signature counts, also if it stands in a comment.
quint64 endRecordOffset(const LittleEndianView& file) {
    if (file.size() < kEndRecordBytes) fail();
    const quint64 last = file.size() - kEndRecordBytes;
    const quint64 first = last - std::min(last, kLongestComment);
    for (quint64 offset = last + 1; offset-- > first;) {
        if (file.u32(offset) == kEndRecord) return offset;
    }
    fail();
}

DirectoryPlace directoryPlace(const LittleEndianView& file) {
    const quint64 end = endRecordOffset(file);
    const DirectoryPlace place{file.u16(end + 10), file.u32(end + 16), end};
    if (place.count != kIn64BitCount && place.offset != kIn64BitField) return place;

    if (end < kZip64LocatorBytes) fail();
    const quint64 locator = end - kZip64LocatorBytes;
    if (file.u32(locator) != kZip64Locator) fail();
    const quint64 record = file.u64(locator + 8);
    if (!file.holds(record, kZip64EndRecordBytes) || file.u32(record) != kZip64EndRecord) fail();
    return {file.u64(record + 32), file.u64(record + 48), end};
}

// Takes 64-bit values, in their fixed order, for the fields whose own 32 bits are full.
void readZip64(const LittleEndianView& record, NamedFields& fields) {
    quint64 at = 0;
    for (quint64* field : {&fields.size, &fields.compressedSize, &fields.localHeaderOffset}) {
        if (*field != kIn64BitField || !record.holds(at, sizeof(quint64))) continue;
        *field = record.u64(at);
        at += sizeof(quint64);
    }
}

void readExtraField(const LittleEndianView& extra, NamedFields& fields) {
    constexpr quint16 kZip64Id = 0x0001;
    constexpr quint16 kUnicodePathId = 0x7075;
    // A version and the checksum of the name that the path replaces.
    constexpr quint64 kUnicodePathHead = 5;

    bool hasZip64 = false;
    for (quint64 at = 0; extra.holds(at, 4);) {
        const quint16 id = extra.u16(at);
        const quint64 claimed = extra.u16(at + 2);
        at += 4;
        // Some tools write records that overrun their field.
        const quint64 length = std::min(claimed, extra.size() - at);
        const QByteArrayView record = extra.slice(at, length);
        if (id == kZip64Id && !hasZip64) {
            hasZip64 = true;
            readZip64(LittleEndianView(record), fields);
        } else if (id == kUnicodePathId && length > kUnicodePathHead) {
            auto name = utf8::decodedStrictly(record.sliced(kUnicodePathHead));
            if (name) fields.name = std::move(name);
        }
        at += length;
    }
}

QString nameOf(QByteArrayView bytes, quint16 flags) {
    if ((flags & kNameIsUtf8) != 0) {
        if (auto name = utf8::decodedStrictly(bytes)) return std::move(*name);
    }
    return TextDecoding::decode(bytes);
}

// The entry of the record at `offset`, which is moved behind it; nothing if there is no sound one.
std::optional<ZipArchive::Entry> consumeRecord(const LittleEndianView& file, quint64& offset) {
    if (!file.holds(offset, kCentralRecordBytes) || file.u32(offset) != kCentralRecord) {
        return std::nullopt;
    }
    const quint64 nameLength = file.u16(offset + 28);
    const quint64 extraLength = file.u16(offset + 30);
    const quint64 commentLength = file.u16(offset + 32);
    const quint64 name = offset + kCentralRecordBytes;
    if (!file.holds(name, nameLength + extraLength + commentLength)) return std::nullopt;

    NamedFields fields{{}, file.u32(offset + 24), file.u32(offset + 20), file.u32(offset + 42)};
    readExtraField(LittleEndianView(file.slice(name + nameLength, extraLength)), fields);
    ZipArchive::Entry entry;
    entry.flags = file.u16(offset + 8);
    entry.method = file.u16(offset + 10);
    entry.path =
        fields.name ? std::move(*fields.name) : nameOf(file.slice(name, nameLength), entry.flags);
    entry.size = fields.size;
    entry.compressedSize = fields.compressedSize;
    entry.localHeaderOffset = fields.localHeaderOffset;
    offset = name + nameLength + extraLength + commentLength;
    return entry;
}

}  // namespace

std::vector<ZipArchive::Entry> directory(QByteArrayView archive) {
    const LittleEndianView file(archive);
    const DirectoryPlace place = directoryPlace(file);
    std::vector<ZipArchive::Entry> entries;
    quint64 offset = place.offset;
    for (quint64 index = 0; index < place.count; ++index) {
        std::optional<ZipArchive::Entry> entry = consumeRecord(file, offset);
        if (!entry) fail();
        entries.push_back(std::move(*entry));
    }
    // A widespread tool counts modulo 65,536 where it should write ZIP64.
    while (offset < place.endRecord) {
        std::optional<ZipArchive::Entry> entry = consumeRecord(file, offset);
        if (!entry || offset > place.endRecord) break;
        entries.push_back(std::move(*entry));
    }
    return entries;
}

}  // namespace diary::zip
