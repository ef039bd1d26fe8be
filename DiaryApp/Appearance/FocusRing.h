// The ring around what has the keyboard's focus. It shows after the keyboard moved the focus there,
// not after a click, and comes back with its window. VelmarStyle paints it.
#pragma once

#include <QtCore/QPointer>
#include <QtCore/Qt>

class QFocusFrame;
class QWidget;

namespace velmar {

class FocusRing {
public:
    // Goes around this widget, whose box has corners of this radius, in pixels.
    explicit FocusRing(QWidget* widget, double cornerRadius = 8);

    // To be told what the widget, or a part of it, hears about the focus.
    void focusIn(Qt::FocusReason reason);
    void focusOut(Qt::FocusReason reason);
    // A key was used after a click had brought the focus.
    void keyUsed();

    void setCornerRadius(double radius);
    // That of the widget's ring; 8 where none was set.
    [[nodiscard]] static double cornerRadius(const QWidget* widget);

private:
    void show();

    QWidget* m_widget;
    QPointer<QFocusFrame> m_frame;
    bool m_isByKeyboard = false;
};

}  // namespace velmar
