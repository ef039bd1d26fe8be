#include "DiaryApp/Navigation/PaneSlide.h"

#include <QtCore/QEasingCurve>
#include <QtGui/QPainter>
#include <algorithm>

#include "DiaryApp/Appearance/Motion.h"
#include "DiaryApp/Appearance/Theme.h"

namespace velmar {

namespace {

constexpr double kReach = 12;
constexpr double kLeaveTime = 110;
constexpr double kComeDelay = 60;
constexpr double kComeTime = 160;

double eased(double time, double duration) {
    static const QEasingCurve curve(QEasingCurve::OutCubic);
    return curve.valueForProgress(std::clamp(time / duration, 0.0, 1.0));
}

}  // namespace

PaneSlide::PaneSlide(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
    m_time.setStartValue(0.0);
    m_time.setEndValue(double(duration));
    m_time.setDuration(duration);
    connect(&m_time, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
    connect(&m_time, &QVariantAnimation::finished, this, &PaneSlide::finish);
}

bool PaneSlide::isRunning() const {
    return m_time.state() == QAbstractAnimation::Running;
}

void PaneSlide::run(const QRect& area, const QPixmap& from, const QPixmap& to) {
    finish();
    if (motion::isReduced()) return;
    m_from = from;
    m_to = to;
    setGeometry(area);
    raise();
    show();
    m_time.start();
}

void PaneSlide::finish() {
    m_time.stop();
    hide();
    m_from = {};
    m_to = {};
}

void PaneSlide::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), theme::color(Token::Panel));
    const double time = m_time.currentValue().toDouble();
    const double left = eased(time, kLeaveTime);
    const double come = eased(time - kComeDelay, kComeTime);
    painter.setOpacity(1 - left);
    painter.drawPixmap(QPointF(-kReach * left, 0), m_from);
    painter.setOpacity(come);
    painter.drawPixmap(QPointF(kReach * (1 - come), 0), m_to);
}

}  // namespace velmar
