// A program that imports and undoes, for tests of several processes and of sudden ends:
// import_writer <vault> apply <source> <days> <text>: one entry a day, from 1 January 2024 on;
// import_writer <vault> undo, … keep: the newest import. Each prints how far it came.
#include <QtCore/QCoreApplication>
#include <cstdio>
#include <exception>

#include "DiaryKit/Import/ImportApply.h"
#include "DiaryKit/Import/ImportLog.h"
#include "DiaryKit/Import/ImportPlanner.h"
#include "DiaryKit/Import/ImportUndo.h"
#include "tests/kit/importlog/WrittenBatch.h"

namespace diary::test {
namespace {

void tell(const ImportLog::Progress& progress) {
    std::printf("day %d\n", progress.done);
    std::fflush(stdout);
}

int apply(const QString& vault, const QStringList& words) {
    const ImportBatch batch = writtenBatch(words[0], words[1].toInt(), words[2]);
    const QDateTime now = QDateTime::fromSecsSinceEpoch(1'700'000'000, Qt::UTC);
    const ImportPlan plan = ImportPlanner::plan(batch, {}, ImportLog::records(vault, now), vault);
    ImportLog::apply(plan, batch, {},
                     {.vault = vault,
                      .device = QStringLiteral("Host"),
                      .deviceID = QStringLiteral("this"),
                      .now = now,
                      .zone = QTimeZone::utc(),
                      .progress = tell});
    std::puts("done");
    return 0;
}

int settle(const QString& vault, const QString& way) {
    const QDateTime now = QDateTime::fromSecsSinceEpoch(1'700'000'100, Qt::UTC);
    const std::vector<ImportRecord> all = ImportLog::records(vault, now);
    if (all.empty()) return 3;
    if (way == u"undo") {
        ImportLog::undo(all.front(), vault, now);
    } else if (way == u"keep") {
        ImportLog::markDone(all.front(), vault);
    } else {
        return 2;
    }
    std::puts("settled");
    return 0;
}

int run(const QStringList& arguments) {
    if (arguments.size() == 6 && arguments[2] == u"apply") {
        return apply(arguments[1], arguments.mid(3));
    }
    return arguments.size() == 3 ? settle(arguments[1], arguments[2]) : 2;
}

}  // namespace
}  // namespace diary::test

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    try {
        return diary::test::run(QCoreApplication::arguments());
    } catch (const std::exception& error) {
        std::puts(error.what());
        return 1;
    }
}
