// The one road for slow work: a function with copies of what it needs runs on the pool, and its
// value comes back to the thread of a living object. Nothing is cancelled; who asks again drops
// the stale answer by a counter of its own.
#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <functional>
#include <utility>

namespace diary::background {

enum class Urgency { UserWaits, Utility };

// Runs `work` on the shared pool. Returns at once; `work` must not throw.
void start(Urgency urgency, std::function<void()> work);

// Runs `piece(0)` to `piece(pieces - 1)` side by side, one of them on the calling thread, and
// returns when all are done. No piece may throw. For work that is split by hand, on few threads.
void inParallel(int pieces, const std::function<void(int)>& piece);

// Runs `work()` on the shared pool, then `finish(value)` on the main thread, unless `context`, an
// object of the main thread, is gone by then. Returns at once. `work` must not throw; what can
// fail returns its failure.
template <typename Work, typename Finish>
void run(Urgency urgency, QObject* context, Work work, Finish finish) {
    start(urgency, [context = QPointer<QObject>(context), work = std::move(work),
                    finish = std::move(finish)]() mutable {
        auto value = work();
        // The object is looked at on its own thread only: here it could die between look and use.
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [context, value = std::move(value), finish = std::move(finish)]() mutable {
                if (context) finish(std::move(value));
            },
            Qt::QueuedConnection);
    });
}

}  // namespace diary::background
