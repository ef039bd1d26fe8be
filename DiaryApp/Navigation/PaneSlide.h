// The change from one pane to the other in one place: the old one fades and slides to the left, the
// new one comes from the right. It runs on pictures of both, over the new pane, which is in its
// place from the start and takes keys and clicks at once. Nothing runs once it is done.
#pragma once

#include <QtCore/QVariantAnimation>
#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>

namespace velmar {

class PaneSlide : public QWidget {
    Q_OBJECT

public:
    explicit PaneSlide(QWidget* parent);

    // Covers `area` of the parent with the change. A change that still runs ends first. Does
    // nothing while motion is reduced.
    void run(const QRect& area, const QPixmap& from, const QPixmap& to);
    // Ends a running change; what it led to is there.
    void finish();
    [[nodiscard]] bool isRunning() const;

    // Milliseconds, from the beginning of the change.
    static constexpr int duration = 220;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVariantAnimation m_time;
    QPixmap m_from;
    QPixmap m_to;
};

}  // namespace velmar
