// The plain text of a web archive, as Apple's browsers write it: a property list, binary or XML,
// around the page and what belongs to it. Only the page itself is read, as HTML is everywhere
// (HTMLToMarkdown.h), in the encoding that the archive tells.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace diary::documents {

// Whether the bytes begin as a property list does.
[[nodiscard]] bool looksLikePropertyList(QByteArrayView bytes);

// Throws ImportError (unrecognized) where the bytes aren't a web archive, or a damaged one.
[[nodiscard]] QString webArchiveText(const QByteArray& bytes);

// The text of a web page's bytes, for documents that hold one under another name. The encoding by
// its name where it is told, else by `TextDecoding`.
[[nodiscard]] QString htmlText(QByteArrayView bytes, const QString& encoding = {});

}  // namespace diary::documents
