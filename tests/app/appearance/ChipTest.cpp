#include "DiaryApp/Appearance/Chip.h"

#include <gtest/gtest.h>

#include <QtGui/QImage>
#include <QtTest/QTest>
#include <QtWidgets/QFocusFrame>

#include "DiaryApp/Appearance/Appearance.h"
#include "DiaryApp/Appearance/Theme.h"

namespace velmar {
namespace {

class ChipTest : public testing::Test {
protected:
    ChipTest() { appearance::prepare(); }

    // The fill at the chip's left end, where no text stands.
    static QColor fill(Chip& chip) {
        const QImage image = chip.grab().toImage();
        return image.pixelColor(4, image.height() / 2);
    }
};

TEST_F(ChipTest, MeasuresGoByTextAndIcon) {
    Chip year(Chip::Size::Small);
    year.setText(QStringLiteral("2026"));
    EXPECT_EQ(year.sizeHint(), QSize(41, 24));
    Chip more(Chip::Size::Small);
    more.setIconName(QStringLiteral("chevron-down"), Chip::IconPlace::Trailing);
    EXPECT_EQ(more.sizeHint(), QSize(22, 24));
    Chip all(Chip::Size::Regular);
    all.setText(QStringLiteral("All · 5"));
    all.setIconName(QStringLiteral("rings"));
    // 11.5 is drawn at 12, so the text is 2 wider than at its stated size.
    EXPECT_NEAR(all.sizeHint().width(), 88, 2);
}

TEST_F(ChipTest, AClickReportsAndLeavesTheChoiceToItsOwner) {
    Chip chip(Chip::Size::Small);
    chip.setText(QStringLiteral("2026"));
    chip.show();
    int clicks = 0;
    QObject::connect(&chip, &Chip::clicked, &chip, [&] { ++clicks; });
    QTest::mouseClick(&chip, Qt::LeftButton);
    QTest::keyClick(&chip, Qt::Key_Space);
    QTest::keyClick(&chip, Qt::Key_Return);
    EXPECT_EQ(clicks, 3);
    EXPECT_FALSE(chip.isChecked());
    chip.setChecked(true);
    QTest::mouseClick(&chip, Qt::LeftButton);
    EXPECT_TRUE(chip.isChecked());
}

TEST_F(ChipTest, OnIsAPillAndOffACard) {
    Chip chip(Chip::Size::Small);
    chip.setText(QStringLiteral("2026"));
    chip.resize(chip.sizeHint());
    EXPECT_EQ(fill(chip), theme::color(Token::CardBg));
    chip.setChecked(true);
    EXPECT_EQ(fill(chip), theme::color(Token::PillBg));
}

TEST_F(ChipTest, ShowsItsFocusAfterTheKeyboardOnly) {
    QWidget window;
    Chip chip(Chip::Size::Small, &window);
    chip.setText(QStringLiteral("2026"));
    window.resize(200, 100);
    chip.setGeometry(QRect(QPoint(50, 50), chip.sizeHint()));
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    chip.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(window.findChild<QFocusFrame*>(), nullptr);
    chip.clearFocus();
    chip.setFocus(Qt::TabFocusReason);
    const auto* ring = window.findChild<QFocusFrame*>();
    ASSERT_NE(ring, nullptr);
    EXPECT_EQ(ring->widget(), &chip);
    // Where the ring goes around the round corner, it is within the chip's own rectangle.
    const auto corner = [&] {
        return window.grab().toImage().pixelColor(chip.pos() + QPoint(1, 1));
    };
    const QColor withRing = corner();
    chip.clearFocus();
    EXPECT_NE(corner(), withRing);
}

}  // namespace
}  // namespace velmar
