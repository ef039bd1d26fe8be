#include "DiaryApp/Shell/DebugScenario.h"

#include <QtCore/QTimer>
#include <QtGui/QInputMethodEvent>
#include <QtWidgets/QApplication>

#include "DiaryApp/Editor/GrowingTextView.h"
#include "DiaryApp/Entry/EntryView.h"
#include "DiaryApp/Shell/MainWindow.h"
#include "DiaryApp/Shell/MainWindowController.h"
#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Foundation/FileError.h"

namespace velmar::debugscenario {

namespace {

const QString kScreenshot = QStringLiteral("DIARY_SCREENSHOT");
constexpr double kDefaultDelay = 0.5;

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

}  // namespace

bool isRequested(const Settings& settings) {
    return settings.environment(kScreenshot).has_value();
}

void run(const Settings& settings, MainWindowController& controller,
         std::function<void(int)> finish) {
    viewDay(settings, controller.session());
    viewYear(settings, controller.session());
    typeText(settings, controller.window()->entryView()->editor());
    scriptEditor(settings, controller.window()->entryView()->editor());
    const auto delay = settings.environment(QStringLiteral("DIARY_SCREENSHOT_DELAY"));
    bool isNumber = false;
    const double seconds = delay ? delay->toDouble(&isNumber) : 0;
    const QString path = settings.environment(kScreenshot).value_or(QString());
    QTimer::singleShot(static_cast<int>((isNumber ? seconds : kDefaultDelay) * 1000), &controller,
                       [&controller, path, finish = std::move(finish)] {
                           const QPixmap picture = controller.window()->grab();
                           finish(picture.save(path, "PNG") ? 0 : 1);
                       });
}

}  // namespace velmar::debugscenario
