// Text from bytes whose encoding nobody tells: the files of other applications, and the names in
// their archives. The files of the diary itself are UTF-8; they are read by Foundation/Utf8.h.
#pragma once

#include <QtCore/QByteArrayView>
#include <QtCore/QString>

namespace diary::TextDecoding {

// The text of the bytes, without a leading byte order mark; never fails. The first of these that
// the bytes are valid in: UTF-8 behind its mark, UTF-16 behind its mark, UTF-8, then `legacy`.
[[nodiscard]] QString decode(QByteArrayView bytes);

// Whether the bytes begin with a byte order mark of UTF-16.
[[nodiscard]] bool hasUtf16Mark(QByteArrayView bytes);

// The text in a code page from before Unicode. Shift-JIS (code page 932) where the text holds
// kana, since without them Chinese often reads as Japanese; otherwise GB 18030, which takes nearly
// everything; otherwise ISO Latin 1, which takes the rest.
[[nodiscard]] QString legacy(QByteArrayView bytes);

}  // namespace diary::TextDecoding
