#include "DiaryKit/Foundation/Clock.h"

namespace diary {

namespace {

class SystemClock : public Clock {
public:
    [[nodiscard]] QDateTime now() const override { return QDateTime::currentDateTime(); }
};

}  // namespace

const Clock& Clock::system() {
    static const SystemClock clock;
    return clock;
}

}  // namespace diary
