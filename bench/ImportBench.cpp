// An import of a large Day One export from its archive to its undo, in turns with the least that
// anybody would have to do: unpacking and parsing the same JSON, writing the same files.
//   import_bench [rounds]
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>
#include <zlib.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtCore/QtEndian>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <vector>

#include "DiaryKit/AppSources/DayOneSource.h"
#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Import/ImportApply.h"
#include "DiaryKit/Import/ImportLog.h"
#include "DiaryKit/Import/ImportPlanner.h"
#include "DiaryKit/Import/ImportUndo.h"
#include "DiaryKit/Vault/DayFile.h"
#include "bench/BenchVault.h"
#include "bench/DayOneExport.h"

namespace {

using namespace diary;
using Files = std::map<QString, QByteArray>;

constexpr int kEntries = 20'000;
constexpr double kMebibyte = 1024 * 1024;

[[noreturn]] void fail(const char* what) {
    std::fprintf(stderr, "import_bench: %s\n", what);
    std::exit(1);
}

void require(bool isTrue, const char* what) {
    if (!isTrue) fail(what);
}

// Milliseconds on the clock and of the processors.
struct Time {
    double wall = 0;
    double cpu = 0;
};

double cpuMilliseconds() {
    struct rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    const auto of = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    };
    return of(usage.ru_utime) + of(usage.ru_stime);
}

template <typename Work>
Time timed(Work work) {
    const auto start = std::chrono::steady_clock::now();
    const double cpu = cpuMilliseconds();
    work();
    const std::chrono::duration<double, std::milli> wall = std::chrono::steady_clock::now() - start;
    return {wall.count(), cpuMilliseconds() - cpu};
}

// What one kind of work took in all rounds, by its name, in the order of the first round.
class Table {
public:
    void add(const QString& name, Time time) {
        if (!m_times.contains(name)) m_names.append(name);
        m_times[name].push_back(time);
    }

    void print() const {
        std::printf("%-44s %10s %10s\n", "median", "wall ms", "cpu ms");
        for (const QString& name : m_names) {
            const std::vector<Time>& times = m_times.at(name);
            std::printf("%-44s %10.0f %10.0f\n", qPrintable(name), median(times, &Time::wall),
                        median(times, &Time::cpu));
        }
    }

    // The median of the ratios, each of one round.
    void printRatio(const QString& name, const QString& yardstick, double target) const {
        std::vector<Time> ratios;
        for (std::size_t i = 0; i < m_times.at(name).size(); ++i) {
            const Time ours = m_times.at(name)[i];
            const Time theirs = m_times.at(yardstick)[i];
            ratios.push_back({ours.wall / theirs.wall, ours.cpu / theirs.cpu});
        }
        std::printf("%-44s %10.2f %10.2f   target %.1f\n", qPrintable(name + u'/' + yardstick),
                    median(ratios, &Time::wall), median(ratios, &Time::cpu), target);
    }

private:
    static double median(std::vector<Time> times, double Time::*which) {
        const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
        std::nth_element(times.begin(), middle, times.end(),
                         [&](const Time& a, const Time& b) { return a.*which < b.*which; });
        return *middle.*which;
    }

    QStringList m_names;
    std::map<QString, std::vector<Time>> m_times;
};

void put(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(path.section(u'/', 0, -2));
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), "can't write");
}

// Three days of four have text of the last six years, some of which the export has entries of.
Files ownDays() {
    Files files;
    MonthDay day{1, 1};
    for (int i = 0; i < MonthDay::cycleLength; ++i, day = day.advanced(1)) {
        if (i % 4 == 3) continue;
        QString text = bench::dayFile(6, 700);
        text.replace(QLatin1String("# 01-01"), QLatin1String("# ") + day.headerTitle());
        files[day.fileName()] = text.toUtf8();
    }
    return files;
}

void putDays(const QString& vault, const Files& files) {
    QDir(vault).removeRecursively();
    for (const auto& [name, bytes] : files) put(vault + u'/' + name, bytes);
}

Files daysOf(const QString& vault) {
    Files files;
    for (const QString& name : QDir(vault).entryList({QStringLiteral("*.md")}, QDir::Files)) {
        files[name] = atomicfile::read(vault + u'/' + name);
    }
    return files;
}

