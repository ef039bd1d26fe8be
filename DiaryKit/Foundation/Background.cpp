#include "DiaryKit/Foundation/Background.h"

#include <QtCore/QThreadPool>

namespace diary::background {

void start(Urgency urgency, std::function<void()> work) {
    QThreadPool::globalInstance()->start(std::move(work), urgency == Urgency::UserWaits ? 1 : 0);
}

}  // namespace diary::background
