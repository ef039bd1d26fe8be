#include "DiaryApp/Session/WritingSession.h"

#include <algorithm>
#include <cerrno>

#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Foundation/Utf8.h"
#include "DiaryKit/Vault/DocumentMerge.h"
#include "DiaryKit/Vault/YearSectionParser.h"

namespace velmar {

using diary::FileError;
using diary::KeptReason;
using diary::MonthDay;
namespace YearSectionParser = diary::YearSectionParser;

namespace {

template <typename Callable, typename... Arguments>
void call(const Callable& callable, Arguments&&... arguments) {
    if (callable) callable(std::forward<Arguments>(arguments)...);
}

// A kept draft is mostly a later state of what the file holds; only what is really another text
// stands behind it.
QString withKeptText(const QString& draft, const QString& kept) {
    const QStringView body = diary::text::trimmed(draft);
    if (body.startsWith(kept) || YearSectionParser::holdsOnOwnLines(body, kept)) return draft;
    if (kept.startsWith(body) || YearSectionParser::holdsOnOwnLines(kept, body)) return kept;
    return draft + QLatin1String("\n\n") + kept;
}

}  // namespace

WritingSession::WritingSession(diary::DiaryStore& store, SessionView view, Environment environment)
    : m_store(store),
      m_view(std::move(view)),
      m_environment(std::move(environment)),
      m_saveTimer(m_environment.makeTimer()),
      m_remoteRefreshTimer(m_environment.makeTimer()),
      m_recoveryTimer(m_environment.makeTimer()),
      m_recovery(m_environment.recoveryFolder) {
    m_monthDay = today().monthDay();
    m_viewedYear = today().year;
    keepAbandonedDrafts();
}

diary::DiaryDay WritingSession::today() const {
    return diary::DiaryDay::today(*m_environment.clock);
}

QString WritingSession::body(int ofYear) const {
    return YearSectionParser::body(ofYear, m_rawText);
}

const std::vector<PastEntry>& WritingSession::pastEntries() const {
    const int currentYear = today().year;
    if (m_pastEntries && m_pastEntries->currentYear == currentYear) return m_pastEntries->entries;
    m_pastEntries = PastEntries{currentYear, {}};
    std::vector<PastEntry>& entries = m_pastEntries->entries;
    for (YearSectionParser::YearBody& section : YearSectionParser::sectionBodies(m_rawText)) {
        if (section.year == currentYear || section.body.isEmpty()) continue;
        entries.push_back({section.year, std::move(section.body)});
    }
    std::stable_sort(entries.begin(), entries.end(),
                     [](const PastEntry& a, const PastEntry& b) { return a.year > b.year; });
    return entries;
}

void WritingSession::setRawText(QString text) {
    m_rawText = std::move(text);
    m_pastEntries.reset();
}

bool WritingSession::open(const MonthDay& monthDay, Focus focus, std::optional<int> year) {
    if (!leaveDraft()) return false;
    m_monthDay = monthDay;
    resolveConflicts();
    m_viewedYear = year.value_or(today().year);
    loadDay();
    setDirty(false);
    call(m_view.renderTopBar);
    call(m_view.renderSidebar);
    call(m_view.renderEntry);
    call(m_view.renderRail);
    call(m_view.renderStatus);
    call(m_view.scrollToTop);
    if (focus == Focus::Editor) call(m_view.focusEditor);
    offerKeptDraft();
    return true;
}

bool WritingSession::pickYear(int year, Focus focus) {
    if (year == m_viewedYear && !m_showAllYears) return true;
    if (!leaveDraft()) return false;
    m_showAllYears = false;
    loadYear(year);
    call(m_view.renderSidebar);
    call(m_view.renderEntry);
    call(m_view.renderRail);
    call(m_view.renderStatus);
    call(m_view.scrollToTop);
    if (focus == Focus::Editor) call(m_view.focusEditor);
    return true;
}

void WritingSession::loadYear(int year) {
    m_viewedYear = year;
    if (m_isRawTextStale) {
        loadDay();
    } else {
        loadDraft();
    }
}

bool WritingSession::viewYearAmongAll(int year) {
    if (!m_showAllYears || year == m_viewedYear) return true;
    if (!leaveDraft()) return false;
    loadYear(year);
    call(m_view.renderStatus);
    return true;
}

void WritingSession::setAllYears(bool isOn) {
    if (isOn == m_showAllYears) return;
    flushSaveIfDirty();
    m_showAllYears = isOn;
    if (isOn) {
        m_showSource = false;
        call(m_view.renderTopBar);
    }
    call(m_view.renderEntry);
    call(m_view.renderRail);
    call(m_view.scrollToTop);
    if (!isOn) call(m_view.focusEditor);
}

void WritingSession::toggleSourceView() {
    flushSaveIfDirty();
    m_showSource = !m_showSource;
    const bool leavesAllYears = m_showSource && std::exchange(m_showAllYears, false);
    call(m_view.renderEntry);
    call(m_view.renderTopBar);
    if (leavesAllYears) call(m_view.renderRail);
    call(m_view.scrollToTop);
}

bool WritingSession::goToRandomDay() {
    const std::optional<MonthDay> day = m_store.randomDayWithContent();
    if (!day) return false;
    open(*day, Focus::Editor);
    return true;
}

void WritingSession::draftChanged(const QString& text) {
    m_draft = text;
    if (!m_isDirty) call(m_view.clearSearchHighlights);
    setDirty(true);
    call(m_view.renderRail);
    call(m_view.renderStatus);
    call(m_view.renderTopBar);
    m_saveTimer->start(saveDelay, [this] { flushSaveIfDirty(); });
    if (!m_recoveryTimer->isArmed()) {
        m_recoveryTimer->start(recoveryDelay, [this] { rememberDraft(); });
    }
}

void WritingSession::rememberDraft() {
    if (m_isDirty) m_recovery.remember(m_monthDay.headerTitle(), m_viewedYear, m_draft);
}

// A crash's draft becomes a kept one, unless its words are in the day's file after all.
void WritingSession::keepAbandonedDrafts() {
    for (const diary::RecoveredDraft& draft : m_recovery.abandoned()) {
        const auto day = MonthDay::parse(draft.day + QLatin1String(".md"));
        const QStringView text = diary::text::trimmed(draft.text);
        const bool isSaved = !day || text.isEmpty() ||
                             YearSectionParser::holdsOnOwnLines(m_store.loadText(*day), text);
        try {
            if (!isSaved) {
                m_store.keptTexts().keep(draft.day, draft.year, KeptReason::UnsavedDraft,
                                         draft.text.toUtf8(), m_environment.clock->now());
            }
        } catch (const FileError&) {
            continue;  // It stays where it is, for the next start.
        }
        diary::RecoveryDrafts::discard(draft);
    }
}

void WritingSession::flushSaveIfDirty() {
    m_saveTimer->stop();
    if (!m_isDirty) return;
    if (m_isPageUnread) takeInUnreadPage();
    m_keptNotices.clear();
    try {
        diary::SectionSave save;
        const diary::dayfile::Rewritten written = m_store.rewrite(
            m_monthDay, [&](const std::optional<diary::dayfile::Content>& existing) {
                return textToSave(existing, save);
            });
        noteSaved(save, written);
    } catch (const FileError& error) {
        noteFailed(error);
    }
    for (const SessionNotice notice : m_keptNotices) tell(notice);
}

// Runs under the file's lock. What the save is about to let go of is kept before it is written.
QString WritingSession::textToSave(const std::optional<diary::dayfile::Content>& existing,
                                   diary::SectionSave& save) {
    const QString title = m_monthDay.headerTitle();
    const QString latest = existing ? existing->text : diary::dayfile::blankTemplate(m_monthDay);
    const std::optional<diary::SectionSave> saving =
        diary::savingDraft(m_draft, m_viewedYear, m_monthDay, latest, m_lastWritten);
    if (!saving) {
        throw FileError(diary::FileOperation::Write, m_store.fileURL(m_monthDay), EINVAL);
    }
    const QDateTime now = m_environment.clock->now();
    if (existing && !existing->isValidUtf8) {
        noteKept(m_store.keptTexts().keep(title, std::nullopt, KeptReason::Undecodable,
                                          existing->bytes, now),
                 SessionNotice::KeptUndecodable);
    }
    const QString& replaced = saving->replacedBody;
    const bool isOurs = replaced.isEmpty() || replaced == m_loadedBody ||
                        replaced == m_writtenBody ||
                        YearSectionParser::holdsOnOwnLines(saving->written, replaced);
    if (!isOurs) {
        noteKept(m_store.keptTexts().keep(title, m_viewedYear, KeptReason::Overwritten,
                                          replaced.toUtf8(), now),
                 SessionNotice::KeptOverwritten);
    }
    save = *saving;
    return save.text;
}

// A save that fails comes again, and keeps the same text; that is said once.
void WritingSession::noteKept(const diary::KeptText& kept, SessionNotice notice) {
    if (m_toldKept.insert(kept.path).second) m_keptNotices.push_back(notice);
}

// The page was blank because its file couldn't be read, and was written on since. Now that it can
// be, what it holds stands ahead of what was written.
void WritingSession::takeInUnreadPage() {
    diary::dayfile::Loaded loaded = m_store.load(m_monthDay);
    if (loaded.isUnreadable) return;  // Then it can't be saved either.
    m_isPageUnread = false;
    setRawText(std::move(loaded.text));
    m_loadedBody = body(m_viewedYear);
    if (m_loadedBody.isEmpty()) return;
    m_draft = m_loadedBody + QLatin1String("\n\n") + m_draft;
    call(m_view.renderEntry);
}

void WritingSession::noteSaved(const diary::SectionSave& save,
                               const diary::dayfile::Rewritten& written) {
    setRawText(written.text);
    m_isRawTextStale = false;
    m_loadedModificationDate = written.stamp;
    m_lastWritten = save.written;
    m_writtenBody = body(m_viewedYear);
    m_didReportSaveError = false;
    setDirty(false);
    call(m_view.renderSidebar);
    call(m_view.renderRail);
}

// The draft stays dirty. The next keystroke or flush tries again; no retry is scheduled.
void WritingSession::noteFailed(const FileError& error) {
    if (m_didReportSaveError) return;
    m_didReportSaveError = true;
    call(m_view.showSaveError, error);
}

Leaving WritingSession::leave() {
    call(m_view.commitComposition);
    flushSaveIfDirty();
    if (!m_isDirty) return Leaving::Saved;
    try {
        keepDraft();
    } catch (const FileError&) {
        tell(SessionNotice::CannotLeave);
        return Leaving::Refused;
    }
    m_isRawTextStale = true;
    setDirty(false);
    return Leaving::Kept;
}

void WritingSession::keepDraft() {
    if (!diary::text::hasContent(m_draft)) return;
    m_store.keptTexts().keep(m_monthDay.headerTitle(), m_viewedYear, KeptReason::UnsavedDraft,
                             m_draft.toUtf8(), m_environment.clock->now());
    tell(SessionNotice::KeptDraft);
}

void WritingSession::keepUnsavedDraft() {
    if (!m_isDirty) return;
    try {
        keepDraft();
    } catch (const FileError&) {
        tell(SessionNotice::CannotLeave);
    }
}

void WritingSession::close() {
    m_remoteRefreshTimer->stop();
    if (!leaveDraft()) flushSaveIfDirty();
    m_saveTimer->stop();
}

void WritingSession::loadDay() {
    // The stamp comes first: a change between the two is then met by the next refresh.
    m_loadedModificationDate = m_store.modificationDate(m_monthDay);
    diary::dayfile::Loaded loaded = m_store.load(m_monthDay);
    m_isPageUnread = loaded.isUnreadable;
    // Whether a file can be read may change without its stamp: every refresh looks again.
    if (m_isPageUnread) m_loadedModificationDate.reset();
    m_isRawTextStale = false;
    setRawText(std::move(loaded.text));
    loadDraft();
}

void WritingSession::loadDraft() {
    m_draft = body(m_viewedYear);
    m_loadedBody = m_draft;
    m_writtenBody.reset();
    m_lastWritten.reset();
}

void WritingSession::resolveConflicts() {
    const QString marker =
        m_environment.conflictMarker ? m_environment.conflictMarker() : QString();
    const diary::DiaryStore::Conflicts result =
        m_store.resolveConflicts(m_monthDay, marker, m_environment.otherMarkers);
    if (result == diary::DiaryStore::Conflicts::None) return;
    // A merge joins equal years, so a section like one of ours may be another's now.
    m_lastWritten.reset();
    tell(result == diary::DiaryStore::Conflicts::Merged ? SessionNotice::MergedRemote
                                                        : SessionNotice::KeptMerge);
}

void WritingSession::scheduleRemoteRefresh() {
    m_remoteRefreshTimer->start(remoteRefreshDelay, [this] { performRemoteRefresh(); });
}

void WritingSession::performRemoteRefresh() {
    m_remoteRefreshTimer->stop();
    m_store.invalidateCaches();
    call(m_view.renderSidebar);
    resolveConflicts();
    const bool isCurrent = m_store.modificationDate(m_monthDay) == m_loadedModificationDate;
    if (!isCurrent && m_view.isComposing && m_view.isComposing()) {
        scheduleRemoteRefresh();  // Another text under a composition would take it away.
    } else if (!isCurrent) {
        reloadFromDisk();
    }
    call(m_view.remoteRefreshed);
}

void WritingSession::reloadFromDisk() {
    if (m_isDirty) return;
    const std::optional<diary::FileStamp> stamp = m_store.modificationDate(m_monthDay);
    const diary::dayfile::Loaded loaded = m_store.load(m_monthDay);
    if (loaded.isUnreadable) return;  // The page says more than a blank one; it stays.
    if (diary::holdsDraft(m_draft, m_viewedYear, m_monthDay, loaded.text, m_lastWritten)) {
        // Other years changed. What is in the editor stays as it was typed.
        m_loadedModificationDate = stamp;
        m_isPageUnread = false;
        setRawText(loaded.text);
    } else {
        loadDay();
    }
    call(m_view.renderTopBar);
    call(m_view.renderSidebar);
    call(m_view.renderEntry);
    call(m_view.renderRail);
    call(m_view.renderStatus);
}

void WritingSession::calendarDayChanged() {
    call(m_view.renderTopBar);
    call(m_view.renderSidebar);
    if (!m_isDirty) {
        call(m_view.renderEntry);
        call(m_view.renderRail);
    }
    call(m_view.renderStatus);
}

bool WritingSession::importWillWrite() {
    if (m_isImportWriting) return false;
    flushSaveIfDirty();
    if (m_isDirty) return false;
    m_isImportWriting = true;
    call(m_view.setEditable, false);
    return true;
}

void WritingSession::importDidWrite() {
    m_isImportWriting = false;
    m_store.invalidateCaches();
    if (!m_isDirty) {
        reloadFromDisk();
        return;
    }
    call(m_view.renderTopBar);
    call(m_view.renderSidebar);
    call(m_view.renderEntry);
    call(m_view.renderRail);
    call(m_view.renderStatus);
}

void WritingSession::offerKeptDraft() {
    const std::vector<diary::KeptText> kept =
        m_store.keptTexts().list(m_monthDay.headerTitle(), KeptReason::UnsavedDraft);
    const auto offered = std::find_if(kept.begin(), kept.end(),
                                      [](const diary::KeptText& text) { return text.year; });
    if (offered == kept.end()) {
        call(m_view.withdrawKeptDraft);
    } else {
        call(m_view.offerKeptDraft, *offered);
    }
}

void WritingSession::putBack(const diary::KeptText& kept) {
    const std::optional<QByteArray> bytes = diary::atomicfile::tryRead(kept.path);
    call(m_view.commitComposition);
    if (!bytes || !kept.year || !pickYear(*kept.year, Focus::Editor)) return;
    const QString text = diary::text::trimmed(diary::utf8::decodedWithRepair(*bytes)).toString();
    const QString joined = withKeptText(m_draft, text);
    if (joined != m_draft) {
        draftChanged(joined);
        call(m_view.editDraft, joined);
        call(m_view.renderEntry);
        call(m_view.focusEditor);
        flushSaveIfDirty();
    }
    if (m_isDirty) return;
    try {
        m_store.keptTexts().markPutBack(kept);
    } catch (const FileError&) {
        return;  // It is offered again, and found in the text then.
    }
    offerKeptDraft();
}

void WritingSession::tell(SessionNotice notice) const {
    call(m_view.flash, notice);
}

void WritingSession::setDirty(bool isDirty) {
    m_isDirty = isDirty;
    if (!isDirty) {
        m_recoveryTimer->stop();
        m_recovery.forget();
    }
    call(m_view.setEdited, isDirty);
}

}  // namespace velmar
