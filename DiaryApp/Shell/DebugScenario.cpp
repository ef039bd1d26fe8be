#include "DiaryApp/Shell/DebugScenario.h"

#include <QtCore/QTimer>
#include <QtGui/QInputMethodEvent>
#include <QtWidgets/QApplication>
#include <algorithm>

#include "DiaryApp/Editor/GrowingTextView.h"
#include "DiaryApp/Entry/EntryView.h"
#include "DiaryApp/Navigation/YearOverviewController.h"
#include "DiaryApp/SettingsWindow/SettingsWindow.h"
#include "DiaryApp/SettingsWindow/SettingsWindowController.h"
#include "DiaryApp/Shell/AppDelegate.h"
#include "DiaryApp/Shell/MainWindow.h"
#include "DiaryApp/Shell/MainWindowController.h"
#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Foundation/FileError.h"

namespace velmar::debugscenario {

namespace {

const QString kScreenshot = QStringLiteral("DIARY_SCREENSHOT");
constexpr double kDefaultDelay = 0.5;

// DIARY_VIEW_SOURCE=1 and its like: only the exact text turns them on.
bool isOn(const Settings& settings, const char* name) {
    return settings.environment(QLatin1String(name)) == QStringLiteral("1");
}

void viewDay(const Settings& settings, WritingSession& session) {
    const auto name = settings.environment(QStringLiteral("DIARY_VIEW_DAY"));
    if (!name) return;
    const auto day = diary::MonthDay::parse(*name + QLatin1String(".md"));
    if (day) session.open(*day, Focus::Editor);
}

void viewYear(const Settings& settings, WritingSession& session) {
    const auto value = settings.environment(QStringLiteral("DIARY_VIEW_YEAR"));
    bool isNumber = false;
    const int year = value ? value->toInt(&isNumber) : 0;
    if (isNumber) session.pickYear(year, Focus::Editor);
}

void showViews(const Settings& settings, AppDelegate& application) {
    MainWindowController& controller = *application.mainWindowController();
    if (settings.environment(QStringLiteral("DIARY_VIEW_ALL"))) {
        controller.perform(Action::AllYears);
    }
    const bool showsSource = controller.session().showSource();
    if (isOn(settings, "DIARY_VIEW_SOURCE") && !showsSource) {
        controller.perform(Action::ToggleSource);
    }
    if (isOn(settings, "DIARY_VIEW_SETTINGS")) application.showSettings();
    if (isOn(settings, "DIARY_VIEW_SEARCH")) controller.perform(Action::Find);
    if (isOn(settings, "DIARY_FULLSCREEN")) controller.window()->showFullScreen();
    if (isOn(settings, "DIARY_VIEW_YEARCAL")) controller.showYearOverview();
}

// The palette that the user would choose, in the mode in force: the forced one of a scripted run
// goes above it, as it does above all settings.
void switchPalette(Settings& settings, AppDelegate& application) {
    const auto name = settings.environment(QStringLiteral("DIARY_SWITCH_PALETTE"));
    const auto palette = diary::palette::parse(name.value_or(QString()));
    if (!palette) return;
    if (diary::palette::isDark(*palette)) {
        settings.setDarkPalette(*palette);
        settings.setAppearanceMode(diary::AppearanceMode::dark);
    } else {
        settings.setLightPalette(*palette);
        settings.setAppearanceMode(diary::AppearanceMode::light);
    }
    application.appearanceChanged();
}

// As an input method commits it: the road that any text may take, in any script.
void typeText(const Settings& settings, GrowingTextView* editor) {
    const auto text = settings.environment(QStringLiteral("DIARY_TYPE_TEXT"));
    if (!text) return;
    QInputMethodEvent typed;
    typed.setCommitString(*text);
    QApplication::sendEvent(editor, &typed);
}

// «bold» runs the command of that name; all else is typed.
void runScript(const QString& script, GrowingTextView* editor) {
    for (qsizetype at = 0; at < script.size();) {
        const qsizetype open = script.indexOf(u'«', at);
        const qsizetype close = open < 0 ? -1 : script.indexOf(u'»', open);
        if (close < 0) return editor->type(script.mid(at));
        editor->type(script.mid(at, open - at));
        editor->command(QStringView(script).sliced(open + 1, close - open - 1));
        at = close + 1;
    }
}

void scriptEditor(const Settings& settings, GrowingTextView* editor) {
    const auto script = settings.environment(QStringLiteral("DIARY_EDITOR_SCRIPT"));
    if (!script) return;
    runScript(*script, editor);
    const auto out = settings.environment(QStringLiteral("DIARY_EDITOR_OUT"));
    if (!out) return;
    try {
        diary::atomicfile::write(*out, editor->draft().toUtf8());
    } catch (const diary::FileError& error) {
        qWarning("%s: %s", qUtf8Printable(error.path()), error.what());
    }
}

// The window that has the keys; where none has, as on a display nobody looks at, the one that
// came last.
QWidget* keyWindow(AppDelegate& application) {
    if (QWidget* active = QApplication::activeWindow()) return active;
    MainWindowController& controller = *application.mainWindowController();
    const YearOverviewController* overview = controller.yearOverviewControllerIfMade();
    if (overview != nullptr && overview->isVisible()) return overview->window();
    return controller.window();
}

bool takePictures(AppDelegate& application, const QString& path) {
    bool isWritten = keyWindow(application)->grab().save(path, "PNG");
    const SettingsWindowController* settings = application.settingsWindowController();
    if (settings != nullptr && settings->window()->isVisible()) {
        const QString beside = path + QLatin1String(".settings.png");
        isWritten = settings->window()->grab().save(beside, "PNG") && isWritten;
    }
    return isWritten;
}

}  // namespace

bool isRequested(const Settings& settings) {
    return settings.environment(kScreenshot).has_value();
}

void run(Settings& settings, AppDelegate& application, std::function<void(int)> finish) {
    MainWindowController& controller = *application.mainWindowController();
    viewDay(settings, controller.session());
    viewYear(settings, controller.session());
    showViews(settings, application);
    switchPalette(settings, application);
    typeText(settings, controller.window()->entryView()->editor());
    scriptEditor(settings, controller.window()->entryView()->editor());
    const auto delay = settings.environment(QStringLiteral("DIARY_SCREENSHOT_DELAY"));
    bool isNumber = false;
    const double seconds = delay ? delay->toDouble(&isNumber) : 0;
    const QString path = settings.environment(kScreenshot).value_or(QString());
    const double wait = isNumber ? std::max(seconds, 0.0) : kDefaultDelay;
    QTimer::singleShot(static_cast<int>(wait * 1000), &application,
                       [&application, path, finish = std::move(finish)] {
                           finish(takePictures(application, path) ? 0 : 1);
                       });
}

}  // namespace velmar::debugscenario
