// A timer as a parameter, so that the session's rules run in tests without waiting.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace velmar {

// Fires once. Main thread only.
class OneShotTimer {
public:
    virtual ~OneShotTimer() = default;
    // Arms the timer; one that is armed already starts anew.
    virtual void start(std::chrono::milliseconds delay, std::function<void()> fire) = 0;
    // Nothing fires after this.
    virtual void stop() = 0;
    [[nodiscard]] virtual bool isArmed() const = 0;
};

using MakeOneShotTimer = std::function<std::unique_ptr<OneShotTimer>()>;

// A timer on the event loop of the calling thread.
[[nodiscard]] std::unique_ptr<OneShotTimer> makeEventLoopTimer();

}  // namespace velmar
