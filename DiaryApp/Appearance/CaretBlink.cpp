#include "DiaryApp/Appearance/CaretBlink.h"

#include <utility>

namespace velmar {

CaretBlink::CaretBlink(int flashTime, int rest) : m_rest(rest) {
    m_timer.setInterval(flashTime / 2);
    connect(&m_timer, &QTimer::timeout, this, &CaretBlink::flip);
}

void CaretBlink::wake() {
    if (m_timer.interval() > 0) {
        m_flipsLeft = m_rest / m_timer.interval();
        m_timer.start();
    }
    if (!std::exchange(m_isLit, true)) Q_EMIT changed();
}

void CaretBlink::stop() {
    m_timer.stop();
    if (std::exchange(m_isLit, false)) Q_EMIT changed();
}

void CaretBlink::flip() {
    m_isLit = !m_isLit;
    --m_flipsLeft;
    if (m_flipsLeft <= 0 && m_isLit) m_timer.stop();
    Q_EMIT changed();
}

}  // namespace velmar
