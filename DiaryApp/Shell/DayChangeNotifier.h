// Tells when the calendar day changes, also after the machine slept over midnight or its clock was
// set. Sleeps in the kernel until then: no polling.
#pragma once

#include <QtCore/QDate>
#include <functional>
#include <memory>

#include "DiaryKit/Foundation/Clock.h"

class QSocketNotifier;

namespace velmar {

// Main thread, on its event loop.
class DayChangeNotifier {
public:
    DayChangeNotifier(const diary::Clock& clock, std::function<void()> onDayChange);
    ~DayChangeNotifier();
    DayChangeNotifier(const DayChangeNotifier&) = delete;
    DayChangeNotifier& operator=(const DayChangeNotifier&) = delete;

    // Compares the day with the one last seen, and tells if it is another. The timer calls this;
    // so may anything that has a reason to look, such as the application becoming active.
    void check();

private:
    void arm();

    const diary::Clock& m_clock;
    std::function<void()> m_onDayChange;
    QDate m_day;
    int m_timer = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

}  // namespace velmar
