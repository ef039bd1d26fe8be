// One door for everything that can be imported: the user picks a file or a folder and needn't say
// what it is. The content decides which reader runs.
#pragma once

#include <QtCore/QString>

#include "DiaryKit/AppSources/DaylioSource.h"
#include "DiaryKit/DatedText/DatedTextSplit.h"
#include "DiaryKit/FolderSources/DatedTextSource.h"
#include "DiaryKit/Import/ImportBatch.h"
#include "DiaryKit/Vault/DiaryDay.h"

namespace diary::ImportReader {

struct Options {
    // The user's names for Daylio's moods.
    DaylioSource::Moods moodLabels = {};
    // How text without structure is divided.
    DatedTextSplit::Options split = {};
    // The last year that a folder in the vault's own format may hold.
    int currentYear = DiaryDay::today().year;
};

// What is at `url`, a path, as entries; the batch is named by the path's last component. A source
// that was recognised may have no entries. Documents are read by `readers`. Throws ImportError
// (unrecognized) for what no reader knows and (badArchive) for a zip that can't be read, FileError
// (Read), and whatever the reader throws. Blocks, maybe for long; for a background thread.
[[nodiscard]] ImportBatch read(const QString& url, const Options& options,
                               const DatedTextSource::DocumentReaders& readers);

// A text that is in memory, divided anew. Pure; any thread.
[[nodiscard]] ImportBatch read(const QString& text, const QString& name, const Options& options);

}  // namespace diary::ImportReader
