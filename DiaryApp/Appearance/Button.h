// The buttons of the interface: one class, whose look follows its kind. All of them paint their
// hover, their press and a focus ring (after the keyboard moved the focus) from the theme.
#pragma once

#include <QtCore/QVariantAnimation>
#include <QtWidgets/QAbstractButton>

class QFocusFrame;

namespace velmar {

class Button : public QAbstractButton {
    Q_OBJECT

public:
    enum class Kind {
        // No box at rest: the bars' buttons.
        Quiet,
        // A box with a line.
        Plain,
        // The one that acts; at most one on a sheet.
        Filled,
    };

    explicit Button(Kind kind, QWidget* parent = nullptr);

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
    struct Colors {
        QColor fill;
        QColor line;
        QColor text;
        QColor icon;
    };
    [[nodiscard]] Colors colors() const;
    [[nodiscard]] Colors restColors() const;
    [[nodiscard]] Colors hoverColors() const;
    [[nodiscard]] Colors pressedColors() const;
    [[nodiscard]] Colors disabledColors() const;
    [[nodiscard]] QFont labelFont() const;
    void paintLabel(QPainter& painter, const Colors& colors) const;
    void fadeHover(bool isOver);

    Kind m_kind;
    QString m_iconName;
    QVariantAnimation m_hover;
    QFocusFrame* m_ring = nullptr;
};

}  // namespace velmar
