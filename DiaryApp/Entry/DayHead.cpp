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
constexpr double kWeekdayGap = 20;
constexpr double kWeekdayHeight = 28;
constexpr int kButtonsTop = 22;
constexpr double kLineTop = 70;
constexpr double kFolioTop = 80;
constexpr double kFolioHeight = 16;

QFont keyFont() {
    return fonts::spaced(fonts::mono(52, QFont::Light), kKeySpacing);
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
    setAccessibleName(QStringList{texts.key, texts.weekday, texts.ordinal, texts.subtitle}.join(
        QStringLiteral(", ")));
    update();
}

void DayHead::resizeEvent(QResizeEvent* /*event*/) {
    m_next->move(width() - m_next->width(), kButtonsTop);
    m_previous->move(m_next->x() - m_previous->width(), kButtonsTop);
}

void DayHead::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const double keyEnd = paintKey(painter);
    const double x = keyEnd + kWeekdayGap;
    const TextLook weekday = {fonts::serif(19), kWeekdayHeight, Token::SerifAside};
    // On the key's own baseline.
    const double top =
        fonts::baseline(keyFont(), kKeyHeight) - fonts::baseline(weekday.font, kWeekdayHeight);
    paintLine(painter, {x, top, m_previous->x() - x - 12, kWeekdayHeight}, m_texts.weekday,
              weekday);
    paintFolio(painter);
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
    paintLine(painter, line, m_texts.subtitle, caption, Qt::AlignRight);
    const double taken = QFontMetricsF(caption.font).horizontalAdvance(m_texts.subtitle) + 12;
    paintLine(painter, line.adjusted(0, 0, -taken, 0), m_texts.ordinal, caption);
}

}  // namespace velmar
