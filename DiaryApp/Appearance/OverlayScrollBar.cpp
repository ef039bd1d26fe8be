#include "DiaryApp/Appearance/OverlayScrollBar.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QScrollBar>

#include "DiaryApp/Appearance/Theme.h"

namespace velmar {

namespace {

constexpr int kWidth = 6;
constexpr int kMargin = 3;
constexpr int kEndMargin = 6;
constexpr double kShortestHandle = 32;
constexpr int kRestMilliseconds = 800;
constexpr int kFadeMilliseconds = 200;

}  // namespace

OverlayScrollBar::OverlayScrollBar(QAbstractScrollArea* area)
    : QWidget(area), m_area(area), m_bar(area->verticalScrollBar()) {
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->installEventFilter(this);
    m_rest.setSingleShot(true);
    m_rest.setInterval(kRestMilliseconds);
    m_fade.setStartValue(1.0);
    m_fade.setEndValue(0.0);
    m_fade.setDuration(kFadeMilliseconds);
    connect(&m_rest, &QTimer::timeout, this, &OverlayScrollBar::startFading);
    connect(&m_fade, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        m_opacity = value.toDouble();
        update();
    });
    connect(m_bar, &QScrollBar::valueChanged, this, &OverlayScrollBar::appear);
    connect(m_bar, &QScrollBar::rangeChanged, this, [this] { setVisible(m_bar->maximum() > 0); });
    setVisible(m_bar->maximum() > 0);
    place();
}

bool OverlayScrollBar::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_area && event->type() == QEvent::Resize) place();
    return QWidget::eventFilter(watched, event);
}

void OverlayScrollBar::place() {
    const int width = kWidth + 2 * kMargin;
    setGeometry(m_area->width() - width, 0, width, m_area->height());
    raise();
}

QRectF OverlayScrollBar::handle() const {
    const double track = height() - 2 * kEndMargin;
    const double whole = m_bar->maximum() + m_bar->pageStep();
    const double length =
        qBound(qMin(kShortestHandle, track), track * m_bar->pageStep() / qMax(1.0, whole), track);
    const double share = m_bar->maximum() > 0 ? double(m_bar->value()) / m_bar->maximum() : 0;
    return {double(kMargin), kEndMargin + share * (track - length), kWidth, length};
}

void OverlayScrollBar::paintEvent(QPaintEvent* /*event*/) {
    if (m_opacity <= 0) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(m_opacity);
    painter.setPen(Qt::NoPen);
    const bool isLively = underMouse() || m_grip >= 0;
    painter.setBrush(theme::color(isLively ? Token::CardBorderHover : Token::Border));
    painter.drawRoundedRect(handle(), kWidth / 2.0, kWidth / 2.0);
}

void OverlayScrollBar::appear() {
    m_fade.stop();
    m_opacity = 1;
    update();
    if (!underMouse() && m_grip < 0) m_rest.start();
}

void OverlayScrollBar::startFading() {
    if (underMouse() || m_grip >= 0) return;
    m_fade.start();
}

void OverlayScrollBar::enterEvent(QEnterEvent* event) {
    QWidget::enterEvent(event);
    m_rest.stop();
    appear();
}

void OverlayScrollBar::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    m_rest.start();
    update();
}

void OverlayScrollBar::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const QRectF grip = handle();
    const double y = event->position().y();
    if (y < grip.top() || y > grip.bottom()) {
        const int page = y < grip.top() ? -m_bar->pageStep() : m_bar->pageStep();
        m_bar->setValue(m_bar->value() + page);
        return;
    }
    m_grip = y - grip.top();
}

void OverlayScrollBar::mouseMoveEvent(QMouseEvent* event) {
    if (m_grip < 0) return;
    const double room = height() - 2 * kEndMargin - handle().height();
    if (room <= 0) return;
    const double share = (event->position().y() - m_grip - kEndMargin) / room;
    m_bar->setValue(qRound(share * m_bar->maximum()));
}

void OverlayScrollBar::mouseReleaseEvent(QMouseEvent* /*event*/) {
    m_grip = -1;
    if (!underMouse()) m_rest.start();
    update();
}

void OverlayScrollBar::wheelEvent(QWheelEvent* event) {
    QCoreApplication::sendEvent(m_bar, event);
}

}  // namespace velmar
