#include "DiaryKit/Files/VaultObserver.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <sys/stat.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <map>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

#include "DiaryKit/Files/Descriptor.h"

namespace diary {

namespace {

constexpr std::uint32_t kItself = IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
constexpr std::uint32_t kContents = kItself | IN_CREATE | IN_MOVED_TO | IN_MOVED_FROM |
                                    IN_CLOSE_WRITE | IN_MODIFY | IN_DELETE | IN_ATTRIB;
constexpr std::uint32_t kArrivals = kItself | IN_CREATE | IN_MOVED_TO;

// Why a folder is watched.
enum class Role {
    // The vault or a folder in it: each event is told.
    Told,
    // A folder above: only what it means for the others counts.
    Above,
};

// What one reading of the queue brought.
struct Batch {
    bool concernsVault = false;
    // Whether a folder may have come, gone or moved.
    bool concernsFolders = false;
};

// "/a/b" -> "/a", "/" -> ""
QByteArray above(const QByteArray& path) {
    if (path.size() <= 1) return {};
    return path.first(qMax<qsizetype>(path.lastIndexOf('/'), 1));
}

bool isFolder(const QByteArray& path) {
    struct stat status {};
    return ::stat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

// The queue, its watches and the thread. Shared with the thread, which may outlive the observer by
// one call when the observer is stopped from within `onChange`.
class VaultObserver::Watch {
public:
    Watch(const QString& directory, std::function<void()> onChange)
        : m_vault(QFile::encodeName(QDir::cleanPath(QDir(directory).absolutePath()))),
          m_onChange(std::move(onChange)),
          m_queue(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)),
          m_wakeUp(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)),
          m_mounts(::open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC)) {
        if (isUsable()) (void)renewWatches();
    }

    [[nodiscard]] bool isUsable() const { return m_queue.isOpen() && m_wakeUp.isOpen(); }

    static void run(const std::shared_ptr<Watch>& watch) {
        // Signals are for the threads that expect them.
        sigset_t all, before;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before);
        {
            const std::lock_guard lock(watch->m_threadMutex);
            watch->m_thread = std::thread([watch] { watch->listen(); });
        }
        pthread_sigmask(SIG_SETMASK, &before, nullptr);
    }

    void stop() {
        m_isStopped = true;
        const std::uint64_t one = 1;
        (void)!::write(m_wakeUp.number(), &one, sizeof one);
        std::thread thread;
        {
            const std::lock_guard lock(m_threadMutex);
            thread = std::move(m_thread);
        }
        if (thread.get_id() == std::this_thread::get_id()) {
            thread.detach();
        } else if (thread.joinable()) {
            thread.join();
        }
    }

