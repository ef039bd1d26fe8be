// Timers that stand still until a test moves their time on.
#pragma once

#include <algorithm>
#include <vector>

#include "DiaryApp/Session/OneShotTimer.h"

namespace velmar::test {

class ManualTimers {
public:
    // For WritingSession::Environment. The timers must not outlive this object.
    MakeOneShotTimer maker() {
        return [this] { return std::make_unique<Timer>(*this); };
    }

    // Moves time on and fires what falls due, in order.
    void advance(std::chrono::milliseconds by) {
        const auto target = m_now + by;
        for (Timer* due = next(target); due; due = next(target)) {
            m_now = due->m_due;
            due->m_isArmed = false;
            std::exchange(due->m_fire, {})();
        }
        m_now = target;
    }

    [[nodiscard]] int armedCount() const {
        return static_cast<int>(std::count_if(m_timers.begin(), m_timers.end(),
                                              [](const Timer* timer) { return timer->m_isArmed; }));
    }

private:
    class Timer : public OneShotTimer {
    public:
        explicit Timer(ManualTimers& owner) : m_owner(owner) { m_owner.m_timers.push_back(this); }
        ~Timer() override { std::erase(m_owner.m_timers, this); }

        void start(std::chrono::milliseconds delay, std::function<void()> fire) override {
            m_due = m_owner.m_now + delay;
            m_fire = std::move(fire);
            m_isArmed = true;
        }
        void stop() override { m_isArmed = false; }
        [[nodiscard]] bool isArmed() const override { return m_isArmed; }

        ManualTimers& m_owner;
        std::chrono::milliseconds m_due{0};
        std::function<void()> m_fire;
        bool m_isArmed = false;
    };

    Timer* next(std::chrono::milliseconds until) {
        Timer* found = nullptr;
        for (Timer* timer : m_timers) {
            if (!timer->m_isArmed || timer->m_due > until) continue;
            if (!found || timer->m_due < found->m_due) found = timer;
        }
        return found;
    }

    std::chrono::milliseconds m_now{0};
    std::vector<Timer*> m_timers;
};

}  // namespace velmar::test
