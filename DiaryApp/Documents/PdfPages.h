// The text of a PDF's pages, by QtPdf. It stands in the application because QtPdf brings QtGui with
// it; no window and no connection to a screen is needed for it.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <optional>

namespace diary::documents {

// The plain text of each page, with LF between lines, empty for a page without text. A word that a
// hyphen divides at a line's end is one word again. Nothing if the file can't be read or opened as
// a PDF, for instance because it asks for a password. Blocks; any thread, several at once.
[[nodiscard]] std::optional<QStringList> pdfPages(const QString& path);

}  // namespace diary::documents
