#include "DiaryKit/Files/FileCoordinator.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <QtCore/QCryptographicHash>
#include <QtCore/QFile>
#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <vector>

#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Files/Descriptor.h"
#include "DiaryKit/Files/UserFolders.h"
#include "DiaryKit/Foundation/FileError.h"

namespace diary {

namespace {

enum class Access { Shared, Exclusive };

// A vault that the calling thread holds.
struct Held {
    QString lockPath;
    int descriptor = -1;
    Access access = Access::Shared;
};

// Innermost last. Accesses end in the reverse of their order, so places in it stay good.
thread_local std::vector<Held> t_held;

// The writers of this process that wait for a lock. The system gives a lock to whoever asks at the
// right moment; while a scan or a search reads hundreds of files on all cores, that is hardly ever
// the writer, which is the one that a user waits for.
class WaitingWriters {
public:
    void arrive() { ++m_count; }
    void leave() {
        {
            const std::lock_guard guard(m_mutex);
            --m_count;
        }
        m_left.notify_all();
    }

    // Lets those that wait go first. Not for ever: a writer may itself wait for this reader, by
    // another vault's lock, or for another process.
    void giveWay() {
        if (m_count == 0) return;
        std::unique_lock guard(m_mutex);
        m_left.wait_for(guard, kLongestWay, [&] { return m_count == 0; });
    }

private:
    static constexpr std::chrono::milliseconds kLongestWay{5};

    std::atomic<int> m_count = 0;
    std::mutex m_mutex;
    std::condition_variable m_left;
};

WaitingWriters& waitingWriters() {
    // Never destroyed: a thread of the pool may still read when the process ends.
    static auto* const writers = new WaitingWriters;
    return *writers;
}

int lock(int descriptor, Access access) {
    if (access == Access::Shared) {
        return uninterrupted([&] { return ::flock(descriptor, LOCK_SH); });
    }
    waitingWriters().arrive();
    const int result = uninterrupted([&] { return ::flock(descriptor, LOCK_EX); });
    const int code = errno;
    waitingWriters().leave();
    errno = code;
    return result;
}

[[noreturn]] void fail(const QString& lockPath) {
    throw FileError(FileOperation::Coordinate, lockPath, errno);
}

Descriptor openedLockFile(const QString& lockPath) {
    if (lockPath.isEmpty()) throw FileError(FileOperation::Coordinate, lockPath, ENOENT);
    // The sticky bit tells those who clean up runtime folders to let the file be.
    constexpr mode_t kMode = S_ISVTX | S_IRUSR | S_IWUSR;
    const QByteArray name = QFile::encodeName(lockPath);
    const auto open = [&] {
        return uninterrupted([&] {
            return ::open(name.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, kMode);
        });
    };
    Descriptor file(open());
    if (!file.isOpen() && errno == ENOENT) {
        try {
            atomicfile::makePrivateFolder(lockPath.section(QLatin1Char('/'), 0, -2));
        } catch (const FileError& error) {
            throw FileError(FileOperation::Coordinate, error.path(), error.code());
        }
        file = Descriptor(open());
    }
    if (!file.isOpen()) fail(lockPath);
    return file;
}

// A lock file that was removed while we waited for it excludes nobody who comes later.
bool isRemoved(const Descriptor& file, const QString& lockPath) {
    struct stat status {};
    if (::fstat(file.number(), &status) != 0) fail(lockPath);
    return status.st_nlink == 0;
}

// The lock file, locked.
Descriptor lockedFile(const QString& lockPath, Access access) {
    if (access == Access::Shared) waitingWriters().giveWay();
    for (;;) {
        Descriptor file = openedLockFile(lockPath);
        if (lock(file.number(), access) != 0) fail(lockPath);
        if (!isRemoved(file, lockPath)) return file;
    }
}

// The lock file, locked for a writer; not open if somebody else has it.
Descriptor freeFile(const QString& lockPath) {
    for (;;) {
        Descriptor file = openedLockFile(lockPath);
        if (uninterrupted([&] { return ::flock(file.number(), LOCK_EX | LOCK_NB); }) != 0) {
            if (errno != EWOULDBLOCK) fail(lockPath);
            return {};
        }
        if (!isRemoved(file, lockPath)) return file;
    }
}

// Stands for an outermost access: the thread holds the vault as long as it lives.
class Hold {
public:
    Hold(const QString& lockPath, Access access)
        : Hold(lockPath, access, lockedFile(lockPath, access)) {}
    Hold(const QString& lockPath, Access access, Descriptor locked) : m_file(std::move(locked)) {
        t_held.push_back({lockPath, m_file.number(), access});
    }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;
    ~Hold() { t_held.pop_back(); }

private:
    Descriptor m_file;
};

// Makes a held reading access a writing one as long as it lives.
class Promotion {
public:
    explicit Promotion(std::size_t place) : m_place(place) {
        if (lock(held().descriptor, Access::Exclusive) != 0) {
            const int code = errno;
            // The system may have let go of the shared lock already.
            lock(held().descriptor, Access::Shared);
            errno = code;
            fail(held().lockPath);
        }
        held().access = Access::Exclusive;
    }
    Promotion(const Promotion&) = delete;
    Promotion& operator=(const Promotion&) = delete;
    ~Promotion() {
        held().access = Access::Shared;
        lock(held().descriptor, Access::Shared);
    }

private:
    [[nodiscard]] Held& held() const { return t_held[m_place]; }

    std::size_t m_place;
};

std::vector<Held>::iterator heldHere(const QString& lockPath) {
    return std::ranges::find(t_held, lockPath, &Held::lockPath);
}

void coordinate(const QString& lockPath, Access access, const std::function<void()>& accessor) {
    const auto held = heldHere(lockPath);
    if (held == t_held.end()) {
        const Hold hold(lockPath, access);
        accessor();
    } else if (access == Access::Shared || held->access == Access::Exclusive) {
        accessor();
    } else {
        const Promotion promotion(static_cast<std::size_t>(held - t_held.begin()));
        accessor();
    }
}

}  // namespace

FileCoordinator::FileCoordinator(const QString& root) {
    const QByteArray key =
        QCryptographicHash::hash(QFile::encodeName(resolvedPath(root)), QCryptographicHash::Sha256);
    const QString folder = userRuntimeFolder();
    // Without a folder the path stays empty, and each access says so.
    if (folder.isEmpty()) return;
    m_lockPath = QStringLiteral("%1/locks/%2.lock").arg(folder, QString::fromLatin1(key.toHex()));
}

void FileCoordinator::coordinateReading(const std::function<void()>& accessor) const {
    coordinate(m_lockPath, Access::Shared, accessor);
}

void FileCoordinator::coordinateWriting(const std::function<void()>& accessor) const {
    coordinate(m_lockPath, Access::Exclusive, accessor);
}

bool FileCoordinator::tryCoordinateWriting(const std::function<void()>& accessor) const {
    if (heldHere(m_lockPath) != t_held.end()) return false;
    Descriptor file = freeFile(m_lockPath);
    if (!file.isOpen()) return false;
    const Hold hold(m_lockPath, Access::Exclusive, std::move(file));
    accessor();
    return true;
}

}  // namespace diary
