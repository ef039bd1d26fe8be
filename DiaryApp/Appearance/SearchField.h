// The field that a search is typed into: a line with the search icon ahead and, while it holds
// text, a button that empties it. textEdited() tells what the user changed, the button too, and
// nothing of what an input method still composes.
#pragma once

#include <QtWidgets/QLineEdit>

#include "DiaryApp/Appearance/CaretBlink.h"

class QAbstractButton;

namespace velmar {

class SearchField : public QLineEdit {
    Q_OBJECT

public:
    explicit SearchField(QWidget* parent = nullptr);

    // Whether an input method holds text that isn't in text() yet.
    [[nodiscard]] bool isComposing() const { return m_isComposing; }

    // The name of the button that empties the field, read aloud and as its tooltip.
    void setClearText(const QString& text);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    static constexpr int boxHeight = 32;
    // Room around the box, for the halo that shows the focus; part of the widget.
    static constexpr int boxMargin = 3;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void paintBox(QPainter& painter) const;
    [[nodiscard]] QRect caretRect() const;
    void paintCaret(QPainter& painter) const;
    void applyPalette();
    void clearByButton();

    QAbstractButton* m_clear;
    CaretBlink m_blink;
    bool m_isComposing = false;
    bool m_isApplyingPalette = false;
};

}  // namespace velmar
