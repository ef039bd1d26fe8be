// The journal of an import that is being written or undone: what is about to happen to a day is on
// the disk before it happens. docs/formats/import-record.md shows its lines.
#pragma once

#include <QtCore/QString>

#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Import/ImportRecord.h"

namespace diary {

class ImportJournal {
public:
    enum class Opening { Anew, Continued };

    // Makes the file, with its name on the disk. Anew it is empty; continued it keeps its lines,
    // and the next one stands behind them even where the last is torn. Throws FileError (Write).
    explicit ImportJournal(QString path, Opening opening = Opening::Anew);
    ~ImportJournal();
    ImportJournal(const ImportJournal&) = delete;
    ImportJournal& operator=(const ImportJournal&) = delete;

    // Adds one line. Synced, it is on the disk when this returns. Throws FileError (Write); a part
    // of the line may stand there then, which readers pass over.
    void append(const ImportRecord::File& file, atomicfile::Durability durability);
    // The same for a file that is encoded already.
    void append(QByteArray line, atomicfile::Durability durability);

    // Closes the file; nothing may be appended any more.
    void close();

private:
    void writeAll(QByteArrayView bytes);

    QString m_path;
    int m_file;
};

}  // namespace diary
