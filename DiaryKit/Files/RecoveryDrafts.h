// What is being typed and isn't saved yet, written outside the vault every few seconds, so that a
// crash in the middle of a long sentence doesn't take it along. One folder for each process; the
// folder of a process that is known to be dead is met by the next start.
#pragma once

#include <QtCore/QString>
#include <vector>

#include "DiaryKit/Files/TemporaryName.h"

namespace diary {

// A draft that a dead process left.
struct RecoveredDraft {
    // The day's title, "03-07".
    QString day;
    int year = 0;
    QString text;
    QString path;

    bool operator==(const RecoveredDraft&) const = default;
};

// Main thread; the calls touch small files and don't wait for the disk.
class RecoveryDrafts {
public:
    // The drafts of one vault in `folder`, which is made when it is needed. An empty path turns
    // recovery off.
    explicit RecoveryDrafts(QString folder,
                            const ProcessIdentity& owner = ProcessIdentity::current());

    // Remembers the draft in place of the one before. Failures are passed over: this is the second
    // net, and the save itself reports what is wrong.
    void remember(const QString& day, int year, const QString& text);

    // Forgets it, after a save.
    void forget();

    // The drafts of dead processes. They stay until `discard`.
    [[nodiscard]] std::vector<RecoveredDraft> abandoned() const;
    static void discard(const RecoveredDraft& draft);

private:
    QString m_folder;
    QString m_ownFolder;
    QString m_remembered;
};

}  // namespace diary
