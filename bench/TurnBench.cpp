// The longest time for which the main thread is away from its event loop while the window is used
// over a full vault: the search and its hits, a change from outside, the year calendar. The first
// round is a line of its own, since it makes what the others find made.
//   turn_bench [rounds]
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtGui/QKeyEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <algorithm>
#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "DiaryApp/Appearance/Appearance.h"
#include "DiaryApp/Entry/EntryView.h"
#include "DiaryApp/Navigation/YearOverviewController.h"
#include "DiaryApp/Navigation/YearRailView.h"
#include "DiaryApp/Search/SearchPaneView.h"
#include "DiaryApp/Settings/Localization.h"
#include "DiaryApp/Shell/MainWindow.h"
#include "DiaryApp/Shell/MainWindowController.h"
#include "bench/BenchVault.h"
#include "bench/TurnClock.h"

namespace {

using namespace velmar;
using namespace std::chrono_literals;
using bench::Turns;

constexpr int kHits = 12;
constexpr int kMatches = 3;

class TurnBench {
public:
    explicit TurnBench(Settings& settings) : m_settings(settings) {
        appearance::prepare();
        localization::install(Language::en);
        appearance::apply(m_settings);
        diary::bench::writeVault(m_vault.path());
        writeLongDay();
    }

    // The search is asked for as soon as the window is there, with the vault still unknown.
    void start() {
        m_controller = std::make_unique<MainWindowController>(
            m_settings, std::make_unique<diary::DiaryStore>(m_vault.path()));
        m_controller->show();
        while (!m_controller->window()->rail()->isVisible()) QCoreApplication::processEvents();
        measure(
            "the columns' first paint", [] {}, 1ms);
        measure("search right at the start", [this] { m_controller->perform(Action::Find); });
        bench::turnsOf([this] { m_controller->search().exitSearch(); }, 1000ms);
    }

    // What a user does, one after the other; each is told with all that follows from it.
    void round() {
        measure("open the search", [this] { m_controller->perform(Action::Find); });
        measure("type a word, 500 hits", [this] { type(QStringLiteral("canal")); });
        for (int i = 0; i < kHits; ++i) {
            measure("step to the next hit", [this] { press(Qt::Key_Down); });
        }
        for (int i = 0; i < kMatches; ++i) {
            measure("next match", [this] { m_controller->perform(Action::FindNext); });
        }
        measure("another day changed", [this] { changeOutside({6, 1}); });
        measure("every day changed", [this] { changeAllOutside(); });
        measure("the day in view changed",
                [this] { changeOutside(m_controller->session().currentMonthDay()); });
        measure("year calendar", [this] { m_controller->perform(Action::YearCalendar); });
        measure("all years of a hit", [this] { press(Qt::Key_Return, Qt::ControlModifier); });
        measure("a hit in all years", [this] { press(Qt::Key_Down); });
        measure("an old hit in all years", [this] { m_controller->search().select(lastHit()); });
        measure("back to one year", [this] { m_controller->perform(Action::OneYear); });
        measure("empty the search", [this] { m_controller->search().escape(); });
        measure("search a day of 50 kB", [this] { type(QStringLiteral("zanzibar")); });
        bench::turnsOf([this] { m_controller->search().escape(); }, 300ms);
        measure("leave the search", [this] { m_controller->search().exitSearch(); });
        m_controller->yearOverviewControllerIfMade()->close();
        bench::turnsOf([this] { m_controller->perform(Action::Today); }, 300ms);
    }

    void print(const char* title) {
        std::printf("%-26s %9s %9s %9s %6s\n", title, "median", "longest", "in all", "times");
        for (const std::string& name : m_order) {
            std::vector<Turns>& all = m_turns[name];
            std::ranges::sort(all, {}, &Turns::longest);
            std::vector<double> sums;
            sums.reserve(all.size());
            for (const Turns& each : all) sums.push_back(each.all);
            std::ranges::sort(sums);
            std::printf("%-26s %9.1f %9.1f %9.1f %6zu\n", name.c_str(), all[all.size() / 2].longest,
                        all.back().longest, sums[sums.size() / 2], all.size());
        }
        std::fflush(stdout);
        m_turns.clear();
        m_order.clear();
    }

private:
    void measure(const std::string& name, const std::function<void()>& action,
                 std::chrono::milliseconds lasting = 700ms) {
        if (!m_turns.contains(name)) m_order.push_back(name);
        m_turns[name].push_back(bench::turnsOf(action, lasting));
    }

    // As the system hands a key over: to the window, which leads it to what has the focus.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {}) {
        QWindow* window = m_controller->window()->windowHandle();
        if (m_controller->search().isOpen()) {
            m_controller->window()->searchPane()->focusField(FieldCaret::AtEnd);
        }
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QCoreApplication::postEvent(window, new QKeyEvent(type, key, modifiers, text));
        }
    }
    void type(const QString& text) {
        for (const QChar& letter : text) {
            press(static_cast<Qt::Key>(letter.toUpper().unicode()), {}, letter);
        }
    }

    [[nodiscard]] int lastHit() const {
        const auto& session = m_controller->search().session();
        if (!session || !session->result) return 0;
        return static_cast<int>(session->result->hits.size()) - 1;
    }

    // One year that alone is as long as all fifty of another day, with a word of its own at its
    // end.
    void writeLongDay() {
        QString text = diary::bench::dayFile(1, 50000);
        text.replace(QLatin1String("# 01-01"), QLatin1String("# 03-07"));
        QFile file(m_vault.path() + QLatin1String("/03-07.md"));
        if (file.open(QIODevice::WriteOnly)) file.write(text.toUtf8() + "\nzanzibar\n");
    }

    void changeOutside(diary::MonthDay day) {
        QFile file(m_vault.path() + u'/' + day.fileName());
        if (file.open(QIODevice::Append)) file.write("\nA line from elsewhere.\n");
    }

    // By another process, as what synchronises the vault is: the bench's own time doesn't count.
    void changeAllOutside() {
        QProcess::startDetached(
            QStringLiteral("sh"),
            {QStringLiteral("-c"),
             QStringLiteral("for f in \"$1\"/*.md; do echo more >> \"$f\"; done"),
             QStringLiteral("sh"), m_vault.path()});
    }

    QTemporaryDir m_vault;
    Settings& m_settings;
    std::unique_ptr<MainWindowController> m_controller;
    std::map<std::string, std::vector<Turns>> m_turns;
    std::vector<std::string> m_order;
};

}  // namespace

int main(int argc, char** argv) {
    // The user's settings and kept texts are neither read nor written.
    const QTemporaryDir home;
    for (const char* folder : {"HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME"}) {
        qputenv(folder, home.path().toUtf8());
    }
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 5;
    TurnBench bench(velmar::Settings::shared());
    bench.start();
    bench.round();
    bench.print("first time, ms");
    for (int i = 0; i < rounds; ++i) bench.round();
    bench.print("later, ms");
    return 0;
}
