// The plain text of an OpenDocument text (odt, OASIS OpenDocument 1.3), told in the same way as a
// docx's (DocxText.h). Sections and text that the document hides are left out.
#pragma once

#include <QtCore/QString>

namespace diary::documents {

// Throws ImportError: badArchive, and unrecognized where the archive holds no such document, a
// damaged or an encrypted one. Blocks; any thread.
[[nodiscard]] QString odtText(const QString& path);

}  // namespace diary::documents
