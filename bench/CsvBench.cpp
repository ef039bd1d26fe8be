// Reading a CSV export of Daylio, in processor time: the cells alone, all rows at once, and the
// entries. Time for each byte should not depend on the size.
#include <benchmark/benchmark.h>

#include <QtCore/QHash>

#include "DiaryKit/AppSources/CSV.h"
#include "DiaryKit/AppSources/DaylioSource.h"

namespace {

constexpr int64_t kMegabyte = 1'000'000;

// All of ASCII, so that a unit is a byte of the file.
const QString& exported(int64_t megabytes) {
    static QHash<int64_t, QString> texts;
    QString& text = texts[megabytes];
    if (!text.isEmpty()) return text;
    const QString row = QStringLiteral(
        "2021-03-%1,March %1,Thursday,8:%1 pm,rad,\"reading | a walk\",\"A title\",\"Woke at seven "
        "to \"\"white roofs\"\" and walked along the canal;\nthe kettle took its time, so I read "
        "two pages.\"\n");
    text = QStringLiteral("full_date,date,weekday,time,mood,activities,note_title,note\n");
    for (int i = 0; text.size() < megabytes * kMegabyte; ++i) text += row.arg(10 + i % 20);
    return text;
}

void setSpeed(benchmark::State& state) {
    state.SetBytesProcessed(state.iterations() * state.range(0) * kMegabyte);
}

void cells(benchmark::State& state) {
    const QString& text = exported(state.range(0));
    for ([[maybe_unused]] auto round : state) {
        diary::CSV::Reader reader(text);
        while (reader.next()) benchmark::DoNotOptimize(reader.cell().size());
    }
    setSpeed(state);
}
BENCHMARK(cells)->Arg(5)->Arg(50)->Unit(benchmark::kMillisecond);

void rows(benchmark::State& state) {
    const QString& text = exported(state.range(0));
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(diary::CSV::parse(text));
    }
    setSpeed(state);
}
BENCHMARK(rows)->Arg(5)->Arg(50)->Unit(benchmark::kMillisecond);

void daylioEntries(benchmark::State& state) {
    const QString& text = exported(state.range(0));
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(diary::DaylioSource::readCSV(text, QString(), {}));
    }
    setSpeed(state);
}
BENCHMARK(daylioEntries)->Arg(5)->Arg(50)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
