#include "DiaryApp/Shell/DebugScenario.h"

#include <QtCore/QTimer>
#include <QtGui/QInputMethodEvent>
#include <QtWidgets/QApplication>

#include "DiaryApp/Editor/DraftEditor.h"
#include "DiaryApp/Entry/EntryView.h"
#include "DiaryApp/Shell/MainWindow.h"
#include "DiaryApp/Shell/MainWindowController.h"

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
void typeText(const Settings& settings, DraftEditor* editor) {
    const auto text = settings.environment(QStringLiteral("DIARY_TYPE_TEXT"));
    if (!text) return;
    QInputMethodEvent typed;
    typed.setCommitString(*text);
    QApplication::sendEvent(editor, &typed);
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
