#include "DiaryKit/Foundation/Background.h"

#include <QtCore/QThreadPool>
#include <thread>
#include <vector>

namespace diary::background {

void start(Urgency urgency, std::function<void()> work) {
    QThreadPool::globalInstance()->start(std::move(work), urgency == Urgency::UserWaits ? 1 : 0);
}

void inParallel(int pieces, const std::function<void(int)>& piece) {
    // Threads of our own: a pool thread that waited for the pool could wait for ever.
    std::vector<std::thread> others;
    for (int i = 1; i < pieces; ++i) others.emplace_back(piece, i);
    if (pieces > 0) piece(0);
    for (std::thread& other : others) other.join();
}

}  // namespace diary::background
