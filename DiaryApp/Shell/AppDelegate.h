// The application's life: it prepares look and language, finds the vault, makes the window, and
// passes on what happens to the application as a whole. It owns the windows.
#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QUrl>
#include <future>
#include <memory>

#include "DiaryApp/Chrome/MenuTable.h"
#include "DiaryApp/Settings/Onboarding.h"
#include "DiaryApp/Settings/Settings.h"
#include "DiaryApp/SettingsWindow/SettingsModel.h"
#include "DiaryKit/Vault/ArchiveSnapshot.h"

namespace velmar {

class DayChangeNotifier;
class MainWindowController;
class SettingsWindowController;
class SystemAppearance;
class UnixSignals;

class AppDelegate : public QObject {
    Q_OBJECT

public:
    using FirstScan = std::shared_future<diary::ArchiveScan>;

    // Without a scan the window looks through the vault itself.
    explicit AppDelegate(Settings& settings, FirstScan firstScan = {});
    ~AppDelegate() override;

    // Begins in the background what the first page needs and no display: the calendar's names, and
    // a look through the vault. May come ahead of the QApplication; returns at once.
    [[nodiscard]] static FirstScan warmUp(const Settings& settings);

    // Brings the application up, to the shown window. Once, before the event loop.
    void start();

    [[nodiscard]] MainWindowController* mainWindowController() const { return m_main.get(); }
    // Null until the settings were shown once.
    [[nodiscard]] SettingsWindowController* settingsWindowController() const {
        return m_settingsWindow.get();
    }

    void showSettings();
    // Brings the settings' palette into force, and all windows with it.
    void appearanceChanged();

    // The windows that are still to come, each absent until then: the import with its sources or
    // records, the export, and the look for a newer version.
    std::function<void()> onImport;
    std::function<void()> onImportRecords;
    std::function<void()> onExport;
    std::function<void()> onCheckForUpdates;
    // Files or folders were dropped on the main window.
    std::function<void(const QList<QUrl>&)> onImportDrop;
    // The photos that are hidden, for the settings.
    std::function<HiddenPhotosStatus()> hiddenPhotosStatus;
    std::function<void()> onRestoreAllHiddenPhotos;

private:
    void makeWindow();
    [[nodiscard]] std::unique_ptr<MainWindowController> makeController();
    void rebuildMainWindow();
    void perform(Action action);
    void showAbout();
    void wireSettings();
    void followSystem();
    void changeLanguage();
    void restyleWindows();
    void maybeShowOnboarding();
    void terminate();
    void applicationStateChanged(Qt::ApplicationState state);
    void finishStart();
    void removeAbandonedTemporaries() const;

    Settings& m_settings;
    std::unique_ptr<MainWindowController> m_main;
    std::unique_ptr<SettingsWindowController> m_settingsWindow;
    std::unique_ptr<SystemAppearance> m_system;
    std::unique_ptr<DayChangeNotifier> m_dayChange;
    std::unique_ptr<UnixSignals> m_signals;
    // Taken by the first window.
    FirstScan m_firstScan;
};

}  // namespace velmar
