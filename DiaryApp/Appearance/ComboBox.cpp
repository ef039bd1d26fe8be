#include "DiaryApp/Appearance/ComboBox.h"

#include <QtGui/QAccessible>
#include <QtGui/QActionGroup>
#include <QtGui/QFocusEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QMenu>
#include <algorithm>
#include <cmath>

#include "DiaryApp/Appearance/ControlAccess.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Icons.h"
#include "DiaryApp/Appearance/TextPainter.h"

namespace velmar {

namespace {

constexpr int kHeight = 32;
constexpr double kRadius = 8;
constexpr int kTextLeft = 13;
constexpr int kTextRight = 36;
constexpr int kIconRight = 10;
constexpr int kIcon = 16;
constexpr int kMenuGap = 4;

QFont labelFont() {
    return fonts::sans(13.5);
}

// A menu takes "&" for a mark of its own.
QString literal(QString text) {
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace

ComboBox::ComboBox(QWidget* parent) : QAbstractButton(parent), m_hover(this), m_ring(this) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    access::installControls();
    connect(this, &QAbstractButton::clicked, this, &ComboBox::openMenu);
}

void ComboBox::setChoices(const QStringList& texts, int current) {
    m_texts = texts;
    m_current = current;
    updateGeometry();
    update();
}

bool ComboBox::isMenuOpen() const {
    return m_menu && m_menu->isVisible();
}

QMenu* ComboBox::menu() const {
    return m_menu;
}

QSize ComboBox::sizeHint() const {
    const QFontMetricsF metrics(labelFont());
    double width = 0;
    for (const QString& text : m_texts) width = std::max(width, metrics.horizontalAdvance(text));
    return {kTextLeft + kTextRight + static_cast<int>(std::ceil(width)), kHeight};
}

void ComboBox::openMenu() {
    if (isMenuOpen()) return;
    m_menu = new QMenu(this);
    m_menu->setAttribute(Qt::WA_DeleteOnClose);
    m_menu->setAccessibleName(accessibleName());
    m_menu->setMinimumWidth(width());
    auto* group = new QActionGroup(m_menu);
    for (int i = 0; i < m_texts.size(); ++i) {
        QAction* action = m_menu->addAction(literal(m_texts[i]));
        action->setCheckable(true);
        action->setChecked(i == m_current);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, i] { choose(i); });
    }
    m_menu->popup(mapToGlobal(QPoint(0, height() + kMenuGap)));
    if (QAction* checked = group->checkedAction()) m_menu->setActiveAction(checked);
}

void ComboBox::choose(int index) {
    if (index == m_current) return;
    m_current = index;
    update();
    QAccessibleValueChangeEvent changed(this, currentText());
    QAccessible::updateAccessibility(&changed);
    if (onChosen) onChosen(index);
}

bool ComboBox::event(QEvent* event) {
    if (event->type() == QEvent::HoverEnter) m_hover.setOver(true);
    if (event->type() == QEvent::HoverLeave) m_hover.setOver(false);
    return QAbstractButton::event(event);
}

void ComboBox::paintEvent(QPaintEvent* /*event*/) {
    using theme::color;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double over = isEnabled() ? m_hover.share() : 0;
    const QColor line =
        theme::mixed(color(isEnabled() ? Token::Border : Token::BorderSoft),
                     color(Token::CardBorderHover), isMenuOpen() && isEnabled() ? 1 : over);
    painter.setPen(QPen(line, 1));
    painter.setBrush(color(isEnabled() ? Token::CardBgActive : Token::CardBg));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
    paintLine(painter, QRectF(rect()).adjusted(kTextLeft, 0, -kTextRight, 0), currentText(),
              {labelFont(), kHeight, isEnabled() ? Token::InkMed : Token::Faint});
    icons::paint(painter,
                 QRectF(width() - kIconRight - kIcon, (height() - kIcon) / 2.0, kIcon, kIcon),
                 QStringLiteral("updown"), color(isEnabled() ? Token::Chevron : Token::Faint));
}

void ComboBox::focusInEvent(QFocusEvent* event) {
    QAbstractButton::focusInEvent(event);
    m_ring.focusIn(event->reason());
}

void ComboBox::focusOutEvent(QFocusEvent* event) {
    QAbstractButton::focusOutEvent(event);
    m_ring.focusOut(event->reason());
}

void ComboBox::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_F4:
            openMenu();
            return;
        default:
            QAbstractButton::keyPressEvent(event);
    }
}

}  // namespace velmar
