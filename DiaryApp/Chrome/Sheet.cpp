#include "DiaryApp/Chrome/Sheet.h"

#include <QtGui/QAccessible>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <utility>

#include "DiaryApp/Appearance/ControlAccess.h"
#include "DiaryApp/Appearance/Motion.h"
#include "DiaryApp/Appearance/Shadow.h"
#include "DiaryApp/Appearance/Theme.h"
#include "DiaryApp/Chrome/SheetArrival.h"

namespace velmar {

namespace {

constexpr double kRadius = 14;
// The sheet stands a little above the middle, where the eye is.
constexpr double kAboveMiddle = 0.42;

}  // namespace

Sheet::Sheet(QWidget* window, const QString& title, const QString& text)
    : QWidget(window), m_arrival(new SheetArrival(this)), m_focusBefore(window->focusWidget()) {
    setVisible(false);
    setAccessibleName(title);
    setAccessibleDescription(text);
    access::setRole(this, QAccessible::Dialog);
    window->installEventFilter(this);
}

void Sheet::present(QWidget* first, Qt::FocusReason reason) {
    const bool isMoving = parentWidget()->isVisible() && !motion::isReduced();
    // What had the focus is pictured without its caret and ring, which go as the sheet takes it.
    if (isMoving && m_focusBefore) m_focusBefore->clearFocus();
    const QPixmap behind = isMoving ? parentWidget()->grab() : QPixmap();
    place();
    setVisible(true);
    raise();
    first->setFocus(reason);
    // A window that isn't active yet, as at the start, keeps no reason: the ring would be missing.
    if (!first->hasFocus()) {
        m_first = first;
        m_reason = reason;
    }
    if (isMoving) m_arrival->run(behind, pictureOfPanel());
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

bool Sheet::isArriving() const {
    return m_arrival->isRunning();
}

QPixmap Sheet::pictureOfPanel() {
    QPixmap picture(size() * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(Qt::transparent);
    m_hasVeil = false;
    render(&picture, {}, {}, DrawChildren);
    m_hasVeil = true;
    return picture;
}

void Sheet::dismiss() {
    m_arrival->finish();
    hide();
    deleteLater();
    if (m_focusBefore) m_focusBefore->setFocus(Qt::OtherFocusReason);
}

double Sheet::panelTop(double panelHeight) const {
    return qMax(0.0, (height() - panelHeight) * kAboveMiddle);
}

void Sheet::place() {
    m_arrival->finish();
    setGeometry(parentWidget()->rect());
    const QSizeF size = panelSize();
    const double panelHeight = std::round(size.height());
    m_panel = {std::round((width() - size.width()) / 2), std::round(panelTop(panelHeight)),
               size.width(), panelHeight};
    placeControls();
    update();
}

bool Sheet::event(QEvent* event) {
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

bool Sheet::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parentWidget() && event->type() == QEvent::Resize) place();
    if (watched == parentWidget() && event->type() == QEvent::WindowActivate) focusFirst();
    return QWidget::eventFilter(watched, event);
}

void Sheet::focusFirst() {
    QWidget* first = std::exchange(m_first, nullptr);
    if (first != nullptr && window()->focusWidget() == first) first->setFocus(m_reason);
}

// The Tab key goes round among the sheet's own controls; the ones behind it are out of reach.
bool Sheet::focusNextPrevChild(bool next) {
    QList<QWidget*> stops;
    for (auto* each : findChildren<QWidget*>()) {
        if (each->isVisible() && each->isEnabled() && (each->focusPolicy() & Qt::TabFocus) != 0) {
            stops.append(each);
        }
    }
    if (stops.isEmpty()) return true;
    const qsizetype now = stops.indexOf(QWidget::focusWidget());
    const qsizetype step = next ? 1 : stops.size() - 1;
    stops[(qMax(now, qsizetype(0)) + step) % stops.size()]->setFocus(next ? Qt::TabFocusReason
                                                                          : Qt::BacktabFocusReason);
    return true;
}

void Sheet::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) escaped();
    event->accept();
}

void Sheet::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (m_hasVeil) painter.fillRect(rect(), theme::veil());
    painter.setRenderHint(QPainter::Antialiasing);
    paintShadow(painter, m_panel, elevation::kSheet);
    const bool isDark = theme::tokens().isDark();
    painter.setPen(QPen(theme::color(Token::Border), 1));
    painter.setBrush(theme::color(isDark ? Token::CardBg : Token::CardBgActive));
    painter.drawRoundedRect(m_panel.adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
    paintPanel(painter);
}

}  // namespace velmar
