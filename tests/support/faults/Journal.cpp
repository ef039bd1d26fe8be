#include "tests/support/faults/Journal.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <climits>

namespace faults {

namespace {

int openRaw(const std::string& path, int flags, mode_t mode = 0) {
    return static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path.c_str(), flags | O_CLOEXEC, mode));
}

void closeRaw(int descriptor) {
    ::syscall(SYS_close, descriptor);
}

std::string allBytes(int descriptor) {
    std::string bytes;
    char buffer[16 * 1024];
    for (;;) {
        const ssize_t count =
            ::pread(descriptor, buffer, sizeof buffer, static_cast<off_t>(bytes.size()));
        if (count <= 0) return bytes;
        bytes.append(buffer, static_cast<std::size_t>(count));
    }
}

void putBytes(int descriptor, const std::string& bytes) {
    ::syscall(SYS_ftruncate, descriptor, 0);
    std::size_t written = 0;
    while (written < bytes.size()) {
        const long count = ::syscall(SYS_pwrite64, descriptor, bytes.data() + written,
                                     bytes.size() - written, written);
        if (count <= 0) return;
        written += static_cast<std::size_t>(count);
    }
}

FileId idOf(const struct stat& status) {
    return {status.st_dev, status.st_ino};
}

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == 0 || slash == std::string::npos ? "/" : path.substr(0, slash);
}

bool isThere(const std::string& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0;
}

void unlinkRaw(const std::string& path, int flags) {
    ::syscall(SYS_unlinkat, AT_FDCWD, path.c_str(), flags);
}

void removeTree(const std::string& path) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) return;
    if (!S_ISDIR(status.st_mode)) {
        unlinkRaw(path, 0);
        return;
    }
    if (DIR* listing = ::opendir(path.c_str())) {
        while (const dirent* entry = ::readdir(listing)) {
            const std::string name = entry->d_name;
            if (name == "." || name == "..") continue;
            std::string inner = path;
            removeTree(inner.append("/").append(name));
        }
        ::closedir(listing);
    }
    unlinkRaw(path, AT_REMOVEDIR);
}

void putBack(const std::string& path, const Remains& what, Keep keep) {
    if (S_ISDIR(what.mode)) {
        ::syscall(SYS_mkdirat, AT_FDCWD, path.c_str(), what.mode & 07777);
    } else if (S_ISLNK(what.mode)) {
        ::syscall(SYS_symlinkat, what.bytes.c_str(), AT_FDCWD, path.c_str());
    } else {
        const int file = openRaw(path, O_RDWR | O_CREAT | O_EXCL, 0600);
        if (file < 0) return;
        putBytes(file, keep == Keep::Data ? what.bytes : what.durableBytes);
        ::syscall(SYS_fchmod, file, what.mode & 07777);
        closeRaw(file);
    }
}

void renameRaw(const std::string& from, const std::string& to, unsigned flags) {
    ::syscall(SYS_renameat2, AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), flags);
}

}  // namespace

void Journal::touch(int descriptor) {
    touch("/proc/self/fd/" + std::to_string(descriptor));
}

void Journal::touch(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return;
    if (m_dirty.count(idOf(status)) > 0) return;
    // A description of our own: one shared with the program would share its locks too.
    const int own = openRaw(path, O_RDWR);
    if (own < 0) return;
    m_dirty[idOf(status)] = {own, allBytes(own)};
}

void Journal::synced(int descriptor) {
    struct stat status {};
    if (::fstat(descriptor, &status) != 0) return;
    const auto dirty = m_dirty.find(idOf(status));
    if (dirty != m_dirty.end()) {
        closeRaw(dirty->second.descriptor);
        m_dirty.erase(dirty);
    }
    for (NameChange& change : m_changes) {
        auto& pending = change.pending;
        pending.erase(std::remove(pending.begin(), pending.end(), idOf(status)), pending.end());
    }
    m_changes.erase(std::remove_if(m_changes.begin(), m_changes.end(),
                                   [](const NameChange& change) { return change.pending.empty(); }),
                    m_changes.end());
}

void Journal::syncedAll() {
    for (const auto& [id, dirty] : m_dirty) closeRaw(dirty.descriptor);
    m_dirty.clear();
    m_changes.clear();
}

std::optional<Remains> Journal::remains(const std::string& path) const {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) return std::nullopt;
    Remains result{status.st_mode, {}, {}};
    if (S_ISLNK(status.st_mode)) {
        char target[PATH_MAX];
        const ssize_t length = ::readlink(path.c_str(), target, sizeof target);
        result.bytes.assign(target, static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
    } else if (S_ISREG(status.st_mode)) {
        const int file = openRaw(path, O_RDONLY);
        if (file >= 0) {
            result.bytes = allBytes(file);
            closeRaw(file);
        }
        const auto dirty = m_dirty.find(idOf(status));
        result.durableBytes = dirty == m_dirty.end() ? result.bytes : dirty->second.durableBytes;
    }
    return result;
}

void Journal::made(const std::string& path) {
    // A folder goes with all that is in it: without its name nothing leads there.
    note({path}, [path](Keep) { removeTree(path); });
}

void Journal::removed(const std::string& path, const Remains& what) {
    note({path}, [path, what](Keep keep) { putBack(path, what, keep); });
}

void Journal::renamed(const std::string& from, const std::string& to,
                      const std::optional<Remains>& replaced) {
    note({from, to}, [from, to, replaced](Keep keep) {
        // A later name that is durable stays.
        if (isThere(from)) return;
        renameRaw(to, from, RENAME_NOREPLACE);
        if (replaced) putBack(to, *replaced, keep);
    });
}

void Journal::exchanged(const std::string& a, const std::string& b) {
    note({a, b}, [a, b](Keep) { renameRaw(a, b, RENAME_EXCHANGE); });
}

void Journal::cutPower(Keep keep) {
    if (keep != Keep::Data) {
        for (const auto& [id, dirty] : m_dirty) putBytes(dirty.descriptor, dirty.durableBytes);
    }
    if (keep == Keep::Names) return;
    for (auto change = m_changes.rbegin(); change != m_changes.rend(); ++change) {
        change->undo(keep);
    }
}

void Journal::note(const std::vector<std::string>& paths, std::function<void(Keep)> undo) {
    NameChange change{{}, std::move(undo)};
    for (const std::string& path : paths) {
        struct stat status {};
        if (::stat(folderOf(path).c_str(), &status) != 0) continue;
        if (std::find(change.pending.begin(), change.pending.end(), idOf(status)) ==
            change.pending.end()) {
            change.pending.push_back(idOf(status));
        }
    }
    m_changes.push_back(std::move(change));
}

}  // namespace faults
