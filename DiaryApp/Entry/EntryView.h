// The page: one day, one year. It scrolls as a whole; the text field on it grows. The view is
// passive: it shows the model that it is given and calls back.
#pragma once

#include <QtWidgets/QScrollArea>
#include <functional>
#include <optional>

#include "DiaryApp/Entry/EntryModel.h"

namespace velmar {

class DayHead;
class GrowingTextView;
class GapLine;
class HintBox;
class OverlayScrollBar;
class YearRow;

class EntryView : public QScrollArea {
    Q_OBJECT

public:
    using Model = EntryModel;

    explicit EntryView(const Settings& settings, QWidget* parent = nullptr);

    // After each change by the user, with the new draft.
    std::function<void(const QString&)> onDraftChanged;
    std::function<void()> onPreviousDay;
    std::function<void()> onNextDay;

    // Shows the model. The editor is touched only if its draft isn't the one in it already: then
    // the new one is loaded and its undo history cleared. Otherwise only labels change, and the
    // caret, the composition and the history stay.
    void update(const Model& model);

    // The texts that aren't part of the model, after a change of language.
    void retranslate();
    // The body's font and the colours, after a change of settings or palette.
    void restyle();

    void scrollToTop();
    void focusEditor();
    // Off while an import writes. Another model doesn't turn it on again.
    void setEditable(bool editable);

    [[nodiscard]] const QString& draft() const;
    // The text field, to which the editing commands of the menu go.
    [[nodiscard]] GrowingTextView* editor() const { return m_editor; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void wire();
    void showBlock(const Model::Block& block);
    void place();
    void followCaret();

    const Settings& m_settings;
    QWidget* m_page;
    DayHead* m_head;
    YearRow* m_yearRow;
    GrowingTextView* m_editor;
    HintBox* m_hint;
    GapLine* m_gapLine;
    OverlayScrollBar* m_scrollBar;
    // What the editor was loaded for: a day and year.
    QString m_loadedFor;
    Token m_textColor = Token::Ink;
    bool m_isPlacing = false;
};

}  // namespace velmar
