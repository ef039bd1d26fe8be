// The plain text of a document in Word's binary format (doc), read by another program: LibreOffice
// without its windows where it is installed, else catdoc. catdoc is small and fast, but it passes
// over empty paragraphs, which tell where an entry begins, and puts notes at the end.
#pragma once

#include <QtCore/QByteArrayView>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace diary::documents {

// Whether the bytes begin as the container of such a document does.
[[nodiscard]] bool looksLikeLegacyWord(QByteArrayView bytes);

// Throws ImportError (unrecognized) for a damaged or encrypted document and for one that takes too
// long, DocumentToolError where there is no program to read it, and FileError (Read, MakeFolder).
// Blocks, for up to two minutes; any thread. Programs are looked for in `folders`, or in PATH.
[[nodiscard]] QString legacyWordText(const QString& path, const QStringList& folders = {});

}  // namespace diary::documents
