// A sheet over the window with one message, and an OK or a question's two answers. It takes all
// input until it is closed; the calling code goes on at once.
#pragma once

#include <functional>

#include "DiaryApp/Chrome/Sheet.h"

namespace velmar {

class Button;

class AlertSheet : public Sheet {
    Q_OBJECT

public:
    // What a question offers beside its title and text. Escape is the way out.
    struct Answers {
        QString act;
        QString cancel;
    };

    // Shows the sheet over the whole window. What had the focus gets it back when it is closed, and
    // `onClosed` is called then. The sheet deletes itself.
    static AlertSheet* show(QWidget* window, const QString& title, const QString& text,
                            std::function<void()> onClosed = {});

    // The same with two buttons: `onConfirmed` is called, once the sheet is closed, only if the
    // acting one was taken.
    static AlertSheet* ask(QWidget* window, const QString& title, const QString& text,
                           const Answers& answers, std::function<void()> onConfirmed);

    // The one that acts, or the only one.
    [[nodiscard]] Button* button() const { return m_button; }
    // Null on a sheet that asks nothing.
    [[nodiscard]] Button* cancelButton() const { return m_cancel; }

protected:
    [[nodiscard]] QSizeF panelSize() const override;
    void placeControls() override;
    void paintPanel(QPainter& painter) override;
    void escaped() override;

private:
    AlertSheet(QWidget* window, QString title, QString text);
    void close(const std::function<void()>& then);
    [[nodiscard]] double titleHeight() const;
    [[nodiscard]] double textHeight() const;

    QString m_title;
    QString m_text;
    std::function<void()> m_onEscape;
    // Ahead of the acting one in the order of the Tab key, as it stands to its left.
    Button* m_cancel = nullptr;
    Button* m_button = nullptr;
};

}  // namespace velmar
