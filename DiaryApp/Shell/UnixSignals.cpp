#include "DiaryApp/Shell/UnixSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace velmar {

namespace {

constexpr int kSignals[] = {SIGTERM, SIGHUP, SIGINT};

// Written by the handler, where only calls that are safe in a signal may be made.
volatile std::sig_atomic_t g_wakeEnd = -1;

void wake(int) {
    const int saved = errno;
    const char byte = 1;
    (void)!::write(g_wakeEnd, &byte, 1);
    errno = saved;
}

}  // namespace

UnixSignals::UnixSignals(std::function<void()> onTerminate) {
    if (::pipe2(m_ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
    g_wakeEnd = m_ends[1];
    m_notifier = std::make_unique<QSocketNotifier>(m_ends[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [this, onTerminate = std::move(onTerminate)] {
                         char byte = 0;
                         (void)!::read(m_ends[0], &byte, 1);
                         onTerminate();
                     });
    struct sigaction action {};
    action.sa_handler = wake;
    action.sa_flags = SA_RESTART;
    for (const int signal : kSignals) ::sigaction(signal, &action, nullptr);
}

UnixSignals::~UnixSignals() {
    for (const int signal : kSignals) ::signal(signal, SIG_DFL);
    m_notifier.reset();
    for (const int end : m_ends) {
        if (end >= 0) ::close(end);
    }
}

}  // namespace velmar
