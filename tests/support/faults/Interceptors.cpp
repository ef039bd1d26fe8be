// The functions of the C library that change files, taken in ahead of it. Each asks the injector,
// passes the call on, and tells the journal what came of it.
#include <dlfcn.h>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

#include "tests/support/faults/Injector.h"

using faults::followed;
using faults::Injector;
using faults::Journal;
using faults::pathOf;
using faults::resolved;

namespace {

// Set while this thread is inside the library, so that nothing of its own is ever intercepted.
thread_local bool t_isInside __attribute__((tls_model("initial-exec"))) = false;

struct Inside {
    Inside() { t_isInside = true; }
    Inside(const Inside&) = delete;
    Inside& operator=(const Inside&) = delete;
    ~Inside() { t_isInside = false; }
};

template <typename Function>
Function next(const char* name, Function) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

// The C library's own function of the name, looked up once.
#define NEXT(function)                                          \
    [] {                                                        \
        static const auto found = next(#function, &::function); \
        return found;                                           \
    }()

struct Nothing {
    void operator()(Journal&) const {}
    template <typename Result>
    void operator()(Journal&, Result) const {}
};

// One call: `pass` makes it, `before` and `after` tell the journal; `after` only hears of success.
// `tear` makes half of it.
template <typename Result, typename Pass, typename Before, typename After, typename Tear>
Result concerned(const char* name, const std::string& path, Pass pass, Before before, After after,
                 Tear tear) {
    Injector& injector = Injector::shared();
    const std::lock_guard lock(injector.mutex);
    const int errorBefore = errno;
    if (const int code = injector.enter(name, path); code != 0) {
        errno = code;
        return -1;
    }
    Journal* const journal = injector.journal();
    if (journal != nullptr) before(*journal);
    if (injector.isTorn()) {
        tear();
        Injector::die();
    }
    errno = errorBefore;
    const Result result = pass();
    const int errorAfter = errno;
    if (journal != nullptr && result >= 0) after(*journal, result);
    injector.leave();
    errno = errorAfter;
    return result;
}

// A call that concerns the file open as `descriptor`.
template <typename Result, typename Pass, typename Before, typename After, typename Tear>
Result onOpen(const char* name, int descriptor, Pass pass, Before before, After after, Tear tear) {
    if (t_isInside) return pass();
    const int errorBefore = errno;
    const Inside inside;
    const std::string path = pathOf(descriptor);
    errno = errorBefore;
    if (!Injector::shared().concerns(path)) return pass();
    return concerned<Result>(name, path, pass, before, after, tear);
}

using Paths = std::pair<std::string, std::string>;

// A call that concerns names; `paths()` gives one or two of them.
template <typename Find, typename Pass, typename Before, typename After>
int onNames(const char* name, Find paths, Pass pass, Before before, After after) {
    if (t_isInside) return pass();
    const int errorBefore = errno;
    const Inside inside;
    const Paths names = paths();
    const std::string& first = names.first;
    const std::string& second = names.second;
    errno = errorBefore;
    const Injector& injector = Injector::shared();
    if (!injector.concerns(first) && !injector.concerns(second)) return pass();
    const auto& shown = second.empty() ? first : second;
    return concerned<int>(
        name, shown, pass, [&](Journal& journal) { before(journal, first, second); },
        [&](Journal& journal, int) { after(journal, first, second); }, [] {});
}

constexpr auto kNothingBefore = [](Journal&, const auto&, const auto&) {};
constexpr auto kNothingAfter = kNothingBefore;
constexpr auto kMade = [](Journal& journal, const auto& path, const auto&) { journal.made(path); };

template <typename Pass>
int opening(const char* name, int folder, const char* path, int flags, Pass pass) {
    const bool isChanging = (flags & (O_CREAT | O_TRUNC)) != 0 && (flags & O_TMPFILE) != O_TMPFILE;
    if (!isChanging) return pass();
    const bool isFollowing = (flags & (O_NOFOLLOW | O_EXCL)) == 0;
    bool isNew = false;
    return onNames(
        name,
        [&] { return Paths(isFollowing ? followed(folder, path) : resolved(folder, path), ""); },
        pass,
        [&](Journal& journal, const auto& file, const auto&) {
            isNew = ::access(file.c_str(), F_OK) != 0;
            if (!isNew && (flags & O_TRUNC) != 0) journal.touch(file);
        },
        [&](Journal& journal, const auto& file, const auto&) {
            if (isNew) journal.made(file);
        });
}

template <typename Pass, typename Tear>
ssize_t writing(const char* name, int descriptor, Pass pass, Tear tear) {
    return onOpen<ssize_t>(
        name, descriptor, pass, [&](Journal& journal) { journal.touch(descriptor); }, Nothing(),
        tear);
}

template <typename Pass>
int syncing(const char* name, int descriptor, Pass pass) {
    return onOpen<int>(
        name, descriptor, pass, Nothing(),
        [&](Journal& journal, int) { journal.synced(descriptor); }, [] {});
}

template <typename Pass>
int removing(const char* name, int folder, const char* path, Pass pass) {
    std::optional<faults::Remains> remains;
    return onNames(
        name, [&] { return Paths(resolved(folder, path), ""); }, pass,
        [&](Journal& journal, const auto& file, const auto&) { remains = journal.remains(file); },
        [&](Journal& journal, const auto& file, const auto&) {
            if (remains) journal.removed(file, *remains);
        });
}

template <typename Pass>
int renaming(const char* name, int fromFolder, const char* from, int toFolder, const char* to,
             unsigned flags, Pass pass) {
    std::optional<faults::Remains> replaced;
    return onNames(
        name, [&] { return Paths(resolved(fromFolder, from), resolved(toFolder, to)); }, pass,
        [&](Journal& journal, const auto&, const auto& target) {
            replaced = journal.remains(target);
        },
        [&](Journal& journal, const auto& source, const auto& target) {
            if ((flags & RENAME_EXCHANGE) != 0) {
                journal.exchanged(source, target);
            } else {
                journal.renamed(source, target, replaced);
            }
        });
}

template <typename Pass>
int making(const char* name, int folder, const char* path, Pass pass) {
    return onNames(
        name, [&] { return Paths(resolved(folder, path), ""); }, pass, kNothingBefore, kMade);
}

template <typename Pass>
int changingMode(const char* name, int folder, const char* path, Pass pass) {
    return onNames(
        name, [&] { return Paths(followed(folder, path), ""); }, pass, kNothingBefore,
        kNothingAfter);
}

mode_t modeArgument(int flags, va_list arguments) {
    const bool hasMode = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
    // The caller starts the list; the analyser doesn't see into the macro.
    // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized)
    return hasMode ? va_arg(arguments, mode_t) : 0;
}

__attribute__((destructor)) void atExit() {
    Injector::shared().atExit();
}

}  // namespace

// The variable arguments hold the mode, where there is one.
#define MODE_ARGUMENT(flags)                            \
    va_list arguments;                                  \
    va_start(arguments, flags);                         \
    const mode_t mode = modeArgument(flags, arguments); \
    va_end(arguments)

extern "C" {

// The system's headers name the parameters in their own way, and its names are reserved.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name, bugprone-reserved-identifier)

int open(const char* path, int flags, ...) {
    MODE_ARGUMENT(flags);
    return opening("open", AT_FDCWD, path, flags, [&] { return NEXT(open)(path, flags, mode); });
}

int open64(const char* path, int flags, ...) {
    MODE_ARGUMENT(flags);
    return opening("open", AT_FDCWD, path, flags, [&] { return NEXT(open64)(path, flags, mode); });
}

int openat(int folder, const char* path, int flags, ...) {
    MODE_ARGUMENT(flags);
    return opening("openat", folder, path, flags,
                   [&] { return NEXT(openat)(folder, path, flags, mode); });
}

int openat64(int folder, const char* path, int flags, ...) {
    MODE_ARGUMENT(flags);
    return opening("openat", folder, path, flags,
                   [&] { return NEXT(openat64)(folder, path, flags, mode); });
}

// What a fortified program calls where it gives no mode.
int __open_2(const char* path, int flags) {
    return opening("open", AT_FDCWD, path, flags, [&] { return NEXT(open)(path, flags); });
}

int __open64_2(const char* path, int flags) {
    return opening("open", AT_FDCWD, path, flags, [&] { return NEXT(open64)(path, flags); });
}

int __openat_2(int folder, const char* path, int flags) {
    return opening("openat", folder, path, flags,
                   [&] { return NEXT(openat)(folder, path, flags); });
}

int __openat64_2(int folder, const char* path, int flags) {
    return opening("openat", folder, path, flags,
                   [&] { return NEXT(openat64)(folder, path, flags); });
}

int creat(const char* path, mode_t mode) {
    return opening("creat", AT_FDCWD, path, O_CREAT | O_TRUNC,
                   [&] { return NEXT(creat)(path, mode); });
}

int creat64(const char* path, mode_t mode) {
    return opening("creat", AT_FDCWD, path, O_CREAT | O_TRUNC,
                   [&] { return NEXT(creat64)(path, mode); });
}

ssize_t write(int descriptor, const void* bytes, size_t count) {
    return writing(
        "write", descriptor, [&] { return NEXT(write)(descriptor, bytes, count); },
        [&] { (void)!NEXT(write)(descriptor, bytes, count / 2); });
}

ssize_t pwrite(int descriptor, const void* bytes, size_t count, off_t offset) {
    return writing(
        "pwrite", descriptor, [&] { return NEXT(pwrite)(descriptor, bytes, count, offset); },
        [&] { (void)!NEXT(pwrite)(descriptor, bytes, count / 2, offset); });
}

ssize_t pwrite64(int descriptor, const void* bytes, size_t count, off64_t offset) {
    return writing(
        "pwrite", descriptor, [&] { return NEXT(pwrite64)(descriptor, bytes, count, offset); },
        [&] { (void)!NEXT(pwrite64)(descriptor, bytes, count / 2, offset); });
}

ssize_t writev(int descriptor, const iovec* parts, int count) {
    return writing(
        "writev", descriptor, [&] { return NEXT(writev)(descriptor, parts, count); },
        [&] {
            if (count > 1) {
                (void)!NEXT(writev)(descriptor, parts, count / 2);
            } else if (count == 1) {
                (void)!NEXT(write)(descriptor, parts->iov_base, parts->iov_len / 2);
            }
        });
}

int ftruncate(int descriptor, off_t length) noexcept {
    return static_cast<int>(writing(
        "ftruncate", descriptor, [&]() -> ssize_t { return NEXT(ftruncate)(descriptor, length); },
        [] {}));
}

int ftruncate64(int descriptor, off64_t length) noexcept {
    return static_cast<int>(writing(
        "ftruncate", descriptor, [&]() -> ssize_t { return NEXT(ftruncate64)(descriptor, length); },
        [] {}));
}

int truncate(const char* path, off_t length) noexcept {
    return onNames(
        "truncate", [&] { return Paths(followed(AT_FDCWD, path), ""); },
        [&] { return NEXT(truncate)(path, length); },
        [](Journal& journal, const auto& file, const auto&) { journal.touch(file); },
        kNothingAfter);
}

int truncate64(const char* path, off64_t length) noexcept {
    return truncate(path, length);
}

int fsync(int descriptor) {
    return syncing("fsync", descriptor, [&] { return NEXT(fsync)(descriptor); });
}

int fdatasync(int descriptor) {
    return syncing("fdatasync", descriptor, [&] { return NEXT(fdatasync)(descriptor); });
}

int syncfs(int descriptor) noexcept {
    return onOpen<int>(
        "syncfs", descriptor, [&] { return NEXT(syncfs)(descriptor); }, Nothing(),
        [](Journal& journal, int) { journal.syncedAll(); }, [] {});
}

int rename(const char* from, const char* to) noexcept {
    return renaming("rename", AT_FDCWD, from, AT_FDCWD, to, 0,
                    [&] { return NEXT(rename)(from, to); });
}

int renameat(int fromFolder, const char* from, int toFolder, const char* to) noexcept {
    return renaming("renameat", fromFolder, from, toFolder, to, 0,
                    [&] { return NEXT(renameat)(fromFolder, from, toFolder, to); });
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
              unsigned flags) noexcept {
    return renaming("renameat2", fromFolder, from, toFolder, to, flags,
                    [&] { return NEXT(renameat2)(fromFolder, from, toFolder, to, flags); });
}

int link(const char* from, const char* to) noexcept {
    return making("link", AT_FDCWD, to, [&] { return NEXT(link)(from, to); });
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
    return making("linkat", toFolder, to,
                  [&] { return NEXT(linkat)(fromFolder, from, toFolder, to, flags); });
}

int symlink(const char* target, const char* path) noexcept {
    return making("symlink", AT_FDCWD, path, [&] { return NEXT(symlink)(target, path); });
}

int symlinkat(const char* target, int folder, const char* path) noexcept {
    return making("symlinkat", folder, path, [&] { return NEXT(symlinkat)(target, folder, path); });
}

int unlink(const char* path) noexcept {
    return removing("unlink", AT_FDCWD, path, [&] { return NEXT(unlink)(path); });
}

int unlinkat(int folder, const char* path, int flags) noexcept {
    return removing("unlinkat", folder, path, [&] { return NEXT(unlinkat)(folder, path, flags); });
}

int remove(const char* path) noexcept {
    return removing("remove", AT_FDCWD, path, [&] { return NEXT(remove)(path); });
}

int rmdir(const char* path) noexcept {
    return removing("rmdir", AT_FDCWD, path, [&] { return NEXT(rmdir)(path); });
}

int mkdir(const char* path, mode_t mode) noexcept {
    return making("mkdir", AT_FDCWD, path, [&] { return NEXT(mkdir)(path, mode); });
}

int mkdirat(int folder, const char* path, mode_t mode) noexcept {
    return making("mkdirat", folder, path, [&] { return NEXT(mkdirat)(folder, path, mode); });
}

int chmod(const char* path, mode_t mode) noexcept {
    return changingMode("chmod", AT_FDCWD, path, [&] { return NEXT(chmod)(path, mode); });
}

int fchmod(int descriptor, mode_t mode) noexcept {
    return onOpen<int>(
        "fchmod", descriptor, [&] { return NEXT(fchmod)(descriptor, mode); }, Nothing(), Nothing(),
        [] {});
}

int fchmodat(int folder, const char* path, mode_t mode, int flags) noexcept {
    return changingMode("fchmodat", folder, path,
                        [&] { return NEXT(fchmodat)(folder, path, mode, flags); });
}

// NOLINTEND(readability-inconsistent-declaration-parameter-name, bugprone-reserved-identifier)

}  // extern "C"
