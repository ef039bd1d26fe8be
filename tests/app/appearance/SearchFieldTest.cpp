#include "DiaryApp/Appearance/SearchField.h"

#include <gmock/gmock.h>

#include <QtGui/QImage>
#include <QtGui/QInputMethodEvent>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>

#include "DiaryApp/Appearance/Appearance.h"
#include "DiaryApp/Appearance/Theme.h"
#include "tests/support/Printing.h"

namespace velmar {
namespace {

class SearchFieldTest : public testing::Test {
protected:
    SearchFieldTest() {
        appearance::prepare();
        // Away from where an earlier test left the pointer.
        window.resize(500, 400);
        field.setGeometry(QRect(QPoint(100, 300), field.sizeHint()));
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        field.setFocus();
    }

    void compose(const QString& preedit, const QString& commit = {}) {
        QInputMethodEvent event(preedit, {});
        if (!commit.isEmpty()) event.setCommitString(commit);
        QApplication::sendEvent(&field, &event);
    }

    [[nodiscard]] QColor pixel(int x, int y) { return field.grab().toImage().pixelColor(x, y); }

    // Where the caret stands, in pixels from the left; none while it isn't lit.
    [[nodiscard]] std::vector<int> caretColumns() {
        const QImage image = field.grab().toImage();
        std::vector<int> columns;
        for (int x = 20; x < image.width() - 20; ++x) {
            if (image.pixelColor(x, image.height() / 2) == theme::color(Token::Accent)) {
                columns.push_back(x);
            }
        }
        return columns;
    }

    QWidget window;
    SearchField field{&window};
    QSignalSpy edited{&field, &QLineEdit::textEdited};
};

TEST_F(SearchFieldTest, WhatIsComposedIsNotTold) {
    EXPECT_FALSE(field.isComposing());
    compose(QStringLiteral("yun"));
    EXPECT_TRUE(field.isComposing());
    EXPECT_EQ(edited.count(), 0);
    EXPECT_EQ(field.text(), QString());
    compose({}, QStringLiteral("运河"));
    EXPECT_FALSE(field.isComposing());
    ASSERT_EQ(edited.count(), 1);
    EXPECT_EQ(edited[0][0].toString(), QStringLiteral("运河"));
}

TEST_F(SearchFieldTest, TextThatIsSetIsNotToldAsTyped) {
    field.setText(QStringLiteral("canal"));
    EXPECT_EQ(edited.count(), 0);
    QTest::keyClicks(&field, QStringLiteral("s"));
    EXPECT_EQ(edited.count(), 1);
}

TEST_F(SearchFieldTest, TheButtonEmptiesTheFieldAndIsThereOnlyForText) {
    auto* clear = field.findChild<QAbstractButton*>();
    ASSERT_NE(clear, nullptr);
    EXPECT_FALSE(clear->isVisible());
    field.setText(QStringLiteral("canal"));
    EXPECT_TRUE(clear->isVisible());
    QTest::mouseClick(clear, Qt::LeftButton);
    EXPECT_EQ(field.text(), QString());
    EXPECT_FALSE(clear->isVisible());
    ASSERT_EQ(edited.count(), 1);
    EXPECT_EQ(edited[0][0].toString(), QString());
    EXPECT_TRUE(field.hasFocus());
}

TEST_F(SearchFieldTest, TheFocusShowsAsALineAndAHalo) {
    const int middle = field.height() / 2;
    EXPECT_EQ(pixel(SearchField::boxMargin, middle), theme::color(Token::Accent));
    const QColor withHalo = pixel(1, middle);
    field.clearFocus();
    EXPECT_EQ(pixel(SearchField::boxMargin, middle), theme::color(Token::Border));
    EXPECT_NE(pixel(1, middle), withHalo);
}

TEST_F(SearchFieldTest, TheCaretStandsBehindTheTextInTheAccent) {
    EXPECT_THAT(caretColumns(), testing::ElementsAre(38, 39));
    QTest::keyClicks(&field, QStringLiteral("canal"));
    const std::vector<int> columns = caretColumns();
    ASSERT_EQ(columns.size(), 2U);
    const int end = 38 + field.fontMetrics().horizontalAdvance(field.text());
    EXPECT_NEAR(columns[0], end, 1);
}

TEST_F(SearchFieldTest, TheCaretBlinksAndIsLitByAKey) {
    ASSERT_GT(appearance::caretFlashTime(), 0);
    EXPECT_TRUE(QTest::qWaitFor([this] { return caretColumns().empty(); }, 10'000));
    QTest::keyClick(&field, Qt::Key_Left);
    EXPECT_EQ(caretColumns().size(), 2U);
}

TEST_F(SearchFieldTest, BehindAnotherWindowTheCaretIsOutAndNothingIsPainted) {
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_TRUE(caretColumns().empty());
    struct Paints : QObject {
        bool eventFilter(QObject* watched, QEvent* event) override {
            if (event->type() == QEvent::Paint) ++count;
            return QObject::eventFilter(watched, event);
        }
        int count = 0;
    } paints;
    QCoreApplication::processEvents();
    field.installEventFilter(&paints);
    QTest::qWait(appearance::caretFlashTime() + 100);
    EXPECT_EQ(paints.count, 0);
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_EQ(caretColumns().size(), 2U);
}

}  // namespace
}  // namespace velmar
