#include "DiaryApp/Appearance/HoverFade.h"

#include <QtWidgets/QWidget>

#include "DiaryApp/Appearance/Motion.h"

namespace velmar {

namespace {
constexpr int kMilliseconds = 90;
}  // namespace

HoverFade::HoverFade(QWidget* widget) : m_widget(widget) {
    m_animation.setEasingCurve(QEasingCurve::OutQuad);
    QObject::connect(&m_animation, &QVariantAnimation::valueChanged, widget,
                     [this](const QVariant& value) { show(value.toDouble()); });
}

void HoverFade::setOver(bool isOver) {
    const double target = isOver ? 1 : 0;
    m_animation.stop();
    if (!m_widget->isVisible() || motion::isReduced()) {
        show(target);
        return;
    }
    m_animation.setStartValue(m_share);
    m_animation.setEndValue(target);
    m_animation.setDuration(motion::duration(kMilliseconds));
    m_animation.start();
}

void HoverFade::show(double share) {
    m_share = share;
    m_widget->update();
}

}  // namespace velmar
