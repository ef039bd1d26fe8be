#include "DiaryApp/Entry/DayHead.h"

#include <QtGui/QKeySequence>
#include <QtGui/QPainter>

#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/TextPainter.h"

namespace velmar {

namespace {

// How far the key stands left of the text.
constexpr double kKeyReach = 3;
constexpr double kKeyHeight = 60;
constexpr double kKeySpacing = -2.34;
// The hyphen stands a pixel closer to the digits on both sides.
constexpr double kHyphenInset = 1.04;
constexpr double kTitleGap = 20;
constexpr double kTitleHeight = 28;
constexpr int kWholeWidth = 596;
constexpr int kButtonsTop = 22;
constexpr double kLineTop = 70;
constexpr double kFolioTop = 80;
constexpr double kFolioHeight = 16;

QFont keyFont() {
    return fonts::spaced(fonts::mono(52, QFont::Light), kKeySpacing);
}

// A little smaller where the page is too narrow for its whole column.
QFont weekdayFont(int width) {
    return fonts::serif(width < kWholeWidth ? 17 : 19);
}

QFont spanFont() {
    return fonts::spaced(fonts::mono(18, QFont::Light), -0.18);
}

Button* stepButton(const QString& icon, QWidget* parent) {
    auto* button = new Button(Button::Kind::Quiet, parent);
    button->setIconName(icon);
    button->resize(button->sizeHint());
    return button;
}

}  // namespace

DayHead::DayHead(QWidget* parent)
    : QWidget(parent),
      m_previous(stepButton(QStringLiteral("chevron-left"), this)),
      m_next(stepButton(QStringLiteral("chevron-right"), this)) {
    retranslate();
}

void DayHead::retranslate() {
    m_previous->setAccessibleName(qtTrId("Previous Day"));
    m_previous->setHint(qtTrId("Previous Day"), QKeySequence(Qt::ALT | Qt::Key_Left));
    m_next->setAccessibleName(qtTrId("Next Day"));
    m_next->setHint(qtTrId("Next Day"), QKeySequence(Qt::ALT | Qt::Key_Right));
}

void DayHead::setTexts(const Texts& texts) {
    if (texts == m_texts) return;
    m_texts = texts;
    setAccessibleName(
        QStringList{texts.key, texts.title, texts.left, texts.right}.join(QStringLiteral(", ")));
    update();
}

void DayHead::resizeEvent(QResizeEvent* /*event*/) {
    m_next->move(width() - m_next->width(), kButtonsTop);
    m_previous->move(m_next->x() - m_previous->width(), kButtonsTop);
}

void DayHead::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    paintTitle(painter, paintKey(painter) + kTitleGap);
    paintFolio(painter);
}

void DayHead::paintTitle(QPainter& painter, double left) const {
    const QFont font = m_texts.isSpan ? spanFont() : weekdayFont(width());
    const TextLook look = {font, kTitleHeight, Token::SerifAside};
    // On the key's own baseline.
    const double top = fonts::baseline(keyFont(), kKeyHeight) - fonts::baseline(font, kTitleHeight);
    paintLine(painter, {left, top, m_previous->x() - left - 12, kTitleHeight}, m_texts.title, look);
}

double DayHead::paintKey(QPainter& painter) const {
    const QFont font = keyFont();
    // Measured as a text: a single character's advance leaves the spacing out.
    const double advance = QFontMetricsF(font).horizontalAdvance(QStringLiteral("0"));
    const double baseline = fonts::baseline(font, kKeyHeight);
    painter.setFont(font);
    double x = reach - kKeyReach;
    for (const QChar character : m_texts.key) {
        const bool isHyphen = character == QLatin1Char('-');
        if (isHyphen) x -= kHyphenInset;
        painter.setPen(theme::color(isHyphen ? Token::Accent : Token::InkStrong));
        painter.drawText(QPointF(x, baseline), QString(character));
        x += advance - (isHyphen ? kHyphenInset : 0);
    }
    return x;
}

void DayHead::paintFolio(QPainter& painter) const {
    const double left = reach;
    const double text = width() - 2 * reach;
    paintHairline(painter, {left, kLineTop}, text, Token::Border);
    const TextLook caption = {fonts::mono(11.5), kFolioHeight, Token::DaySubText};
    const QRectF line(left, kFolioTop, text, kFolioHeight);
    paintLine(painter, line, m_texts.right, caption, Qt::AlignRight);
    const double taken = QFontMetricsF(caption.font).horizontalAdvance(m_texts.right) + 12;
    paintLine(painter, line.adjusted(0, 0, -taken, 0), m_texts.left, caption);
}

}  // namespace velmar
