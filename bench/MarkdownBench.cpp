// The editor's work at a keystroke: the look of a text of 2, 20 and 200 kB (of UTF-8, a third of it
// Chinese and Japanese, in paragraphs below 2 kB), that of one paragraph of it, and Return.
#include <benchmark/benchmark.h>

#include "DiaryKit/Markdown/MarkdownEditing.h"
#include "DiaryKit/Markdown/MarkdownHighlighting.h"

namespace {

using diary::MarkdownBlockMetrics;
using diary::MarkdownHighlighting::Fence;

constexpr MarkdownBlockMetrics kMetrics{17};

QString paragraph(int number) {
    static const QString latin[] = {
        QStringLiteral("Woke at seven to white roofs and walked **along the canal** before work. "),
        QStringLiteral("The kettle took its time, so I read *two pages* and lost the `thread`. "),
        QStringLiteral("See [the map](https://example.org/map) for the way, ~~not~~ the old one. "),
        QStringLiteral("You don't go back to a date, it comes round, and so do we. "),
    };
    static const QString wide[] = {
        QStringLiteral("今天下雨，在家里读书，晚上和**妈妈**通了电话，说起院子里的柠檬树。"),
        QStringLiteral("朝は霧、昼から晴れ。駅まで歩いて、*古い友だち*に会った。"),
    };
    static const QString markers[] = {QString(), QStringLiteral("- "),    QStringLiteral("## "),
                                      QString(), QStringLiteral("1. "),   QStringLiteral("> "),
                                      QString(), QStringLiteral("- [x] ")};
    QString text = markers[number % 8];
    const bool isWide = number % 3 == 2;
    const int sentences = 1 + number % 7;
    for (int i = 0; i < sentences; ++i) {
        text += isWide ? wide[(number + i) % 2] : latin[(number + i) % 4];
    }
    return text;
}

QString diary(int bytes) {
    QString text;
    qsizetype size = 0;
    for (int number = 0; size < bytes; ++number) {
        const QString one = paragraph(number) + u'\n';
        size += one.toUtf8().size();
        text += one;
        // Some of them are code.
        if (number % 40 == 39) text += QStringLiteral("```\nlet x = **y**\n```\n");
    }
    return text;
}

void highlight(benchmark::State& state) {
    const QString text = diary(static_cast<int>(state.range(0)) * 1000);
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(diary::MarkdownHighlighting::highlight(text, kMetrics));
    }
    state.counters["units"] = static_cast<double>(text.size());
}
BENCHMARK(highlight)->Arg(2)->Arg(20)->Arg(200)->Unit(benchmark::kMicrosecond);

void highlightOneParagraph(benchmark::State& state) {
    const QString text = paragraph(6);
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(
            diary::MarkdownHighlighting::paragraph(text, Fence::Closed, kMetrics));
    }
}
BENCHMARK(highlightOneParagraph)->Unit(benchmark::kMicrosecond);

void highlightOneLongParagraph(benchmark::State& state) {
    const QString text = diary(200000).replace(u'\n', u' ');
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(diary::MarkdownHighlighting::highlight(text, kMetrics));
    }
}
BENCHMARK(highlightOneLongParagraph)->Unit(benchmark::kMicrosecond);

void newline200kB(benchmark::State& state) {
    const QString text = diary(200000) + QStringLiteral("- an item");
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(diary::MarkdownEditing::newline(text, {text.size(), 0}));
    }
}
BENCHMARK(newline200kB)->Unit(benchmark::kMicrosecond);

void newlineInNumberedList200kB(benchmark::State& state) {
    QString text = QStringLiteral("1. first");
    const qsizetype caret = text.size();
    for (int number = 2; text.size() < 200000; ++number) {
        text += QStringLiteral("\n%1. and another item").arg(number);
    }
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(diary::MarkdownEditing::newline(text, {caret, 0}));
    }
}
BENCHMARK(newlineInNumberedList200kB)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
