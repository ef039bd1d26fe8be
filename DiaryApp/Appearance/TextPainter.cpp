#include "DiaryApp/Appearance/TextPainter.h"

#include <QtGui/QTextLayout>
#include <algorithm>

#include "DiaryApp/Appearance/Fonts.h"

namespace velmar {

namespace {

// Lays the text out at the width and returns the number of its lines.
int layOut(QTextLayout& layout, const TextLook& look, double width,
           Qt::Alignment alignment = Qt::AlignLeft) {
    QTextOption option(alignment);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    int count = 0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        const double baseline = fonts::baseline(look.font, look.lineHeight);
        line.setPosition({0, count * look.lineHeight + baseline - line.ascent()});
        ++count;
    }
    layout.endLayout();
    return count;
}

}  // namespace

void paintLine(QPainter& painter, const QRectF& rect, const QString& text, const TextLook& look,
               Qt::Alignment alignment) {
    const QFontMetricsF metrics(look.font);
    const QString shown = metrics.elidedText(text, Qt::ElideRight, rect.width() + 0.5);
    const double slack = rect.width() - metrics.horizontalAdvance(shown);
    const double x = rect.left() + (alignment.testFlag(Qt::AlignRight) ? slack : 0);
    painter.setFont(look.font);
    painter.setPen(theme::color(look.color));
    painter.drawText(QPointF(x, rect.top() + fonts::baseline(look.font, look.lineHeight)), shown);
}

void paintParagraph(QPainter& painter, const QRectF& rect, const QString& text,
                    const TextLook& look, Qt::Alignment alignment) {
    QTextLayout layout(text, look.font);
    layOut(layout, look, rect.width(), alignment);
    painter.setPen(theme::color(look.color));
    layout.draw(&painter, rect.topLeft());
}

void paintLines(QPainter& painter, const QRectF& rect, const QString& text, const TextLook& look,
                int lineCount) {
    QTextLayout layout(text, look.font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    int shown = 0;
    QTextLine line = layout.createLine();
    for (; line.isValid() && shown < lineCount; line = layout.createLine()) {
        line.setLineWidth(rect.width());
        const double top = shown * look.lineHeight;
        line.setPosition({0, top + fonts::baseline(look.font, look.lineHeight) - line.ascent()});
        ++shown;
    }
    const bool isCut = line.isValid();
    layout.endLayout();
    painter.setPen(theme::color(look.color));
    const int whole = isCut ? shown - 1 : shown;
    for (int i = 0; i < whole; ++i) layout.lineAt(i).draw(&painter, rect.topLeft());
    if (!isCut) return;
    const QRectF last(rect.left(), rect.top() + whole * look.lineHeight, rect.width(),
                      look.lineHeight);
    paintLine(painter, last, text.mid(layout.lineAt(whole).textStart()), look);
}

double paragraphHeight(const QString& text, const TextLook& look, double width) {
    QTextLayout layout(text, look.font);
    return std::max(1, layOut(layout, look, width)) * look.lineHeight;
}

void paintHairline(QPainter& painter, const QPointF& from, double width, Token color) {
    const double pixel = 1 / painter.device()->devicePixelRatioF();
    painter.fillRect(QRectF(from, QSizeF(width, pixel)), theme::color(color));
}

}  // namespace velmar
