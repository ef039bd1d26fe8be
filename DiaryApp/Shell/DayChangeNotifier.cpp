#include "DiaryApp/Shell/DayChangeNotifier.h"

#include <sys/timerfd.h>
#include <unistd.h>

#include <QtCore/QSocketNotifier>

namespace velmar {

DayChangeNotifier::DayChangeNotifier(const diary::Clock& clock, std::function<void()> onDayChange)
    : m_clock(clock),
      m_onDayChange(std::move(onDayChange)),
      m_day(clock.now().date()),
      m_timer(::timerfd_create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC)) {
    if (m_timer < 0) return;
    m_notifier = std::make_unique<QSocketNotifier>(m_timer, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] {
        std::uint64_t expirations = 0;
        // A clock that was set makes the read fail with ECANCELED; both mean: look again.
        (void)!::read(m_timer, &expirations, sizeof expirations);
        check();
    });
    arm();
}

DayChangeNotifier::~DayChangeNotifier() {
    m_notifier.reset();
    if (m_timer >= 0) ::close(m_timer);
}

void DayChangeNotifier::check() {
    const QDate day = m_clock.now().date();
    const bool isAnother = day != std::exchange(m_day, day);
    arm();
    if (isAnother) m_onDayChange();
}

void DayChangeNotifier::arm() {
    if (m_timer < 0) return;
    itimerspec when{};
    when.it_value.tv_sec = m_clock.now().date().addDays(1).startOfDay().toSecsSinceEpoch();
    ::timerfd_settime(m_timer, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &when, nullptr);
}

}  // namespace velmar
