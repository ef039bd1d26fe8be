#include "DiaryApp/Shell/MainWindow.h"

#include <QtCore/QMimeData>
#include <QtCore/QTimer>
#include <QtGui/QCloseEvent>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QDropEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtGui/QShortcut>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenuBar>
#include <algorithm>
#include <array>

#include "DiaryApp/Appearance/Theme.h"
#include "DiaryApp/Chrome/StatusBarView.h"
#include "DiaryApp/Chrome/TopBarView.h"
#include "DiaryApp/Entry/EntryView.h"
#include "DiaryApp/Navigation/SidebarView.h"
#include "DiaryApp/Navigation/YearRailView.h"
#include "DiaryApp/Search/SearchPaneView.h"

namespace velmar {

namespace {

const QLatin1String kFrameName("DiaryMainWindow");
constexpr int kMenuBarHeight = 28;

}  // namespace

MainWindow::MainWindow(Settings& settings)
    : m_settings(settings),
      m_topBar(new TopBarView(this)),
      m_sidebar(new SidebarView(this)),
      m_entryView(new EntryView(settings, this)),
      m_rail(new YearRailView(this)),
      m_statusBar(new StatusBarView(settings.homeFolder(), this)) {
    setMinimumSize(leastSize);
    setAcceptDrops(true);
    m_sidebar->hide();
    m_rail->hide();
    addFocusKeys();
    restoreFrame();
}

// The text field keeps Tab for the text, so another key leads out of it, from pane to pane.
void MainWindow::addFocusKeys() {
    const auto* next = new QShortcut(QKeySequence(Qt::Key_F6), this);
    connect(next, &QShortcut::activated, this, [this] { focusNextPane(1); });
    const auto* previous = new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F6), this);
    connect(previous, &QShortcut::activated, this, [this] { focusNextPane(-1); });
    // What opens the menus everywhere on this desktop; Qt itself knows Alt alone.
    const auto* menus = new QShortcut(QKeySequence(Qt::Key_F10), this);
    connect(menus, &QShortcut::activated, this, [this] {
        if (m_menuBar != nullptr) m_menuBar->setActiveAction(m_menuBar->actions().constFirst());
    });
    // For keyboards without a Menu key.
    const auto* context = new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F10), this);
    connect(context, &QShortcut::activated, this, &MainWindow::openContextMenu);
}

// Of what has the keys, below its caret.
void MainWindow::openContextMenu() {
    QWidget* focus = focusWidget();
    if (focus == nullptr) return;
    const QRect caret = focus->inputMethodQuery(Qt::ImCursorRectangle).toRect();
    const QPoint place = caret.isValid() ? caret.bottomLeft() : focus->rect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, place, focus->mapToGlobal(place));
    QApplication::sendEvent(focus, &event);
}

void MainWindow::focusNextPane(int step) {
    const std::array<QWidget*, 4> panes = {m_topBar, m_sidebar, m_entryView, m_rail};
    const QWidget* focus = focusWidget();
    const auto at = std::ranges::find_if(
        panes, [focus](const QWidget* pane) { return pane->isAncestorOf(focus); });
    const auto count = static_cast<int>(panes.size());
    // The page is where one is when no pane has the focus.
    int index = at == panes.end() ? 2 : static_cast<int>(at - panes.begin());
    for (int tries = 0; tries < count; ++tries) {
        index = (index + step + count) % count;
        if (focusPane(panes[index])) return;
    }
}

// Its first part that takes the focus. False if there is none.
bool MainWindow::focusPane(QWidget* pane) {
    if (pane == m_entryView && m_entryView->showsEditor()) {
        m_entryView->focusEditor();
        return m_entryView->isAncestorOf(focusWidget());
    }
    for (QWidget* each = pane->nextInFocusChain(); each != pane; each = each->nextInFocusChain()) {
        const bool takesFocus = pane->isAncestorOf(each) && each->isVisible() &&
                                each->isEnabled() && (each->focusPolicy() & Qt::TabFocus) != 0;
        if (!takesFocus) continue;
        each->setFocus(Qt::TabFocusReason);
        return true;
    }
    return false;
}

