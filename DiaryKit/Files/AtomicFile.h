// Whole-file writes that leave either the old or the new bytes, also when the power fails.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QByteArrayView>
#include <QtCore/QString>
#include <optional>

#include "DiaryKit/Files/FileStamp.h"

namespace diary::atomicfile {

enum class Durability {
    // The file's bytes and its name are on the disk when the call returns.
    Synced,
    // The replacement is atomic; power loss may bring back the old bytes, on some file systems an
    // empty file. For what can be remade.
    Unsynced,
};

// The mode of a file that wasn't there before.
enum class NewMode {
    // 0666 less the process's mask.
    ByMask,
    // 0600, for what isn't meant for other users even if its folder is.
    Private,
};

// Replaces the file's content: a hidden temporary in the same folder, written whole, synced,
// renamed over, the folder synced. Keeps the mode (and owner, where this user may set it) of the
// file it replaces; follows symbolic links to their target, which may not exist yet. On failure the
// old file stands and no temporary is left; only if the very last step fails, syncing the folder,
// the new bytes stand, though the disk may not hold them yet. Gives the stamp of what it wrote,
// also if another writer has replaced that by now. Throws FileError (Write), with EISDIR or EINVAL
// where a folder, a pipe or a device stands in the file's place. Blocks; any thread.
FileStamp write(const QString& path, QByteArrayView bytes,
                Durability durability = Durability::Synced, NewMode newMode = NewMode::ByMask);

// The same, synced, if the file holds `expected`, or isn't there where that is absent; otherwise
// nothing is written, and the FileError has the code ESTALE. The file is looked at right ahead of
// the renaming, so that what a program wrote that takes no part in the coordination of the vault,
// such as a sync service, is hardly ever replaced unseen.
FileStamp writeOver(const QString& path, const std::optional<QByteArray>& expected,
                    QByteArrayView bytes);

// All bytes of the file. Throws FileError (Read); a missing file has the code ENOENT, a folder
// EISDIR, a pipe or device EINVAL.
[[nodiscard]] QByteArray read(const QString& path);

// The same, absent if that fails.
[[nodiscard]] std::optional<QByteArray> tryRead(const QString& path);

// Makes the folder with those above it, each synced into its parent. Nothing happens if it is
// there. Throws FileError (MakeFolder).
void makeFolder(const QString& path);

// The same; the folders that it makes have the mode 0700.
void makePrivateFolder(const QString& path);

enum class Replacing { Yes, No };

// Moves a file within one file system; both folders are synced. What stands in the new place is
// replaced, or else the move fails with EEXIST. Throws FileError (Move).
void move(const QString& from, const QString& to, Replacing replacing = Replacing::Yes);

// Syncs a folder, so that names made or removed in it last. Throws FileError (Write).
void syncFolder(const QString& path);

// Removes the temporaries in `folder` whose owner on this machine is known to be dead. Those of
// other machines, brought by a sync service, and those of living processes stay. Gives their
// number; a folder that can't be listed has none.
int removeAbandonedTemporaries(const QString& folder);

}  // namespace diary::atomicfile
