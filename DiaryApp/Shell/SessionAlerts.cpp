#include "DiaryApp/Shell/SessionAlerts.h"

#include "DiaryApp/Chrome/AlertSheet.h"
#include "DiaryApp/Chrome/Notices.h"
#include "DiaryApp/Chrome/StatusBarView.h"
#include "DiaryApp/Session/WritingSession.h"
#include "DiaryApp/Shell/MainWindow.h"

namespace velmar {

SessionAlerts::SessionAlerts(MainWindow& window, WritingSession& session)
    : m_window(window), m_session(session) {}

void SessionAlerts::flash(SessionNotice notice) {
    const QString day = m_session.currentMonthDay().headerTitle();
    const int year = m_session.viewedYear();
    const auto kept = [&](diary::KeptReason reason, std::optional<int> ofYear) {
        return notices::kept(reason, day, ofYear);
    };
    QString text;
    switch (notice) {
        case SessionNotice::MergedRemote:
            text = notices::mergedRemote();
            break;
        case SessionNotice::KeptOverwritten:
            text = kept(diary::KeptReason::Overwritten, year);
            break;
        case SessionNotice::KeptUndecodable:
            text = kept(diary::KeptReason::Undecodable, {});
            break;
        case SessionNotice::KeptDraft:
            text = kept(diary::KeptReason::UnsavedDraft, year);
            break;
        case SessionNotice::KeptMerge:
            text = kept(diary::KeptReason::UnsavedMerge, {});
            break;
        case SessionNotice::CannotLeave:
            text = notices::cannotLeave(day);
            break;
    }
    m_window.statusBar()->flash(text);
}

void SessionAlerts::showSaveError(const diary::FileError& error) {
    m_isAlerting = true;
    AlertSheet::show(&m_window, notices::saveFailedTitle(m_session.currentMonthDay().fileName()),
                     notices::saveFailedText(error), [this] {
                         m_isAlerting = false;
                         if (m_whenRead) std::exchange(m_whenRead, {})();
                     });
}

void SessionAlerts::offerKeptDraft(const diary::KeptText& kept) {
    m_offered = kept;
    m_window.statusBar()->pin(
        notices::keptDraftOffer(m_session.currentMonthDay().headerTitle(), kept.year),
        notices::putBack(), [this, kept] { m_session.putBack(kept); });
}

// The bar may hold another notice by then, which isn't this one's to take down.
void SessionAlerts::withdrawKeptDraft() {
    if (std::exchange(m_offered, std::nullopt)) m_window.statusBar()->unpin();
}

void SessionAlerts::retranslate() {
    if (const auto kept = m_offered) offerKeptDraft(*kept);
}

}  // namespace velmar
