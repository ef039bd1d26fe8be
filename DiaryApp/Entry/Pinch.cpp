#include "DiaryApp/Entry/Pinch.h"

#include <cmath>

namespace velmar {

namespace {

constexpr double kThreshold = 0.18;
// A step of a wheel is a pinch that is clear enough.
constexpr double kStep = 120;
constexpr double kStepMagnification = 0.2;
constexpr quint64 kBurstMilliseconds = 300;

}  // namespace

void Pinch::begin() {
    m_sum = 0;
    m_hasActed = false;
}

std::optional<Pinch::Act> Pinch::add(double magnification) {
    m_sum += magnification;
    if (m_hasActed || std::abs(m_sum) <= kThreshold) return std::nullopt;
    m_hasActed = true;
    return m_sum < 0 ? Act::Close : Act::Open;
}

std::optional<Pinch::Act> Pinch::turn(int angle, quint64 milliseconds) {
    const bool isNew = !m_lastTurn || milliseconds < *m_lastTurn ||
                       milliseconds - *m_lastTurn > kBurstMilliseconds;
    if (isNew) begin();
    m_lastTurn = milliseconds;
    return add(angle / kStep * kStepMagnification);
}

}  // namespace velmar
