#include "DiaryApp/Chrome/StatusBarView.h"

#include <gtest/gtest.h>

#include <QtTest/QTest>

#include "DiaryApp/Appearance/Motion.h"

namespace velmar {
namespace {

class StatusBarViewTest : public testing::Test {
protected:
    StatusBarViewTest() {
        bar.resize(1360, StatusBarView::barHeight);
        bar.show();
        bar.update(QStringLiteral("/home/me/Documents/Diary/11-21.md"), QStringLiteral("status"));
    }

    void click() { QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.linkRect().center()); }

    // Flashes last 30 ms here.
    StatusBarView bar{QStringLiteral("/home/me"), nullptr, 30};
};

TEST_F(StatusBarViewTest, ShortensTheHomeFolder) {
    EXPECT_EQ(bar.leftText(), QStringLiteral("~/Documents/Diary/11-21.md"));
    EXPECT_EQ(bar.rightText(), QStringLiteral("status"));
    bar.update(QStringLiteral("/home/mercy/11-21.md"), QString());
    EXPECT_EQ(bar.leftText(), QStringLiteral("/home/mercy/11-21.md"));
    bar.update(QStringLiteral("/vault/11-21.md"), QString());
    EXPECT_EQ(bar.leftText(), QStringLiteral("/vault/11-21.md"));
}

TEST_F(StatusBarViewTest, AFlashLastsAndThePathComesBack) {
    bar.flash(QStringLiteral("merged"));
    EXPECT_EQ(bar.leftText(), QStringLiteral("merged"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !bar.isFlashing(); }));
    EXPECT_EQ(bar.leftText(), QStringLiteral("~/Documents/Diary/11-21.md"));
}

TEST_F(StatusBarViewTest, AFlashFadesInWhileItsTextIsThereAtOnce) {
    StatusBarView patient(QStringLiteral("/home/me"));
    patient.resize(600, StatusBarView::barHeight);
    patient.show();
    patient.update(QStringLiteral("/vault/11-21.md"), QString());
    const QImage rest = patient.grab().toImage();
    patient.flash(QStringLiteral("merged"));
    EXPECT_EQ(patient.leftText(), QStringLiteral("merged"));
    EXPECT_EQ(patient.flashShare(), 0);
    EXPECT_EQ(patient.grab().toImage(), rest);
    ASSERT_TRUE(QTest::qWaitFor([&] { return patient.flashShare() == 1; }));
    EXPECT_TRUE(patient.isFlashing());
    EXPECT_NE(patient.grab().toImage(), rest);
    // Another one is there at once: the place is a flash's already.
    patient.flash(QStringLiteral("kept"));
    EXPECT_EQ(patient.flashShare(), 1);
}

TEST_F(StatusBarViewTest, AFlashFadesOutAfterItsTime) {
    const QImage rest = bar.grab().toImage();
    bar.flash(QStringLiteral("merged"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !bar.isFlashing(); }));
    EXPECT_GT(bar.flashShare(), 0);
    EXPECT_NE(bar.grab().toImage(), rest);
    ASSERT_TRUE(QTest::qWaitFor([&] { return bar.flashShare() == 0; }));
    EXPECT_EQ(bar.grab().toImage(), rest);
}

TEST_F(StatusBarViewTest, AFlashDoesNotFadeWithReducedMotion) {
    motion::setReduced(true);
    bar.flash(QStringLiteral("merged"));
    EXPECT_EQ(bar.flashShare(), 1);
    const bool isOver = QTest::qWaitFor([&] { return !bar.isFlashing(); });
    motion::setReduced(false);
    ASSERT_TRUE(isOver);
    EXPECT_EQ(bar.flashShare(), 0);
}

TEST_F(StatusBarViewTest, AFlashLastsFourSecondsUnlessToldOtherwise) {
    EXPECT_EQ(StatusBarView::flashMilliseconds, 4000);
}

TEST_F(StatusBarViewTest, AnUpdateUnderAFlashShowsAfterwards) {
    bar.flash(QStringLiteral("merged"));
    bar.update(QStringLiteral("/home/me/11-22.md"), QStringLiteral("other"));
    EXPECT_EQ(bar.leftText(), QStringLiteral("merged"));
    EXPECT_EQ(bar.rightText(), QStringLiteral("other"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !bar.isFlashing(); }));
    EXPECT_EQ(bar.leftText(), QStringLiteral("~/11-22.md"));
}

TEST_F(StatusBarViewTest, ALaterFlashBeginsAnew) {
    bar.flash(QStringLiteral("one"));
    bar.flash(QStringLiteral("two"));
    EXPECT_EQ(bar.leftText(), QStringLiteral("two"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !bar.isFlashing(); }));
}

TEST_F(StatusBarViewTest, APinnedNoticeStaysAndItsLinkActs) {
    int runs = 0;
    bar.pin(QStringLiteral("kept"), QStringLiteral("Put it back"), [&] { ++runs; });
    EXPECT_EQ(bar.leftText(), QStringLiteral("kept · Put it back"));
    bar.update(QStringLiteral("/home/me/11-22.md"), QString());
    EXPECT_EQ(bar.leftText(), QStringLiteral("kept · Put it back"));
    click();
    EXPECT_EQ(runs, 1);
    QTest::mouseClick(&bar, Qt::LeftButton, {}, QPoint(2, 10));
    EXPECT_EQ(runs, 1);
    bar.setFocus();
    QTest::keyClick(&bar, Qt::Key_Return);
    EXPECT_EQ(runs, 2);
    bar.unpin();
    EXPECT_EQ(bar.leftText(), QStringLiteral("~/11-22.md"));
    EXPECT_TRUE(bar.linkRect().isEmpty());
}

TEST_F(StatusBarViewTest, AFlashDuringAPinnedNoticeReturnsToTheNotice) {
    int runs = 0;
    bar.pin(QStringLiteral("kept"), QStringLiteral("link"), [&] { ++runs; });
    const QPoint link = bar.linkRect().center();
    bar.flash(QStringLiteral("merged"));
    EXPECT_EQ(bar.leftText(), QStringLiteral("merged"));
    QTest::mouseClick(&bar, Qt::LeftButton, {}, link);
    EXPECT_EQ(runs, 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !bar.isFlashing(); }));
    EXPECT_EQ(bar.leftText(), QStringLiteral("kept · link"));
    click();
    EXPECT_EQ(runs, 1);
}

TEST_F(StatusBarViewTest, APinUnderAFlashWaits) {
    bar.flash(QStringLiteral("merged"));
    bar.pin(QStringLiteral("kept"), QString(), {});
    EXPECT_EQ(bar.leftText(), QStringLiteral("merged"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !bar.isFlashing(); }));
    EXPECT_EQ(bar.leftText(), QStringLiteral("kept"));
}

TEST_F(StatusBarViewTest, ALaterPinReplacesTheEarlier) {
    bar.pin(QStringLiteral("one"), QStringLiteral("a"), {});
    bar.pin(QStringLiteral("two"), QStringLiteral("b"), {});
    EXPECT_EQ(bar.leftText(), QStringLiteral("two · b"));
}

TEST_F(StatusBarViewTest, AnActionMayPinAnotherNotice) {
    bar.pin(QStringLiteral("one"), QStringLiteral("a"),
            [&] { bar.pin(QStringLiteral("two"), QStringLiteral("b"), {}); });
    click();
    EXPECT_EQ(bar.leftText(), QStringLiteral("two · b"));
}

}  // namespace
}  // namespace velmar