// What was made late stands last in the order of Tab; it is to follow what it belongs to.
void MainWindow::joinFocusChain(const QWidget* pane, QWidget* behind) {
    const auto takesTab = [](const QWidget* each) {
        return (each->focusPolicy() & Qt::TabFocus) != 0;
    };
    QWidgetList parts;
    for (QWidget* each = pane->nextInFocusChain(); each != pane; each = each->nextInFocusChain()) {
        if (pane->isAncestorOf(each) && takesTab(each)) parts.append(each);
    }
    QWidget* last = nullptr;
    for (QWidget* each = behind->nextInFocusChain(); behind->isAncestorOf(each);
         each = each->nextInFocusChain()) {
        if (takesTab(each) && !pane->isAncestorOf(each)) last = each;
    }
    for (QWidget* each : parts) {
        if (last != nullptr) QWidget::setTabOrder(last, each);
        last = each;
    }
}

void MainWindow::setMenuBar(QMenuBar* bar) {
    delete m_menuBar;
    m_menuBar = bar;
    m_menuBar->setParent(this);
    m_menuBar->setVisible(true);
    place();
}

void MainWindow::restoreFrame() {
    if (restoreGeometry(m_settings.windowFrame(kFrameName))) return;
    resize(preferredSize);
    // A scripted run's picture has one size on every machine.
    if (m_settings.environment(QStringLiteral("DIARY_SCREENSHOT"))) return;
    if (const QScreen* on = screen()) {
        QRect frame(QPoint(), preferredSize.boundedTo(on->availableSize()).expandedTo(leastSize));
        frame.moveCenter(on->availableGeometry().center());
        setGeometry(frame);
    }
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (onClosing && !onClosing()) {
        event->ignore();
        return;
    }
    rememberFrame();
    event->accept();
    if (onClosed) onClosed();
}

// The first time only the columns' grounds; what is on them comes once the page is on the screen.
void MainWindow::paintEvent(QPaintEvent* /*event*/) {
    if (m_isPainted) return;
    m_isPainted = true;
    QPainter painter(this);
    for (const QWidget* column :
         {static_cast<QWidget*>(m_sidebar), static_cast<QWidget*>(m_rail)}) {
        painter.fillRect(column->geometry(), theme::color(Token::Panel));
    }
    const int top = m_sidebar->y();
    painter.fillRect(QRect(m_sidebar->geometry().right(), top, 1, m_sidebar->height()),
                     theme::color(Token::Border));
    painter.fillRect(QRect(m_rail->x(), top, 1, m_rail->height()), theme::color(Token::Border));
    QTimer::singleShot(0, this, [this] {
        m_hasColumns = true;
        if (onFirstPaint) onFirstPaint();
        m_sidebar->show();
        m_rail->show();
    });
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && onEscape) return onEscape();
    QWidget::keyPressEvent(event);
}

void MainWindow::mousePressEvent(QMouseEvent* event) {
    const bool isBack = event->button() == Qt::BackButton;
    if ((isBack || event->button() == Qt::ForwardButton) && onPageButton) {
        return onPageButton(isBack ? -1 : 1);
    }
    QWidget::mousePressEvent(event);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    if (onFilesDropped) onFilesDropped(event->mimeData()->urls());
}

void MainWindow::rememberFrame() const {
    m_settings.setWindowFrame(kFrameName, saveGeometry());
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    place();
}

void MainWindow::place() {
    const int top = (m_menuBar != nullptr ? kMenuBarHeight : 0) + TopBarView::barHeight;
    const int bottom = height() - StatusBarView::barHeight;
    if (m_menuBar != nullptr) m_menuBar->setGeometry(0, 0, width(), kMenuBarHeight);
    m_topBar->setGeometry(0, top - TopBarView::barHeight, width(), TopBarView::barHeight);
    const int rail = width() - YearRailView::railWidth;
    m_sidebar->setGeometry(0, top, sidebarWidth, bottom - top);
    m_entryView->setGeometry(sidebarWidth, top, rail - sidebarWidth, bottom - top);
    m_rail->setGeometry(rail, top, YearRailView::railWidth, bottom - top);
    m_statusBar->setGeometry(0, bottom, width(), StatusBarView::barHeight);
}

SearchPaneView* MainWindow::searchPane() {
    if (m_searchPane == nullptr) {
        m_searchPane = new SearchPaneView;
        m_sidebar->setSearchPane(m_searchPane);
        joinFocusChain(m_searchPane, m_sidebar);
        if (onSearchPaneMade) onSearchPaneMade(m_searchPane);
    }
    return m_searchPane;
}

void MainWindow::retranslate() {
    m_topBar->retranslate();
    m_sidebar->retranslate();
    if (m_searchPane != nullptr) m_searchPane->retranslate();
    m_entryView->retranslate();
    m_rail->retranslate();
    m_statusBar->retranslate();
}

}  // namespace velmar