private:
    void listen() {
        // A disk that is mounted over a folder is no change of the folder; the table of mounts
        // tells of it by an exceptional condition.
        std::array<pollfd, 3> sources = {pollfd{m_queue.number(), POLLIN, 0},
                                         pollfd{m_wakeUp.number(), POLLIN, 0},
                                         pollfd{m_mounts.number(), POLLPRI, 0}};
        while (!m_isStopped) {
            if (::poll(sources.data(), sources.size(), -1) < 0 && errno != EINTR) return;
            if (m_isStopped) return;
            Batch batch = readBatch();
            if (sources[2].revents != 0) batch.concernsFolders = true;
            if (batch.concernsFolders && renewWatches()) batch.concernsVault = true;
            if (batch.concernsVault && !m_isStopped) m_onChange();
        }
    }

    Batch readBatch() {
        constexpr std::size_t kBufferBytes = 65'536;
        alignas(inotify_event) static thread_local char buffer[kBufferBytes];
        Batch batch;
        const ssize_t length =
            uninterrupted([&] { return ::read(m_queue.number(), buffer, sizeof buffer); });
        for (ssize_t at = 0; at < length;) {
            inotify_event event{};
            std::memcpy(&event, buffer + at, sizeof event);
            at += static_cast<ssize_t>(sizeof event + event.len);
            take(event, batch);
        }
        return batch;
    }

    void take(const inotify_event& event, Batch& batch) const {
        constexpr std::uint32_t kOfFolders =
            IN_ISDIR | IN_DELETE_SELF | IN_MOVE_SELF | IN_UNMOUNT | IN_IGNORED | IN_Q_OVERFLOW;
        if ((event.mask & kOfFolders) != 0) batch.concernsFolders = true;
        const auto known = m_roles.find(event.wd);
        const bool isTold =
            known != m_roles.end() && known->second == Role::Told && (event.mask & IN_IGNORED) == 0;
        if (isTold || (event.mask & IN_Q_OVERFLOW) != 0) batch.concernsVault = true;
        // A link to the vault may come as well as a folder.
        if (known != m_roles.end() && known->second == Role::Above) batch.concernsFolders = true;
    }

    // Makes the watches what the folders are by now. Gives whether one of the vault's came or went.
    bool renewWatches() {
        // A folder that comes while the one above is taken in shows in the next attempt.
        constexpr int kAttempts = 8;
        std::map<int, Role> roles;
        for (int attempt = 0; attempt < kAttempts; ++attempt) {
            roles.clear();
            if (watchVault(roles) || watchAbove(roles)) break;
        }
        const bool isChanged = told(roles) != told(m_roles);
        for (const auto& [number, role] : std::exchange(m_roles, roles)) {
            if (!m_roles.contains(number)) ::inotify_rm_watch(m_queue.number(), number);
        }
        return isChanged;
    }

    // Gives whether the vault itself is there.
    bool watchVault(std::map<int, Role>& roles) {
        if (!add(m_vault, kContents, Role::Told, roles)) return false;
        // Each folder is looked for only once the one above tells of it.
        const QByteArray hidden = m_vault + "/.velmar";
        if (add(hidden, kContents, Role::Told, roles)) {
            add(hidden + "/imports", kContents, Role::Told, roles);
        }
        // Where a folder above is moved, the vault itself hears nothing of that.
        for (QByteArray path = above(m_vault); !path.isEmpty(); path = above(path)) {
            add(path, kItself, Role::Above, roles);
        }
        return true;
    }

    // For a missing vault. Gives whether it may rest at that: nothing came in the meantime.
    bool watchAbove(std::map<int, Role>& roles) {
        QByteArray missing = m_vault;
        QByteArray path = above(missing);
        while (!path.isEmpty() && !add(path, kArrivals, Role::Above, roles)) {
            missing = path;
            path = above(path);
        }
        for (path = above(path); !path.isEmpty(); path = above(path)) {
            add(path, kItself, Role::Above, roles);
        }
        return !isFolder(missing);
    }

    bool add(const QByteArray& path, std::uint32_t mask, Role role, std::map<int, Role>& roles) {
        const int number = ::inotify_add_watch(m_queue.number(), path.constData(), mask);
        if (number >= 0) roles[number] = role;
        return number >= 0;
    }

    static std::vector<int> told(const std::map<int, Role>& roles) {
        std::vector<int> numbers;
        for (const auto& [number, role] : roles) {
            if (role == Role::Told) numbers.push_back(number);
        }
        return numbers;
    }

    QByteArray m_vault;
    std::function<void()> m_onChange;
    Descriptor m_queue;
    Descriptor m_wakeUp;
    Descriptor m_mounts;
    std::map<int, Role> m_roles;
    std::atomic<bool> m_isStopped = false;
    // The thread may be told to stop by its own call before it is even stored.
    std::mutex m_threadMutex;
    std::thread m_thread;
};

VaultObserver::VaultObserver(const QString& directory, std::function<void()> onChange)
    : m_directory(directory), m_onChange(std::move(onChange)) {}

VaultObserver::~VaultObserver() {
    stop();
}

void VaultObserver::start() {
    if (m_watch) return;
    auto watch = std::make_shared<Watch>(m_directory, m_onChange);
    if (!watch->isUsable()) return;
    m_watch = watch;
    Watch::run(watch);
}

void VaultObserver::stop() {
    if (!m_watch) return;
    m_watch->stop();
    m_watch.reset();
}

}  // namespace diary
