// How a sheet comes: the veil fades in, and the panel fades in while it moves down into its place.
// It runs on pictures, over the sheet, which is in its place from the start and takes keys and
// clicks at once. Nothing runs once it is done.
#pragma once

#include <QtCore/QVariantAnimation>
#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>

namespace velmar {

class SheetArrival : public QWidget {
    Q_OBJECT

public:
    // Milliseconds, both from the beginning.
    static constexpr int veilDuration = 160;
    static constexpr int panelDuration = 180;
    // How far above its place the panel begins.
    static constexpr double drop = 8;

    explicit SheetArrival(QWidget* sheet);

    // Covers the sheet. `behind` is the window without it, `panel` the panel with its shadow and
    // controls, clear around them; both have the sheet's size.
    void run(const QPixmap& behind, const QPixmap& panel);
    // Ends it at once; the sheet is there.
    void finish();
    [[nodiscard]] bool isRunning() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVariantAnimation m_time{this};
    QPixmap m_behind;
    QPixmap m_panel;
};

}  // namespace velmar
