// The views painted in several palettes and languages. The pictures are left in the build folder to
// be looked at; the tests ask that grounds and inks are the theme's, at any scale.
#include <QtCore/QDir>
#include <QtGui/QImage>
#include <QtGui/QMouseEvent>
#include <QtTest/QTest>

#include "DiaryApp/Navigation/DayGridView.h"
#include "DiaryApp/Navigation/MonthHeatView.h"
#include "DiaryApp/Navigation/RailCard.h"
#include "DiaryApp/Navigation/SidebarView.h"
#include "DiaryApp/Navigation/YearOverviewView.h"
#include "DiaryApp/Navigation/YearRailView.h"
#include "NavigationFixture.h"

namespace velmar {
namespace {

struct Scene {
    const char* name;
    diary::Palette palette;
    Language language;
};

class Pictures : public NavigationTest, public testing::WithParamInterface<Scene> {
protected:
    Pictures() {
        theme::setPalette(GetParam().palette);
        setLanguage(GetParam().language);
        if (GetParam().language == Language::zhHans) {
            rail.draft = QStringLiteral(
                "### "
                "桂花谢后的第一场霜\n七点醒来，对岸的屋顶全白了。水壶慢吞吞地响，我就站在窗前，看整"
                "条街由灰变成浅红，前后不过六分钟。");
        }
        if (GetParam().language == Language::ja) {
            rail.draft = QStringLiteral(
                "### "
                "運河の初霜\n七時に起きると、向こう岸の屋根が白かった。やかんがなかなか沸かないので"
                "窓辺に立ち、通り全体を眺めていた。");
        }
        rail.hits = {{2026, 2}, {2021, 1}};
    }

    // A heat that looks like a diary's: no pattern, all shades, the leap day among them.
    [[nodiscard]] YearOverviewModel yearOverview() const {
        QHash<diary::MonthDay, int> counts;
        for (int i = 0; i < diary::MonthDay::cycleLength; ++i) {
            const int count = (i * 7 + i * i % 11) % 5 - 1;
            if (count > 0) counts.insert(diary::MonthDay{1, 1}.advanced(i), count);
        }
        counts.insert({2, 29}, 2);
        return yearOverviewModel(counts, sidebar.overview.value(), sidebar.language);
    }

    // What the view paints, at the scale of the run, kept as "<what>-<scene>.png".
    static QImage paint(QWidget& view, const QString& what) {
        QImage image = view.grab().toImage();
        const qreal scale = image.devicePixelRatio();
        const QDir folder(QStringLiteral(VELMAR_BINARY_DIR "/pictures"));
        EXPECT_TRUE(folder.mkpath(QStringLiteral(".")));
        const QString suffix = scale > 1 ? QStringLiteral("@%1x").arg(scale) : QString();
        EXPECT_TRUE(image.save(folder.filePath(what + u'-' + QString::fromLatin1(GetParam().name) +
                                               suffix + QStringLiteral(".png"))));
        return image;
    }

