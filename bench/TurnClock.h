// How long a thread is away from its event loop. It turns the loop itself and takes the time of
// each turn: what lies between two moments at which an event of the user's could be taken.
#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QTimer>
#include <algorithm>
#include <chrono>
#include <ctime>
#include <functional>

namespace velmar::bench {

// In milliseconds of the thread's processor time: on a machine that others use too, any other time
// grows with their work, and a turn that waits for an event isn't one that keeps others waiting.
struct Turns {
    double longest = 0;
    double all = 0;

    void add(double turn) {
        all += turn;
        longest = std::max(longest, turn);
    }
};

inline double threadMilliseconds() {
    timespec moment{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &moment);
    return static_cast<double>(moment.tv_sec) * 1e3 + static_cast<double>(moment.tv_nsec) / 1e6;
}

// Turns the loop for this long; `action` is the first thing that happens in it.
inline Turns turnsOf(const std::function<void()>& action, std::chrono::milliseconds lasting) {
    bool isOver = false;
    QTimer end;
    end.setSingleShot(true);
    QObject::connect(&end, &QTimer::timeout, &end, [&isOver] { isOver = true; });
    end.start(lasting);
    QMetaObject::invokeMethod(&end, action, Qt::QueuedConnection);
    Turns turns;
    while (!isOver) {
        const double before = threadMilliseconds();
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        turns.add(threadMilliseconds() - before);
    }
    return turns;
}

}  // namespace velmar::bench
