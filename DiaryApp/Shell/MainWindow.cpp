#include "DiaryApp/Shell/MainWindow.h"

#include <QtGui/QCloseEvent>
#include <QtGui/QScreen>
#include <QtGui/QShortcut>
#include <QtWidgets/QMenuBar>

#include "DiaryApp/Chrome/StatusBarView.h"
#include "DiaryApp/Chrome/TopBarView.h"
#include "DiaryApp/Entry/EntryView.h"

namespace velmar {

namespace {

const QLatin1String kFrameName("DiaryMainWindow");
constexpr int kMenuBarHeight = 28;

}  // namespace

MainWindow::MainWindow(Settings& settings)
    : m_settings(settings),
      m_topBar(new TopBarView(this)),
      m_entryView(new EntryView(settings, this)),
      m_statusBar(new StatusBarView(settings.homeFolder(), this)) {
    setMinimumSize(leastSize);
    addFocusKeys();
    restoreFrame();
}

// The text field keeps Tab for the text, so another key leads out of it.
void MainWindow::addFocusKeys() {
    const auto* next = new QShortcut(QKeySequence(Qt::Key_F6), this);
    connect(next, &QShortcut::activated, this, [this] { focusNextPrevChild(true); });
    const auto* previous = new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F6), this);
    connect(previous, &QShortcut::activated, this, [this] { focusNextPrevChild(false); });
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
    m_settings.setWindowFrame(kFrameName, saveGeometry());
    event->accept();
    if (onClosed) onClosed();
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    place();
}

void MainWindow::place() {
    int y = 0;
    const auto put = [&](QWidget* widget, int height) {
        widget->setGeometry(0, y, width(), height);
        y += height;
    };
    if (m_menuBar) put(m_menuBar, kMenuBarHeight);
    put(m_topBar, TopBarView::barHeight);
    put(m_entryView, height() - y - StatusBarView::barHeight);
    put(m_statusBar, StatusBarView::barHeight);
}

}  // namespace velmar
