// Lets the desktop's request to end (SIGTERM, SIGHUP, SIGINT) arrive on the event loop, so that the
// draft is saved as at any other quit.
#pragma once

#include <QtCore/QSocketNotifier>
#include <functional>
#include <memory>

namespace velmar {

// One instance for the process, on the main thread.
class UnixSignals {
public:
    explicit UnixSignals(std::function<void()> onTerminate);
    ~UnixSignals();
    UnixSignals(const UnixSignals&) = delete;
    UnixSignals& operator=(const UnixSignals&) = delete;

private:
    int m_ends[2] = {-1, -1};
    std::unique_ptr<QSocketNotifier> m_notifier;
};

}  // namespace velmar
