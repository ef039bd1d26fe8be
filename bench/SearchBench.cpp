// The search's speed over 366 files of 50 years, each kind of query beside `rg -i --count-matches`
// of the same words over the same folder. The two take turns, so a busy machine slows both.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <climits>
#include <string>
#include <thread>
#include <vector>

#include "DiaryKit/Files/FileCoordinator.h"
#include "DiaryKit/Vault/DiaryStore.h"
#include "bench/BenchVault.h"

extern char** environ;

namespace {

using diary::MonthDay;
using diary::SearchQuery;
using diary::SearchResult;
using Clock = std::chrono::steady_clock;

// Every file holds all three of these, and no section more than one.
const QString kApart[] = {QStringLiteral("harbour"), QStringLiteral("Orchard"),
                          QStringLiteral("chimney")};

// Puts words into the file of which the query kinds know how often they occur.
void sow(const QString& folder, const MonthDay& day) {
    QFile file(diary::dayfile::path(folder, day));
    if (!file.open(QIODevice::ReadWrite)) return;
    QString text = QString::fromUtf8(file.readAll());
    int number = day.ordinalInCycle();
    for (qsizetype at = text.indexOf(QLatin1String("\n## ")); at >= 0;
         at = text.indexOf(QLatin1String("\n## "), at + 1)) {
        text.insert(at, u' ' + kApart[number++ % 3] + u'\n');
        at += kApart[0].size() + 2;
    }
    if (day.day == 17 && day.month % 4 == 0) {
        text +=
            QStringLiteral("A Skylark over the quince tree.\nÜberfahrt nach Süden. 彗星を見た。\n");
    }
    file.resize(0);
    file.write(text.toUtf8());
}

const QString& vault() {
    static const QTemporaryDir folder;
    static const QString path = [] {
        diary::bench::writeVault(folder.path());
        MonthDay day{1, 1};
        for (int i = 0; i < MonthDay::cycleLength; ++i, day = day.advanced(1)) {
            sow(folder.path(), day);
        }
        return folder.path();
    }();
    return path;
}

struct Kind {
    const char* name;
    QString line;
    int limit = diary::DiaryStore::searchLimit;
};

double milliseconds(Clock::duration time) {
    return std::chrono::duration<double, std::milli>(time).count();
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// One run of rg over the vault, its own start included; whether it could be started.
bool countByRg(const QStringList& words) {
    std::vector<std::string> texts{"rg", "--no-config", "-i", "--count-matches"};
    for (const QString& word : words) {
        texts.emplace_back("-e");
        texts.push_back(word.toStdString());
    }
    texts.push_back(vault().toStdString());
    std::vector<char*> arguments;
    for (std::string& text : texts) arguments.push_back(text.data());
    arguments.push_back(nullptr);
    const std::string output = vault().toStdString() + "/.counts";
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, output.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                     0600);
    pid_t pid = 0;
    const int error = posix_spawnp(&pid, "rg", &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) return false;
    waitpid(pid, nullptr, 0);
    return true;
}

void searches(benchmark::State& state, const Kind& kind) {
    const SearchQuery query = SearchQuery::parsing(kind.line);
    // rg has no dates: for those it counts the lines that carry them.
    const QStringList words = query.terms.isEmpty() ? QStringList{kind.line} : query.terms;
    std::vector<double> ours;
    std::vector<double> theirs;
    SearchResult result;
    for ([[maybe_unused]] auto round : state) {
        const Clock::time_point start = Clock::now();
        if (!countByRg(words)) {
            state.SkipWithError("rg can't be started");
            return;
        }
        const Clock::time_point between = Clock::now();
        result = diary::DiaryStore::search(vault(), query, kind.limit, {});
        const Clock::duration time = Clock::now() - between;
        theirs.push_back(milliseconds(between - start));
        ours.push_back(milliseconds(time));
        state.SetIterationTime(std::chrono::duration<double>(time).count());
    }
    state.counters["hits"] = static_cast<double>(result.hits.size());
    state.counters["median_ms"] = median(ours);
    state.counters["rg_ms"] = median(theirs);
    state.counters["of_rg"] = median(ours) / median(theirs);
}

// What holding the vault's lock costs a search that reads every file: once for each.
void coordinationOfAllFiles(benchmark::State& state) {
    const diary::FileCoordinator coordinator(vault());
    for ([[maybe_unused]] auto round : state) {
        for (int i = 0; i < MonthDay::cycleLength; ++i) coordinator.coordinateReading([] {});
    }
}
BENCHMARK(coordinationOfAllFiles)->Unit(benchmark::kMillisecond);

// How long a writer waits for the vault while searches follow each other without a pause.
void writerBesideSearches(benchmark::State& state) {
    const diary::FileCoordinator coordinator(vault());
    std::atomic<bool> isDone = false;
    std::thread searcher([&] {
        const SearchQuery query = SearchQuery::parsing(u"zeppelin");
        while (!isDone) {
            benchmark::DoNotOptimize(diary::DiaryStore::search(vault(), query, 500, {}));
        }
    });
    std::vector<double> waits;
    for ([[maybe_unused]] auto round : state) {
        std::this_thread::sleep_for(std::chrono::milliseconds(3));
        const Clock::time_point start = Clock::now();
        coordinator.coordinateWriting([] {});
        const Clock::duration time = Clock::now() - start;
        waits.push_back(milliseconds(time));
        state.SetIterationTime(std::chrono::duration<double>(time).count());
    }
    isDone = true;
    searcher.join();
    state.counters["median_ms"] = median(waits);
    state.counters["longest_ms"] = *std::ranges::max_element(waits);
}
BENCHMARK(writerBesideSearches)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(500);

std::vector<Kind> kinds() {
    const QString apart = kApart[0] + u' ' + kApart[1] + u' ' + kApart[2];
    return {
        {"nowhere", QStringLiteral("zeppelin")},
        {"rareWord", QStringLiteral("quince")},
        {"rareWordWithKAndS", QStringLiteral("skylark")},
        {"rareUmlaut", QStringLiteral("überfahrt")},
        {"rareCjk", QStringLiteral("彗星")},
        {"oneLetter", QStringLiteral("z")},
        {"commonWord", QStringLiteral("kettle")},
        {"commonCjk", QStringLiteral("友だち")},
        {"threeTerms", QStringLiteral("kettle Canal lemon")},
        {"threeTermsApart", apart},
        {"year", QStringLiteral("2024")},
        {"yearAndWord", QStringLiteral("2024 kettle")},
        {"commonWordWithoutLimit", QStringLiteral("kettle"), INT_MAX},
    };
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    for (const Kind& kind : kinds()) {
        benchmark::RegisterBenchmark(kind.name,
                                     [kind](benchmark::State& state) { searches(state, kind); })
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime();
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
