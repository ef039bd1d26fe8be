#include "DiaryApp/Shell/AppDelegate.h"

#include <QtCore/QTimer>
#include <QtGui/QIcon>
#include <QtWidgets/QApplication>
#include <chrono>

#include "DiaryApp/Appearance/Appearance.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Settings/Formatters.h"
#include "DiaryApp/Settings/Localization.h"
#include "DiaryApp/Settings/VaultPlaces.h"
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

AppDelegate::AppDelegate(Settings& settings) : m_settings(settings) {}

AppDelegate::~AppDelegate() = default;

void AppDelegate::warmUp(const Settings& settings) {
    Formatters::warmUp(localization::effectiveLanguage(settings));
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
    QTimer::singleShot(kAfterFirstPaint, this, [this] { finishStart(); });
    if (isScripted) {
        debugscenario::run(m_settings, *m_main, [this](int code) {
            m_main->session().flushSaveIfDirty();
            const bool isSaved = !m_main->session().isDirty();
            m_main->session().close();
            QApplication::exit(isSaved ? code : 1);
        });
    }
}

void AppDelegate::makeWindow() {
    auto store = std::make_unique<diary::DiaryStore>(VaultPlaces(m_settings).vaultURL());
    m_main = std::make_unique<MainWindowController>(m_settings, std::move(store));
    m_main->onClosed = [] { QApplication::quit(); };
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

// What the first page doesn't need. Looking for the icon takes longer than reading the day.
void AppDelegate::finishStart() {
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
