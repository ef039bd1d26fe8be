// How long a thread is away from its event loop. It turns the loop itself and takes the time of
// each turn: what lies between two moments at which an event of the user's could be taken.
#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QTimer>
#include <chrono>
#include <ctime>
#include <functional>
#include <vector>

namespace velmar::bench {

// The processor time counts: on a machine that others use too, the other grows with their work.
struct Turn {
    double processorMs = 0;
    double wallMs = 0;
};

struct Turns {
    Turn longest;
    double processorMs = 0;

    void add(const Turn& turn) {
        processorMs += turn.processorMs;
        if (turn.processorMs > longest.processorMs) longest = turn;
    }
};

inline double milliseconds(clockid_t clock) {
    timespec moment{};
    ::clock_gettime(clock, &moment);
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
        const double before = milliseconds(CLOCK_THREAD_CPUTIME_ID);
        const double wallBefore = milliseconds(CLOCK_MONOTONIC);
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        turns.add({milliseconds(CLOCK_THREAD_CPUTIME_ID) - before,
                   milliseconds(CLOCK_MONOTONIC) - wallBefore});
    }
    return turns;
}

}  // namespace velmar::bench