    // The colour at a point of the view.
    static QColor at(const QImage& image, int x, int y) {
        return image.pixelColor(QPoint(x, y) * image.devicePixelRatio());
    }
};

TEST_P(Pictures, Sidebar) {
    SidebarView view;
    view.resize(268, 740);
    view.update(sidebarModel(sidebar));
    view.show();
    const QImage image = paint(view, QStringLiteral("sidebar"));
    EXPECT_EQ(at(image, 4, 300), theme::color(Token::Panel));
    EXPECT_EQ(image.pixelColor(image.width() - 1, 300), theme::color(Token::Border));
    EXPECT_EQ(at(image, 130, 19), theme::color(Token::CardBg));
    EXPECT_EQ(at(image, 130, 14), theme::color(Token::CardBorder));
    const QPoint chosen = view.grid()->pos() + view.grid()->cellRect(21).topLeft().toPoint();
    EXPECT_EQ(at(image, chosen.x() + 4, chosen.y() + 15), theme::color(Token::PillBg));
    EXPECT_EQ(at(image, 130, 696), theme::color(Token::BorderSoft));
    view.resize(268, 520);
    paint(view, QStringLiteral("sidebar-low"));
}

TEST_P(Pictures, Rail) {
    YearRailView view;
    view.resize(252, 740);
    view.update(railModel(rail));
    view.show();
    const QImage image = paint(view, QStringLiteral("rail"));
    EXPECT_EQ(at(image, 8, 300), theme::color(Token::Panel));
    EXPECT_EQ(at(image, 0, 300), theme::color(Token::Border));
    EXPECT_EQ(at(image, 100, 60), theme::color(Token::CardBgActive));
    EXPECT_EQ(at(image, 100, 56), theme::color(Token::CardBorderActive));
    EXPECT_EQ(at(image, 100, 175), theme::color(Token::CardBg));
    EXPECT_EQ(at(image, 100, 171), theme::color(Token::CardBorder));
    EXPECT_EQ(at(image, 100, 696), theme::color(Token::Panel)) << "all cards fit";
    view.resize(252, 520);
    const QImage low = paint(view, QStringLiteral("rail-low"));
    EXPECT_EQ(at(low, 100, 476), theme::color(Token::BorderSoft));
}

TEST_P(Pictures, FocusAndPointer) {
    YearRailView view;
    view.resize(252, 740);
    view.update(railModel(rail));
    view.show();
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    const QColor before = at(view.grab().toImage(), 13, 220);
    view.cards()[1]->setFocus(Qt::TabFocusReason);
    motion::setReduced(true);
    QHoverEvent enter(QEvent::HoverEnter, QPointF(5, 5), QPointF(5, 5), QPointF(-1, -1));
    QCoreApplication::sendEvent(view.cards()[2], &enter);
    const QImage image = paint(view, QStringLiteral("rail-focus"));
    EXPECT_NE(at(image, 13, 220), before) << "two pixels outside of the card";
    EXPECT_EQ(at(image, 100, 286), theme::color(Token::CardBorderHover));

    YearOverviewView year;
    year.update(yearOverview());
    year.show();
    year.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&year));
    year.heat(4)->setFocus(Qt::TabFocusReason);
    const QPointF point = year.heat(2)->cellRect(7).center();
    QMouseEvent move(QEvent::MouseMove, point, year.heat(2)->mapToGlobal(point), Qt::NoButton,
                     Qt::NoButton, {});
    QCoreApplication::sendEvent(year.heat(2), &move);
    const QImage heat = paint(year, QStringLiteral("year-focus"));
    EXPECT_NE(at(heat, 46, 304), at(heat, 46, 138)) << "the ring of the focus";
    EXPECT_EQ(at(heat, 527, 129), theme::color(Token::CardBorderActive));

    SidebarView side;
    side.resize(268, 740);
    side.update(sidebarModel(sidebar));
    side.show();
    side.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&side));
    side.grid()->setFocus(Qt::TabFocusReason);
    paint(side, QStringLiteral("sidebar-focus"));
}

TEST_P(Pictures, YearCalendar) {
    YearOverviewView view;
    view.update(yearOverview());
    view.show();
    const QImage image = paint(view, QStringLiteral("year"));
    EXPECT_EQ(at(image, 10, 10), theme::color(Token::Paper));
    EXPECT_EQ(at(image, 100, 86), theme::color(Token::CardBg));
    // The leap day: its shade, and the line around it.
    EXPECT_EQ(at(image, 335, 210), theme::tokens().heatShades()[2]);
    EXPECT_EQ(at(image, 335, 203), theme::color(Token::Accent));
}

INSTANTIATE_TEST_SUITE_P(Scenes, Pictures,
                         testing::Values(Scene{"paper", diary::Palette::paper, Language::en},
                                         Scene{"ink", diary::Palette::ink, Language::en},
                                         Scene{"celadon_zh", diary::Palette::celadon,
                                               Language::zhHans},
                                         Scene{"indigo_ja", diary::Palette::indigo, Language::ja}),
                         [](const auto& scene) { return std::string(scene.param.name); });

}  // namespace
}  // namespace velmar
