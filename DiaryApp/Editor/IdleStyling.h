// Sees to it that a key which changes the look of a long text is answered at once. A fence that
// opens or closes turns everything behind it over; then only the paragraphs that are shown get
// their new look with the key. The others keep the old one, laid out as it is, until somebody wants
// to show them or the program is idle. What is unsettled is always the text's end, below all that
// was shown, so nothing on the screen moves when its turn comes.
#pragma once

#include <QtCore/QBasicTimer>
#include <QtCore/QObject>

#include "DiaryApp/Editor/DraftText.h"
#include "DiaryApp/Editor/MarkdownHighlighter.h"

namespace velmar {

class IdleStyling : public QObject {
    Q_OBJECT

public:
    // All three must outlive it.
    IdleStyling(QTextDocument& document, MarkdownHighlighter& highlighter, const DraftText& draft);

    // Gives all paragraphs down to the one that holds the position their look, and lays them out.
    // True if that changed any, so that others may stand where they stood. Not while an edit is
    // being reported.
    bool settleTo(int position);
    void settleAll();

    // Does the rest when nothing else is to be done.
    void start();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    bool settle(int position, int atMost);

    QTextDocument& m_document;
    MarkdownHighlighter& m_highlighter;
    const DraftText& m_draft;
    QBasicTimer m_timer;
};

}  // namespace velmar
