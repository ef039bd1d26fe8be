#include "DiaryKit/Files/AtomicFile.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QFile>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <memory>

#include "DiaryKit/Files/Descriptor.h"
#include "DiaryKit/Files/TemporaryName.h"
#include "DiaryKit/Foundation/FileError.h"

namespace diary::atomicfile {

namespace {

// As many links as the kernel follows in one path.
constexpr int kMostLinks = 40;

// Raised within this file with the errno value; the public functions add path and operation.
struct SystemFailure {
    int code;
};

void require(bool succeeded) {
    if (!succeeded) throw SystemFailure{errno};
}

// Runs `steps` and turns its failure into the error of the operation.
template <typename Steps>
auto reporting(FileOperation operation, const QString& path, Steps steps) {
    try {
        return steps();
    } catch (const SystemFailure& failure) {
        throw FileError(operation, path, failure.code);
    }
}

// The folder of an encoded path, with its slash: "/a/b" -> "/a/", "b" -> "".
QByteArray folderPart(const QByteArray& path) {
    return path.first(path.lastIndexOf('/') + 1);
}

QByteArray folderOf(const QByteArray& path) {
    QByteArray folder = folderPart(path);
    while (folder.size() > 1 && folder.endsWith('/')) folder.chop(1);
    return folder.isEmpty() ? QByteArray(".") : folder;
}

// The path behind a chain of symbolic links, the last of which may lead to nothing.
QByteArray linkedPath(QByteArray path) {
    for (int links = 0; links < kMostLinks; ++links) {
        char target[PATH_MAX];
        const ssize_t length = ::readlink(path.constData(), target, sizeof target);
        if (length < 0) return path;
        const QByteArray next(target, length);
        path = next.startsWith('/') ? next : folderPart(path) + next;
    }
    throw SystemFailure{ELOOP};
}

Descriptor openedFolder(const QByteArray& path) {
    Descriptor folder(uninterrupted(
        [&] { return ::open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    require(folder.isOpen());
    return folder;
}

void syncFolder(const Descriptor& folder) {
    // Some file systems don't know the operation for folders and say so; they keep names by
    // themselves.
    if (uninterrupted([&] { return ::fsync(folder.number()); }) != 0 && errno != EINVAL) {
        throw SystemFailure{errno};
    }
}

void writeAll(const Descriptor& file, QByteArrayView bytes) {
    while (!bytes.isEmpty()) {
        const ssize_t written = uninterrupted([&] {
            return ::write(file.number(), bytes.data(), static_cast<std::size_t>(bytes.size()));
        });
        require(written >= 0);
        bytes = bytes.sliced(written);
    }
}

// A file under a temporary name, removed unless it was renamed to its own.
class Temporary {
public:
    explicit Temporary(const QByteArray& target, mode_t mode)
        : m_path(folderPart(target) +
                 QFile::encodeName(
                     temporaryName(QFile::decodeName(target.sliced(target.lastIndexOf('/') + 1)),
                                   ProcessIdentity::current()))),
          m_file(uninterrupted([&] {
              return ::open(m_path.constData(),
                            O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode);
          })) {
        require(m_file.isOpen());
    }
    Temporary(const Temporary&) = delete;
    Temporary& operator=(const Temporary&) = delete;
    ~Temporary() {
        if (!m_isRenamed) ::unlink(m_path.constData());
    }

    [[nodiscard]] const Descriptor& file() const { return m_file; }

    void renameTo(const QByteArray& target) {
        if (const int code = m_file.close(); code != 0) throw SystemFailure{code};
        require(::rename(m_path.constData(), target.constData()) == 0);
        m_isRenamed = true;
    }

private:
    QByteArray m_path;
    Descriptor m_file;
    bool m_isRenamed = false;
};

// Gives the new file what the old one had. A file system without owners or modes refuses, and a
// foreign owner is only for the superuser to set; the words matter more than either.
void takeOver(const Descriptor& file, const struct stat& old) {
    const auto number = file.number();
    const bool isOwn = old.st_uid == ::geteuid() && old.st_gid == ::getegid();
    if (!isOwn && ::fchown(number, old.st_uid, old.st_gid) != 0) {
        (void)!::fchown(number, static_cast<uid_t>(-1), old.st_gid);
    }
    (void)::fchmod(number, old.st_mode & 0777);
}

// Any file in the target's place must be one that a rename may replace without a surprise.
bool isThere(const QByteArray& target, struct stat& status) {
    if (::lstat(target.constData(), &status) != 0) {
        require(errno == ENOENT);
        return false;
    }
    if (S_ISDIR(status.st_mode)) throw SystemFailure{EISDIR};
    if (!S_ISREG(status.st_mode)) throw SystemFailure{EINVAL};
    return true;
}

// `check` runs right ahead of the renaming, and throws to prevent it.
template <typename Check>
FileStamp replace(const QByteArray& path, QByteArrayView bytes, Durability durability,
                  NewMode newMode, Check check) {
    const QByteArray target = linkedPath(path);
    struct stat old {};
    const bool isReplacing = isThere(target, old);
    // Opened ahead of everything, so that what could fail about it fails while the old file stands.
    Descriptor folder;
    if (durability == Durability::Synced) folder = openedFolder(folderOf(target));
    // What replaces a file isn't readable to others until it has its mode.
    Temporary temporary(target, isReplacing || newMode == NewMode::Private ? 0600 : 0666);
    if (isReplacing) takeOver(temporary.file(), old);
    writeAll(temporary.file(), bytes);
    if (durability == Durability::Synced) {
        require(uninterrupted([&] { return ::fsync(temporary.file().number()); }) == 0);
    }
    // Renaming leaves inode and moment as they are, so this is the stamp under the target's name.
    struct stat written {};
    require(::fstat(temporary.file().number(), &written) == 0);
    check(target);
    temporary.renameTo(target);
    if (durability == Durability::Synced) syncFolder(folder);
    return fileStamp(written);
}

Descriptor openedForReading(const QByteArray& path) {
    // A pipe in a file's place would otherwise hold us until somebody writes into it.
    Descriptor file(
        uninterrupted([&] { return ::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK); }));
    if (!file.isOpen() && errno == EWOULDBLOCK) {
        // Another holds a lease on the file and gives it up when it is waited for.
        file = Descriptor(
            uninterrupted([&] { return ::open(path.constData(), O_RDONLY | O_CLOEXEC); }));
    }
    require(file.isOpen());
    return file;
}

QByteArray allBytes(const QByteArray& path) {
    const Descriptor file = openedForReading(path);
    struct stat status {};
    require(::fstat(file.number(), &status) == 0);
    if (S_ISDIR(status.st_mode)) throw SystemFailure{EISDIR};
    if (!S_ISREG(status.st_mode)) throw SystemFailure{EINVAL};
    // One byte more than there is, so that the second read finds the end.
    QByteArray bytes(status.st_size + 1, Qt::Uninitialized);
    qsizetype length = 0;
    for (;;) {
        const ssize_t count = uninterrupted([&] {
            return ::read(file.number(), bytes.data() + length,
                          static_cast<std::size_t>(bytes.size() - length));
        });
        require(count >= 0);
        if (count == 0) break;
        length += count;
        if (length == bytes.size()) bytes.resize(bytes.size() * 2);
    }
    bytes.truncate(length);
    return bytes;
}

// Absent without a file; every other failure is raised.
std::optional<QByteArray> bytesIfThere(const QByteArray& path) {
    try {
        return allBytes(path);
    } catch (const SystemFailure& failure) {
        if (failure.code == ENOENT) return std::nullopt;
        throw;
    }
}

bool isFolder(const QByteArray& path) {
    struct stat status {};
    return ::stat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

void makeFolders(QByteArray path, mode_t mode) {
    while (path.size() > 1 && path.endsWith('/')) path.chop(1);
    if (isFolder(path)) return;
    const QByteArray parent = folderOf(path);
    if (::mkdir(path.constData(), mode) != 0) {
        if (errno == ENOENT && parent != path && !isFolder(parent)) {
            makeFolders(parent, mode);
            require(::mkdir(path.constData(), mode) == 0 || (errno == EEXIST && isFolder(path)));
        } else if (errno != EEXIST || !isFolder(path)) {
            throw SystemFailure{errno};
        }
    }
    syncFolder(openedFolder(parent));
}

}  // namespace

FileStamp write(const QString& path, QByteArrayView bytes, Durability durability, NewMode newMode) {
    return reporting(FileOperation::Write, path, [&] {
        return replace(QFile::encodeName(path), bytes, durability, newMode,
                       [](const QByteArray&) {});
    });
}

FileStamp writeOver(const QString& path, const std::optional<QByteArray>& expected,
                    QByteArrayView bytes) {
    return reporting(FileOperation::Write, path, [&] {
        return replace(QFile::encodeName(path), bytes, Durability::Synced, NewMode::ByMask,
                       [&](const QByteArray& target) {
                           if (bytesIfThere(target) != expected) throw SystemFailure{ESTALE};
                       });
    });
}

QByteArray read(const QString& path) {
    return reporting(FileOperation::Read, path, [&] { return allBytes(QFile::encodeName(path)); });
}

std::optional<QByteArray> tryRead(const QString& path) {
    try {
        return allBytes(QFile::encodeName(path));
    } catch (const SystemFailure&) {
        return std::nullopt;
    }
}

void makeFolder(const QString& path) {
    reporting(FileOperation::MakeFolder, path, [&] { makeFolders(QFile::encodeName(path), 0777); });
}

void makePrivateFolder(const QString& path) {
    reporting(FileOperation::MakeFolder, path, [&] { makeFolders(QFile::encodeName(path), 0700); });
}

void move(const QString& from, const QString& to, Replacing replacing) {
    reporting(FileOperation::Move, from, [&] {
        const QByteArray source = QFile::encodeName(from);
        const QByteArray target = QFile::encodeName(to);
        const Descriptor oldFolder = openedFolder(folderOf(source));
        const Descriptor newFolder = openedFolder(folderOf(target));
        const unsigned flags = replacing == Replacing::Yes ? 0 : RENAME_NOREPLACE;
        int result = ::renameat2(AT_FDCWD, source.constData(), AT_FDCWD, target.constData(), flags);
        if (result != 0 && errno == EINVAL && flags != 0) {
            // The file system can't do it in one step.
            if (::access(target.constData(), F_OK) == 0) throw SystemFailure{EEXIST};
            result = ::rename(source.constData(), target.constData());
        }
        require(result == 0);
        syncFolder(newFolder);
        if (folderOf(source) != folderOf(target)) syncFolder(oldFolder);
    });
}

void syncFolder(const QString& path) {
    reporting(FileOperation::Write, path,
              [&] { syncFolder(openedFolder(QFile::encodeName(path))); });
}

int removeAbandonedTemporaries(const QString& folder) {
    const QByteArray path = QFile::encodeName(folder);
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(::opendir(path.constData()), ::closedir);
    if (!listing) return 0;
    int count = 0;
    while (const dirent* entry = ::readdir(listing.get())) {
        if (entry->d_name[0] != '.' || entry->d_name[1] != '~') continue;
        const auto owner = temporaryOwner(QFile::decodeName(entry->d_name));
        if (!owner || !isKnownDead(*owner)) continue;
        if (::unlinkat(::dirfd(listing.get()), entry->d_name, 0) == 0) ++count;
    }
    return count;
}

}  // namespace diary::atomicfile
