// Sets a document on a fixed rhythm: each line is as high as every other, whatever its font, and
// its glyphs stand in the middle. Lines of an item begin below each other. Positions follow from
// line numbers alone. Draws by RhythmPainter.
#pragma once

#include <QtGui/QAbstractTextDocumentLayout>
#include <QtGui/QTextBlock>
#include <QtGui/QTextLayout>
#include <vector>

#include "DiaryApp/Editor/MatchMarks.h"
#include "DiaryApp/Editor/RhythmStyle.h"

namespace velmar {

// A task's box, in document coordinates.
struct TaskBox {
    QRect rect;
    // The position of the line's first character.
    int position = 0;
};

class RhythmLayout : public QAbstractTextDocumentLayout {
    Q_OBJECT

public:
    // Room at the left of the column, where the marks of deep headings reach.
    static constexpr int markRoom = 20;
    static constexpr int gutter = diary::MarkdownBlockMetrics::kTextEdge;

    // The style must outlive the layout.
    RhythmLayout(QTextDocument* document, const RhythmStyle& style);

    // Another look; the caller marks the contents dirty.
    void setStyle(const RhythmStyle& style) { m_style = &style; }
    // Whether draw() shows the caret that it is asked for, which is where dragged text would fall.
    // The view draws the caret of typing.
    void setShowsDropCaret(bool shows) { m_showsDropCaret = shows; }
    // How much is drawn of the mark of the task whose line begins at this position: from 0, where
    // it has just been checked, to 1. Of all others it is drawn as a whole.
    void setFreshCheck(int position, double share) {
        m_freshCheck = position;
        m_freshShare = share;
    }
    [[nodiscard]] double checkShare(int position) const {
        return position == m_freshCheck ? m_freshShare : 1;
    }
    // What draw() marks; must outlive the layout. The caller repaints when it changes.
    void setMarks(const MatchMarks* marks) { m_marks = marks; }

    [[nodiscard]] int lineHeight() const { return m_style->lineHeight(); }
    // The top of the block's first row.
    [[nodiscard]] int top(const QTextBlock& block) const;
    // The start of the block that has a row at this height.
    [[nodiscard]] int positionAt(double y) const;
    // The boxes of the tasks whose rows touch the rectangle.
    [[nodiscard]] std::vector<TaskBox> taskBoxes(const QRectF& within) const;
    // What a mark of this range covers, in document coordinates, with all its rows. Where nothing
    // of the range shows it has no width.
    [[nodiscard]] QRectF markRect(diary::TextRange range) const;

    void draw(QPainter* painter, const PaintContext& context) override;
    [[nodiscard]] int hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const override;
    [[nodiscard]] int pageCount() const override { return 1; }
    [[nodiscard]] QSizeF documentSize() const override;
    [[nodiscard]] QRectF frameBoundingRect(QTextFrame* frame) const override;
    [[nodiscard]] QRectF blockBoundingRect(const QTextBlock& block) const override;

protected:
    void documentChanged(int from, int removed, int added) override;

private:
    [[nodiscard]] double width() const;
    [[nodiscard]] int rowAt(double y) const;
    bool layOut(const QTextBlock& block);
    void layOutLines(const QTextBlock& block, bool breaksFirstAnywhere);
    void place(QTextLine& line, const QTextBlock& block, int number) const;
    void moveBlocks(QTextBlock from) const;
    [[nodiscard]] std::vector<MatchMarks::Mark> marksIn(const QRectF& clip) const;

    const RhythmStyle* m_style;
    const MatchMarks* m_marks = nullptr;
    double m_laidOutWidth = 0;
    int m_laidOutLineHeight = 0;
    QSizeF m_announced;
    int m_freshCheck = -1;
    double m_freshShare = 1;
    bool m_showsDropCaret = false;
};

}  // namespace velmar
