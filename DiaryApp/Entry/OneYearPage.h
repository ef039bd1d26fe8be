// The page of one day and one year: the head, the year, its text to be written in, and the years
// that are missing. It scrolls as a whole; the text field on it grows.
#pragma once

#include <functional>

#include "DiaryApp/Entry/EntryModel.h"
#include "DiaryApp/Entry/PageScroll.h"
#include "DiaryKit/Foundation/TextRange.h"

namespace velmar {

class DayHead;
class GapLine;
class GrowingTextView;
class HintBox;
class YearRow;

class OneYearPage : public PageScroll {
    Q_OBJECT

public:
    explicit OneYearPage(const Settings& settings, QWidget* parent = nullptr);

    // After each change by the user, with the new draft.
    std::function<void(const QString&)> onDraftChanged;

    // Shows the model. The editor is touched only if its draft isn't the one in it already: then
    // the new one is loaded and its undo history cleared. Otherwise only labels change, and the
    // caret, the composition and the history stay.
    void update(const EntryModel& model);
    void retranslate();
    void restyle();

    void focusEditor();
    void setEditable(bool editable);
    void setMatches(std::vector<diary::TextRange> ranges, int current);
    void glideToMatch(int index);

    [[nodiscard]] GrowingTextView* editor() const { return m_editor; }
    [[nodiscard]] DayHead* head() const { return m_head; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void wire();
    void loadText(const EntryModel::Editor& editor);
    void setTextColor(Token color);
    void showBlock(const EntryModel::Block& block);
    void place();
    void followCaret();

    const Settings& m_settings;
    DayHead* m_head;
    YearRow* m_yearRow;
    GrowingTextView* m_editor;
    HintBox* m_hint;
    GapLine* m_gapLine;
    // What the editor was loaded for: a day and year.
    QString m_loadedFor;
    Token m_textColor = Token::Ink;
    bool m_isPlacing = false;
};

}  // namespace velmar