// The first entry of an archive of our own, unpacked by zlib alone, and parsed as a whole.
void unzipAndParse(const QString& path) {
    const QByteArray bytes = atomicfile::read(path);
    const auto number = [&](qsizetype at) { return qFromLittleEndian<quint16>(bytes.data() + at); };
    const qsizetype start = 30 + number(26) + number(28);
    const qsizetype directory = bytes.indexOf("PK\1\2");
    const auto size = qFromLittleEndian<quint32>(bytes.data() + directory + 24);
    QByteArray json(static_cast<qsizetype>(size), Qt::Uninitialized);
    QByteArray packed = bytes.sliced(start);
    z_stream stream = {};
    require(inflateInit2(&stream, -MAX_WBITS) == Z_OK, "zlib");
    stream.next_in = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_in = static_cast<uInt>(packed.size());
    stream.next_out = reinterpret_cast<Bytef*>(json.data());
    stream.avail_out = size;
    require(inflate(&stream, Z_FINISH) == Z_STREAM_END, "zlib");
    inflateEnd(&stream);
    require(QJsonDocument::fromJson(json).isObject(), "no JSON");
}

ImportBatch readExport(const QString& archive) {
    const ImportPackage package(archive);
    return DayOneSource::read(package, QStringLiteral("Export.zip"));
}

QDateTime now() {
    return QDateTime::fromSecsSinceEpoch(1'700'000'000, Qt::UTC);
}

ImportPlan planned(const ImportBatch& batch, const QString& vault, const ImportOptions& options) {
    return ImportPlanner::plan(batch, options, ImportLog::records(vault, now()), vault);
}

ImportRecord applied(const ImportPlan& plan, const ImportBatch& batch, const QString& vault) {
    return ImportLog::apply(plan, batch, plan.options,
                            {.vault = vault,
                             .device = QStringLiteral("Host"),
                             .deviceID = QStringLiteral("this"),
                             .now = now()});
}

// All that an import puts on the disk, with nothing done but that.
struct Writes {
    struct Day {
        QString name;
        QByteArray before;
        QByteArray after;
        QByteArray line;
    };
    std::vector<Day> days;
    QByteArray record;

    Writes(const ImportRecord& made, const QString& vault, const Files& old)
        : record(made.encoded()) {
        for (const ImportRecord::File& file : made.files) {
            const QString name = file.day + QLatin1String(".md");
            const auto before = old.find(name);
            days.push_back({.name = name,
                            .before = before == old.end() ? QByteArray() : before->second,
                            .after = atomicfile::read(vault + u'/' + name),
                            .line = file.encoded() + '\n'});
        }
    }

    void perform(const QString& vault) const {
        const QString before = vault + QLatin1String("/.velmar/imports/bare/before");
        atomicfile::makeFolder(before);
        const QByteArray path = QFile::encodeName(vault + QLatin1String("/.velmar/journal"));
        const int journal = ::open(path.constData(), O_WRONLY | O_CREAT | O_APPEND, 0666);
        const auto append = [&](const QByteArray& line) {
            require(::write(journal, line.constData(), static_cast<std::size_t>(line.size())) ==
                        line.size(),
                    "can't write");
        };
        for (const Day& day : days) {
            if (!day.before.isEmpty()) atomicfile::write(before + u'/' + day.name, day.before);
            append(day.line);
            require(::fdatasync(journal) == 0, "can't sync");
            atomicfile::write(vault + u'/' + day.name, day.after);
            append(day.line);
        }
        atomicfile::write(vault + QLatin1String("/.velmar/imports/bare.json"), record);
        ::close(journal);
    }
};

class Rounds {
public:
    Rounds(QString archive, QString folder)
        : m_archive(std::move(archive)),
          m_vault(folder + QLatin1String("/vault")),
          m_bareVault(folder + QLatin1String("/bare")),
          m_days(ownDays()) {}

    void run(int round) {
        putDays(m_vault, m_days);
        putDays(m_bareVault, m_days);
        readBoth(round);
        ImportPlan plan;
        m_table.add(kPlan, timed([&] { plan = planned(m_batch, m_vault, {}); }));
        ImportOptions others;
        others.weather = true;
        others.timeForSingle = true;
        m_table.add(kReplan, timed([&] { plan = planned(m_batch, m_vault, others); }));
        require(plan.stats.entries == kEntries, "entries are missing in the plan");
        ImportRecord record;
        m_table.add(kApply, timed([&] { record = applied(plan, m_batch, m_vault); }));
        require(record.entries == kEntries, "entries are missing in the record");
        const Writes writes(record, m_vault, m_days);
        m_table.add(kWrites, timed([&] { writes.perform(m_bareVault); }));
        m_table.add(kAgain, timed([&] { plan = planned(m_batch, m_vault, others); }));
        require(plan.stats.duplicates == kEntries, "entries would come twice");
        m_table.add(kUndo, timed([&] { ImportLog::undo(record, m_vault, now()); }));
        require(daysOf(m_vault) == m_days, "the undo left other bytes");
    }

    void print() const {
        m_table.print();
        m_table.printRatio(kRead, kParse, 2.0);
        m_table.printRatio(kApply, kWrites, 1.5);
    }

private:
    // In turns first, so that neither always finds the warmer cache.
    void readBoth(int round) {
        const auto bare = [&] { m_table.add(kParse, timed([&] { unzipAndParse(m_archive); })); };
        if (round % 2 == 0) bare();
        m_batch = {};
        m_table.add(kRead, timed([&] { m_batch = readExport(m_archive); }));
        if (round % 2 == 1) bare();
        require(m_batch.entries.size() == kEntries, "entries are missing");
    }

    const QString kParse = QStringLiteral("unzip and QJsonDocument");
    const QString kRead = QStringLiteral("read");
    const QString kPlan = QStringLiteral("plan (1500)");
    const QString kReplan = QStringLiteral("plan with other options (300)");
    const QString kWrites = QStringLiteral("the same writes alone");
    const QString kApply = QStringLiteral("apply");
    const QString kAgain = QStringLiteral("plan what is imported already");
    const QString kUndo = QStringLiteral("undo");

    QString m_archive;
    QString m_vault;
    QString m_bareVault;
    Files m_days;
    ImportBatch m_batch;
    Table m_table;
};

// The value of a line of /proc/self/status, in bytes.
qint64 memory(const char* key) {
    QFile file(QStringLiteral("/proc/self/status"));
    require(file.open(QIODevice::ReadOnly), "no /proc");
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.startsWith(key)) return line.simplified().split(' ').value(1).toLongLong() * 1024;
    }
    fail("no such line");
}

