#include "DiaryApp/Chrome/AlertSheet.h"

#include <QtCore/QPointer>
#include <QtGui/QAccessible>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>

#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/TextPainter.h"

namespace velmar {

namespace {

constexpr double kWidth = 420;
constexpr double kPaddingX = 28;
constexpr double kPaddingTop = 26;
constexpr double kPaddingBottom = 22;
constexpr double kTitleGap = 8;
constexpr double kButtonGap = 20;
constexpr double kRadius = 14;
constexpr double kTextWidth = kWidth - 2 * kPaddingX;
// The sheet stands a little above the middle, where the eye is.
constexpr double kAboveMiddle = 0.42;

TextLook titleLook() {
    return {fonts::serif(18, QFont::DemiBold), 26, Token::InkTitle};
}
TextLook textLook() {
    return {fonts::sans(13.5), 20, Token::PastText};
}

// A soft shadow, painted as rings that grow and fade.
void paintShadow(QPainter& painter, const QRectF& sheet) {
    constexpr int kReach = 30;
    painter.setPen(Qt::NoPen);
    for (int i = kReach; i > 0; i -= 2) {
        const double share = 1 - static_cast<double>(i) / kReach;
        painter.setBrush(theme::color(Token::InkStrong, 0.022 * share));
        painter.drawRoundedRect(sheet.adjusted(-i, -i + 18, i, i + 18), kRadius + i, kRadius + i);
    }
}

}  // namespace

AlertSheet* AlertSheet::show(QWidget* window, const QString& title, const QString& text,
                             std::function<void()> onClosed) {
    auto* sheet = new AlertSheet(window->window(), title, text, std::move(onClosed));
    sheet->setVisible(true);
    sheet->raise();
    sheet->m_button->setFocus(Qt::OtherFocusReason);
    QAccessibleEvent alert(sheet, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
    return sheet;
}

AlertSheet::AlertSheet(QWidget* window, QString title, QString text, std::function<void()> onClosed)
    : QWidget(window),
      m_title(std::move(title)),
      m_text(std::move(text)),
      m_onClosed(std::move(onClosed)),
      m_button(new Button(Button::Kind::Filled, this)),
      m_focusBefore(window->focusWidget()) {
    setAccessibleName(m_title);
    setAccessibleDescription(m_text);
    m_button->setText(qtTrId("OK"));
    m_button->setFocusPolicy(Qt::StrongFocus);
    connect(m_button, &Button::clicked, this, &AlertSheet::close);
    window->installEventFilter(this);
    place();
}

double AlertSheet::titleHeight() const {
    return paragraphHeight(m_title, titleLook(), kTextWidth);
}

double AlertSheet::textHeight() const {
    double height = 0;
    for (const QString& paragraph : m_text.split(u'\n')) {
        height += paragraphHeight(paragraph, textLook(), kTextWidth);
    }
    return height;
}

void AlertSheet::place() {
    setGeometry(parentWidget()->rect());
    const QSize button(qMax(72, m_button->sizeHint().width()), m_button->sizeHint().height());
    const double sheetHeight = kPaddingTop + titleHeight() + kTitleGap + textHeight() + kButtonGap +
                               button.height() + kPaddingBottom;
    m_sheet = {std::round((width() - kWidth) / 2),
               std::round(qMax(0.0, (height() - sheetHeight) * kAboveMiddle)), kWidth,
               std::round(sheetHeight)};
    m_button->setGeometry(qRound(m_sheet.right() - kPaddingX - button.width()),
                          qRound(m_sheet.bottom() - kPaddingBottom - button.height()),
                          button.width(), button.height());
}

void AlertSheet::close() {
    const QPointer<QWidget> before = m_focusBefore;
    const std::function<void()> onClosed = m_onClosed;
    hide();
    deleteLater();
    if (before) before->setFocus(Qt::OtherFocusReason);
    if (onClosed) onClosed();
}

bool AlertSheet::event(QEvent* event) {
    switch (event->type()) {
        // Taking these keeps the menu's keys from acting behind the sheet.
        case QEvent::ShortcutOverride:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
            event->accept();
            return true;
        default:
            return QWidget::event(event);
    }
}

bool AlertSheet::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parentWidget() && event->type() == QEvent::Resize) place();
    return QWidget::eventFilter(watched, event);
}

// There is only one control on the sheet, and the ones behind it are out of reach.
bool AlertSheet::focusNextPrevChild(bool /*next*/) {
    return true;
}

void AlertSheet::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) close();
    event->accept();
}

void AlertSheet::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), theme::veil());
    painter.setRenderHint(QPainter::Antialiasing);
    paintShadow(painter, m_sheet);
    const bool isDark = theme::tokens().isDark();
    painter.setPen(QPen(theme::color(Token::Border), 1));
    painter.setBrush(theme::color(isDark ? Token::CardBg : Token::CardBgActive));
    painter.drawRoundedRect(m_sheet.adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);

    QRectF place = m_sheet.adjusted(kPaddingX, kPaddingTop, -kPaddingX, 0);
    paintParagraph(painter, place, m_title, titleLook());
    place.setTop(place.top() + titleHeight() + kTitleGap);
    for (const QString& paragraph : m_text.split(u'\n')) {
        paintParagraph(painter, place, paragraph, textLook());
        place.setTop(place.top() + paragraphHeight(paragraph, textLook(), kTextWidth));
    }
}

}  // namespace velmar
