#include "DiaryApp/Entry/SourcePage.h"

#include <QtCore/QScopedValueRollback>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QMenu>
#include <QtWidgets/QScrollBar>

#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Theme.h"
#include "DiaryApp/Entry/PageLayout.h"

namespace velmar {

namespace {

constexpr int kTop = 34;
constexpr int kBottom = 40;

QFont sourceFont() {
    return fonts::mono(13);
}

}  // namespace

SourceText::SourceText(QWidget* parent) : QTextEdit(parent), m_layout(nullptr) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setReadOnly(true);
    // The mouse selects; keys scroll, since there is no caret to move.
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setAcceptDrops(false);
    viewport()->setAcceptDrops(false);
    viewport()->setAutoFillBackground(false);
    setFocusPolicy(Qt::StrongFocus);
    document()->setUndoRedoEnabled(false);
    document()->setDocumentMargin(0);
    m_layout = new SourceLayout(document(), sourceFont());
    document()->setDocumentLayout(m_layout);
    restyle();
    m_layout->setPaintDevice(viewport());
    // Qt repaints a selection only as high as its letters.
    connect(this, &QTextEdit::selectionChanged, viewport(), qOverload<>(&QWidget::update));
}

void SourceText::restyle() {
    const QFont font = sourceFont();
    m_layout->setFont(font);
    setFont(font);
    document()->setDefaultFont(font);
    viewport()->update();
}

void SourceText::keyPressEvent(QKeyEvent* event) {
    const bool isOwn =
        event->matches(QKeySequence::Copy) || event->matches(QKeySequence::SelectAll);
    isOwn ? QTextEdit::keyPressEvent(event) : event->ignore();
}

void SourceText::contextMenuEvent(QContextMenuEvent* event) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(qtTrId("Copy"), this, &QTextEdit::copy)
        ->setEnabled(textCursor().hasSelection());
    menu->addAction(qtTrId("Select All"), this, &QTextEdit::selectAll);
    menu->popup(event->globalPos());
}

void SourceText::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

SourcePage::SourcePage(QWidget* parent) : PageScroll(parent), m_text(new SourceText(page())) {
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &SourcePage::layOutVisible);
}

void SourcePage::update(const QString& text, const QString& fileName) {
    page()->setAccessibleName(fileName);
    m_text->setAccessibleName(qtTrId("AccessibleSource").arg(fileName));
    if (text == m_shown) return;
    m_shown = text;
    m_text->setPlainText(text);
    place();
}

void SourcePage::restyle() {
    PageScroll::restyle();
    m_text->restyle();
    place();
}

void SourcePage::resizeEvent(QResizeEvent* event) {
    PageScroll::resizeEvent(event);
    place();
}

void SourcePage::place() {
    const double width = viewport()->width();
    const double text = PageLayout::textWidth(width);
    const double left = PageLayout::textLeft(width);
    // The text is laid out at its new width before its height counts.
    m_text->setGeometry(qRound(left), kTop, qRound(text), m_text->height());
    layOutVisible();
}

// What is laid out for the first time may turn out higher than it was taken to be. What stands at
// the top of the window stays there.
void SourcePage::layOutVisible() {
    if (m_isPlacing) return;
    const QScopedValueRollback<bool> placing(m_isPlacing, true);
    const int height = viewport()->height();
    const int top = verticalScrollBar()->value() - kTop;
    const int moved = m_text->layOut(top - height, top + 2 * height, top);
    const int textHeight = m_text->textHeight();
    if (m_text->height() != textHeight) m_text->resize(m_text->width(), textHeight);
    page()->resize(viewport()->width(), qMax(height, kTop + textHeight + kBottom));
    if (moved != 0) verticalScrollBar()->setValue(verticalScrollBar()->value() + moved);
}

}  // namespace velmar
