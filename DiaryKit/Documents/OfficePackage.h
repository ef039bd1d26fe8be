// The zip archive that a document of a word processor is: its parts by name, and how an Office Open
// XML document's parts point at each other (ECMA-376-2).
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QString>
#include <optional>

#include "DiaryKit/Import/ZipArchive.h"

namespace diary::documents {

class OfficePackage {
public:
    // Throws ImportError (badArchive). Blocks.
    explicit OfficePackage(const QString& path);

    [[nodiscard]] bool has(const QString& part) const { return m_parts.contains(part); }

    // The bytes of a part, or nothing if there is none. Throws ImportError: badArchive, and
    // unrecognized where the part is larger than any text.
    [[nodiscard]] std::optional<QByteArray> part(const QString& name) const;

    // The part that `source` has in the role that a relationship's type ends with, for instance
    // "footnotes"; empty if it has none. The package's own relationships belong to the source "".
    [[nodiscard]] QString related(const QString& source, QStringView role) const;

private:
    ZipArchive m_archive;
    QHash<QString, ZipArchive::Entry> m_parts;
};

}  // namespace diary::documents