// The whole import once, in a process that has done nothing else, and its highest memory so far
// behind each step, above what the process had before.
int measureMemory(const QString& archive, const QString& vault) {
    const qint64 start = memory("VmRSS:");
    const auto tell = [&](const char* step) {
        std::printf("%s %lld\n", step, static_cast<long long>(memory("VmHWM:") - start));
    };
    ImportBatch batch = readExport(archive);
    tell("read");
    ImportPlan plan = planned(batch, vault, {});
    tell("plan");
    ImportOptions others;
    others.weather = true;
    plan = planned(batch, vault, others);
    tell("plan-with-other-options");
    applied(plan, batch, vault);
    tell("apply");
    // From here on each step holds what the application holds there: the wizard a batch and its
    // last plan, the window of records the records.
    plan = planned(batch, vault, others);
    tell("plan-what-is-imported-already");
    plan = {};
    batch = {};
    ImportLog::undo(ImportLog::records(vault, now()).at(0), vault, now());
    tell("undo");
    return 0;
}

void printMemory(const QString& archive, const QString& folder, qsizetype jsonSize) {
    const QString vault = folder + QLatin1String("/memory");
    putDays(vault, ownDays());
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--memory"), archive, vault});
    require(process.waitForFinished(-1) && process.exitCode() == 0, "no measured memory");
    std::printf("%-44s %10s %10s   target 6\n", "highest memory up to the end of", "MiB",
                "of JSON");
    for (const QByteArray& line : process.readAllStandardOutput().split('\n')) {
        const QByteArrayList words = line.split(' ');
        if (words.size() != 2) continue;
        const double bytes = words[1].toDouble();
        std::printf("%-44s %10.0f %10.2f\n", words[0].constData(), bytes / kMebibyte,
                    bytes / static_cast<double>(jsonSize));
    }
}

int run(int rounds) {
    const QTemporaryDir folder;
    const QString archive = folder.filePath(QStringLiteral("Export.zip"));
    qsizetype jsonSize = 0;
    {
        const QByteArray journal = bench::dayOneJournal(kEntries);
        jsonSize = journal.size();
        put(archive, bench::dayOneArchive(journal));
    }
    std::printf("%d entries, %.1f MiB of JSON, %.1f MiB packed, %d rounds\n", kEntries,
                static_cast<double>(jsonSize) / kMebibyte,
                static_cast<double>(QFile(archive).size()) / kMebibyte, rounds);
    Rounds all(archive, folder.path());
    for (int round = 0; round < rounds; ++round) all.run(round);
    all.print();
    printMemory(archive, folder.path(), jsonSize);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.size() == 4 && words[1] == u"--memory") return measureMemory(words[2], words[3]);
    return run(words.size() > 1 ? std::max(1, words[1].toInt()) : 5);
}
