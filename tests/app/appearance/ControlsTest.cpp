// The controls that we paint ourselves: by mouse, by keyboard, and as read aloud.
#include <gtest/gtest.h>

#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QFocusFrame>
#include <QtWidgets/QMenu>

#include "DiaryApp/Appearance/Appearance.h"
#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Appearance/CheckBox.h"
#include "DiaryApp/Appearance/ComboBox.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Motion.h"
#include "DiaryApp/Appearance/SegmentedControl.h"
#include "DiaryApp/Appearance/Stepper.h"
#include "DiaryApp/Appearance/TextLabel.h"
#include "DiaryApp/Appearance/Theme.h"

namespace velmar {
namespace {

class ControlsTest : public testing::Test {
protected:
    ControlsTest() {
        appearance::prepare();
        motion::setReduced(true);
        window.resize(600, 400);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    ~ControlsTest() override { motion::setReduced(false); }

    // Shows the control, made without a layout, at its own size.
    template <class Control>
    void place(Control& control, const QPoint& at = {20, 20}) {
        control.setGeometry(QRect(at, control.sizeHint()));
        control.show();
    }

    [[nodiscard]] QWidget* ringed() const {
        for (const auto* frame : window.findChildren<QFocusFrame*>()) {
            if (frame->widget() != nullptr) return frame->widget();
        }
        return nullptr;
    }

    static QAccessibleInterface* access(QWidget* widget) {
        return QAccessible::queryAccessibleInterface(widget);
    }

    QWidget window;
};

using SegmentedControlTest = ControlsTest;

std::vector<SegmentedControl::Choice> threeModes() {
    return {{QStringLiteral("Light"), {}},
            {QStringLiteral("Dark"), {}},
            {QStringLiteral("System"), {}}};
}

TEST_F(SegmentedControlTest, AClickChoosesAndTellsOnce) {
    SegmentedControl control(&window);
    control.setChoices(threeModes());
    place(control);
    QList<int> told;
    control.onChosen = [&](int index) { told += index; };
    EXPECT_EQ(control.chosen(), 0);
    QTest::mouseClick(control.segment(2), Qt::LeftButton);
    EXPECT_EQ(control.chosen(), 2);
    QTest::mouseClick(control.segment(2), Qt::LeftButton);
    EXPECT_EQ(told, QList<int>({2}));
    control.setChosen(1);
    EXPECT_EQ(control.chosen(), 1);
    control.setChosen(7);
    EXPECT_EQ(control.chosen(), 1);
    EXPECT_EQ(told, QList<int>({2}));
}

TEST_F(SegmentedControlTest, ArrowKeysGoAroundAndTakeTheFocusAlong) {
    SegmentedControl control(&window);
    control.setChoices(threeModes());
    place(control);
    QList<int> told;
    control.onChosen = [&](int index) { told += index; };
    control.setFocus(Qt::TabFocusReason);
    for (const auto key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Down, Qt::Key_End, Qt::Key_Home}) {
        QTest::keyClick(window.focusWidget(), key);
    }
    EXPECT_EQ(told, QList<int>({2, 0, 1, 2, 0}));
    EXPECT_EQ(window.focusWidget(), control.segment(0));
    EXPECT_EQ(ringed(), &control);
}

TEST_F(SegmentedControlTest, TheTabKeyStopsAtTheChosenOneOnly) {
    SegmentedControl control(&window);
    Button behind(Button::Kind::Plain, &window);
    control.setChoices(threeModes());
    control.setChosen(1);
    place(control);
    place(behind, {300, 20});
    control.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(window.focusWidget(), control.segment(1));
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), &behind);
    QTest::keyClick(window.focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(window.focusWidget(), control.segment(1));
}

TEST_F(SegmentedControlTest, IsAGroupOfRadioButtons) {
    SegmentedControl control(&window);
    control.setAccessibleName(QStringLiteral("Appearance"));
    control.setChoices(threeModes());
    place(control);
    EXPECT_EQ(access(&control)->role(), QAccessible::Grouping);
    EXPECT_EQ(access(&control)->text(QAccessible::Name), QStringLiteral("Appearance"));
    EXPECT_EQ(access(control.segment(1))->role(), QAccessible::RadioButton);
    EXPECT_EQ(access(control.segment(1))->text(QAccessible::Name), QStringLiteral("Dark"));
    EXPECT_TRUE(access(control.segment(0))->state().checked);
    EXPECT_FALSE(access(control.segment(1))->state().checked);
}

TEST_F(SegmentedControlTest, KeepsItsChoiceUnderNewTexts) {
    SegmentedControl control(&window);
    control.setChoices(threeModes());
    control.setChosen(2);
    control.setChoices({{QStringLiteral("浅色"), {}},
                        {QStringLiteral("深色"), {}},
                        {QStringLiteral("跟随系统"), {}}});
    EXPECT_EQ(control.chosen(), 2);
    control.setChoices({{QStringLiteral("A"), {}}, {QStringLiteral("B"), {}}});
    EXPECT_EQ(control.chosen(), 0);
    EXPECT_EQ(control.sizeHint(), QSize(64 * 2 + 6, 32));
}

TEST_F(ControlsTest, ACheckBoxTakesClicksOnItsWordsAndTheSpaceBar) {
    CheckBox box(QStringLiteral("Show the photos"), &window);
    place(box);
    QList<bool> told;
    box.onChanged = [&](bool on) { told += on; };
    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(80, 10));
    box.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&box, Qt::Key_Space);
    EXPECT_EQ(told, QList<bool>({true, false}));
    box.setChecked(true);
    EXPECT_EQ(told.size(), 2);
    EXPECT_EQ(access(&box)->role(), QAccessible::CheckBox);
    EXPECT_TRUE(access(&box)->state().checked);
    EXPECT_EQ(access(&box)->text(QAccessible::Name), QStringLiteral("Show the photos"));
    box.setEnabled(false);
    QTest::mouseClick(&box, Qt::LeftButton);
    EXPECT_TRUE(box.isChecked());
}

