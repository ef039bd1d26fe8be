#include "tests/support/faults/Injector.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <cstring>

namespace faults {

namespace {

std::string variable(const char* name) {
    const char* value = ::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

long number(const char* name) {
    return std::strtol(variable(name).c_str(), nullptr, 10);
}

std::string realPath(const std::string& path) {
    char result[PATH_MAX];
    return ::realpath(path.c_str(), result) == nullptr ? std::string() : std::string(result);
}

std::string linkTarget(const std::string& path) {
    char target[PATH_MAX];
    const ssize_t length = ::readlink(path.c_str(), target, sizeof target);
    return length < 0 ? std::string() : std::string(target, static_cast<std::size_t>(length));
}

}  // namespace

Injector& Injector::shared() {
    static Injector* const injector = new Injector;
    return *injector;
}

Injector::Injector()
    : m_roots{realPath(variable("VELMAR_FAULT_ROOT")), realPath(variable("VELMAR_FAULT_ROOT2"))},
      m_countFile(variable("VELMAR_FAULT_COUNT")),
      m_killAt(number("VELMAR_FAULT_KILL_AT")),
      m_killWhen(variable("VELMAR_FAULT_KILL_WHEN")),
      m_failAt(number("VELMAR_FAULT_FAIL_AT")),
      m_failCode(static_cast<int>(number("VELMAR_FAULT_ERRNO"))),
      m_isFailingForever(number("VELMAR_FAULT_FAIL_FOREVER") != 0),
      m_cutAt(variable("VELMAR_FAULT_POWERCUT_AT") == "exit" ? kAtExit
                                                             : number("VELMAR_FAULT_POWERCUT_AT")) {
    if (m_failCode == 0) m_failCode = EIO;
    const std::string keep = variable("VELMAR_FAULT_POWERCUT_KEEP");
    if (keep == "names") m_keep = Keep::Names;
    if (keep == "data") m_keep = Keep::Data;
    const std::string only = variable("VELMAR_FAULT_ONLY");
    for (std::size_t start = 0; start < only.size();) {
        const std::size_t end = std::min(only.find(',', start), only.size());
        m_only.insert(only.substr(start, end - start));
        start = end + 1;
    }
}

bool Injector::concerns(const std::string& path) const {
    for (const std::string& root : m_roots) {
        if (!root.empty() && path.compare(0, root.size(), root) == 0 &&
            (path.size() == root.size() || path[root.size()] == '/')) {
            return true;
        }
    }
    return false;
}

int Injector::enter(const char* name, const std::string& path) {
    m_isCounted = m_only.empty() || m_only.count(name) > 0;
    if (!m_isCounted) return 0;
    ++m_count;
    log(name, path);
    if (m_count == m_cutAt) {
        m_journal.cutPower(m_keep);
        die();
    }
    const bool isWrite = std::strstr(name, "write") != nullptr;
    const bool isDyingLater = m_killWhen == "after" || (m_killWhen == "torn" && isWrite);
    if (m_count == m_killAt && !isDyingLater) die();
    const bool isFailing =
        m_failAt != kNever && (m_isFailingForever ? m_count >= m_failAt : m_count == m_failAt);
    return isFailing ? m_failCode : 0;
}

bool Injector::isTorn() const {
    return m_isCounted && m_count == m_killAt && m_killWhen == "torn";
}

void Injector::leave() {
    if (m_isCounted && m_count == m_killAt) die();
}

void Injector::atExit() {
    if (m_cutAt != kAtExit) return;
    m_journal.cutPower(m_keep);
    die();
}

void Injector::die() {
    for (;;) ::kill(::getpid(), SIGKILL);
}

void Injector::log(const char* name, const std::string& path) const {
    if (m_countFile.empty()) return;
    const std::string line = std::to_string(m_count) + ' ' + name + ' ' + path + '\n';
    const long file = ::syscall(SYS_openat, AT_FDCWD, m_countFile.c_str(),
                                O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    if (file < 0) return;
    ::syscall(SYS_write, file, line.data(), line.size());
    ::syscall(SYS_close, file);
}

std::string resolved(int folder, const char* path) {
    std::string whole = path;
    if (whole.empty() || whole.front() != '/') {
        std::string base = folder == AT_FDCWD ? linkTarget("/proc/self/cwd") : pathOf(folder);
        base += '/';
        whole.insert(0, base);
    }
    while (whole.size() > 1 && whole.back() == '/') whole.pop_back();
    const std::size_t slash = whole.rfind('/');
    const std::string parent = realPath(slash == 0 ? "/" : whole.substr(0, slash));
    return (parent == "/" ? std::string() : parent) + whole.substr(slash);
}

std::string followed(int folder, const char* path) {
    std::string result = resolved(folder, path);
    // Any program's own limit is reached long before.
    constexpr int kMostLinks = 40;
    for (int links = 0; links < kMostLinks; ++links) {
        std::string target = linkTarget(result);
        if (target.empty()) break;
        if (target.front() != '/') target.insert(0, result, 0, result.rfind('/') + 1);
        result = resolved(AT_FDCWD, target.c_str());
    }
    return result;
}

std::string pathOf(int descriptor) {
    return linkTarget("/proc/self/fd/" + std::to_string(descriptor));
}

}  // namespace faults
