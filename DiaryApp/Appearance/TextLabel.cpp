#include "DiaryApp/Appearance/TextLabel.h"

#include <cmath>

namespace velmar {

TextLabel::TextLabel(Look look, QWidget* parent) : QLabel(parent), m_look(look) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize TextLabel::sizeHint() const {
    const TextLook look = m_look();
    const double width = QFontMetricsF(look.font).horizontalAdvance(text());
    return {static_cast<int>(std::ceil(width)), static_cast<int>(look.lineHeight)};
}

QSize TextLabel::minimumSizeHint() const {
    return {0, static_cast<int>(m_look().lineHeight)};
}

bool TextLabel::hasHeightForWidth() const {
    return wordWrap();
}

int TextLabel::heightForWidth(int width) const {
    const TextLook look = m_look();
    return static_cast<int>(wordWrap() ? paragraphHeight(text(), look, width) : look.lineHeight);
}

void TextLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (wordWrap()) {
        paintParagraph(painter, rect(), text(), m_look());
    } else {
        paintLine(painter, rect(), text(), m_look());
    }
}

}  // namespace velmar
