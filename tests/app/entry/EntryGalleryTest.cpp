// The pages painted in several palettes and languages. The pictures go to a folder of the build, to
// be looked at beside what the pages are meant to look like; the test asks for grounds and inks.
#include <QtCore/QDir>
#include <QtGui/QImage>
#include <QtGui/QPainter>

#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Theme.h"
#include "tests/app/entry/EntryViewFixture.h"

namespace velmar {
namespace {

struct Look {
    const char* palette;
    Language language;
};

class EntryGallery : public testing::TestWithParam<Look> {
protected:
    EntryGallery() {
        QProcessEnvironment environment;
        environment.insert(QStringLiteral("DIARY_PALETTE"),
                           QString::fromLatin1(GetParam().palette));
        settings = std::make_unique<Settings>(
            std::make_unique<QSettings>(folder.filePath(QStringLiteral("s.ini")),
                                        QSettings::IniFormat),
            folder.path(), environment);
        localization::install(GetParam().language);
        appearance::prepare();
        appearance::apply(*settings);
        fonts::setLanguage(GetParam().language);
        motion::setReduced(true);
        view = std::make_unique<EntryView>(*settings);
        view->resize(840, 740);
        view->show();
        view->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(view.get()));
        state.language = GetParam().language;
        state.body = [this](int year) {
            for (const PastEntry& each : state.pastEntries) {
                if (each.year == year) return each.body;
            }
            return QString();
        };
    }

    ~EntryGallery() override { motion::setReduced(false); }

    // At once and twice the size.
    QImage picture(const QString& name) {
        view->update(entryModel(state));
        view->scrollToTop();
        view->focusEditor();
        QDir target(QStringLiteral(VELMAR_BINARY_DIR "/pictures/entry"));
        EXPECT_TRUE(target.mkpath(QStringLiteral(".")));
        QImage shown;
        for (const int scale : {2, 1}) {
            shown = QImage(view->size() * scale, QImage::Format_RGB32);
            shown.setDevicePixelRatio(scale);
            view->render(&shown);
            const QString file = QStringLiteral("%1-%2-%3x.png")
                                     .arg(name, QString::fromLatin1(GetParam().palette))
                                     .arg(scale);
            EXPECT_TRUE(shown.save(target.filePath(file)));
        }
        return shown;
    }

    static bool holds(const QImage& image, const QRect& part, const QColor& color) {
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (int x = part.left(); x <= part.right(); ++x) {
                if (image.pixelColor(x, y) == color) return true;
            }
        }
        return false;
    }

    QTemporaryDir folder;
    std::unique_ptr<Settings> settings;
    std::unique_ptr<EntryView> view;
    EntryState state{
        .day = {3, 14},
        .viewedYear = 2026,
        .currentYear = 2026,
        .draft = QStringLiteral(
            "Ice gone from the small pond overnight. Two moorhens were arguing about "
            "it before breakfast, and we took the long bench to hear them out."),
        .pastEntries = {{2025, QStringLiteral("Train to the hills with Mara; nobody else got off. "
                                              "Tea from the flask on a wall that was already "
                                              "**warm**. Neither of us said the word *spring*.")},
                        {2022, QStringLiteral("Sown today, all of it too early:\n- broad beans "
                                              "along the fence\n- [x] sweet peas, soaked "
                                              "overnight")},
                        {2021, QStringLiteral("The piano tuner came and stayed for soup.")},
                        {2017, QStringLiteral("### 08:15\nPi day. Bought a compass and drew "
                                              "nothing but circles.")}}};
};

TEST_P(EntryGallery, OneYear) {
    state.day = {11, 21};
    const QImage image = picture(QStringLiteral("one-year"));
    EXPECT_EQ(image.pixelColor(20, 500), theme::color(Token::Paper));
    EXPECT_TRUE(holds(image, {122, 142, 40, 20}, theme::color(Token::Accent)));
}

TEST_P(EntryGallery, PastYear) {
    state.day = {11, 21};
    state.viewedYear = 2021;
    state.draft = state.pastEntries[2].body;
    const QImage image = picture(QStringLiteral("past-year"));
    EXPECT_FALSE(holds(image, {122, 142, 40, 20}, theme::color(Token::Accent)));
}