TEST_F(ControlsTest, ACheckBoxsRingGoesAroundTheBoxAlone) {
    CheckBox box(QStringLiteral("Show the photos"), &window);
    place(box);
    box.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(ringed(), nullptr);
    box.clearFocus();
    box.setFocus(Qt::TabFocusReason);
    ASSERT_NE(ringed(), nullptr);
    EXPECT_EQ(ringed()->size(), QSize(16, 16));
    EXPECT_EQ(ringed()->parentWidget(), &box);
}

TEST_F(ControlsTest, TheMarkIsDrawnInATenthOfASecondAndAtOnceWithReducedMotion) {
    const auto pixels = [](CheckBox& box) { return box.grab().toImage(); };
    CheckBox still(QString(), &window);
    place(still);
    still.setChecked(true);
    const QImage whole = pixels(still);
    motion::setReduced(false);
    CheckBox moving(QString(), &window);
    place(moving, {60, 20});
    moving.setChecked(true);
    EXPECT_NE(pixels(moving), whole);
    EXPECT_TRUE(QTest::qWaitFor([&] { return pixels(moving) == whole; }, 2000));
}

TEST_F(ControlsTest, RoundBoxesExcludeEachOther) {
    QWidget group(&window);
    group.resize(300, 100);
    CheckBox first(QStringLiteral("One"), &group, CheckBox::Shape::Round);
    CheckBox second(QStringLiteral("Two"), &group, CheckBox::Shape::Round);
    place(first, {0, 0});
    place(second, {0, 30});
    group.show();
    QTest::mouseClick(&first, Qt::LeftButton);
    EXPECT_TRUE(first.isChecked());
    first.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&first, Qt::Key_Down);
    EXPECT_TRUE(second.isChecked());
    EXPECT_FALSE(first.isChecked());
    EXPECT_EQ(access(&second)->role(), QAccessible::RadioButton);
}

class ComboBoxTest : public ControlsTest {
protected:
    ComboBoxTest() {
        box.setAccessibleName(QStringLiteral("Language"));
        box.setChoices({QStringLiteral("Same as the system"), QStringLiteral("English"),
                        QStringLiteral("Salt & Pepper")},
                       1);
        box.onChosen = [this](int index) { told += index; };
        place(box);
        box.setFixedWidth(234);
    }

    ComboBox box{&window};
    QList<int> told;
};

