// Planning an import of 20,000 entries over all days and ten years: into an empty vault, again
// after it was written, and with half of the entries retouched since.
#include <benchmark/benchmark.h>

#include "tests/kit/importplan/Entries.h"

namespace {

using namespace diary;

constexpr int kEntries = 20000;

QString body(int number) {
    const QString sentence =
        number % 3 == 2
            ? QStringLiteral("今天下雨，在家里读书，晚上和妈妈通了电话，说起第 %1 棵柠檬树。")
            : QStringLiteral("Woke at seven to %1 white roofs and walked by the canal. ");
    return (sentence.arg(number) + QStringLiteral("\n\n# Later\n\nThe kettle took its time."))
        .repeated(1 + number % 5);
}

const ImportBatch& batch() {
    static const ImportBatch all = [] {
        std::vector<ImportedEntry> entries;
        for (int i = 0; i < kEntries; ++i) {
            const MonthDay day = MonthDay{1, 1}.advanced(i % MonthDay::cycleLength);
            entries.push_back({.day = {2015 + i / MonthDay::cycleLength % 10, day.month, day.day},
                               .time = {{i % 24, i % 60}},
                               .body = body(i),
                               .place = QStringLiteral("Hangzhou")});
        }
        return test::batchOf(std::move(entries));
    }();
    return all;
}

struct Vault {
    test::Files files;
    std::vector<ImportRecord> history;
};

const Vault& importedVault() {
    static const Vault vault = [] {
        Vault made;
        made.history.push_back(
            test::written(test::planOn({}, batch()), batch().source, made.files));
        return made;
    }();
    return vault;
}

void planIntoEmptyVault(benchmark::State& state) {
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(test::planOn({}, batch()));
    }
}
BENCHMARK(planIntoEmptyVault)->Unit(benchmark::kMillisecond);

void planAgain(benchmark::State& state) {
    const Vault& vault = importedVault();
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(test::planOn(vault.files, batch(), vault.history));
    }
}
BENCHMARK(planAgain)->Unit(benchmark::kMillisecond);

void planAgainAfterEdits(benchmark::State& state) {
    Vault vault = importedVault();
    for (auto& [day, text] : vault.files) {
        text.replace(QLatin1String("### 1"), QLatin1String("### At 1"));
        text.replace(QLatin1String("kettle"), QLatin1String("pot"));
    }
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(test::planOn(vault.files, batch(), vault.history));
    }
}
BENCHMARK(planAgainAfterEdits)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
