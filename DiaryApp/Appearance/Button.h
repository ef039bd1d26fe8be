// The buttons of the interface: one class, whose look follows its kind and size (ButtonLook.h). All
// of them paint their hover, their press and a focus ring (after the keyboard moved the focus) from
// the theme. Space and Return press them.
#pragma once

#include <QtWidgets/QAbstractButton>

#include "DiaryApp/Appearance/ButtonLook.h"
#include "DiaryApp/Appearance/FocusRing.h"
#include "DiaryApp/Appearance/HoverFade.h"

namespace velmar {

class Button : public QAbstractButton {
    Q_OBJECT

public:
    using Kind = ButtonKind;
    using Size = ButtonSize;

    // Quiet buttons begin in the bars' size, links in a line's, and others in the regular one.
    explicit Button(Kind kind, QWidget* parent = nullptr);

    void setButtonSize(Size size);
    // The icon ahead of the text, or alone where there is no text; empty for none.
    void setIconName(const QString& name);
    // The tooltip's text, with the shortcut behind it if there is one.
    void setHint(const QString& text, const QKeySequence& shortcut = {});

    [[nodiscard]] QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] ButtonColors colors() const;
    [[nodiscard]] QFont labelFont() const;
    [[nodiscard]] double labelWidth() const;
    void paintLabel(QPainter& painter, const ButtonColors& colors) const;

    Kind m_kind;
    Size m_size;
    QString m_iconName;
    HoverFade m_hover;
    FocusRing m_ring;
};

}  // namespace velmar
