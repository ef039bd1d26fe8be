#include "DiaryApp/Search/SearchResultsList.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QScopedValueRollback>
#include <QtGui/QFocusEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QScrollBar>

#include "DiaryApp/Appearance/OverlayScrollBar.h"
#include "DiaryApp/Appearance/Theme.h"
#include "DiaryApp/Search/SearchResultsModel.h"
#include "DiaryApp/Search/SearchRowDelegate.h"

namespace velmar {

namespace {

constexpr double kRingGap = 2;
constexpr double kRingWidth = 2;
// How long a key that is pressed meanwhile may have to wait.
constexpr int kSliceMilliseconds = 2;

}  // namespace

SearchResultsList::SearchResultsList(QWidget* parent)
    : QListView(parent), m_model(new SearchResultsModel(this)), m_heights(*m_model) {
    setModel(m_model);
    setItemDelegate(new SearchRowDelegate(m_heights, this));
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setEditTriggers(NoEditTriggers);
    // A drag over the rows selects nothing; select() alone does.
    setSelectionMode(NoSelection);
    // A click leaves the focus in the field, where the next word is typed.
    setFocusPolicy(Qt::TabFocus);
    setResizeMode(Adjust);
    viewport()->setAutoFillBackground(false);
    viewport()->setAttribute(Qt::WA_Hover);
    new OverlayScrollBar(this);
    connect(this, &QListView::clicked, this, &SearchResultsList::tellHit);
}

bool SearchResultsList::isHit(const QModelIndex& index) const {
    return index.isValid() && m_model->line(index).row != nullptr;
}

void SearchResultsList::tellHit(const QModelIndex& index) {
    if (isHit(index) && onSelect) onSelect(m_model->line(index).row->index);
}

QModelIndex SearchResultsList::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const QModelIndex found = QListView::moveCursor(action, modifiers);
    if (!found.isValid() || isHit(found)) return found;
    const bool isUp = action == MoveUp || action == MovePrevious || action == MovePageUp;
    const QModelIndex above = m_model->index(found.row() - 1);
    return isUp && isHit(above) ? above : m_model->index(found.row() + 1);
}

// A screen reader speaks the row that a key went to, so that row is what the page has to show.
void SearchResultsList::keyPressEvent(QKeyEvent* event) {
    const QModelIndex before = currentIndex();
    QListView::keyPressEvent(event);
    if (currentIndex() != before) tellHit(currentIndex());
}

void SearchResultsList::setGroups(std::vector<SearchPaneState::Group> groups) {
    m_heights.clear();
    m_model->setGroups(std::move(groups));
    verticalScrollBar()->setValue(0);
}

void SearchResultsList::select(std::optional<int> hit) {
    const QModelIndex index = hit ? m_model->indexOfHit(*hit) : QModelIndex();
    if (index == currentIndex() && selectionModel()->isSelected(index) == index.isValid()) return;
    if (!index.isValid()) {
        selectionModel()->clear();
        return;
    }
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    // The first hit of a year brings the year's head along.
    const QModelIndex above = m_model->index(index.row() - 1);
    if (above.isValid() && !isHit(above)) scrollTo(above);
    scrollTo(index);
    viewport()->update();
}

void SearchResultsList::doItemsLayout() {
    m_heights.setWidth(width());
    QListView::doItemsLayout();
    if (m_isLayingOut) return;
    measureShown();
    if (m_heights.firstUnmeasured() >= 0) m_idle.start(0, this);
}

void SearchResultsList::layOutAnew() {
    const QScopedValueRollback<bool> layingOut(m_isLayingOut, true);
    const QModelIndex top = indexAt({0, 0});
    const int before = visualRect(top).top();
    doItemsLayout();
    if (!top.isValid()) return;
    QScrollBar* bar = verticalScrollBar();
    bar->setValue(bar->value() + visualRect(top).top() - before);
}

// Lines that turn out lower bring up others from below.
void SearchResultsList::measureShown() {
    for (bool isOther = true; isOther;) {
        isOther = false;
        const QModelIndex top = indexAt({0, 0});
        const int count = m_model->rowCount();
        for (int row = top.isValid() ? top.row() : count; row < count; ++row) {
            if (visualRect(m_model->index(row)).top() >= viewport()->height()) break;
            isOther = m_heights.measure(row) || isOther;
        }
        if (isOther) layOutAnew();
    }
}

void SearchResultsList::measureAround(int row) {
    m_heights.setWidth(width());
    const int reach = viewport()->height() / SearchRowDelegate::headHeight + 1;
    const int last = qMin(row + reach, m_model->rowCount() - 1);
    bool isOther = false;
    for (int each = qMax(0, row - reach); each <= last; ++each) {
        isOther = m_heights.measure(each) || isOther;
    }
    if (isOther) layOutAnew();
}

void SearchResultsList::measureIdly() {
    QElapsedTimer elapsed;
    elapsed.start();
    bool isOther = false;
    int next = m_heights.firstUnmeasured();
    for (; next >= 0 && elapsed.elapsed() < kSliceMilliseconds;
         next = m_heights.firstUnmeasured()) {
        isOther = m_heights.measure(next) || isOther;
    }
    if (isOther) layOutAnew();
    if (next < 0) m_idle.stop();
}

void SearchResultsList::scrollTo(const QModelIndex& index, ScrollHint hint) {
    if (index.isValid()) measureAround(index.row());
    QListView::scrollTo(index, hint);
}

void SearchResultsList::scrollContentsBy(int dx, int dy) {
    QListView::scrollContentsBy(dx, dy);
    if (!m_isLayingOut) measureShown();
}

void SearchResultsList::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_idle.timerId()) return QListView::timerEvent(event);
    measureIdly();
}

void SearchResultsList::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    if (!m_showsFocus) return;
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(theme::color(Token::Accent, 0.55), kRingWidth));
    const bool hasRow = currentIndex().isValid() && selectionModel()->isSelected(currentIndex());
    const double reach = kRingGap + kRingWidth / 2;
    const QRectF ring = hasRow ? SearchRowDelegate::box(visualRect(currentIndex()))
                                     .adjusted(-reach, -reach, reach, reach)
                               : QRectF(viewport()->rect()).adjusted(reach, reach, -reach, -reach);
    const double radius = SearchRowDelegate::boxRadius + kRingGap;
    painter.drawRoundedRect(ring, radius, radius);
}

void SearchResultsList::focusInEvent(QFocusEvent* event) {
    QListView::focusInEvent(event);
    m_showsFocus = event->reason() == Qt::TabFocusReason ||
                   event->reason() == Qt::BacktabFocusReason ||
                   event->reason() == Qt::ShortcutFocusReason;
    viewport()->update();
}

void SearchResultsList::focusOutEvent(QFocusEvent* event) {
    QListView::focusOutEvent(event);
    m_showsFocus = false;
    viewport()->update();
}

void SearchResultsList::changeEvent(QEvent* event) {
    QListView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) viewport()->update();
    // Another language has other shapes, so rows may take other heights.
    if (event->type() != QEvent::LanguageChange) return;
    m_heights.clear();
    scheduleDelayedItemsLayout();
}

}  // namespace velmar
