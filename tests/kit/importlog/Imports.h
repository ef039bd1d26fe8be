// Imports into a vault on the disk, for tests.
#pragma once

#include <map>

#include "DiaryKit/Import/ImportApply.h"
#include "DiaryKit/Import/ImportLog.h"
#include "DiaryKit/Import/ImportPlanner.h"
#include "DiaryKit/Import/ImportUndo.h"
#include "tests/kit/importplan/Entries.h"
#include "tests/support/TemporaryVault.h"

namespace diary::test {

// Bytes by file name.
using DayFiles = std::map<QString, QByteArray>;

inline QDateTime moment(qint64 seconds = 0) {
    constexpr qint64 kStart = 1'700'000'000;
    return QDateTime::fromSecsSinceEpoch(kStart + seconds, Qt::UTC);
}

inline ImportLog::ApplyContext contextOf(const QString& vault, qint64 seconds = 0) {
    return {.vault = vault,
            .device = QStringLiteral("Host"),
            .deviceID = QStringLiteral("this"),
            .now = moment(seconds),
            .zone = QTimeZone::utc()};
}

inline ImportPlan planIn(const QString& vault, const ImportBatch& batch,
                         const ImportOptions& options = {}) {
    return ImportPlanner::plan(batch, options, ImportLog::records(vault, moment()), vault);
}

// Plans and applies.
inline ImportRecord importInto(const QString& vault, const ImportBatch& batch, qint64 seconds = 0,
                               const ImportOptions& options = {}) {
    return ImportLog::apply(planIn(vault, batch, options), batch, options,
                            contextOf(vault, seconds));
}

// All Markdown files at the top of the vault.
inline DayFiles dayFilesOf(const TemporaryVault& vault) {
    DayFiles files;
    for (const QString& name : vault.names()) {
        if (name.endsWith(QLatin1String(".md"))) files[name] = vault.read(name);
    }
    return files;
}

inline QString importsPath(const ImportRecord& record, const QString& name) {
    return QStringLiteral(".velmar/imports/") + record.id + name;
}

// The one record that the vault lists; an empty one if there are none or several.
inline ImportRecord onlyRecord(const QString& vault) {
    const std::vector<ImportRecord> all = ImportLog::records(vault, moment());
    EXPECT_EQ(all.size(), 1U);
    return all.size() == 1 ? all.front() : ImportRecord();
}

}  // namespace diary::test
