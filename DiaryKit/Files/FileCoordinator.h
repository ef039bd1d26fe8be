// Exclusion on the files of one vault, or of any other folder, between the threads of this process
// and between the processes of this user. Locks are advisory (flock) on a file in the user's
// runtime folder, named by the vault's real path, so nothing is ever left in the vault and a crash
// frees them.
//
// The lock covers the whole vault: readers share, a writer is alone. An accessor may coordinate
// another file, or the same one, of the vault; within a write that costs nothing. A write nested in
// a read lets waiting writers go first, since two such reads would otherwise wait for each other.
// Readers give way for a moment to a writer of this process that waits, so that hundreds of reads
// in a row, as a search makes them, don't keep a save waiting until the last.
#pragma once

#include <QtCore/QString>
#include <functional>

namespace diary {

class FileCoordinator {
public:
    // For files of the vault `root`, which may not exist yet.
    explicit FileCoordinator(const QString& root);

    // Runs `accessor` on the calling thread while writers are held off. Blocks until it may.
    // Throws FileError (Coordinate) if no lock can be had at all, and what the accessor throws.
    void coordinateReading(const std::function<void()>& accessor) const;

    // The same while readers and writers are held off.
    void coordinateWriting(const std::function<void()>& accessor) const;

    // The same if nobody holds the files at this moment, this thread included; otherwise nothing is
    // run. Never waits. Whether it ran.
    [[nodiscard]] bool tryCoordinateWriting(const std::function<void()>& accessor) const;

private:
    QString m_lockPath;
};

}  // namespace diary
