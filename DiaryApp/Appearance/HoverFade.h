// How far the pointer's arrival over a control shows: colours fade in and out in 90 ms.
#pragma once

#include <QtCore/QVariantAnimation>

class QWidget;

namespace velmar {

class HoverFade {
public:
    // Repaints this widget while it fades; the widget outlives the fade.
    explicit HoverFade(QWidget* widget);

    // 0 at rest, 1 under the pointer.
    [[nodiscard]] double share() const { return m_share; }

    // At once where the widget isn't on screen or motion is reduced.
    void setOver(bool isOver);

private:
    void show(double share);

    QWidget* m_widget;
    QVariantAnimation m_animation;
    double m_share = 0;
};

}  // namespace velmar
