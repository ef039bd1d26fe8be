// The time of day as a parameter, so that nothing in the kit reads it by itself.
#pragma once

#include <QtCore/QDateTime>

namespace diary {

// Tells the present moment. Safe on any thread.
class Clock {
public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual QDateTime now() const = 0;

    // The machine's clock. The one place that reads it.
    [[nodiscard]] static const Clock& system();
};

// A clock that stands where it is put, for tests and replayed cases.
class FixedClock : public Clock {
public:
    explicit FixedClock(QDateTime moment) : m_moment(std::move(moment)) {}
    [[nodiscard]] QDateTime now() const override { return m_moment; }
    void set(QDateTime moment) { m_moment = std::move(moment); }

private:
    QDateTime m_moment;
};

}  // namespace diary
