#include "DiaryApp/Entry/EntryView.h"

#include <QtCore/QEvent>
#include <QtCore/QScopedValueRollback>
#include <QtWidgets/QScrollBar>
#include <cmath>

#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/OverlayScrollBar.h"
#include "DiaryApp/Editor/GrowingTextView.h"
#include "DiaryApp/Entry/DayHead.h"
#include "DiaryApp/Entry/PageLayout.h"
#include "DiaryApp/Entry/PageParts.h"

namespace velmar {

EntryView::EntryView(const Settings& settings, QWidget* parent)
    : QScrollArea(parent),
      m_settings(settings),
      m_page(new QWidget),
      m_head(new DayHead(m_page)),
      m_yearRow(new YearRow(m_page)),
      m_editor(new GrowingTextView(m_page)),
      m_hint(new HintBox(m_page)),
      m_gapLine(new GapLine(m_page)),
      m_scrollBar(nullptr) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidget(m_page);
    m_scrollBar = new OverlayScrollBar(this);
    m_hint->hide();
    m_gapLine->hide();
    wire();
    retranslate();
    restyle();
}

void EntryView::wire() {
    m_editor->onTextChanged = [this](const QString& draft) {
        if (onDraftChanged) onDraftChanged(draft);
    };
    m_editor->onHeightChanged = [this] { place(); };
    m_editor->onCaretMoved = [this] { followCaret(); };
    connect(m_head->previous(), &Button::clicked, this, [this] {
        if (onPreviousDay) onPreviousDay();
    });
    connect(m_head->next(), &Button::clicked, this, [this] {
        if (onNextDay) onNextDay();
    });
}

void EntryView::update(const Model& model) {
    m_head->setTexts({model.dayKey, model.weekdayName, model.ordinal, model.subtitle});
    m_yearRow->setTexts(model.block.mark, model.block.markColor, model.block.ago);
    m_gapLine->setText(model.gapLine.value_or(QString()));
    m_gapLine->setVisible(model.gapLine.has_value());
    const QString place = model.dayKey + u' ' + model.block.mark;
    const bool isElsewhere = std::exchange(m_loadedFor, place) != place;
    if (const auto* editor = std::get_if<Model::Editor>(&model.block.kind)) {
        if (isElsewhere) {
            m_editor->load(editor->draft);
        } else if (editor->draft != m_editor->draft()) {
            m_editor->reload(editor->draft);
        }
        m_editor->setAccessibleName(qtTrId("AccessibleEditor").arg(place));
    }
    showBlock(model.block);
    this->place();
}

void EntryView::showBlock(const Model::Block& block) {
    const auto* editor = std::get_if<Model::Editor>(&block.kind);
    if (editor != nullptr) {
        m_editor->setPlaceholder(editor->placeholder);
        if (std::exchange(m_textColor, editor->textColor) != editor->textColor) restyle();
    } else {
        m_editor->load(QString());
        m_hint->setText(std::get<Model::Empty>(block.kind).text);
    }
    m_editor->setVisible(editor != nullptr);
    m_hint->setVisible(editor == nullptr);
}

void EntryView::retranslate() {
    m_page->setAccessibleName(qtTrId("AccessiblePage"));
    m_head->retranslate();
}

void EntryView::restyle() {
    QPalette ground;
    ground.setColor(QPalette::Window, theme::color(Token::Paper));
    viewport()->setPalette(ground);
    const double size = m_settings.editorFontSize();
    m_editor->restyle(fonts::body(m_settings, size), size, theme::color(m_textColor));
    place();
}

void EntryView::place() {
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
    const PageLayout page = layOutPage(parts);
    m_page->resize(qRound(width), qRound(page.height));
    m_head->setGeometry(page.head.toRect().adjusted(-DayHead::reach, 0, DayHead::reach, 0));
    m_yearRow->setGeometry(page.yearRow.toRect());
    if (hasEditor) {
        const QRect column = page.editor.toRect();
        m_editor->setGeometry(column.adjusted(-GrowingTextView::markRoom, 0, 0, 0));
    }
    m_hint->setGeometry(page.hint.toRect());
    m_hint->setTextRect(page.hintText.translated(-page.hint.topLeft()));
    m_gapLine->setGeometry(page.gapLine.toRect());
}

void EntryView::followCaret() {
    if (m_isPlacing) return;
    const QPoint caret = m_editor->mapTo(m_page, m_editor->caretRect().center());
    // With its first line comes the head of the page.
    const bool isFirstLine = m_editor->caretRect().center().y() < m_editor->lineHeight();
    if (isFirstLine && caret.y() < viewport()->height()) return scrollToTop();
    // A line above and below the caret's stays visible.
    ensureVisible(0, caret.y(), 0, m_editor->lineHeight());
}

void EntryView::scrollToTop() {
    verticalScrollBar()->setValue(0);
}

void EntryView::focusEditor() {
    if (!m_editor->isHidden()) m_editor->setFocus(Qt::OtherFocusReason);
}

void EntryView::setEditable(bool editable) {
    m_editor->setReadOnly(!editable);
}

const QString& EntryView::draft() const {
    return m_editor->draft();
}

void EntryView::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    place();
}

void EntryView::changeEvent(QEvent* event) {
    QScrollArea::changeEvent(event);
    if (m_scrollBar != nullptr && event->type() == QEvent::PaletteChange) restyle();
}

}  // namespace velmar
