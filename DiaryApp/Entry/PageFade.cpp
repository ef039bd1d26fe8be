#include "DiaryApp/Entry/PageFade.h"

#include <QtGui/QPainter>

namespace velmar {

namespace {

constexpr int kMilliseconds = 160;

}  // namespace

PageFade::PageFade(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
    m_fade.setStartValue(1.0);
    m_fade.setEndValue(0.0);
    m_fade.setDuration(kMilliseconds);
    connect(&m_fade, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
    connect(&m_fade, &QVariantAnimation::finished, this, &PageFade::stop);
}

void PageFade::start(const QPixmap& before) {
    m_before = before;
    setGeometry(parentWidget()->rect());
    raise();
    show();
    m_fade.stop();
    m_fade.start();
}

void PageFade::stop() {
    m_fade.stop();
    hide();
    m_before = QPixmap();
}

void PageFade::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setOpacity(m_fade.currentValue().toDouble());
    painter.drawPixmap(0, 0, m_before);
}

}  // namespace velmar
