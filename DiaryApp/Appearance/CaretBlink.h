// When a caret is lit. It blinks while there is input, and stays lit ten seconds after the last
// one, so that a program which nobody types in doesn't wake the machine.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QTimer>

namespace velmar {

class CaretBlink : public QObject {
    Q_OBJECT

public:
    // How long it blinks after the last input, in milliseconds.
    static constexpr int restAfter = 10'000;

    // `flashTime` is the time of one blink, on and off, in milliseconds; 0 never blinks.
    explicit CaretBlink(int flashTime, int rest = restAfter);

    // Input came: lit, and blinking from now on.
    void wake();
    // The focus went: not lit, nothing runs.
    void stop();

    [[nodiscard]] bool isLit() const { return m_isLit; }
    [[nodiscard]] bool isBlinking() const { return m_timer.isActive(); }

Q_SIGNALS:
    void changed();

private:
    void flip();

    QTimer m_timer;
    int m_rest;
    int m_flipsLeft = 0;
    bool m_isLit = false;
};

}  // namespace velmar
