// The text field of the page: plain text in a rhythm of 34 pixels, as high as its text. It doesn't
// scroll; the page does. The text that counts is draft(), never the document's.
#pragma once

#include <QtWidgets/QTextEdit>
#include <functional>

#include "DiaryApp/Editor/CaretBlink.h"
#include "DiaryApp/Editor/DraftText.h"

namespace velmar {

class DraftEditor : public QTextEdit {
    Q_OBJECT

public:
    explicit DraftEditor(QWidget* parent = nullptr);

    // Called after each change of the draft by the user, with the new draft. Text in composition
    // isn't part of it.
    std::function<void(const QString&)> onDraftChanged;
    // Called when the caret may have left the visible part of the page.
    std::function<void()> onCaretMoved;
    // Called when the height has changed.
    std::function<void()> onHeightChanged;

    // Shows another draft: the caret goes to its end and the undo history is cleared. No callback.
    void load(const QString& draft);
    [[nodiscard]] const QString& draft() const { return m_draft.text(); }

    void setPlaceholder(const QString& text);
    // The body's font and size, and the colour of the text, from the settings and the theme.
    void restyle(const QFont& font, const QColor& color);

    // The height of the text at the present width, at least 76.
    [[nodiscard]] int textHeight() const;
    // How far the text stands below the place that a line centred in the rhythm would have. The
    // page puts the field that much higher.
    [[nodiscard]] double rhythmShift() const;
    // Where the caret is, in the field's coordinates.
    [[nodiscard]] QRect caretRect() const;

    // The line height, and the room at the left and right of the text.
    static constexpr int rhythm = 34;
    static constexpr int gutter = 22;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void takeChange(int position, int removed, int added);
    void announce();
    void setRhythm();
    [[nodiscard]] double caretRowTop() const;
    void paintCaret(QPainter& painter) const;
    void paintPlaceholder(QPainter& painter) const;
    [[nodiscard]] bool isComposing() const;

    DraftText m_draft;
    CaretBlink m_blink;
    QString m_placeholder;
    bool m_isLoading = false;
    bool m_hasChanged = false;
};

}  // namespace velmar