TEST_P(EntryGallery, LeapDay) {
    state.day = {2, 29};
    state.draft.clear();
    state.pastEntries = {{2024, QStringLiteral("x")}, {2020, QStringLiteral("x")}};
    const QImage image = picture(QStringLiteral("leap-day"));
    EXPECT_EQ(image.pixelColor(400, 200), theme::color(Token::Paper));
}

TEST_P(EntryGallery, AllYears) {
    state.showAllYears = true;
    const QImage image = picture(QStringLiteral("all-years"));
    EXPECT_EQ(image.pixelColor(104, 200), theme::color(Token::CardBgActive));
    EXPECT_EQ(image.pixelColor(104, 340), theme::color(Token::CardBg));
    EXPECT_EQ(image.pixelColor(400, 140), theme::color(Token::CardBorder));
    state.draft.clear();
    const QImage empty = picture(QStringLiteral("all-years-empty"));
    EXPECT_TRUE(holds(empty, {122, 179, 300, 34}, theme::color(Token::EmptyText)));
}

TEST_P(EntryGallery, CardUnderThePointerAndCardWithTheFocus) {
    state.showAllYears = true;
    state.pastEntries.erase(state.pastEntries.begin(), state.pastEntries.begin() + 3);
    state.pastEntries[0].year = 2024;
    view->update(entryModel(state));
    YearCard* card = view->yearCards().at(2024);
    QHoverEvent over(QEvent::HoverEnter, QPointF(9, 9), QPointF(9, 9), QPointF(-1, -1));
    QCoreApplication::sendEvent(card, &over);
    view->yearCards().at(2026)->setFocus(Qt::TabFocusReason);
    const QImage image = picture(QStringLiteral("states"));
    EXPECT_EQ(image.pixelColor(400, card->y()), theme::color(Token::CardBorderHover));
    const QRect hint(card->geometry().right() - 60, card->y() + 13, 40, 26);
    EXPECT_TRUE(holds(image, hint, theme::color(Token::Accent)));
    EXPECT_NE(image.pixelColor(400, 140 - 3), theme::color(Token::Paper));
}

TEST_P(EntryGallery, Source) {
    state.showSource = true;
    state.rawText = QStringLiteral(
        "# 03-14\n\n## 2018\n\n### 08:15\n\nGrandfather’s desk came up the stairs on four "
        "shoulders. In the left drawer: a ruler, a bus token, *his* pencil.\n\n### 22:40\n\nWrote "
        "this at it.\n\n## "
        "2021\n\n七点醒来，对岸的屋顶全白了。水壶慢吞吞地响，我就站在窗前，看整条街"
        "由灰变成浅红，前后不过六分钟，然后又只是一条街了。\n");
    const QImage image = picture(QStringLiteral("source"));
    EXPECT_TRUE(holds(image, {122, 34, 80, 24}, theme::color(Token::InkSource)));
    view->selectAll();
    const QImage chosen = picture(QStringLiteral("source-selected"));
    EXPECT_EQ(chosen.pixelColor(123, 35), theme::color(Token::SelectionBg));
    // Rows of a selection touch.
    EXPECT_EQ(chosen.pixelColor(123, 58), theme::color(Token::SelectionBg));
}

TEST_P(EntryGallery, Matches) {
    state.day = {11, 21};
    state.matches = EntryModel::Matches{2, 0};
    view->update(entryModel(state));
    view->setHighlights({{4, 4}, {19, 5}}, 0, EntryView::Scroll::None);
    const QImage image = picture(QStringLiteral("matches"));
    EXPECT_TRUE(holds(image, {760, 684, 20, 10}, theme::color(Token::PillBg)));
}

TEST_P(EntryGallery, SmallestWindow) {
    view->resize(560, 520);
    picture(QStringLiteral("small"));
    state.showAllYears = true;
    const QImage image = picture(QStringLiteral("small-all-years"));
    EXPECT_EQ(image.pixelColor(10, 300), theme::color(Token::Paper));
}

INSTANTIATE_TEST_SUITE_P(Looks, EntryGallery,
                         testing::Values(Look{"paper", Language::en}, Look{"ink", Language::en},
                                         Look{"celadon", Language::zhHans},
                                         Look{"indigo", Language::ja}),
                         [](const testing::TestParamInfo<Look>& look) {
                             return std::string(look.param.palette);
                         });

}  // namespace
}  // namespace velmar
