// Date lines and the split, in processor time and in time on the wall. Lines that fail at their
// first character, mixed lines in numbers that tell whether the time is linear, texts of 20 MB, and
// the patterns in ICU as the yardstick.
#include <benchmark/benchmark.h>

#include <vector>

#include "DiaryKit/DatedText/DateLine.h"
#include "DiaryKit/DatedText/DatedTextSplit.h"
#include "DiaryKit/FolderSources/DatedTextSource.h"
#include "tests/kit/datedtext/PatternDateLine.h"
#include "tests/kit/datedtext/RandomDateLines.h"

namespace {

using namespace diary;

void countLines(benchmark::State& state, int64_t lines) {
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * lines);
}

// Lines of running text, none of which begins like a date.
void failingAtFirstCharacter(benchmark::State& state) {
    const QStringList lines = {
        QStringLiteral("“Woke at seven to white roofs,” she said, and went back to bed."),
        QStringLiteral("今天下雨，在家里读书，晚上和妈妈通了电话，说起院子里的柠檬树。"),
        QStringLiteral("- bread, ink, the blue thread"),
        QStringLiteral("　　夕方から雪になった。")};
    for ([[maybe_unused]] auto round : state) {
        for (const QString& line : lines) benchmark::DoNotOptimize(DateLine::match(line));
    }
    countLines(state, lines.size());
}
BENCHMARK(failingAtFirstCharacter);

// Lines that begin with a letter, so that weekdays and months are looked for.
void failingAtTheirWord(benchmark::State& state) {
    const QStringList lines = {
        QStringLiteral("Woke at seven to white roofs and walked along the canal before work."),
        QStringLiteral("Monday was no better than Sunday, and Tuesday will not be either."),
        QStringLiteral("May be it rains in September; the kettle takes its time."),
        QStringLiteral("12 eggs, 3 loaves of bread")};
    for ([[maybe_unused]] auto round : state) {
        for (const QString& line : lines) benchmark::DoNotOptimize(DateLine::match(line));
    }
    countLines(state, lines.size());
}
BENCHMARK(failingAtTheirWord);

const QStringList& mixedLines() {
    static const QStringList lines = [] {
        constexpr int kLines = 1'000'000;
        test::RandomDateLines random(1);
        QStringList made;
        made.reserve(kLines);
        for (int i = 0; i < kLines; ++i) {
            made << (i % 2 == 0 ? random.line() : random.plainLine().repeated(8));
        }
        return made;
    }();
    return lines;
}

void mixed(benchmark::State& state) {
    const QStringList lines = mixedLines().first(state.range(0));
    for ([[maybe_unused]] auto round : state) {
        for (const QString& line : lines) benchmark::DoNotOptimize(DateLine::match(line));
    }
    countLines(state, lines.size());
}
BENCHMARK(mixed)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

void mixedByPatterns(benchmark::State& state) {
    const test::PatternDateLine patterns;
    const QStringList lines = mixedLines().first(state.range(0));
    for ([[maybe_unused]] auto round : state) {
        for (const QString& line : lines) benchmark::DoNotOptimize(patterns.match(line));
    }
    countLines(state, lines.size());
}
BENCHMARK(mixedByPatterns)->Arg(10'000)->Unit(benchmark::kMillisecond);

constexpr qsizetype kUnits = 10'000'000;

// 20 MB in memory: entries of some lines below their date.
QString diaryText() {
    QString text;
    text.reserve(kUnits + 1000);
    for (int i = 0; text.size() < kUnits; ++i) {
        text += QStringLiteral("%1-%2-%3 rain Home\n")
                    .arg(1900 + i % 200)
                    .arg(1 + i % 12)
                    .arg(1 + i % 28);
        text += QStringLiteral("Woke at seven to white roofs and walked along the canal.\n")
                    .repeated(3);
        text += QStringLiteral("今天下雨，在家里读书，晚上和妈妈通了电话。\n\n");
    }
    return text;
}

// The same size on lines that all begin with a date of unsettled order, with a long text behind.
QString ambiguousText() {
    QString text;
    for (int i = 0; text.size() < kUnits; ++i) {
        text += QStringLiteral("%1/%2/2021 a rest of more than thirty characters is writing, é.\n")
                    .arg(1 + i % 12)
                    .arg(1 + i % 12);
        text += QStringLiteral("3/4/2021 x\n");
    }
    return text;
}

// The same size without a line end, and behind one date.
QString oneLine() {
    return QStringLiteral("2021-03-04 ") + QStringLiteral("今e\u0301 ").repeated(kUnits / 4);
}

void splitText(benchmark::State& state, QString (*make)()) {
    const QString text = make();
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(DatedTextSplit::split(text, QStringLiteral("x"), {}));
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * 2 * text.size());
}
BENCHMARK_CAPTURE(splitText, diary, diaryText)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(splitText, datesOnly, ambiguousText)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(splitText, oneLine, oneLine)->Unit(benchmark::kMillisecond);

// 5,000 pages of 40 lines with a header and a number each.
void pdfPages(benchmark::State& state) {
    QStringList pages;
    for (int page = 0; page < 5000; ++page) {
        pages << QStringLiteral("My diary\n") +
                     QStringLiteral("Woke at seven to white roofs and walked.\n").repeated(40) +
                     QStringLiteral("- %1 -").arg(page);
    }
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(DatedTextSource::pdfText(pages));
    }
}
BENCHMARK(pdfPages)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
