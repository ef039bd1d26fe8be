// The style of what Qt paints itself: the menu bar, menus, tooltips and the ring around what has
// the keyboard's focus.
#pragma once

#include <QtWidgets/QProxyStyle>

namespace velmar {

class VelmarStyle : public QProxyStyle {
    Q_OBJECT

public:
    VelmarStyle();

    void polish(QWidget* widget) override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option,
                                         const QSize& size, const QWidget* widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* result) const override;
    [[nodiscard]] QIcon standardIcon(StandardPixmap standardIcon, const QStyleOption* option,
                                     const QWidget* widget) const override;

    using QProxyStyle::polish;
};

}  // namespace velmar
