#include "DiaryApp/Editor/IdleStyling.h"

#include <QtCore/QElapsedTimer>
#include <limits>

namespace velmar {

namespace {

constexpr int kAll = std::numeric_limits<int>::max();
// How long a key that is pressed meanwhile may have to wait, and how many characters are laid out
// between two looks at the clock, about two milliseconds' work.
constexpr int kSliceMilliseconds = 4;
constexpr int kBatch = 6000;

}  // namespace

IdleStyling::IdleStyling(QTextDocument& document, MarkdownHighlighter& highlighter,
                         const DraftText& draft)
    : m_document(document), m_highlighter(highlighter), m_draft(draft) {}

bool IdleStyling::settle(int position, int atMost) {
    const auto [from, length] = m_highlighter.settle(m_draft.text(), position, atMost);
    // The formats of a layout that changed outside of an edit are taken in when it is told so.
    if (length > 0) m_document.markContentsDirty(int(from), int(length));
    if (m_highlighter.isSettled()) m_timer.stop();
    return length > 0;
}

bool IdleStyling::settleTo(int position) {
    return !m_highlighter.isSettled() && settle(position, kAll);
}

void IdleStyling::settleAll() {
    settleTo(kAll);
}

void IdleStyling::start() {
    if (!m_highlighter.isSettled() && !m_timer.isActive()) m_timer.start(0, this);
}

void IdleStyling::timerEvent(QTimerEvent* /*event*/) {
    QElapsedTimer elapsed;
    elapsed.start();
    while (!m_highlighter.isSettled() && elapsed.elapsed() < kSliceMilliseconds) {
        settle(kAll, kBatch);
    }
    if (m_highlighter.isSettled()) m_timer.stop();
}

}  // namespace velmar
