#include "DiaryApp/Session/OneShotTimer.h"

#include <QtCore/QTimer>

namespace velmar {

namespace {

class EventLoopTimer : public OneShotTimer {
public:
    EventLoopTimer() {
        m_timer.setSingleShot(true);
        m_timer.callOnTimeout(&m_timer, [this] { std::exchange(m_fire, {})(); });
    }

    void start(std::chrono::milliseconds delay, std::function<void()> fire) override {
        m_fire = std::move(fire);
        m_timer.start(delay);
    }

    void stop() override { m_timer.stop(); }

    [[nodiscard]] bool isArmed() const override { return m_timer.isActive(); }

private:
    QTimer m_timer;
    std::function<void()> m_fire;
};

}  // namespace

std::unique_ptr<OneShotTimer> makeEventLoopTimer() {
    return std::make_unique<EventLoopTimer>();
}

}  // namespace velmar
