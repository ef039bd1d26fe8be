// The records of a vault's imports for one that is being written: each of its days is planned anew
// with all of them, and each of them is decoded once, unless its files change meanwhile.
#pragma once

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <array>
#include <optional>
#include <vector>

#include "DiaryKit/Files/FileStamp.h"
#include "DiaryKit/Import/ImportRecord.h"

namespace diary {

class HistoryCache {
public:
    // `excluded` is the file name of the record that is being written.
    HistoryCache(QString folder, QString excluded);

    // The records as the folder holds them now, undone ones too however old, in the order of their
    // file names; those being written elsewhere have what their journals tell. None if the folder
    // can't be listed; what can't be read is left out. The reference stays good until the next
    // call. Blocks; one thread at a time.
    [[nodiscard]] const std::vector<ImportRecord>& records();

    // How many record files have been read so far.
    [[nodiscard]] int readCount() const { return m_readCount; }

private:
    // Of the record's file and of its journal.
    using Stamps = std::array<std::optional<FileStamp>, 2>;

    struct Cached {
        Stamps stamps;
        // Absent for a file that didn't decode.
        std::optional<ImportRecord> record;
    };

    bool update(const QString& name);

    QString m_folder;
    QString m_excluded;
    QStringList m_names;
    QHash<QString, Cached> m_cache;
    std::vector<ImportRecord> m_records;
    int m_readCount = 0;
};

}  // namespace diary
