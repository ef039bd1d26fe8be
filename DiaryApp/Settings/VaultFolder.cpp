#include "DiaryApp/Settings/VaultFolder.h"

#include <unistd.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

namespace velmar::vaultfolder {

namespace {

// Asks the system rather than the permission bits, which say nothing of read-only disks.
bool isWritableFolder(const QString& folder) {
    return ::access(QFile::encodeName(folder).constData(), R_OK | W_OK | X_OK) == 0;
}

// A name that exists in whatever way, also as a link that leads nowhere.
bool isTaken(const QFileInfo& info) {
    return info.exists() || info.isSymbolicLink();
}

}  // namespace

std::optional<Problem> problem(const QString& folder) {
    if (folder.isEmpty()) return Problem::CannotBeMade;
    const QFileInfo place(QDir::cleanPath(QDir::current().absoluteFilePath(folder)));
    if (isTaken(place)) {
        if (!place.isDir()) return Problem::NotAFolder;
        return isWritableFolder(place.filePath()) ? std::nullopt
                                                  : std::optional(Problem::NotWritable);
    }
    QFileInfo above(place.path());
    while (!isTaken(above) && above.path() != above.filePath()) above.setFile(above.path());
    const bool canBeMade = above.isDir() && isWritableFolder(above.filePath());
    return canBeMade ? std::nullopt : std::optional(Problem::CannotBeMade);
}

}  // namespace velmar::vaultfolder
