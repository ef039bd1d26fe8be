// Texts that the diary has to let go of, kept outside the vault before it does: plain files, one
// folder for each vault and day, named by moment and year. Nothing here is ever deleted by us; a
// draft that was put back is renamed.
#pragma once

#include <QtCore/QByteArrayView>
#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <optional>
#include <vector>

namespace diary {

// Why a text was kept.
enum class KeptReason {
    // Another machine's text of the viewed year, about to be overwritten by this one's draft.
    Overwritten,
    // The bytes of a day file that weren't valid UTF-8, before the first save over them.
    Undecodable,
    // A draft that couldn't be saved when its day or year was left.
    UnsavedDraft,
    // The merge of conflict versions, whose save failed.
    UnsavedMerge,
};

struct KeptText {
    QString path;
    KeptReason reason = KeptReason::Overwritten;
    // Absent where the text is a whole file.
    std::optional<int> year;
    QDateTime moment;

    bool operator==(const KeptText&) const = default;
};

// The store of one vault. Any thread.
class KeptTexts {
public:
    // Folders are tried in their order until one takes the text; by default the user's state
    // folder, then the runtime folder, then the temporary folder. Empty paths are passed over.
    explicit KeptTexts(const QString& vault);
    KeptTexts(const QString& vault, QStringList baseFolders);

    // Writes the bytes, synced, to a file that only this user may read:
    // "<base>/kept/Diary-<print of its path>/03-07/20260307-181530120 2024 draft.md", the moment in
    // UTC; a name that is taken gets a number. `day` is the day's title, "03-07". Bytes that the
    // newest kept text of this day, year and reason holds already, unless it was put back, aren't
    // written again. Throws FileError, that of the first folder, if no folder takes them.
    KeptText keep(const QString& day, std::optional<int> year, KeptReason reason,
                  QByteArrayView bytes, const QDateTime& moment) const;

    // The day's kept texts of one reason that weren't put back, oldest first, from all folders.
    // Empty ones are left out.
    [[nodiscard]] std::vector<KeptText> list(const QString& day, KeptReason reason) const;

    // Renames the file, so that `list` no longer gives it. Throws FileError (Move).
    void markPutBack(const KeptText& text) const;

    // The folder of the vault's kept texts in the first base folder, to show to the user.
    [[nodiscard]] QString folder() const;

private:
    QStringList m_folders;
};

}  // namespace diary
