#include "DiaryApp/Chrome/TopBarView.h"

#include <gtest/gtest.h>

#include <QtTest/QTest>

#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Settings/Localization.h"

namespace velmar {
namespace {

class TopBarViewTest : public testing::Test {
protected:
    TopBarViewTest() {
        localization::install(Language::en);
        bar.resize(1360, TopBarView::barHeight);
        bar.update({QStringLiteral("11-21.md"), 1, false});
        bar.show();
    }
    ~TopBarViewTest() override { localization::install(Language::en); }

    [[nodiscard]] Button* button(int index) const { return bar.findChildren<Button*>()[index]; }

    TopBarView bar;
};

TEST_F(TopBarViewTest, ButtonsCallBack) {
    int sources = 0;
    int randoms = 0;
    bar.onToggleSource = [&] { ++sources; };
    bar.onRandom = [&] { ++randoms; };
    ASSERT_EQ(bar.findChildren<Button*>().size(), 2);
    QTest::mouseClick(button(0), Qt::LeftButton);
    QTest::keyClick(button(1), Qt::Key_Return);
    EXPECT_EQ(randoms, 1);
    EXPECT_EQ(sources, 1);
    EXPECT_TRUE(button(0)->toolTip().startsWith(QStringLiteral("Random Day")));
    EXPECT_TRUE(button(0)->toolTip().contains(QStringLiteral("Ctrl+R")));
    EXPECT_TRUE(button(1)->toolTip().contains(QStringLiteral("Ctrl+U")));
}

TEST_F(TopBarViewTest, TheSecondButtonLeadsToTheFileAndBack) {
    EXPECT_EQ(button(1)->text(), QStringLiteral("Source"));
    bar.update({QStringLiteral("11-21.md"), 1, true});
    EXPECT_EQ(button(1)->text(), QStringLiteral("Reader"));
    bar.update({QStringLiteral("11-21.md"), 1, false});
    EXPECT_EQ(button(1)->text(), QStringLiteral("Source"));
}

TEST_F(TopBarViewTest, TellsTheFileAndItsYears) {
    EXPECT_EQ(bar.accessibleDescription(), QStringLiteral("11-21.md, 1 year section"));
    bar.update({QStringLiteral("11-21.md"), 3, false});
    EXPECT_EQ(bar.accessibleDescription(), QStringLiteral("11-21.md, 3 year sections"));
    localization::install(Language::ja);
    bar.retranslate();
    EXPECT_EQ(bar.accessibleDescription(), QStringLiteral("11-21.md, 3 年分"));
}

}  // namespace
}  // namespace velmar
