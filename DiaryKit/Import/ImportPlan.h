// What an import would do to the vault: the preview that the user decides by, and what is written
// then. A plan is a value; it goes stale the moment the vault changes.
#pragma once

#include <QtCore/QString>
#include <optional>
#include <set>
#include <vector>

#include "DiaryKit/Import/ImportBatch.h"
#include "DiaryKit/Import/ImportOptions.h"

namespace diary {

struct ImportPlan {
    // What one year of a day would get.
    struct Addition {
        int year = 0;
        // The rendered entries.
        QString text = {};
        // The section has text already.
        bool appended = false;
        // In the order in which they are written.
        std::vector<ImportedEntry> entries = {};

        bool operator==(const Addition&) const = default;
    };

    struct FileChange {
        MonthDay monthDay = {};
        // The day file is there.
        bool existed = false;
        // The digest (ImportLog::hash) of the text that it was planned on; nothing without a file.
        std::optional<QString> digest = {};
        // By ascending year.
        std::vector<Addition> additions = {};
        int entryCount = 0;

        bool operator==(const FileChange&) const = default;
    };

    // All but `days`, `newFiles` and `overlapping` count entries.
    struct Stats {
        // What would be written.
        int entries = 0;
        // Imported already, or in the file already.
        int duplicates = 0;
        // Left out because their year has text and the options skip such years.
        int skippedForConflict = 0;
        // Without a title and without any text.
        int empty = 0;
        // Of journals that the options leave out.
        int excluded = 0;
        // Day files that would change, and how many of them would be new.
        int days = 0;
        int newFiles = 0;
        // Year sections with text for which there are new entries, skipped or not.
        int overlapping = 0;
        // The span of the additions' years; nothing without additions.
        std::optional<YearRange> years = {};

        bool operator==(const Stats&) const = default;
    };

    // One section before and after, to be shown.
    struct Sample {
        enum class Trait {
            // More than one entry.
            several,
            // Behind text that is there already.
            appended,
            // An entry has headings.
            headings,
            longest,
            earliest
        };

        MonthDay monthDay = {};
        int year = 0;
        // The section's body before; may be empty.
        QString existing = {};
        QString added = {};
        std::set<Trait> traits = {};

        bool operator==(const Sample&) const = default;
    };

    // Ascending by month and day.
    std::vector<FileChange> changes = {};
    Stats stats = {};
    // At most 12.
    std::vector<Sample> samples = {};
    // What the plan was made with.
    ImportOptions options = {};

    bool operator==(const ImportPlan&) const = default;
};

}  // namespace diary
