// A sheet over the window with one message and an OK. It takes all input until it is closed; the
// calling code goes on at once.
#pragma once

#include <QtWidgets/QWidget>
#include <functional>

namespace velmar {

class Button;

class AlertSheet : public QWidget {
    Q_OBJECT

public:
    // Shows the sheet over the whole window. What had the focus gets it back when it is closed, and
    // `onClosed` is called then. The sheet deletes itself.
    static AlertSheet* show(QWidget* window, const QString& title, const QString& text,
                            std::function<void()> onClosed = {});

    [[nodiscard]] Button* button() const { return m_button; }

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    AlertSheet(QWidget* window, QString title, QString text, std::function<void()> onClosed);
    void place();
    void close();
    [[nodiscard]] double titleHeight() const;
    [[nodiscard]] double textHeight() const;

    QString m_title;
    QString m_text;
    std::function<void()> m_onClosed;
    QRectF m_sheet;
    Button* m_button;
    QWidget* m_focusBefore;
};

}  // namespace velmar
