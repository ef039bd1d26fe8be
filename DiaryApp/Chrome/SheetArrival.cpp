#include "DiaryApp/Chrome/SheetArrival.h"

#include <QtGui/QPainter>

#include "DiaryApp/Appearance/Theme.h"

namespace velmar {

namespace {

// How much of a step of this length is done at a time, slowing down towards its end.
double shareOf(int time, int duration) {
    return QEasingCurve(QEasingCurve::OutCubic)
        .valueForProgress(qMin(1.0, double(time) / duration));
}

}  // namespace

SheetArrival::SheetArrival(QWidget* sheet) : QWidget(sheet) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    // What lies below isn't painted meanwhile.
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::NoFocus);
    hide();
    m_time.setStartValue(0);
    m_time.setEndValue(panelDuration);
    m_time.setDuration(panelDuration);
    connect(&m_time, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
    connect(&m_time, &QVariantAnimation::finished, this, &SheetArrival::finish);
}

void SheetArrival::run(const QPixmap& behind, const QPixmap& panel) {
    m_behind = behind;
    m_panel = panel;
    setGeometry(parentWidget()->rect());
    raise();
    show();
    m_time.start();
}

void SheetArrival::finish() {
    m_time.stop();
    hide();
    m_behind = QPixmap();
    m_panel = QPixmap();
}

bool SheetArrival::isRunning() const {
    return m_time.state() == QAbstractAnimation::Running;
}

void SheetArrival::paintEvent(QPaintEvent* /*event*/) {
    const int time = m_time.currentValue().toInt();
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_behind);
    painter.setOpacity(shareOf(time, veilDuration));
    painter.fillRect(rect(), theme::veil());
    const double share = shareOf(time, panelDuration);
    painter.setOpacity(share);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(QPointF(0, -drop * (1 - share)), m_panel);
}

}  // namespace velmar
