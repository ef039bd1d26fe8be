#include "DiaryApp/Entry/OneYearPage.h"

#include <QtCore/QScopedValueRollback>
#include <utility>

#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Editor/GrowingTextView.h"
#include "DiaryApp/Entry/DayHead.h"
#include "DiaryApp/Entry/PageLayout.h"
#include "DiaryApp/Entry/PageParts.h"

namespace velmar {

OneYearPage::OneYearPage(const Settings& settings, QWidget* parent)
    : PageScroll(parent),
      m_settings(settings),
      m_head(new DayHead(page())),
      m_yearRow(new YearRow(page())),
      m_editor(new GrowingTextView(page())),
      m_hint(new HintBox(page())),
      m_gapLine(new GapLine(page())) {
    m_hint->hide();
    m_gapLine->hide();
    wire();
    retranslate();
    restyle();
}

void OneYearPage::wire() {
    m_editor->onTextChanged = [this](const QString& draft) {
        if (onDraftChanged) onDraftChanged(draft);
    };
    m_editor->onHeightChanged = [this] { place(); };
    m_editor->onCaretMoved = [this] { followCaret(); };
}

void OneYearPage::update(const EntryModel& model) {
    m_head->setTexts({model.dayKey, model.weekdayName, model.ordinal, model.subtitle});
    m_yearRow->setYear({model.block.mark, model.block.markColor, model.block.ago});
    m_gapLine->setText(model.gapLine.value_or(QString()));
    m_gapLine->setVisible(model.gapLine.has_value());
    const QString place = model.dayKey + u' ' + model.block.mark;
    const bool isElsewhere = std::exchange(m_loadedFor, place) != place;
    if (const auto* editor = std::get_if<EntryModel::Editor>(&model.block.kind)) {
        if (isElsewhere) {
            loadText(*editor);
        } else if (editor->draft != m_editor->draft()) {
            m_editor->reload(editor->draft);
        }
        m_editor->setAccessibleName(qtTrId("AccessibleEditor").arg(place));
    }
    showBlock(model.block);
    this->place();
}

// A text is laid out when it comes and again in another colour; so the colour comes first, while
// there is nothing to lay out.
void OneYearPage::loadText(const EntryModel::Editor& editor) {
    if (m_textColor != editor.textColor) {
        m_editor->load(QString());
        setTextColor(editor.textColor);
    }
    m_editor->load(editor.draft);
}

void OneYearPage::setTextColor(Token color) {
    if (std::exchange(m_textColor, color) != color) restyle();
}

void OneYearPage::showBlock(const EntryModel::Block& block) {
    const auto* editor = std::get_if<EntryModel::Editor>(&block.kind);
    if (editor != nullptr) {
        m_editor->setPlaceholder(editor->placeholder);
        setTextColor(editor->textColor);
    } else {
        m_editor->load(QString());
        // Otherwise Qt would hand the focus to whatever comes next in the window, which may be
        // behind another one at the moment.
        if (window()->focusWidget() == m_editor) setFocus(Qt::OtherFocusReason);
        m_hint->setText(std::get<EntryModel::Empty>(block.kind).text);
    }
    m_editor->setVisible(editor != nullptr);
    m_hint->setVisible(editor == nullptr);
}

void OneYearPage::retranslate() {
    page()->setAccessibleName(qtTrId("AccessiblePage"));
    m_head->retranslate();
}

void OneYearPage::restyle() {
    PageScroll::restyle();
    const double size = m_settings.editorFontSize();
    m_editor->restyle(fonts::body(m_settings, size), size, theme::color(m_textColor));
    place();
}

void OneYearPage::place() {
    // Placing the editor may change its height, which comes back here.
    if (m_isPlacing) return;
    const QScopedValueRollback<bool> placing(m_isPlacing, true);
    const double width = viewport()->width();
    const bool hasEditor = !m_editor->isHidden();
    // The text is laid out at its new width before its height counts.
    m_editor->resize(qRound(PageLayout::columnWidth(width)) + GrowingTextView::markRoom,
                     m_editor->height());
    m_editor->setPageHeight(viewport()->height());
    PageParts parts;
    parts.width = width;
    parts.leastHeight = viewport()->height();
    if (hasEditor) parts.editorHeight = m_editor->textHeight();
    parts.hintTextHeight = hasEditor ? 0 : m_hint->textHeight(PageLayout::hintTextWidth(width));
    if (!m_gapLine->isHidden()) {
        parts.gapTextHeight = m_gapLine->textHeight(PageLayout::textWidth(width));
    }
    const PageLayout layout = layOutPage(parts);
    page()->resize(qRound(width), qRound(layout.height));
    m_head->setColumn(layout.head.toRect());
    m_yearRow->setGeometry(layout.yearRow.toRect());
    if (hasEditor) {
        const QRect column = layout.editor.toRect();
        m_editor->setGeometry(column.adjusted(-GrowingTextView::markRoom, 0, 0, 0));
    }
    m_hint->setGeometry(layout.hint.toRect());
    m_hint->setTextRect(layout.hintText.translated(-layout.hint.topLeft()));
    m_gapLine->setGeometry(layout.gapLine.toRect());
}

void OneYearPage::followCaret() {
    if (m_isPlacing) return;
    stopGliding();
    const QPoint caret = m_editor->mapTo(page(), m_editor->caretRect().center());
    // With its first line comes the head of the page.
    const bool isFirstLine = m_editor->caretRect().center().y() < m_editor->lineHeight();
    if (isFirstLine && caret.y() < viewport()->height()) return scrollToTop();
    // A line above and below the caret's stays visible.
    ensureVisible(0, caret.y(), 0, m_editor->lineHeight());
}

void OneYearPage::focusEditor() {
    // Where a hint stands in the editor's place, the page has the keys: they scroll it.
    QWidget* target = m_editor;
    if (m_editor->isHidden()) target = this;
    target->setFocus(Qt::OtherFocusReason);
}

void OneYearPage::setEditable(bool editable) {
    if (m_editor->isReadOnly() == !editable) return;
    m_editor->setReadOnly(!editable);
    // A field that can be edited has a least height.
    place();
}

void OneYearPage::setMatches(std::vector<diary::TextRange> ranges, int current) {
    m_editor->setMatches(std::move(ranges), current);
}

void OneYearPage::glideToMatch(int index) {
    const QRect match = m_editor->matchRect(index);
    if (match.isEmpty() || m_editor->isHidden()) return;
    glideTo(QRect(m_editor->mapTo(page(), match.topLeft()), match.size()));
}

void OneYearPage::resizeEvent(QResizeEvent* event) {
    PageScroll::resizeEvent(event);
    place();
}

}  // namespace velmar
