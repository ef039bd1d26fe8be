// The plain text of rich text (RTF 1.9.1, and what Apple's programs write beyond it), told in the
// same way as a docx's (DocxText.h). Bytes are read in the code page of their font, and half
// characters of two bytes as the whole that they make. A text that is cut short is read as far as
// it goes.
#pragma once

#include <QtCore/QByteArrayView>
#include <QtCore/QString>

namespace diary::documents {

// Whether the bytes begin as rich text does.
[[nodiscard]] bool looksLikeRtf(QByteArrayView bytes);

// Throws ImportError (unrecognized) where the bytes aren't rich text.
//   "{\rtf1 a\par b\'e9}" -> "a\nbé"
[[nodiscard]] QString rtfText(QByteArrayView rtf);

}  // namespace diary::documents
