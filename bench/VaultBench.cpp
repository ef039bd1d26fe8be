// The vault's speed: parsing and editing one large file, the overview of a large vault against
// `cat` of the same files in the same run, and opening a day.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QTemporaryDir>
#include <string>
#include <vector>

#include "DiaryApp/Session/WritingSession.h"
#include "DiaryKit/Vault/ArchiveSnapshot.h"
#include "DiaryKit/Vault/YearSectionParser.h"
#include "bench/BenchVault.h"

extern char** environ;

namespace {

using diary::MonthDay;
namespace YearSectionParser = diary::YearSectionParser;

const QString& largeFile() {
    static const QString text = diary::bench::dayFile(100, 2000);
    return text;
}

const QString& vault() {
    static const QTemporaryDir folder;
    static const QString path = [] {
        diary::bench::writeVault(folder.path());
        return folder.path();
    }();
    return path;
}

void sections200kB(benchmark::State& state) {
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(YearSectionParser::sections(largeFile()));
    }
    state.SetBytesProcessed(state.iterations() * largeFile().size());
}
BENCHMARK(sections200kB)->Unit(benchmark::kMicrosecond);

void sectionBodies200kB(benchmark::State& state) {
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(YearSectionParser::sectionBodies(largeFile()));
    }
}
BENCHMARK(sectionBodies200kB)->Unit(benchmark::kMicrosecond);

void replacingBody200kB(benchmark::State& state) {
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(
            YearSectionParser::replacingBody(u"a new text", 2026, MonthDay{1, 1}, largeFile()));
    }
}
BENCHMARK(replacingBody200kB)->Unit(benchmark::kMicrosecond);

// The yardstick: reading the same files by cat, its own start included.
void catOfAllFiles(benchmark::State& state) {
    std::vector<std::string> paths{"cat"};
    for (const MonthDay& day : diary::dayfile::dayFiles(vault())) {
        paths.push_back(diary::dayfile::path(vault(), day).toStdString());
    }
    std::vector<char*> arguments;
    for (std::string& path : paths) arguments.push_back(path.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    for ([[maybe_unused]] auto round : state) {
        pid_t pid = 0;
        if (posix_spawnp(&pid, "cat", &actions, nullptr, arguments.data(), environ) != 0) {
            state.SkipWithError("cat can't be started");
            break;
        }
        waitpid(pid, nullptr, 0);
    }
    posix_spawn_file_actions_destroy(&actions);
}
BENCHMARK(catOfAllFiles)->Unit(benchmark::kMillisecond)->UseRealTime();

void firstSnapshot(benchmark::State& state) {
    for ([[maybe_unused]] auto round : state) {
        const diary::ArchiveScan scan = diary::scanArchive(vault(), {}, {});
        if (scan.snapshot.overview.daysWithContent != MonthDay::cycleLength) {
            state.SkipWithError("the scan missed files");
        }
    }
}
BENCHMARK(firstSnapshot)->Unit(benchmark::kMillisecond)->UseRealTime();

void cachedSnapshot(benchmark::State& state) {
    const diary::YearCache cache = diary::scanArchive(vault(), {}, {}).fresh;
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(diary::scanArchive(vault(), cache, {}));
    }
}
BENCHMARK(cachedSnapshot)->Unit(benchmark::kMillisecond)->UseRealTime();

void openDay(benchmark::State& state) {
    diary::DiaryStore store(vault());
    velmar::WritingSession session(store, {}, {});
    MonthDay day{1, 1};
    for ([[maybe_unused]] auto round : state) {
        session.open(day, velmar::Focus::Unchanged);
        day = day.advanced(1);
    }
}
BENCHMARK(openDay)->Unit(benchmark::kMicrosecond);

void saveDay(benchmark::State& state) {
    const QTemporaryDir folder;
    diary::DiaryStore store(folder.path());
    velmar::WritingSession session(store, {}, {});
    session.open(MonthDay{1, 1}, velmar::Focus::Unchanged);
    int round = 0;
    for ([[maybe_unused]] auto one : state) {
        session.draftChanged(QStringLiteral("words ") + QString::number(++round));
        session.flushSaveIfDirty();
    }
}
BENCHMARK(saveDay)->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
