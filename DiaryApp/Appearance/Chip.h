// A chip: a small round-ended button that is on or off, for one choice among a few. A click only
// reports; whoever owns the choice sets it with setChecked(), so a chip never shows what isn't so.
#pragma once

#include <QtCore/QVariantAnimation>
#include <QtWidgets/QAbstractButton>

class QFocusFrame;

namespace velmar {

class Chip : public QAbstractButton {
    Q_OBJECT

public:
    enum class Size {
        // Text of 11.5 with room around it, for a chip that stands alone.
        Regular,
        // Text of 11, closer set, for a row of chips.
        Small,
    };
    enum class IconPlace { Leading, Trailing };

    explicit Chip(Size size, QWidget* parent = nullptr);

    // The icon beside the text, or alone where there is no text; empty for none.
    void setIconName(const QString& name, IconPlace place = IconPlace::Leading);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    static constexpr int chipHeight = 24;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void nextCheckState() override {}

private:
    struct Measures {
        // From the edge to the text; an icon reaches 2 further out.
        double padding = 0;
        double gap = 0;
        double fontSize = 0;
    };
    struct Colors {
        QColor fill;
        QColor line;
        QColor text;
    };
    [[nodiscard]] Measures measures() const;
    [[nodiscard]] Colors colors() const;
    [[nodiscard]] Colors restColors() const;
    [[nodiscard]] double iconSize() const;
    // Of text and icon together, without the padding.
    [[nodiscard]] double contentWidth() const;
    void paintContent(QPainter& painter, const QColor& color) const;
    void fadeHover(bool isOver);

    Size m_size;
    QString m_iconName;
    IconPlace m_iconPlace = IconPlace::Leading;
    QVariantAnimation m_hover;
    QFocusFrame* m_ring = nullptr;
};

}  // namespace velmar
