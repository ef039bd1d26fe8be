// A card that can be pressed: a box with a line whose content the derived class paints. Hover,
// press and the focus ring (after the keyboard moved the focus) are the same for all of them.
#pragma once

#include <QtWidgets/QAbstractButton>

#include "DiaryApp/Appearance/FocusRing.h"
#include "DiaryApp/Appearance/HoverFade.h"
#include "DiaryApp/Appearance/Theme.h"

namespace velmar {

// A rounded box with a line of one pixel inside of its edges.
void paintCard(QPainter& painter, const QRectF& rect, double radius, const QColor& fill,
               const QColor& line, Qt::PenStyle style = Qt::SolidLine);

class CardButton : public QAbstractButton {
    Q_OBJECT

protected:
    struct Ground {
        Token fill = Token::CardBg;
        Token line = Token::CardBorder;
        // The line under the pointer.
        Token hoverLine = Token::CardBorderHover;
        // A dashed card has no ground of its own at rest.
        bool isDashed = false;
    };

    CardButton(double radius, QWidget* parent);

    void setGround(const Ground& ground);
    // 0 to 1, how much of its hover look the card has.
    [[nodiscard]] double hoverShare() const { return m_hover.share(); }
    // From `rest` to `hover` as the pointer comes.
    [[nodiscard]] QColor hovered(Token rest, Token hover) const;
    virtual void paintGround(QPainter& painter) const;
    virtual void paintContent(QPainter& painter) const = 0;

    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    double m_radius;
    Ground m_ground;
    HoverFade m_hover;
    FocusRing m_ring;
};

}  // namespace velmar
