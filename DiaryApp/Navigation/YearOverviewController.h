// The window of the year calendar. Whoever presents it reads the store; the window remembers
// nothing, not even its place.
#pragma once

#include <QtWidgets/QWidget>
#include <functional>
#include <memory>

#include "DiaryApp/Navigation/YearOverviewModel.h"

namespace velmar {

class YearOverviewView;

// Main thread. Made once, at the first presenting.
class YearOverviewController {
public:
    YearOverviewController();
    ~YearOverviewController();
    YearOverviewController(const YearOverviewController&) = delete;
    YearOverviewController& operator=(const YearOverviewController&) = delete;

    // The date of a click; the window stays open.
    std::function<void(diary::MonthDay)> onPick;

    // Shows the content in the middle of the screen that `beside` is on, and brings the window up.
    // Keys begin at the day that is open.
    void present(const YearOverviewModel& model, diary::MonthDay openDay,
                 const QWidget* beside = nullptr);
    // New content in place, in a new language or of a changed vault.
    void update(const YearOverviewModel& model);
    void restyle();
    void close();

    [[nodiscard]] bool isVisible() const;
    [[nodiscard]] QWidget* window() const;
    [[nodiscard]] YearOverviewView* view() const { return m_view; }

private:
    void centre(const QWidget* beside);

    std::unique_ptr<QWidget> m_window;
    YearOverviewView* m_view = nullptr;
};

}  // namespace velmar
