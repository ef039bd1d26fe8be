// What the kinds of page have in common: paper that scrolls as a whole, under a bar that fades, and
// moves on to a place of it by itself.
#pragma once

#include <QtCore/QVariantAnimation>
#include <QtWidgets/QScrollArea>

namespace velmar {

class OverlayScrollBar;

class PageScroll : public QScrollArea {
    Q_OBJECT

public:
    explicit PageScroll(QWidget* parent = nullptr);

    // The colours, after a change of palette.
    void restyle();
    void scrollToTop();
    // Whether it scrolls by itself at present.
    [[nodiscard]] bool isGliding() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

    // Scrolls until the rectangle of the page stands in the middle of the visible part, unless it
    // is in full view already. Takes 200 ms, or no time while motion is reduced.
    void glideTo(const QRect& rect);
    // Whoever scrolls for another reason isn't to be pulled back.
    void stopGliding();
    [[nodiscard]] QWidget* page() const { return widget(); }

private:
    OverlayScrollBar* m_scrollBar;
    QVariantAnimation m_glide;
};

}  // namespace velmar
