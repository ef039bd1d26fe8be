#include "DiaryApp/Entry/PageParts.h"

#include <QtGui/QPainter>

#include "DiaryApp/Appearance/Fonts.h"

namespace velmar {

void paintYearMark(QPainter& painter, const QRectF& line, const YearMark& year) {
    const QFont markFont = fonts::spaced(fonts::mono(15, QFont::Medium), -0.15);
    const TextLook mark = {markFont, line.height(), year.color};
    const TextLook ago = {fonts::mono(12), line.height(), Token::AgoText};
    paintLine(painter, line, year.mark, mark);
    const double x = QFontMetricsF(markFont).horizontalAdvance(year.mark) + 12;
    const double drop =
        fonts::baseline(markFont, line.height()) - fonts::baseline(ago.font, line.height());
    paintLine(painter, line.adjusted(x, drop, 0, drop), year.ago, ago);
}

void YearRow::setYear(const YearMark& year) {
    m_year = year;
    setAccessibleName(year.ago.isEmpty() ? year.mark : year.mark + QStringLiteral(", ") + year.ago);
    update();
}

void YearRow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    paintYearMark(painter, rect(), m_year);
}

void HintBox::setText(const QString& text) {
    m_text = text;
    setAccessibleName(text);
    update();
}

double HintBox::textHeight(double width) const {
    return paragraphHeight(m_text, look(), width);
}

void HintBox::setTextRect(const QRectF& rect) {
    m_textRect = rect;
    update();
}

TextLook HintBox::look() {
    return {fonts::serif(16.5), 30, Token::PastText};
}

void HintBox::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPen pen(theme::color(Token::CardBorderHover), 1);
    pen.setDashPattern({3, 3});
    pen.setCapStyle(Qt::FlatCap);
    painter.setPen(pen);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 10, 10);
    paintParagraph(painter, m_textRect, m_text, look());
}

void GapLine::setText(const QString& text) {
    m_text = text;
    setAccessibleName(text);
    update();
}

double GapLine::textHeight(double width) const {
    return paragraphHeight(m_text, look(), width);
}

TextLook GapLine::look() {
    return {fonts::mono(11.5), 18, Token::Footnote};
}

void GapLine::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    paintHairline(painter, {0, 0}, width(), Token::BorderSoft);
    paintParagraph(painter, QRectF(rect()).adjusted(0, 13, 0, 0), m_text, look());
}

}  // namespace velmar
