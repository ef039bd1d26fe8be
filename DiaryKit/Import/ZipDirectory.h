// The directory at the end of a zip archive's bytes.
#pragma once

#include <QtCore/QByteArrayView>
#include <vector>

#include "DiaryKit/Import/ZipArchive.h"

namespace diary::zip {

// What each record in the file begins with.
inline constexpr quint32 kLocalHeader = 0x04034B50;
inline constexpr quint32 kCentralRecord = 0x02014B50;
inline constexpr quint32 kEndRecord = 0x06054B50;
inline constexpr quint32 kZip64Locator = 0x07064B50;
inline constexpr quint32 kZip64EndRecord = 0x06064B50;

// The entries in the directory's order. Throws ImportError (badArchive).
[[nodiscard]] std::vector<ZipArchive::Entry> directory(QByteArrayView archive);

}  // namespace diary::zip
