#include "DiaryApp/Entry/PageScroll.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QScrollBar>

#include "DiaryApp/Appearance/Motion.h"
#include "DiaryApp/Appearance/OverlayScrollBar.h"
#include "DiaryApp/Appearance/Theme.h"

namespace velmar {

namespace {

constexpr int kGlideMilliseconds = 200;
// What stands in view has this much above it, and below it the room of what may float there.
constexpr int kRoomAbove = 34;
constexpr int kRoomBelow = 72;

}  // namespace

PageScroll::PageScroll(QWidget* parent) : QScrollArea(parent), m_scrollBar(nullptr) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidget(new QWidget);
    m_scrollBar = new OverlayScrollBar(this);
    m_glide.setEasingCurve(QEasingCurve::InOutQuad);
    connect(&m_glide, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& value) { verticalScrollBar()->setValue(value.toInt()); });
    PageScroll::restyle();
}

void PageScroll::restyle() {
    QPalette ground;
    ground.setColor(QPalette::Window, theme::color(Token::Paper));
    viewport()->setPalette(ground);
}

void PageScroll::scrollToTop() {
    stopGliding();
    verticalScrollBar()->setValue(0);
}

bool PageScroll::isGliding() const {
    return m_glide.state() == QAbstractAnimation::Running;
}

void PageScroll::stopGliding() {
    m_glide.stop();
}

void PageScroll::glideTo(const QRect& rect) {
    stopGliding();
    const int top = verticalScrollBar()->value();
    const int height = viewport()->height();
    const bool isInView = rect.top() >= top + qMin(kRoomAbove, rect.top()) &&
                          rect.bottom() <= top + height - kRoomBelow;
    if (isInView) return;
    // A tall rectangle shows its beginning.
    const int ahead = qMax(kRoomAbove, (height - rect.height()) / 2);
    const int target = qBound(0, rect.top() - ahead, verticalScrollBar()->maximum());
    const int duration = motion::duration(kGlideMilliseconds);
    if (duration == 0 || !isVisible()) return verticalScrollBar()->setValue(target);
    m_glide.setStartValue(top);
    m_glide.setEndValue(target);
    m_glide.setDuration(duration);
    m_glide.start();
}

void PageScroll::keyPressEvent(QKeyEvent* event) {
    stopGliding();
    QScrollBar* bar = verticalScrollBar();
    const bool isPlain = event->modifiers() == Qt::NoModifier;
    const bool isBack = event->modifiers() == Qt::ShiftModifier;
    if (event->key() == Qt::Key_Space && (isPlain || isBack)) {
        bar->triggerAction(isBack ? QScrollBar::SliderPageStepSub : QScrollBar::SliderPageStepAdd);
    } else if (event->key() == Qt::Key_Home && isPlain) {
        bar->triggerAction(QScrollBar::SliderToMinimum);
    } else if (event->key() == Qt::Key_End && isPlain) {
        bar->triggerAction(QScrollBar::SliderToMaximum);
    } else {
        QScrollArea::keyPressEvent(event);
    }
}

// With Ctrl the wheel means the years, not the page; EntryView takes it.
void PageScroll::wheelEvent(QWheelEvent* event) {
    if (event->modifiers().testFlag(Qt::ControlModifier)) return event->ignore();
    stopGliding();
    QScrollArea::wheelEvent(event);
}

}  // namespace velmar
