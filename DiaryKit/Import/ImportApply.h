// Writes a confirmed import into the vault. Ahead of each day's write its old text lies under
// `before/` and the journal says what is coming, both on the disk; so whatever ends the import, the
// vault has whole files only, and ImportLog::records tells how far it came.
#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtCore/QTimeZone>
#include <functional>
#include <optional>

#include "DiaryKit/Import/ImportPlan.h"
#include "DiaryKit/Import/ImportRecord.h"

namespace diary::ImportLog {

struct Progress {
    // Days dealt with, and all days of the plan.
    int done = 0;
    int total = 0;
    // The day that comes next; nothing at the end.
    std::optional<MonthDay> current = {};

    bool operator==(const Progress&) const = default;
};

// Where, by whom and when.
struct ApplyContext {
    QString vault;
    // The machine's name for people, and its identifier (ImportLog::deviceID).
    QString device;
    QString deviceID;
    // The application that a conversion came from.
    std::optional<QString> label = {};
    QDateTime now = {};
    // Of the moment in the record's identifier.
    QTimeZone zone = QTimeZone::systemTimeZone();
    // Called on the calling thread ahead of each day, and once behind the last.
    std::function<void(const Progress&)> progress = {};
};

// Writes the plan's days, in order, and gives the finished record. Each day is looked at once more
// at its turn, under one exclusive coordination with its write, and planned anew on the text that
// it has then, unless neither that nor what is known of its entries has changed: what arrived
// meanwhile isn't added twice, a file that vanished is made anew, and what a section can't hold
// isn't reported as written. The plan of `batch` must have been made with `options`; otherwise
// ImportError (stalePlan) is thrown and nothing touched.
//
// Throws FileError as dayfile::modifyingFile does, and for what can't be written; the import ends
// there as after a crash, in the state "writing" with its journal. What `progress` throws does the
// same; there is no other way to stop it. Blocks, for minutes with thousands of entries; any
// thread.
ImportRecord apply(const ImportPlan& plan, const ImportBatch& batch, const ImportOptions& options,
                   const ApplyContext& context);

}  // namespace diary::ImportLog
