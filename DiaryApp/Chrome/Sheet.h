// A sheet over a window: a veil, and a panel with a shadow on it that takes all input until the
// sheet is closed. It comes in 180 ms, and takes input from the first. What stands on the panel is
// the business of the classes derived from it.
#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

namespace velmar {

class SheetArrival;

class Sheet : public QWidget {
    Q_OBJECT

public:
    // Where the panel lies, in the sheet's coordinates.
    [[nodiscard]] const QRectF& panel() const { return m_panel; }
    // Whether the sheet still moves to its place.
    [[nodiscard]] bool isArriving() const;

protected:
    // Covers the whole window of this widget, hidden at first, and follows its size. It presents
    // itself as a dialog of this title and text.
    Sheet(QWidget* window, const QString& title, const QString& text);

    // Shows the sheet and moves the focus to `first`; the reason decides whether a ring shows. At
    // once where the window isn't on screen or motion is reduced.
    void present(QWidget* first, Qt::FocusReason reason);
    // Gives the focus back to what had it. The sheet deletes itself.
    void dismiss();

    // The panel's size; asked for at each placing.
    [[nodiscard]] virtual QSizeF panelSize() const = 0;
    // The panel's distance from the window's top.
    [[nodiscard]] virtual double panelTop(double panelHeight) const;
    // Moves the controls to their places on the panel.
    virtual void placeControls() = 0;
    virtual void paintPanel(QPainter& painter) = 0;
    // Escape; does nothing here.
    virtual void escaped() {}

    // To be called when sizes have changed; the window's own resizing is seen to.
    void place();

    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] QPixmap pictureOfPanel();
    void focusFirst();

    QRectF m_panel;
    SheetArrival* m_arrival;
    bool m_hasVeil = true;
    QPointer<QWidget> m_focusBefore;
    // What takes the focus once the window is active, and why.
    QPointer<QWidget> m_first;
    Qt::FocusReason m_reason = Qt::OtherFocusReason;
};

}  // namespace velmar
