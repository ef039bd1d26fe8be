// The writing session: one day and one of its years in view, the draft of that year, and when it
// goes to disk. The text in the editor is the body of one year's section, never the whole file; a
// save puts it into the file as it then is, so two machines that write different years of a day
// can't overwrite each other.
//
// It knows no window: it tells a SessionView, and gets clock and timers from outside. Main thread.
#pragma once

#include <QtCore/QString>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <vector>

#include "DiaryApp/Session/OneShotTimer.h"
#include "DiaryApp/Session/PastEntry.h"
#include "DiaryApp/Session/SessionView.h"
#include "DiaryKit/Files/RecoveryDrafts.h"
#include "DiaryKit/Vault/DiaryDay.h"
#include "DiaryKit/Vault/DiaryStore.h"
#include "DiaryKit/Vault/SectionSave.h"

namespace velmar {

enum class Focus { Editor, Unchanged };

// What became of the draft before another takes its place.
enum class Leaving {
    Saved,
    // It couldn't be saved, and is kept outside the vault.
    Kept,
    // Neither can be done, so it isn't left.
    Refused,
};

class WritingSession {
public:
    static constexpr std::chrono::milliseconds saveDelay{1000};
    static constexpr std::chrono::milliseconds remoteRefreshDelay{300};
    // Someone who never pauses never reaches the save; a crash then costs this much at most.
    static constexpr std::chrono::milliseconds recoveryDelay{5000};

    struct Environment {
        const diary::Clock* clock = &diary::Clock::system();
        MakeOneShotTimer makeTimer = makeEventLoopTimer;
        // The line that stands between two machines' texts of one year.
        std::function<QString()> conflictMarker;
        // That line as machines with another language write it.
        std::function<QStringList()> otherMarkers;
        // Where the draft is remembered until it is saved; empty for nowhere.
        QString recoveryFolder;
    };

    // The store must outlive the session. Nothing is opened yet; `open` is. Drafts that a crash
    // left are kept now, so that their days offer them.
    WritingSession(diary::DiaryStore& store, SessionView view, Environment environment);

    [[nodiscard]] diary::DiaryStore& store() const { return m_store; }
    [[nodiscard]] const diary::MonthDay& currentMonthDay() const { return m_monthDay; }
    [[nodiscard]] int viewedYear() const { return m_viewedYear; }
    // The whole day file as of the last load or the last good save.
    [[nodiscard]] const QString& rawText() const { return m_rawText; }
    [[nodiscard]] const QString& draft() const { return m_draft; }
    [[nodiscard]] bool isDirty() const { return m_isDirty; }
    [[nodiscard]] bool showSource() const { return m_showSource; }
    [[nodiscard]] bool showAllYears() const { return m_showAllYears; }
    [[nodiscard]] bool isImportWriting() const { return m_isImportWriting; }
    [[nodiscard]] diary::DiaryDay today() const;

    // The trimmed body of the year's first section in `rawText`, or an empty text.
    [[nodiscard]] QString body(int ofYear) const;
    // Newest year first.
    [[nodiscard]] const std::vector<PastEntry>& pastEntries() const;

    // Moves to a day, in the given year or else the current one. The old day is saved first; if
    // that fails, its draft is kept outside the vault. If even that fails, the day isn't left, and
    // this is false.
    bool open(const diary::MonthDay& monthDay, Focus focus, std::optional<int> year = {});
    // Moves to a year of the day in view, in one-year mode. False as above.
    bool pickYear(int year, Focus focus);
    void setAllYears(bool isOn);
    // Makes another year the one in view without leaving the view of all years, where nothing is
    // edited; outside of that view nothing happens. False as above.
    bool viewYearAmongAll(int year);
    void toggleSourceView();

    void goPreviousDay() { open(m_monthDay.advanced(-1), Focus::Editor); }
    void goNextDay() { open(m_monthDay.advanced(1), Focus::Editor); }
    void goToToday() { open(today().monthDay(), Focus::Editor); }
    // False if no day has content.
    bool goToRandomDay();

    // The editor's text after each edit.
    void draftChanged(const QString& text);
    // Writes the draft if it has changes. Safe to call at any time; never throws.
    void flushSaveIfDirty();
    // Saves the draft, or else keeps it, for another vault to take this one's place. Tells what
    // was kept or refused.
    [[nodiscard]] Leaving leave();
    // The last flush. A draft that still can't be saved is kept.
    void close();
    // Keeps a draft that couldn't be saved, without leaving it; for a window about to close.
    void keepUnsavedDraft();

    // A change in the vault's folder; refreshes after 0.3 seconds without another.
    void scheduleRemoteRefresh();
    void performRemoteRefresh();
    // Takes the file again, unless there are unsaved changes.
    void reloadFromDisk();

    void applicationBecameActive() { performRemoteRefresh(); }
    void applicationResignedActive() { flushSaveIfDirty(); }
    void calendarDayChanged();

    // An import or an undo is about to write day files. False if it must not: another one does, or
    // the draft can't be saved.
    [[nodiscard]] bool importWillWrite();
    void importDidWrite();

    // Puts a kept draft into the editor, behind what its year holds now, and saves.
    void putBack(const diary::KeptText& kept);

private:
    [[nodiscard]] bool leaveDraft() { return leave() != Leaving::Refused; }
    void keepDraft();
    void takeInUnreadPage();
    void setRawText(QString text);
    void noteKept(const diary::KeptText& kept, SessionNotice notice);
    void keepAbandonedDrafts();
    void rememberDraft();
    void loadDay();
    void loadYear(int year);
    void loadDraft();
    void resolveConflicts();
    [[nodiscard]] QString textToSave(const std::optional<diary::dayfile::Content>& existing,
                                     diary::SectionSave& save);
    void noteSaved(const diary::SectionSave& save, const diary::dayfile::Rewritten& written);
    void noteFailed(const diary::FileError& error);
    void offerKeptDraft();
    void tell(SessionNotice notice) const;
    void setDirty(bool isDirty);

    diary::DiaryStore& m_store;
    SessionView m_view;
    Environment m_environment;

    diary::MonthDay m_monthDay;
    int m_viewedYear = 0;
    QString m_rawText;
    QString m_draft;
    bool m_showSource = false;
    bool m_showAllYears = false;
    bool m_isDirty = false;
    bool m_isImportWriting = false;
    bool m_didReportSaveError = false;
    // The page was loaded blank from a file that couldn't be read.
    bool m_isPageUnread = false;
    // A save failed and its draft was left: the raw text is older than the file.
    bool m_isRawTextStale = false;
    std::optional<diary::FileStamp> m_loadedModificationDate;
    // The viewed year's body as this stay found it, and as it last wrote it.
    QString m_loadedBody;
    std::optional<QString> m_writtenBody;
    // What the last save of this stay put behind the header.
    std::optional<QString> m_lastWritten;
    // What a running save kept, told once it is done, and once only.
    std::vector<SessionNotice> m_keptNotices;
    std::set<QString> m_toldKept;
    // Made when it is asked for, as of the raw text and the current year.
    struct PastEntries {
        int currentYear = 0;
        std::vector<PastEntry> entries;
    };
    mutable std::optional<PastEntries> m_pastEntries;
    std::unique_ptr<OneShotTimer> m_saveTimer;
    std::unique_ptr<OneShotTimer> m_remoteRefreshTimer;
    std::unique_ptr<OneShotTimer> m_recoveryTimer;
    diary::RecoveryDrafts m_recovery;
};

}  // namespace velmar
