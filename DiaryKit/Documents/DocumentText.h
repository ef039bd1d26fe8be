// The plain text of any document that a word processor or a browser saves. What a document is, its
// content tells; its name only where that says nothing, since many a ".doc" is a web page or rich
// text. Paths and formats beside these are DatedTextSource's.
#pragma once

#include <QtCore/QString>

namespace diary::documents {

// The text of the document at that path: rtf, rtfd (a folder), docx, odt, webarchive, doc. Rich
// text and Word documents that turn out to be plain text are decoded by `TextDecoding`. Throws
// FileError (Read), ImportError (unrecognized, badArchive) for what is no document, damaged or
// encrypted, and DocumentToolError for a doc that no program on this machine reads. Blocks; any
// thread.
[[nodiscard]] QString documentText(const QString& path);

}  // namespace diary::documents
