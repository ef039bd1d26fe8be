#include "DiaryApp/Appearance/CaretBlink.h"

#include <gtest/gtest.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

namespace velmar {
namespace {

TEST(CaretBlink, StaysLitWhereCaretsDoNotBlink) {
    CaretBlink blink(0);
    blink.wake();
    EXPECT_TRUE(blink.isLit());
    EXPECT_FALSE(blink.isBlinking());
}

TEST(CaretBlink, GoesOutWhenTheFocusGoes) {
    CaretBlink blink(1000);
    blink.wake();
    EXPECT_TRUE(blink.isBlinking());
    blink.stop();
    EXPECT_FALSE(blink.isLit());
    EXPECT_FALSE(blink.isBlinking());
}

TEST(CaretBlink, ComesToRestLitSomeTimeAfterTheLastInput) {
    CaretBlink blink(10, 50);
    QSignalSpy changes(&blink, &CaretBlink::changed);
    blink.wake();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !blink.isBlinking(); }));
    EXPECT_TRUE(blink.isLit());
    // Lit at first, then ten flips of 5 ms.
    EXPECT_EQ(changes.count(), 11);
    blink.wake();
    EXPECT_TRUE(blink.isBlinking());
}

TEST(CaretBlink, RestsAfterTenSeconds) {
    EXPECT_EQ(CaretBlink::restAfter, 10'000);
}

}  // namespace
}  // namespace velmar
