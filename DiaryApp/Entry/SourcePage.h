// The day's file as it is on disk: text to be read, selected and copied, nothing more.
#pragma once

#include <QtWidgets/QTextEdit>

#include "DiaryApp/Entry/PageScroll.h"
#include "DiaryApp/Entry/SourceLayout.h"

namespace velmar {

// The text itself; the page around it scrolls.
class SourceText : public QTextEdit {
    Q_OBJECT

public:
    explicit SourceText(QWidget* parent = nullptr);

    // The colours, and the fonts of the language.
    void restyle();
    // Sets what lies between these heights; see SourceLayout::layOut().
    int layOut(int top, int bottom, int anchor) { return m_layout->layOut(top, bottom, anchor); }
    [[nodiscard]] int textHeight() const { return qRound(m_layout->documentSize().height()); }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    SourceLayout* m_layout;
};

class SourcePage : public PageScroll {
    Q_OBJECT

public:
    explicit SourcePage(QWidget* parent = nullptr);

    // The same text again changes nothing, not even the selection.
    void update(const QString& text, const QString& fileName);
    void restyle();

    [[nodiscard]] SourceText* text() const { return m_text; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void place();
    void layOutVisible();

    SourceText* m_text;
    QString m_shown;
    bool m_isPlacing = false;
};

}  // namespace velmar
