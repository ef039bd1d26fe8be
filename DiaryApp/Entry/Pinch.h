// Pinches, and the wheel turned with Ctrl held, which stands in for them on machines without a
// touchpad. However long a gesture is, it acts once. Knows no events, so it can be tested by value.
#pragma once

#include <QtCore/QtGlobal>
#include <optional>

namespace velmar {

class Pinch {
public:
    enum class Act {
        // Fingers that close: all years.
        Close,
        // Fingers that open: the year below them.
        Open,
    };

    // The first fingers are down.
    void begin();
    // The share by which the fingers moved apart since the last time, negative if they closed. Acts
    // when all of it together first exceeds 0.18 either way.
    std::optional<Act> add(double magnification);

    // The wheel turned by this angle, in eighths of a degree, at this moment. Turns that follow
    // each other within 300 ms are one gesture, which one step of a wheel, 120, is enough for.
    std::optional<Act> turn(int angle, quint64 milliseconds);

private:
    double m_sum = 0;
    bool m_hasActed = false;
    std::optional<quint64> m_lastTurn;
};

}  // namespace velmar
