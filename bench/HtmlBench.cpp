// Reading HTML as exports hold it: entries of a few paragraphs with some marks, entities, lists and
// pictures, a third of them Chinese. Parsing alone, parsing with conversion to Markdown, and
// reading a page of that many megabytes as an import does.
#include <benchmark/benchmark.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include "DiaryKit/AppSources/FlomoSource.h"
#include "DiaryKit/Import/HTMLToMarkdown.h"
#include "DiaryKit/Import/MiniHTML.h"

namespace {

QString pageOf(qsizetype units) {
    const QString latin = QStringLiteral(
        "<div class=\"memo\" id=\"n%1\"><div class=\"time\">2024-03-07 08:15:30</div>"
        "<div class=\"content\"><p>Woke at seven to <strong>white roofs</strong> and walked "
        "along the canal before work; the kettle took its time, so I read two pages &amp; lost "
        "the thread.</p><p>See <a href=\"https://example.org/map?x=1&amp;y=2\">the map</a> for "
        "the way.</p><ul><li>bread</li><li>ink</li></ul></div><div class=\"files\">"
        "<img src=\"file/2024-03-07/1.jpg\" alt=\"\"></div></div>\n");
    const QString wide = QStringLiteral(
        "<div class=\"memo\" id=\"n%1\"><div class=\"time\">2024-03-08 21:40:00</div>"
        "<div class=\"content\"><p>今天下雨，在家里读书，晚上和<b>妈妈</b>通了电话，"
        "说起院子里的柠檬树。</p><p>明天去湖边&hellip;</p></div></div>\n");
    QString text;
    for (int i = 0; text.size() < units; ++i) text += (i % 3 == 2 ? wide : latin).arg(i);
    return text;
}

const QString& page() {
    static const QString html = pageOf(4'000'000);
    return html;
}

void setSpeed(benchmark::State& state) {
    static const auto bytes = static_cast<int64_t>(page().toUtf8().size());
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * bytes);
}

void parse(benchmark::State& state) {
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(diary::MiniHTML::parse(page()));
    }
    setSpeed(state);
}
BENCHMARK(parse)->Unit(benchmark::kMillisecond);

void parseAndConvert(benchmark::State& state) {
    for ([[maybe_unused]] auto round : state) {
        const diary::HTMLDocument document = diary::MiniHTML::parse(page());
        benchmark::DoNotOptimize(diary::HTMLToMarkdown::markdown(document.root()));
    }
    setSpeed(state);
}
BENCHMARK(parseAndConvert)->Unit(benchmark::kMillisecond);

void readFlomo(benchmark::State& state) {
    constexpr int64_t kMegabyte = 1'000'000;
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("flomo.html")));
    if (!file.open(QIODevice::WriteOnly)) return state.SkipWithError("no room for the page");
    // A page is longer in bytes than in units.
    file.write(pageOf(state.range(0) * kMegabyte * 10 / 11).toUtf8());
    file.close();
    const diary::ImportPackage package(file.fileName());
    std::size_t memos = 0;
    for ([[maybe_unused]] auto round : state) {
        memos = diary::FlomoSource::read(package, QString()).entries.size();
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * file.size());
    state.counters["memos"] = static_cast<double>(memos);
    state.counters["megabytes"] = static_cast<double>(file.size()) / kMegabyte;
}
BENCHMARK(readFlomo)->Arg(5)->Arg(50)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
