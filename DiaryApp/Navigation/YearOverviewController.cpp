#include "DiaryApp/Navigation/YearOverviewController.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtGui/QShortcut>
#include <QtWidgets/QScrollArea>

#include "DiaryApp/Appearance/OverlayScrollBar.h"
#include "DiaryApp/Navigation/YearOverviewView.h"

namespace velmar {

namespace {

// What a desktop's panels and the window's own frame may take of a low screen.
constexpr int kFrameAllowance = 48;

// On a screen lower than the calendar the window is lower too, and scrolls.
QSize fittingSize(const QScreen* screen) {
    QSize size = YearOverviewView::viewSize;
    if (screen)
        size.setHeight(qMin(size.height(), screen->availableSize().height() - kFrameAllowance));
    return size;
}

}  // namespace

YearOverviewController::YearOverviewController()
    : m_window(std::make_unique<QWidget>(nullptr, Qt::Window)), m_view(new YearOverviewView) {
    // The diary ends with its main window, whether or not the calendar is open.
    m_window->setAttribute(Qt::WA_QuitOnClose, false);
    auto* area = new QScrollArea(m_window.get());
    area->setObjectName(QStringLiteral("area"));
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidget(m_view);
    new OverlayScrollBar(area);
    m_view->onPick = [this](diary::MonthDay day) {
        if (onPick) onPick(day);
    };
    for (const QKeySequence& keys :
         {QKeySequence(Qt::Key_Escape), QKeySequence(Qt::CTRL | Qt::Key_W)}) {
        auto* shortcut = new QShortcut(keys, m_window.get());
        QObject::connect(shortcut, &QShortcut::activated, m_window.get(), &QWidget::close);
    }
}

YearOverviewController::~YearOverviewController() = default;

void YearOverviewController::present(const YearOverviewModel& model, diary::MonthDay openDay,
                                     const QWidget* beside) {
    update(model);
    if (!m_window->isVisible()) {
        centre(beside);
        m_view->focusDay(openDay);
    }
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

void YearOverviewController::update(const YearOverviewModel& model) {
    m_window->setWindowTitle(model.title);
    m_view->update(model);
}

void YearOverviewController::centre(const QWidget* beside) {
    const QScreen* screen = beside ? beside->screen() : QGuiApplication::primaryScreen();
    const QSize size = fittingSize(screen);
    m_window->setFixedSize(size);
    m_window->findChild<QScrollArea*>(QStringLiteral("area"))->setGeometry({QPoint(), size});
    if (!screen) return;
    const QRect available = screen->availableGeometry();
    m_window->move(available.center() - QRect(QPoint(), size).center());
}

void YearOverviewController::restyle() {
    m_view->QWidget::update();
}

void YearOverviewController::close() {
    m_window->close();
}

bool YearOverviewController::isVisible() const {
    return m_window->isVisible();
}

QWidget* YearOverviewController::window() const {
    return m_window.get();
}

}  // namespace velmar
