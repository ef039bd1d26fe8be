#include "DiaryApp/Chrome/TopBarView.h"

#include <gtest/gtest.h>

#include <QtTest/QTest>

#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Settings/Localization.h"

namespace velmar {
namespace {

TEST(TopBarView, ButtonsCallBack) {
    localization::install(Language::en);
    TopBarView bar;
    bar.resize(1360, TopBarView::barHeight);
    bar.show();
    int todays = 0;
    int randoms = 0;
    bar.onToday = [&] { ++todays; };
    bar.onRandom = [&] { ++randoms; };
    const auto buttons = bar.findChildren<Button*>();
    ASSERT_EQ(buttons.size(), 2);
    QTest::mouseClick(buttons[0], Qt::LeftButton);
    QTest::keyClick(buttons[1], Qt::Key_Return);
    EXPECT_EQ(todays, 1);
    EXPECT_EQ(randoms, 1);
    EXPECT_TRUE(buttons[1]->toolTip().startsWith(QStringLiteral("Random Day")));
    EXPECT_TRUE(buttons[1]->toolTip().contains(QStringLiteral("Ctrl+R")));
}

TEST(TopBarView, TellsTheFileAndItsYears) {
    localization::install(Language::en);
    TopBarView bar;
    bar.update(QStringLiteral("11-21.md"), 1);
    EXPECT_EQ(bar.accessibleDescription(), QStringLiteral("11-21.md, 1 year section"));
    localization::install(Language::ja);
    bar.retranslate();
    EXPECT_EQ(bar.accessibleDescription(), QStringLiteral("11-21.md, 1 年分"));
    localization::install(Language::en);
}

}  // namespace
}  // namespace velmar
