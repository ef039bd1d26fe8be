#include "DiaryApp/Appearance/FocusRing.h"

#include <QtCore/QVariant>
#include <QtWidgets/QFocusFrame>
#include <QtWidgets/QWidget>

namespace velmar {

namespace {

constexpr const char* kRadius = "cornerRadius";
constexpr double kUsualRadius = 8;

// The focus only went with its window, or to a menu of the control's own.
bool isForAWhile(Qt::FocusReason reason) {
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
}

}  // namespace

FocusRing::FocusRing(QWidget* widget, double cornerRadius) : m_widget(widget) {
    setCornerRadius(cornerRadius);
}

void FocusRing::setCornerRadius(double radius) {
    m_widget->setProperty(kRadius, radius);
}

double FocusRing::cornerRadius(const QWidget* widget) {
    const QVariant radius = widget ? widget->property(kRadius) : QVariant();
    return radius.isValid() ? radius.toDouble() : kUsualRadius;
}

void FocusRing::focusIn(Qt::FocusReason reason) {
    if (!isForAWhile(reason)) {
        m_isByKeyboard = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                         reason == Qt::ShortcutFocusReason;
    }
    if (m_isByKeyboard) show();
}

void FocusRing::focusOut(Qt::FocusReason reason) {
    if (!isForAWhile(reason)) m_isByKeyboard = false;
    if (m_frame) m_frame->setWidget(nullptr);
}

void FocusRing::keyUsed() {
    m_isByKeyboard = true;
    show();
}

void FocusRing::show() {
    if (!m_frame) m_frame = new QFocusFrame(m_widget);
    if (m_frame->widget() != m_widget) m_frame->setWidget(m_widget);
}

}  // namespace velmar
