// The parts of a path inside of a package. Paths have '/' between their components, whatever the
// system that made the package uses.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QStringView>
#include <set>

namespace diary::package_path {

// What follows the last '/'. "a/b.md" -> "b.md"
[[nodiscard]] QStringView lastComponent(QStringView path);

// What follows the last dot of the last component, if there is something on both sides of it:
// "a.b/c.tar.gz" -> "gz", ".md" -> "", "d." -> ""
[[nodiscard]] QStringView extension(QStringView path);

// The last component without its extension and the dot. "a/Travel.v2.json" -> "Travel.v2"
[[nodiscard]] QStringView stem(QStringView path);

// Those paths of which the extension, in lower case, is in the set; in the order given.
[[nodiscard]] QStringList withExtensions(const QStringList& paths,
                                         const std::set<QString>& extensions);

// Ascending by the code points of the canonically composed paths, so that a package lists its
// files in one order whichever system wrote their names.
[[nodiscard]] QStringList sorted(QStringList paths);

}  // namespace diary::package_path
