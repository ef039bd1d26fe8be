// Reading folders and zips of dated notes through the one door for imports, in processor time: time
// for each note should not depend on their number. Beside it how far the peak of the memory rises,
// the entries included.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <QtCore/QDate>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <algorithm>
#include <map>

#include "DiaryKit/ImportReader/ImportReader.h"
#include "tests/kit/import/ZipBuilder.h"

namespace {

using diary::testing::ZipBuilder;

QByteArray tinyNote(int number) {
    return "note " + QByteArray::number(number);
}

// 2 kB as a note application writes them.
QByteArray longNote(int number) {
    const QByteArray day = QByteArray::number(number);
    QByteArray note = "---\ntags: [walk, tea]\nmood: fine\n---\n# Day " + day + "\n\n";
    while (note.size() < 2000) {
        note +=
            "- [ ] Walked to ![[view.jpg|200]] [[the lake]] in the **rain**, it was fine.\n\n"
            "  今天下雨，在家里读书。 ![](a.png)\n";
    }
    return note;
}

// Hundreds in a folder, with their date in the name.
QString path(int number) {
    const QString day = QDate(2000, 1, 1).addDays(number % 7300).toString(Qt::ISODate);
    return QStringLiteral("%1/%2 %3.md").arg(number / 500).arg(day).arg(number);
}

// A folder or zip that is made on the first call for its number.
using Made = std::map<int, QString>;

const QTemporaryDir& folder() {
    static const QTemporaryDir made;
    return made;
}

QString folderOf(int notes, QByteArray (*note)(int), Made& made) {
    QString& root = made[notes];
    if (!root.isEmpty()) return root;
    root = folder().filePath(QStringLiteral("%1 of %2").arg(notes).arg(note(0).size()));
    for (int number = 0; number < notes; ++number) {
        const QString place = root + u'/' + path(number);
        if (number % 500 == 0) QDir().mkpath(place.section(u'/', 0, -2));
        QFile file(place);
        if (file.open(QIODevice::WriteOnly)) file.write(note(number));
    }
    return root;
}

QString zipOf(int notes, Made& made) {
    QString& name = made[notes];
    if (!name.isEmpty()) return name;
    name = folder().filePath(QString::number(notes) + QStringLiteral(".zip"));
    ZipBuilder zip;
    for (int number = 0; number < notes; ++number) {
        zip.add(ZipBuilder::stored(path(number).toUtf8(), tinyNote(number)));
    }
    QFile file(name);
    if (file.open(QIODevice::WriteOnly)) file.write(zip.zip64Bytes());
    return name;
}

// A number of the process's memory, in megabytes.
double megabytes(QByteArrayView key) {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith(key)) return line.simplified().split(' ').value(1).toDouble() / 1000;
    }
    return 0;
}

// Lets the peak begin anew, which otherwise never falls.
void forgetPeak() {
    malloc_trim(0);
    QFile forget(QStringLiteral("/proc/self/clear_refs"));
    if (forget.open(QIODevice::WriteOnly)) forget.write("5");
}

void read(benchmark::State& state, const QString& picked) {
    double rise = 0;
    for ([[maybe_unused]] auto round : state) {
        state.PauseTiming();
        forgetPeak();
        const double before = megabytes("VmRSS");
        state.ResumeTiming();
        const diary::ImportBatch batch =
            diary::ImportReader::read(picked, diary::ImportReader::Options(), {});
        state.PauseTiming();
        rise = std::max(rise, megabytes("VmHWM") - before);
        if (static_cast<int64_t>(batch.entries.size()) != state.range(0)) {
            state.SkipWithError("not every note was read");
        }
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.counters["rise_MB"] = rise;
}

void notesOfTwoKilobytes(benchmark::State& state) {
    static Made made;
    read(state, folderOf(static_cast<int>(state.range(0)), longNote, made));
}
BENCHMARK(notesOfTwoKilobytes)->Arg(2500)->Arg(5000)->Arg(10000)->Unit(benchmark::kMillisecond);

void tinyNotesInFolder(benchmark::State& state) {
    static Made made;
    read(state, folderOf(static_cast<int>(state.range(0)), tinyNote, made));
}
BENCHMARK(tinyNotesInFolder)->Arg(25000)->Arg(50000)->Arg(100000)->Unit(benchmark::kMillisecond);

void tinyNotesInZip(benchmark::State& state) {
    static Made made;
    read(state, zipOf(static_cast<int>(state.range(0)), made));
}
BENCHMARK(tinyNotesInZip)->Arg(25000)->Arg(50000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
