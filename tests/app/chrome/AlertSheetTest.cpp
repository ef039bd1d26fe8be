#include "DiaryApp/Chrome/AlertSheet.h"

#include <gtest/gtest.h>

#include <QtCore/QPointer>
#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QLineEdit>

#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Chrome/MainMenuBuilder.h"

namespace velmar {
namespace {

class AlertSheetTest : public testing::Test {
protected:
    AlertSheetTest() {
        window.resize(900, 600);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        field.show();
        field.setFocus();
        sheet = AlertSheet::show(&window, QStringLiteral("Title"), QStringLiteral("One\nTwo"),
                                 [this] { ++closed; });
    }

    QWidget window;
    QLineEdit field{&window};
    QPointer<AlertSheet> sheet;
    int closed = 0;
};

TEST_F(AlertSheetTest, CoversTheWindowAndFollowsIt) {
    EXPECT_EQ(sheet->geometry(), window.rect());
    window.resize(1000, 700);
    EXPECT_EQ(sheet->geometry(), window.rect());
    EXPECT_EQ(sheet->accessibleName(), QStringLiteral("Title"));
}

TEST_F(AlertSheetTest, OkAndEscapeCloseIt) {
    QTest::mouseClick(sheet->button(), Qt::LeftButton);
    EXPECT_EQ(closed, 1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return sheet.isNull(); }));
    EXPECT_EQ(window.focusWidget(), &field);

    sheet = AlertSheet::show(&window, QStringLiteral("Again"), QString(), [this] { ++closed; });
    QTest::keyClick(sheet->button(), Qt::Key_Escape);
    EXPECT_EQ(closed, 2);
}

TEST_F(AlertSheetTest, TabStaysOnTheSheet) {
    EXPECT_EQ(window.focusWidget(), sheet->button());
    QTest::keyClick(sheet->button(), Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), sheet->button());
}

TEST_F(AlertSheetTest, PresentsItselfAsADialog) {
    EXPECT_EQ(QAccessible::queryAccessibleInterface(sheet)->role(), QAccessible::Dialog);
    EXPECT_EQ(sheet->cancelButton(), nullptr);
}

class QuestionTest : public AlertSheetTest {
protected:
    QuestionTest() {
        QTest::keyClick(sheet->button(), Qt::Key_Escape);
        sheet = AlertSheet::ask(&window, QStringLiteral("Restore all?"), QStringLiteral("All."),
                                {QStringLiteral("Restore"), QStringLiteral("Cancel")},
                                [this] { ++confirmed; });
    }

    int confirmed = 0;
};

TEST_F(QuestionTest, OnlyTheActingButtonConfirms) {
    EXPECT_EQ(window.focusWidget(), sheet->button());
    EXPECT_LT(sheet->cancelButton()->x(), sheet->button()->x());
    QTest::mouseClick(sheet->cancelButton(), Qt::LeftButton);
    EXPECT_EQ(confirmed, 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return sheet.isNull(); }));
    EXPECT_EQ(window.focusWidget(), &field);
}

TEST_F(QuestionTest, ReturnConfirmsAndEscapeCancels) {
    QTest::keyClick(sheet->button(), Qt::Key_Return);
    EXPECT_EQ(confirmed, 1);
    sheet = AlertSheet::ask(&window, QStringLiteral("Again?"), QString(),
                            {QStringLiteral("Yes"), QStringLiteral("No")}, [this] { ++confirmed; });
    QTest::keyClick(sheet->button(), Qt::Key_Escape);
    EXPECT_EQ(confirmed, 1);
}

TEST_F(QuestionTest, TabGoesRoundOnTheSheet) {
    QTest::keyClick(sheet->button(), Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), sheet->cancelButton());
    QTest::keyClick(sheet->cancelButton(), Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), sheet->button());
    QTest::keyClick(sheet->button(), Qt::Key_Backtab);
    EXPECT_EQ(window.focusWidget(), sheet->cancelButton());
    QTest::keyClick(sheet->cancelButton(), Qt::Key_Return);
    EXPECT_EQ(confirmed, 0);
}

TEST_F(AlertSheetTest, MenuKeysDoNotActBehindIt) {
    int actions = 0;
    MainMenuBuilder::build(&window, [&](Action) { ++actions; })->show();
    QTest::keyClick(sheet->button(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(actions, 0);
    QTest::keyClick(sheet->button(), Qt::Key_Return);
    EXPECT_EQ(closed, 1);
    QTest::keyClick(&field, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(actions, 1);
}

}  // namespace
}  // namespace velmar
