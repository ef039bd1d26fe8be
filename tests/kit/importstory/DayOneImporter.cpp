// A program that takes a Day One export into a vault, for a test that kills it on the way:
// day_one_importer <vault> <archive>. Prints "done" at the end.
#include <QtCore/QCoreApplication>
#include <cstdio>
#include <exception>

#include "DiaryKit/AppSources/DayOneSource.h"
#include "DiaryKit/Import/ImportApply.h"
#include "DiaryKit/Import/ImportLog.h"
#include "DiaryKit/Import/ImportPlanner.h"

namespace diary::test {
namespace {

void import(const QString& vault, const QString& archive) {
    const ImportBatch batch = DayOneSource::read(ImportPackage(archive), archive.section(u'/', -1));
    const QDateTime now = QDateTime::fromSecsSinceEpoch(1'700'000'000, Qt::UTC);
    const ImportPlan plan = ImportPlanner::plan(batch, {}, ImportLog::records(vault, now), vault);
    ImportLog::apply(plan, batch, {},
                     {.vault = vault,
                      .device = QStringLiteral("Host"),
                      .deviceID = QStringLiteral("this"),
                      .now = now,
                      .zone = QTimeZone::utc()});
    std::puts("done");
}

}  // namespace
}  // namespace diary::test

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.size() != 3) return 2;
    try {
        diary::test::import(words[1], words[2]);
        return 0;
    } catch (const std::exception& error) {
        std::puts(error.what());
        return 1;
    }
}
