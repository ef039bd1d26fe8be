#include "DiaryApp/SettingsWindow/OnboardingSheet.h"

#include <QtCore/QPointer>
#include <QtGui/QAccessible>
#include <QtWidgets/QFocusFrame>
#include <QtWidgets/QLineEdit>

#include "DiaryApp/Appearance/Button.h"
#include "SettingsWindowFixture.h"

namespace velmar {
namespace {

class OnboardingSheetTest : public test::SettingsWindowFixture {
protected:
    OnboardingSheetTest() {
        window.resize(1360, 840);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        field.show();
        field.setFocus();
        sheet = OnboardingSheet::show(&window, [this](VaultChoice answer) { answers += answer; });
    }

    QWidget window;
    QLineEdit field{&window};
    QPointer<OnboardingSheet> sheet;
    QList<VaultChoice> answers;
};

TEST_F(OnboardingSheetTest, StandsWhereItWasDrawn) {
    EXPECT_EQ(sheet->geometry(), window.rect());
    EXPECT_EQ(sheet->panel().topLeft(), QPointF(420, 150));
    EXPECT_EQ(sheet->panel().size(), QSizeF(520, 420));
    EXPECT_EQ(sheet->cloudButton()->geometry(), QRect(465, 439, 430, 40));
    EXPECT_EQ(sheet->localButton()->geometry(), QRect(465, 489, 430, 40));
    window.resize(1080, 620);
    EXPECT_EQ(sheet->geometry(), window.rect());
    EXPECT_EQ(sheet->panel().topLeft(), QPointF(280, 100));
}

TEST_F(OnboardingSheetTest, ReturnTakesTheCloud) {
    EXPECT_EQ(window.focusWidget(), sheet->cloudButton());
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(answers, QList<VaultChoice>({VaultChoice::cloud}));
    ASSERT_TRUE(QTest::qWaitFor([&] { return sheet.isNull(); }));
    EXPECT_EQ(window.focusWidget(), &field);
}

// At a start the sheet comes before the window has the keys.
TEST_F(OnboardingSheetTest, TheRingShowsWhereReturnGoesOnceTheWindowIsActive) {
    QWidget late;
    late.resize(1360, 840);
    late.show();
    auto* early = OnboardingSheet::show(&late, [](VaultChoice) {});
    const auto ringed = [&late]() -> QWidget* {
        for (const auto* frame : late.findChildren<QFocusFrame*>()) {
            if (frame->widget() != nullptr) return frame->widget();
        }
        return nullptr;
    };
    ASSERT_FALSE(late.isActiveWindow());
    late.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&late));
    EXPECT_TRUE(early->cloudButton()->hasFocus());
    EXPECT_EQ(ringed(), early->cloudButton());
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    late.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&late));
    EXPECT_EQ(ringed(), early->cloudButton()) << "it comes back with its window";
}

TEST_F(OnboardingSheetTest, TheSecondButtonStaysOnThisComputer) {
    QTest::mouseClick(sheet->localButton(), Qt::LeftButton);
    EXPECT_EQ(answers, QList<VaultChoice>({VaultChoice::local}));
}

TEST_F(OnboardingSheetTest, EscapeAnswersNothing) {
    QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(sheet->isVisible());
    EXPECT_TRUE(answers.isEmpty());
}

TEST_F(OnboardingSheetTest, TheFocusStaysOnTheSheet) {
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), sheet->localButton());
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), sheet->cloudButton());
    QTest::keyClick(window.focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(window.focusWidget(), sheet->localButton());
}

TEST_F(OnboardingSheetTest, IsADialogOfItsTitle) {
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(sheet);
    EXPECT_EQ(interface->role(), QAccessible::Dialog);
    EXPECT_EQ(interface->text(QAccessible::Name), QStringLiteral("Where should your diary live?"));
}

TEST_F(OnboardingSheetTest, TwoClicksAreOneAnswer) {
    sheet->cloudButton()->click();
    sheet->localButton()->click();
    EXPECT_EQ(answers.size(), 1);
}

}  // namespace
}  // namespace velmar
