// The plain text of an Office Open XML document (docx, ECMA-376), in document order: paragraphs and
// headings as lines, rows of tables as lines with tabs between cells, notes and text boxes behind
// the paragraph that they hang on. Of fields only the results count, insertions that are tracked
// count and deletions don't. Markers of lists, hidden text, comments, headers, footers and the
// readings above ruby text are left out.
#pragma once

#include <QtCore/QString>

namespace diary::documents {

// Throws ImportError: badArchive, and unrecognized where the archive holds no such document, a
// damaged or an encrypted one. Blocks; any thread.
[[nodiscard]] QString docxText(const QString& path);

}  // namespace diary::documents
