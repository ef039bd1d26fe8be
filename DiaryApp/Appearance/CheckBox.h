// A box to tick with its words behind it, or one of several round ones of which one is chosen. All
// of it can be clicked; Space ticks it. Round ones beside each other exclude each other, and arrow
// keys go through them.
#pragma once

#include <QtCore/QVariantAnimation>
#include <QtWidgets/QAbstractButton>
#include <functional>

#include "DiaryApp/Appearance/FocusRing.h"
#include "DiaryApp/Appearance/HoverFade.h"

namespace velmar {

class CheckBox : public QAbstractButton {
    Q_OBJECT

public:
    enum class Shape { Square, Round };

    explicit CheckBox(const QString& text = {}, QWidget* parent = nullptr,
                      Shape shape = Shape::Square);

    // A click or key changed it; setChecked() doesn't call.
    std::function<void(bool)> onChanged;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void markChanged(bool isOn);
    void paintBox(QPainter& painter) const;
    void paintMark(QPainter& painter) const;

    Shape m_shape;
    // What the ring goes around: the box alone, not its words.
    QWidget* m_box;
    HoverFade m_hover;
    FocusRing m_ring;
    QVariantAnimation m_drawing;
    // How much of the mark is drawn, 0 to 1.
    double m_mark = 0;
};

}  // namespace velmar
