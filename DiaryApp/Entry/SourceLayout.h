// Sets plain text in one font on rows of one height, a paragraph only once it comes into view:
// until then its rows are an estimate. So a file of any length shows at once.
#pragma once

#include <QtGui/QAbstractTextDocumentLayout>
#include <QtGui/QFont>
#include <QtGui/QTextBlock>
#include <QtGui/QTextLayout>

namespace velmar {

class SourceLayout : public QAbstractTextDocumentLayout {
    Q_OBJECT

public:
    static constexpr int rowHeight = 24;

    SourceLayout(QTextDocument* document, const QFont& font);

    // Another font; the caller gives it to the document too, which then changes as a whole.
    void setFont(const QFont& font);

    // Sets the paragraphs between these heights. Returns how much those that begin above `anchor`
    // grew, which is how far what stands there moved down.
    int layOut(int top, int bottom, int anchor);

    void draw(QPainter* painter, const PaintContext& context) override;
    [[nodiscard]] int hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const override;
    [[nodiscard]] int pageCount() const override { return 1; }
    [[nodiscard]] QSizeF documentSize() const override;
    [[nodiscard]] QRectF frameBoundingRect(QTextFrame* frame) const override;
    [[nodiscard]] QRectF blockBoundingRect(const QTextBlock& block) const override;

protected:
    void documentChanged(int from, int removed, int added) override;

private:
    [[nodiscard]] double width() const { return document()->pageSize().width(); }
    [[nodiscard]] QTextBlock blockAt(double y) const;
    void ensureLaidOut(const QTextBlock& block) const;
    void drawSelection(QPainter& painter, const QTextBlock& block,
                       const Selection& selection) const;

    double m_narrow = 0;
    double m_wide = 0;
    double m_baseline = 0;
};

// How many rows a text takes, if it breaks behind blanks and wide characters: exact for what most
// files hold, and near enough for the rest. At least 1.
[[nodiscard]] int estimatedRows(QStringView text, double narrow, double wide, double width);

}  // namespace velmar
