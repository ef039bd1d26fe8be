// A thin scroll bar that lies over the right edge of a scroll area, shows while it is scrolled or
// under the pointer, and then fades. The area keeps its whole width; its own bar stays hidden and
// does the counting. Nothing runs while it is faded out.
#pragma once

#include <QtCore/QTimer>
#include <QtCore/QVariantAnimation>
#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QWidget>

class QScrollBar;

namespace velmar {

class OverlayScrollBar : public QWidget {
    Q_OBJECT

public:
    // Turns the area's own vertical bar off and stands in for it.
    explicit OverlayScrollBar(QAbstractScrollArea* area);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    [[nodiscard]] QRectF handle() const;
    void place();
    void appear();
    void startFading();

    QAbstractScrollArea* m_area;
    QScrollBar* m_bar;
    QTimer m_rest;
    QVariantAnimation m_fade;
    double m_opacity = 0;
    double m_grip = -1;
};

}  // namespace velmar