TEST_F(ComboBoxTest, AClickOpensAMenuAsWideAsTheBoxWithThePresentOneTicked) {
    QTest::mouseClick(&box, Qt::LeftButton);
    ASSERT_TRUE(box.isMenuOpen());
    const auto actions = box.menu()->actions();
    ASSERT_EQ(actions.size(), 3);
    EXPECT_TRUE(actions[1]->isChecked());
    EXPECT_EQ(box.menu()->activeAction(), actions[1]);
    EXPECT_GE(box.menu()->width(), box.width());
    EXPECT_EQ(actions[2]->text(), QStringLiteral("Salt && Pepper"));
    QTest::keyClick(box.menu(), Qt::Key_Escape);
    EXPECT_FALSE(box.isMenuOpen());
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(ComboBoxTest, KeysOpenTheMenuAndChoose) {
    for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Up, Qt::Key_Down, Qt::Key_F4}) {
        box.setFocus(Qt::TabFocusReason);
        QTest::keyClick(&box, key);
        ASSERT_TRUE(box.isMenuOpen()) << key;
        QTest::keyClick(box.menu(), Qt::Key_Escape);
    }
    QTest::keyClick(&box, Qt::Key_Down);
    QTest::keyClick(box.menu(), Qt::Key_Down);
    QTest::keyClick(box.menu(), Qt::Key_Return);
    EXPECT_EQ(told, QList<int>({2}));
    EXPECT_EQ(box.currentText(), QStringLiteral("Salt & Pepper"));
    QTest::keyClick(&box, Qt::Key_Down);
    QTest::keyClick(box.menu(), Qt::Key_Return);
    EXPECT_EQ(told.size(), 1) << "the present one again is no change";
}

TEST_F(ComboBoxTest, IsReadAsAComboBoxWithItsValue) {
    QAccessibleInterface* interface = access(&box);
    EXPECT_EQ(interface->role(), QAccessible::ComboBox);
    EXPECT_EQ(interface->text(QAccessible::Name), QStringLiteral("Language"));
    EXPECT_EQ(interface->text(QAccessible::Value), QStringLiteral("English"));
    EXPECT_FALSE(interface->state().expanded);
    interface->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(box.isMenuOpen());
    EXPECT_TRUE(interface->state().expanded);
    QTest::keyClick(box.menu(), Qt::Key_Escape);
}

class StepperTest : public ControlsTest {
protected:
    StepperTest() {
        stepper.setRange(10, 18);
        stepper.setValue(16.5);
        stepper.onChanged = [this](double value) { told += value; };
        place(stepper);
    }

    Stepper stepper{&window};
    QList<double> told;
};

TEST_F(StepperTest, ButtonsStepByOneAndStopShortOfTheEnds) {
    QTest::mouseClick(stepper.larger(), Qt::LeftButton);
    EXPECT_EQ(stepper.valueText(), QStringLiteral("17.5"));
    EXPECT_FALSE(stepper.larger()->isEnabled());
    QTest::mouseClick(stepper.larger(), Qt::LeftButton);
    QTest::mouseClick(stepper.smaller(), Qt::LeftButton);
    EXPECT_EQ(told, QList<double>({17.5, 16.5}));
}

TEST_F(StepperTest, ArrowKeysStepAndTheWheelDoesNot) {
    stepper.setFocus(Qt::TabFocusReason);
    for (const auto key : {Qt::Key_Up, Qt::Key_Left, Qt::Key_Minus, Qt::Key_Right, Qt::Key_Plus,
                           Qt::Key_Plus, Qt::Key_Down}) {
        QTest::keyClick(&stepper, key);
    }
    EXPECT_EQ(told, QList<double>({17.5, 16.5, 15.5, 16.5, 17.5, 16.5}));
    EXPECT_EQ(ringed(), &stepper);
    QWheelEvent wheel(QPointF(5, 5), stepper.mapToGlobal(QPointF(5, 5)), {}, QPoint(0, 120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&stepper, &wheel);
    EXPECT_EQ(told.size(), 6);
}

TEST_F(StepperTest, AValueOutsideShowsAndStepsLeadBackIn) {
    stepper.setValue(40);
    EXPECT_EQ(stepper.valueText(), QStringLiteral("40"));
    QTest::mouseClick(stepper.smaller(), Qt::LeftButton);
    EXPECT_EQ(told, QList<double>({18}));
}

TEST_F(StepperTest, IsReadAsASpinBoxThatCanBeSet) {
    stepper.setAccessibleName(QStringLiteral("Size"));
    QAccessibleInterface* interface = access(&stepper);
    EXPECT_EQ(interface->role(), QAccessible::SpinBox);
    EXPECT_EQ(interface->text(QAccessible::Name), QStringLiteral("Size"));
    EXPECT_EQ(interface->text(QAccessible::Value), QStringLiteral("16.5"));
    QAccessibleValueInterface* value = interface->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->minimumValue(), QVariant(10.0));
    EXPECT_EQ(value->maximumValue(), QVariant(18.0));
    value->setCurrentValue(99);
    EXPECT_EQ(told, QList<double>({18}));
}

