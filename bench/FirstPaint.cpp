// Linked into a program, tells how long it took from its start to its first painted window, and
// ends it there. The program itself knows nothing of it. The starter passes the moment of the start
// in VELMAR_BENCH_START, in nanoseconds of CLOCK_MONOTONIC.
#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtCore/QEvent>
#include <QtCore/QTimer>
#include <QtWidgets/QWidget>
#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace {

long long now() {
    timespec moment{};
    ::clock_gettime(CLOCK_MONOTONIC, &moment);
    return moment.tv_sec * 1'000'000'000LL + moment.tv_nsec;
}

class FirstPaint : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto* widget = qobject_cast<QWidget*>(watched);
        if (event->type() != QEvent::Paint || !widget || !widget->isWindow() || m_isPainted) {
            return false;
        }
        m_isPainted = true;
        // The paint is flushed to the display before the event loop turns again.
        QTimer::singleShot(0, this, [] {
            std::printf("%lld\n", now() - std::atoll(std::getenv("VELMAR_BENCH_START")));
            std::fflush(stdout);
            std::_Exit(0);
        });
        return false;
    }

private:
    bool m_isPainted = false;
};

void watch() {
    if (std::getenv("VELMAR_BENCH_START")) {
        QCoreApplication::instance()->installEventFilter(
            new FirstPaint);  // Lives as long as the process.
    }
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(watch)
