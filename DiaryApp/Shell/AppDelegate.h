// The application's life: it prepares look and language, finds the vault, makes the window, and
// passes on what happens to the application as a whole.
#pragma once

#include <QtCore/QObject>
#include <memory>

#include "DiaryApp/Settings/Settings.h"

namespace velmar {

class DayChangeNotifier;
class MainWindowController;
class UnixSignals;

class AppDelegate : public QObject {
    Q_OBJECT

public:
    explicit AppDelegate(Settings& settings);
    ~AppDelegate() override;

    // Begins in the background what the first page needs and no display. May come ahead of the
    // QApplication; returns at once.
    static void warmUp(const Settings& settings);

    // Brings the application up, to the shown window. Once, before the event loop.
    void start();

    [[nodiscard]] MainWindowController* mainWindowController() const { return m_main.get(); }

private:
    void makeWindow();
    void terminate();
    void applicationStateChanged(Qt::ApplicationState state);
    void finishStart();
    void removeAbandonedTemporaries() const;

    Settings& m_settings;
    std::unique_ptr<MainWindowController> m_main;
    std::unique_ptr<DayChangeNotifier> m_dayChange;
    std::unique_ptr<UnixSignals> m_signals;
};

}  // namespace velmar
