#include "DiaryApp/SettingsWindow/SettingsWindow.h"

#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtGui/QShortcut>
#include <QtWidgets/QScrollArea>

#include "DiaryApp/Appearance/OverlayScrollBar.h"
#include "DiaryApp/Appearance/Theme.h"
#include "DiaryApp/SettingsWindow/SettingsView.h"

namespace velmar {

namespace {

constexpr int kLeastHeight = 320;
// Left free on a small screen for the frame and the desktop's bars.
constexpr int kScreenMargin = 60;

}  // namespace

SettingsWindow::SettingsWindow() : m_view(new SettingsView), m_area(new QScrollArea(this)) {
    setAttribute(Qt::WA_QuitOnClose, false);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setWidget(m_view);
    m_area->setWidgetResizable(true);
    // Its children have the focus, not the area itself.
    m_area->setFocusPolicy(Qt::NoFocus);
    new OverlayScrollBar(m_area);
    setFixedWidth(SettingsView::kWidth);
    setMinimumHeight(kLeastHeight);
    setMaximumHeight(SettingsView::kHeight);
    const QScreen* on = screen();
    const int room = on ? on->availableSize().height() - kScreenMargin : SettingsView::kHeight;
    resize(SettingsView::kWidth, qBound(kLeastHeight, room, SettingsView::kHeight));
    for (const QKeySequence& keys :
         {QKeySequence(Qt::Key_Escape), QKeySequence(Qt::CTRL | Qt::Key_W)}) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, &QWidget::close);
    }
}

void SettingsWindow::resizeEvent(QResizeEvent* /*event*/) {
    m_area->setGeometry(rect());
}

void SettingsWindow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), theme::color(Token::Paper));
}

}  // namespace velmar