TEST_F(ControlsTest, ButtonSizesAreTheDesigns) {
    struct Row {
        Button::Kind kind;
        Button::Size size;
        int height;
    };
    for (const Row& row : {Row{Button::Kind::Plain, Button::Size::Regular, 32},
                           Row{Button::Kind::Danger, Button::Size::Small, 28},
                           Row{Button::Kind::Filled, Button::Size::Sheet, 40},
                           Row{Button::Kind::Quiet, Button::Size::Bar, 28},
                           Row{Button::Kind::Link, Button::Size::Line, 20}}) {
        Button button(row.kind, &window);
        button.setText(QStringLiteral("Undo…"));
        button.setButtonSize(row.size);
        EXPECT_EQ(button.sizeHint().height(), row.height);
    }
}

TEST_F(ControlsTest, AButtonsIconTakesItsRoom) {
    Button button(Button::Kind::Plain, &window);
    button.setText(QStringLiteral("Import…"));
    const int without = button.sizeHint().width();
    button.setIconName(QStringLiteral("tray"));
    EXPECT_EQ(button.sizeHint().width(), without + 16 + 7 - 3);
}

TEST_F(ControlsTest, ButtonColoursFollowTheirTable) {
    const auto now = [](ButtonKind kind, ButtonState state) { return buttonColors(kind, state); };
    const ButtonColors danger = now(ButtonKind::Danger, ButtonState::Hover);
    EXPECT_EQ(danger.fill, theme::color(Token::AccentSoft));
    EXPECT_EQ(danger.line, theme::color(Token::Accent));
    EXPECT_EQ(danger.text, theme::color(Token::AccentDeep));
    EXPECT_EQ(now(ButtonKind::Danger, ButtonState::Pressed).line, theme::color(Token::AccentDeep));
    EXPECT_EQ(now(ButtonKind::Danger, ButtonState::Disabled).text, theme::color(Token::Faint));
    EXPECT_EQ(now(ButtonKind::Link, ButtonState::Pressed).text, theme::color(Token::AccentDeep));
    EXPECT_EQ(now(ButtonKind::Link, ButtonState::Disabled).text, theme::color(Token::Faint));
    EXPECT_EQ(now(ButtonKind::Plain, ButtonState::Hover).line,
              theme::color(Token::CardBorderHover));
    EXPECT_EQ(now(ButtonKind::Filled, ButtonState::Disabled).fill, theme::color(Token::HoverBg));
}

TEST_F(ControlsTest, TheRingComesBackWithTheWindow) {
    Button button(Button::Kind::Plain, &window);
    button.setText(QStringLiteral("Choose…"));
    place(button);
    const auto focus = [&](QEvent::Type type, Qt::FocusReason reason) {
        QFocusEvent event(type, reason);
        QCoreApplication::sendEvent(&button, &event);
    };
    focus(QEvent::FocusIn, Qt::TabFocusReason);
    EXPECT_EQ(ringed(), &button);
    focus(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    EXPECT_EQ(ringed(), nullptr);
    focus(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
    EXPECT_EQ(ringed(), &button);
    focus(QEvent::FocusOut, Qt::TabFocusReason);
    focus(QEvent::FocusIn, Qt::MouseFocusReason);
    focus(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    focus(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
    EXPECT_EQ(ringed(), nullptr);
}

TextLook note() {
    return {fonts::sans(13), 19, Token::ChromeText};
}

TEST_F(ControlsTest, ALabelIsOneLineUnlessItWraps) {
    TextLabel label(note, &window);
    label.setText(QStringLiteral("three photos hidden ").repeated(20));
    EXPECT_EQ(label.sizeHint().height(), 19);
    EXPECT_FALSE(label.hasHeightForWidth());
    label.setWordWrap(true);
    EXPECT_TRUE(label.hasHeightForWidth());
    EXPECT_GE(label.heightForWidth(200), 3 * 19);
    EXPECT_EQ(label.heightForWidth(200) % 19, 0);
    EXPECT_EQ(access(&label)->role(), QAccessible::StaticText);
}

}  // namespace
}  // namespace velmar
