// What a keystroke and a save cost beside the page: the sidebar and the year rail with 50 years of
// 2 kB each, from the state to the painted window.
#include <benchmark/benchmark.h>

#include <QtWidgets/QApplication>

#include "DiaryApp/Appearance/Appearance.h"
#include "DiaryApp/Navigation/RailModel.h"
#include "DiaryApp/Navigation/SidebarModel.h"
#include "DiaryApp/Navigation/SidebarView.h"
#include "DiaryApp/Navigation/YearOverviewModel.h"
#include "DiaryApp/Navigation/YearOverviewView.h"
#include "DiaryApp/Navigation/YearRailView.h"

namespace {

using namespace velmar;

constexpr int kYears = 50;

SidebarState sidebarState(int day) {
    SidebarState state;
    state.day = {11, day};
    state.viewedYear = 2026;
    state.today = {2026, 11, 21};
    for (int each = 1; each < 31; each += 2) state.daysWithContent.insert(each);
    state.overview = diary::Overview{214 + day, 2014, 231};
    return state;
}

RailState railState() {
    const QString body = QStringLiteral(
                             "Woke at seven to **white roofs**. The kettle took its time, so I "
                             "stood at the window.\n- [ ] Find the good gloves\n"
                             "雨后的街道很*安静*，只有运河的水声。\n")
                             .repeated(14);
    RailState state;
    state.day = {11, 21};
    state.viewedYear = 2026;
    state.currentYear = 2026;
    state.draft = body;
    for (int i = 1; i < kYears; ++i) state.pastEntries.push_back({2026 - i, body});
    return state;
}

// Another day, so that the whole grid changes.
void renderSidebar(benchmark::State& state) {
    SidebarView view;
    view.resize(268, 740);
    view.show();
    int turn = 0;
    for (auto _ : state) {
        view.update(sidebarModel(sidebarState(1 + ++turn % 30)));
        QCoreApplication::processEvents();
    }
}

// A keystroke: the draft grows and shrinks by a character.
void renderRail(benchmark::State& state) {
    YearRailView view;
    view.resize(252, 740);
    view.show();
    RailState rail = railState();
    bool isLonger = false;
    for (auto _ : state) {
        isLonger = !isLonger;
        if (isLonger) {
            rail.draft.prepend(u'x');
        } else {
            rail.draft.remove(0, 1);
        }
        view.update(railModel(rail));
        QCoreApplication::processEvents();
    }
}

// The share of the model alone.
void railModelOnly(benchmark::State& state) {
    const RailState rail = railState();
    for (auto _ : state) benchmark::DoNotOptimize(railModel(rail));
}

// Another day with as many years.
void renderRailOfAnotherDay(benchmark::State& state) {
    YearRailView view;
    view.resize(252, 740);
    view.show();
    const RailState first = railState();
    RailState second = railState();
    for (PastEntry& entry : second.pastEntries) {
        entry.year -= 1;
        entry.body.prepend(u'x');
    }
    bool isFirst = false;
    for (auto _ : state) {
        isFirst = !isFirst;
        view.update(railModel(isFirst ? first : second));
        QCoreApplication::processEvents();
    }
}

void renderYearCalendar(benchmark::State& state) {
    YearOverviewView view;
    view.show();
    QHash<diary::MonthDay, int> counts;
    for (int i = 0; i < 366; i += 2) counts.insert(diary::MonthDay{1, 1}.advanced(i), i % 5);
    for (auto _ : state) {
        view.update(yearOverviewModel(counts, {214, 2014, 231}, Language::en));
        QCoreApplication::processEvents();
    }
}

}  // namespace

BENCHMARK(renderSidebar)->Unit(benchmark::kMillisecond);
BENCHMARK(renderRail)->Unit(benchmark::kMillisecond);
BENCHMARK(railModelOnly)->Unit(benchmark::kMillisecond);
BENCHMARK(renderRailOfAnotherDay)->Unit(benchmark::kMillisecond);
BENCHMARK(renderYearCalendar)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    velmar::appearance::prepare();
    velmar::localization::install(velmar::Language::en);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
