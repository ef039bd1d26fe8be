// What one reader made of one source: the only thing that crosses from the sources to planning.
#pragma once

#include <QtCore/QString>
#include <optional>
#include <vector>

#include "DiaryKit/Import/DatedTextSummary.h"
#include "DiaryKit/Import/ImportIssue.h"
#include "DiaryKit/Import/ImportSource.h"
#include "DiaryKit/Import/ImportedEntry.h"

namespace diary {

// Years from `first` to `last`, both included.
struct YearRange {
    int first = 0;
    int last = 0;

    bool operator==(const YearRange&) const = default;
};

struct ImportBatch {
    // How much of what was left behind. Records hold all six under these names.
    struct Skipped {
        int photos = 0;
        int videos = 0;
        int audios = 0;
        int attachments = 0;
        // Entries without a usable date.
        int undated = 0;
        // Items of the source that are no diary entries.
        int otherNotes = 0;

        // Photos, videos and audios. Attachments are documents and don't count.
        [[nodiscard]] int media() const { return photos + videos + audios; }

        bool operator==(const Skipped&) const = default;
    };

    // A journal of the source and the number of its entries.
    struct Journal {
        QString name = {};
        int count = 0;

        bool operator==(const Journal&) const = default;
    };

    ImportSource source = ImportSource::datedText;
    // The display name of what was read.
    QString name = {};
    // In the order in which the reader met them, which settles ties later.
    std::vector<ImportedEntry> entries = {};
    Skipped skipped = {};
    // Offered for exclusion; none for a source without journals.
    std::vector<Journal> journals = {};
    std::vector<ImportIssue> issues = {};
    // Only for dated text.
    std::optional<DatedTextSplit::Summary> split = {};
    // The path of a report that a conversion left.
    std::optional<QString> reportURL = {};

    // The span of the entries' years; nothing without entries.
    [[nodiscard]] std::optional<YearRange> years() const;

    bool operator==(const ImportBatch&) const = default;
};

}  // namespace diary
