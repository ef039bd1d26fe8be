#include "DiaryKit/Foundation/Background.h"

#include <gtest/gtest.h>

#include <QtCore/QEventLoop>
#include <QtCore/QThread>
#include <array>
#include <atomic>

namespace diary::background {
namespace {

void waitFor(const bool& isDone) {
    while (!isDone) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

TEST(Background, WorksElsewhereAndComesBackToTheMainThread) {
    QObject context;
    bool isDone = false;
    QThread* worker = nullptr;
    QThread* finisher = nullptr;
    run(
        Urgency::UserWaits, &context, [] { return QThread::currentThread(); },
        [&](QThread* thread) {
            worker = thread;
            finisher = QThread::currentThread();
            isDone = true;
        });
    waitFor(isDone);
    EXPECT_NE(worker, QThread::currentThread());
    EXPECT_EQ(finisher, QThread::currentThread());
}

TEST(Background, DropsTheAnswerForAnObjectThatIsGone) {
    auto context = std::make_unique<QObject>();
    run(
        Urgency::Utility, context.get(), [] { return 1; }, [](int) { ADD_FAILURE(); });
    context.reset();
    QObject other;
    bool isDone = false;
    run(
        Urgency::Utility, &other, [] { return 1; }, [&](int) { isDone = true; });
    waitFor(isDone);
}

TEST(Background, RunsEveryPieceBeforeItReturns) {
    std::array<std::atomic<int>, 4> ran{};
    inParallel(4, [&](int piece) { ++ran[static_cast<std::size_t>(piece)]; });
    for (const auto& count : ran) EXPECT_EQ(count, 1);
}

}  // namespace
}  // namespace diary::background
