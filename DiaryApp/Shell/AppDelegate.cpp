#include "DiaryApp/Shell/AppDelegate.h"

#include <QtCore/QTimer>
#include <QtGui/QIcon>
#include <QtWidgets/QApplication>
#include <chrono>

#include "DiaryApp/Appearance/Appearance.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Motion.h"
#include "DiaryApp/Chrome/AlertSheet.h"
#include "DiaryApp/Desktop/SessionBus.h"
#include "DiaryApp/Desktop/SystemAppearance.h"
#include "DiaryApp/Settings/Formatters.h"
#include "DiaryApp/Settings/Localization.h"
#include "DiaryApp/Settings/VaultPlaces.h"
#include "DiaryApp/SettingsWindow/OnboardingSheet.h"
#include "DiaryApp/SettingsWindow/SettingsWindowController.h"
#include "DiaryApp/Shell/DayChangeNotifier.h"
#include "DiaryApp/Shell/DebugScenario.h"
#include "DiaryApp/Shell/MainWindow.h"
#include "DiaryApp/Shell/MainWindowController.h"
#include "DiaryApp/Shell/UnixSignals.h"
#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Foundation/Background.h"

namespace velmar {

namespace {

constexpr std::chrono::milliseconds kAfterFirstPaint{200};

}  // namespace

AppDelegate::AppDelegate(Settings& settings, FirstScan firstScan)
    : m_settings(settings), m_firstScan(std::move(firstScan)) {}

AppDelegate::~AppDelegate() = default;

AppDelegate::FirstScan AppDelegate::warmUp(const Settings& settings) {
    fonts::warmUp();
    sessionbus::warmUp();
    Formatters::warmUp(localization::effectiveLanguage(settings));
    const auto scan = std::make_shared<std::promise<diary::ArchiveScan>>();
    diary::background::start(diary::background::Urgency::UserWaits,
                             [scan, root = VaultPlaces(settings).vaultURL()] {
                                 scan->set_value(diary::scanArchive(root, {}, {}));
                             });
    return scan->get_future().share();
}

void AppDelegate::start() {
    appearance::prepare();
    const Language language = localization::effectiveLanguage(m_settings);
    localization::install(language);
    fonts::setLanguage(language);
    appearance::apply(m_settings);
    makeWindow();
    const bool isScripted = debugscenario::isRequested(m_settings);
    const bool comesToFront =
        !isScripted || m_settings.environment(QStringLiteral("DIARY_ACTIVATE"));
    m_main->window()->setAttribute(Qt::WA_ShowWithoutActivating, !comesToFront);
    m_main->show();
    if (comesToFront) m_main->window()->activateWindow();
    QObject::connect(qApp, &QGuiApplication::applicationStateChanged, this,
                     &AppDelegate::applicationStateChanged);
    // The desktop's session is about to end, and may still be kept from it by another application.
    QObject::connect(qApp, &QGuiApplication::commitDataRequest, this, [this] {
        m_main->session().flushSaveIfDirty();
        m_main->session().keepUnsavedDraft();
    });
    m_dayChange = std::make_unique<DayChangeNotifier>(diary::Clock::system(),
                                                      [this] { m_main->calendarDayChanged(); });
    m_signals = std::make_unique<UnixSignals>([this] { terminate(); });
    // Reaching the desktop takes a moment, which the first page waits for only if it decides on it.
    if (m_settings.appearanceMode() == diary::AppearanceMode::system) followSystem();
    QTimer::singleShot(kAfterFirstPaint, this, [this] { finishStart(); });
    if (isScripted) {
        debugscenario::run(m_settings, *this, [this](int code) {
            m_main->session().flushSaveIfDirty();
            const bool isSaved = !m_main->session().isDirty();
            m_main->session().close();
            QApplication::exit(isSaved ? code : 1);
        });
    }
    maybeShowOnboarding();
}

void AppDelegate::makeWindow() {
    m_main = makeController();
}

std::unique_ptr<MainWindowController> AppDelegate::makeController() {
    auto store = std::make_unique<diary::DiaryStore>(VaultPlaces(m_settings).vaultURL());
    auto made = std::make_unique<MainWindowController>(m_settings, std::move(store),
                                                       std::exchange(m_firstScan, {}));
    made->onClosed = [] { QApplication::quit(); };
    made->onImportDrop = [this](const QList<QUrl>& files) {
        if (onImportDrop) onImportDrop(files);
    };
    made->onApplicationCommand = [this](Action action) { perform(action); };
    return made;
}

// For another vault. The day stays; a draft that can't be saved is kept, and where it can't be
// kept either the old vault stays. The old window goes later: what asked for another vault may be a
// sheet on it.
void AppDelegate::rebuildMainWindow() {
    const diary::MonthDay day = m_main->session().currentMonthDay();
    const Leaving left = m_main->session().leave();
    if (left == Leaving::Refused) {
        m_settings.setVaultPath(m_main->session().store().rootURL());
        if (m_settingsWindow) m_settingsWindow->rebuildContent();
        return;
    }
    m_main->retire();
    std::exchange(m_main, makeController()).release()->deleteLater();
    m_main->session().open(day, Focus::Editor);
    m_main->show();
    if (left == Leaving::Kept) m_main->alerts().flash(SessionNotice::KeptDraft);
}

// Whoever sends the signal won't wait for an alert: what can't be saved is kept.
void AppDelegate::terminate() {
    m_main->session().close();
    // Not quit(), which asks the window, and that would wait for its alert.
    QApplication::exit(0);
}

void AppDelegate::applicationStateChanged(Qt::ApplicationState state) {
    if (state == Qt::ApplicationActive) {
        m_dayChange->check();
        m_main->applicationBecameActive();
    } else {
        m_main->applicationResignedActive();
    }
}

void AppDelegate::followSystem() {
    m_system = std::make_unique<SystemAppearance>();
    m_system->onChanged = [this] {
        if (const auto isDark = m_system->isDark()) appearance::setSystemIsDark(*isDark);
        motion::setReduced(m_system->isMotionReduced().value_or(false));
        if (appearance::apply(m_settings)) restyleWindows();
    };
    m_system->start();
}

void AppDelegate::appearanceChanged() {
    if (appearance::apply(m_settings)) {
        restyleWindows();
    } else if (m_settingsWindow) {
        m_settingsWindow->rebuildContent();
    }
}

void AppDelegate::restyleWindows() {
    m_main->restyle();
    if (m_settingsWindow) m_settingsWindow->rebuildContent();
}

void AppDelegate::showSettings() {
    if (!m_settingsWindow) {
        m_settingsWindow = std::make_unique<SettingsWindowController>(m_settings);
        wireSettings();
    }
    m_settingsWindow->show();
}

void AppDelegate::wireSettings() {
    SettingsWindowController& window = *m_settingsWindow;
    window.onLanguageChanged = [this] { changeLanguage(); };
    window.onVaultChanged = [this] { rebuildMainWindow(); };
    window.onReadingChanged = [this] { m_main->readingChanged(); };
    window.onAppearanceChanged = [this] { appearanceChanged(); };
    window.hiddenPhotosStatus = [this] {
        return hiddenPhotosStatus ? hiddenPhotosStatus() : HiddenPhotosStatus();
    };
    window.onRestoreAllHiddenPhotos = [this] {
        if (onRestoreAllHiddenPhotos) onRestoreAllHiddenPhotos();
    };
    window.onImport = [this] { perform(Action::Import); };
    window.onImportRecords = [this] { perform(Action::ImportRecords); };
    window.onExport = [this] { perform(Action::Export); };
    window.onCheckForUpdates = [this] { perform(Action::CheckForUpdates); };
}

void AppDelegate::changeLanguage() {
    const Language language = localization::effectiveLanguage(m_settings);
    localization::install(language);
    fonts::setLanguage(language);
    m_main->retranslate();
    m_main->restyle();
}

void AppDelegate::maybeShowOnboarding() {
    if (!onboarding::isAsked(onboarding::circumstances(m_settings))) return;
    OnboardingSheet::show(m_main->window(), [this](VaultChoice choice) {
        onboarding::choose(m_settings, choice);
        rebuildMainWindow();
    });
}

void AppDelegate::perform(Action action) {
    const auto callIfSet = [](const std::function<void()>& command) {
        command ? command() : QApplication::beep();
    };
    switch (action) {
        case Action::About:
            return showAbout();
        case Action::Settings:
            return showSettings();
        case Action::CheckForUpdates:
            return callIfSet(onCheckForUpdates);
        case Action::Import:
            return callIfSet(onImport);
        case Action::ImportRecords:
            return callIfSet(onImportRecords);
        case Action::Export:
            return callIfSet(onExport);
        default:
            return;
    }
}

void AppDelegate::showAbout() {
    AlertSheet::show(m_main->window(),
                     QApplication::applicationName() + u' ' + QApplication::applicationVersion(),
                     qtTrId("AboutText"));
}

// What the first page doesn't need. Looking for the icon takes longer than reading the day.
void AppDelegate::finishStart() {
    if (!m_system) followSystem();
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("org.velmar.Velmar")));
    removeAbandonedTemporaries();
}

// What a crash left behind, here or on another machine's behalf, in its own time.
void AppDelegate::removeAbandonedTemporaries() const {
    diary::background::start(diary::background::Urgency::Utility,
                             [root = m_main->session().store().rootURL()] {
                                 diary::atomicfile::removeAbandonedTemporaries(root);
                             });
}

}  // namespace velmar
