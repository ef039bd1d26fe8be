// Gives the blocks of a document the look that the kit computes for their text. Formats are those
// of the layouts, which no undo ever sees. After an edit the changed paragraphs are computed anew
// and those behind them only as long as the fence ahead of them differs from what it was. Those are
// told of the fence at once, and keep the look they had until settle() comes to them.
#pragma once

#include <QtCore/QHash>
#include <QtGui/QTextDocument>
#include <QtGui/QTextLayout>
#include <limits>

#include "DiaryApp/Editor/BlockStyle.h"
#include "DiaryApp/Editor/RhythmStyle.h"

namespace velmar {

class MarkdownHighlighter {
public:
    MarkdownHighlighter(QTextDocument* document, const RhythmStyle& style);

    // Another look. The caller restyles everything.
    void setStyle(const RhythmStyle& style);

    // The edit that the document is reporting: `added` characters at `position` are new. `draft` is
    // the text now, of the document's length. True if the ground of a fenced block changed, which
    // may show on paragraphs whose own formats stay.
    bool restyle(QStringView draft, int position, int added);
    void restyleAll(QStringView draft);

    // Whether all paragraphs have the look that their text and its fences give them.
    [[nodiscard]] bool isSettled() const { return m_unsettled < 0; }
    // Gives paragraphs their look, from the first that hasn't to the one that holds the position,
    // and ends early behind `atMost` characters. Returns the stretch in which some have changed.
    diary::TextRange settle(QStringView draft, int position,
                            int atMost = std::numeric_limits<int>::max());

    // The block holds a composition: nothing is computed, but the look that it had is laid around
    // the composed text again, since input methods replace it by theirs.
    void keepLook(const QTextBlock& composed) const;

private:
    using Formats = QList<QTextLayout::FormatRange>;

    // Tells the block of the fence ahead of it, and moves that on to what it is behind it. True if
    // its part in a fenced block changed.
    static bool follow(const QTextBlock& block, QStringView draft, BlockStyle::Fence& fence);
    void style(const QTextBlock& block, QStringView draft);
    [[nodiscard]] Formats formats(const diary::MarkdownStyling& styling) const;
    [[nodiscard]] Formats formatsAround(const QTextBlock& composed, const BlockStyle& style) const;
    [[nodiscard]] const QTextCharFormat& format(const diary::MarkdownAttributes& attributes) const;

    QTextDocument* m_document;
    const RhythmStyle* m_style;
    mutable QHash<quint32, QTextCharFormat> m_made;
    // All paragraphs ahead of this position are settled; below 0 if all are.
    int m_unsettled = -1;
};

}  // namespace velmar
