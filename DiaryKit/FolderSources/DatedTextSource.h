// Any file that may hold a diary without structure, as one plain text: text files, pages of the
// web, documents. What it means is told by DatedTextSplit.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <functional>
#include <optional>
#include <set>

namespace diary::DatedTextSource {

// Readers of documents that need libraries of their own, handed in by whoever has them. Each gets
// the path of a real file (an rtfd document is a folder), blocks, throws FileError (Read) for what
// can't be opened or read and ImportError (unrecognized) for what isn't such a document, and may be
// called on any thread, on several at once. Without a reader its documents are unrecognized.
struct DocumentReaders {
    // The plain text of each page, with LF between lines and empty for a page without text;
    // nothing if the file can't be opened as a PDF.
    std::function<std::optional<QStringList>(const QString& path)> pdfPages = {};
    // The plain text of a document, by the extension of its path in any case: rtf, rtfd, doc, docx,
    // odt, webarchive.
    std::function<QString(const QString& path)> documentText = {};
};

// The extensions, in lower case, of all files that `text` is meant for.
[[nodiscard]] const std::set<QString>& fileExtensions();

// The text of the file at that path, read as its extension tells: a PDF without what is printed
// around its pages, HTML as Markdown, a document as its reader gives it, and anything else decoded
// by TextDecoding. Throws FileError (Read), ImportError (unrecognized) for a PDF that can't be
// opened or a document that nobody can read, and what a reader throws. Blocks; any thread.
[[nodiscard]] QString text(const QString& path, const DocumentReaders& readers);

// The pages' lines, trimmed of blanks, without page numbers and without the lines that stand among
// the first two or last two of more than half of the pages, if there are at least three.
//   "A walk\nMy diary\n- 1 -", "Rain\nMy diary\n- 2 -", "Sun\n3 / 3" -> "A walk\nRain\nSun"
[[nodiscard]] QString pdfText(const QStringList& pages);

}  // namespace diary::DatedTextSource
