// The parts of the window put together, painted in several palettes and languages. The pictures go
// to the folder that VELMAR_GALLERY names, to be looked at; the test itself asks that the grounds
// and inks of the picture are the theme's.
#include <gtest/gtest.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>
#include <QtWidgets/QVBoxLayout>

#include "DiaryApp/Appearance/Appearance.h"
#include "DiaryApp/Appearance/Motion.h"
#include "DiaryApp/Appearance/Theme.h"
#include "DiaryApp/Chrome/AlertSheet.h"
#include "DiaryApp/Chrome/MainMenuBuilder.h"
#include "DiaryApp/Chrome/Notices.h"
#include "DiaryApp/Chrome/StatusBarView.h"
#include "DiaryApp/Chrome/TopBarView.h"
#include "DiaryApp/Entry/EntryView.h"

namespace velmar {
namespace {

struct Scene {
    const char* name;
    const char* palette;
    const char* language;
    EntryState state;
    bool hasAlert = false;
};

QString draft(const char* text) {
    return QString::fromUtf8(text);
}

std::vector<PastEntry> years(std::initializer_list<int> list) {
    std::vector<PastEntry> entries;
    for (const int year : list) entries.push_back({year, QStringLiteral("x")});
    return entries;
}

std::vector<Scene> scenes() {
    const char* english =
        "First night in the new flat. No curtains, one chair, the kettle on the floor. The canal "
        "throws the street lamp onto the ceiling and it walks about up there until past two.";
    const char* chinese =
        "七点醒来，对岸的屋顶全白了。水壶慢吞吞地响，我就站在窗前，看整条街由灰变成浅红，前后不过"
        "六分钟，然后又只是一条街了。";
    const char* japanese =
        "七時に起きると、向こう岸の屋根が白かった。やかんがなかなか沸かないので窓辺に立ち、通り全体"
        "が灰色から薄紅に変わるのを六分ほど眺めていた。";
    const auto past = years({2025, 2023, 2021, 2018});
    return {
        {"first-day", "paper", "en", {{11, 21}, 2026, 2026, QString(), {}}},
        {"past-year", "paper", "en", {{11, 21}, 2021, 2026, draft(english), past}},
        {"leap-day", "paper", "en", {{2, 29}, 2026, 2026, QString(), years({2024, 2020})}},
        {"ink", "ink", "en", {{11, 21}, 2026, 2026, draft(english), past}},
        {"celadon", "celadon", "zh-Hans", {{11, 21}, 2026, 2026, draft(chinese), past}},
        {"indigo", "indigo", "ja", {{11, 21}, 2026, 2026, draft(japanese), past}},
        {"alert", "paper", "en", {{11, 21}, 2026, 2026, draft(english), past}, true},
    };
}

class Gallery : public testing::TestWithParam<Scene> {
protected:
    Gallery() {
        QProcessEnvironment environment;
        environment.insert(QStringLiteral("DIARY_PALETTE"),
                           QString::fromLatin1(GetParam().palette));
        environment.insert(QStringLiteral("DIARY_LANGUAGE"),
                           QString::fromLatin1(GetParam().language));
        settings = std::make_unique<Settings>(
            std::make_unique<QSettings>(folder.filePath(QStringLiteral("s.ini")),
                                        QSettings::IniFormat),
            folder.path(), environment);
        localization::install(localization::effectiveLanguage(*settings));
        QCoreApplication::setApplicationName(QStringLiteral("Velmar"));
        appearance::prepare();
        appearance::apply(*settings);
        // The pictures are of what has arrived.
        motion::setReduced(true);
    }
    ~Gallery() override { motion::setReduced(false); }

    void build() {
        auto* layout = new QVBoxLayout(&window);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        auto* bar = MainMenuBuilder::build(&window, [](Action) {});
        auto* top = new TopBarView;
        auto* entry = new EntryView(*settings);
        auto* status = new StatusBarView(QStringLiteral("/home/me"));
        layout->addWidget(bar);
        layout->addWidget(top);
        layout->addWidget(entry, 1);
        layout->addWidget(status);
        EntryState state = GetParam().state;
        state.language = localization::installedLanguage();
        const EntryModel model = entryModel(state);
        top->update({model.fileName, static_cast<int>(state.pastEntries.size()), false});
        entry->update(model);
        status->update(QStringLiteral("/home/me/Documents/Diary/") + model.fileName,
                       notices::viewing(state.viewedYear, static_cast<int>(state.draft.size())));
        window.resize(1360, 840);
        window.show();
        entry->focusEditor();
        if (!GetParam().hasAlert) return;
        const diary::FileError full(diary::FileOperation::Write, model.fileName, ENOSPC);
        AlertSheet::show(&window, notices::saveFailedTitle(model.fileName),
                         notices::saveFailedText(full));
    }

    QTemporaryDir folder;
    std::unique_ptr<Settings> settings;
    QWidget window;
};

TEST_P(Gallery, IsPaintedFromTheTheme) {
    build();
    const QImage image = window.grab().toImage();
    const QString target = qEnvironmentVariable("VELMAR_GALLERY");
    if (!target.isEmpty()) {
        ASSERT_TRUE(image.save(
            QDir(target).filePath(QString::fromLatin1(GetParam().name) + QStringLiteral(".png"))));
    }
    ASSERT_EQ(image.size(), QSize(1360, 840));
    if (GetParam().hasAlert) return;
    EXPECT_EQ(image.pixelColor(700, 14), theme::color(Token::Bar));
    EXPECT_EQ(image.pixelColor(700, 60), theme::color(Token::Bar));
    EXPECT_EQ(image.pixelColor(700, 71), theme::color(Token::Border));
    EXPECT_EQ(image.pixelColor(20, 500), theme::color(Token::Paper));
    EXPECT_EQ(image.pixelColor(700, 812), theme::color(Token::Border));
    EXPECT_EQ(image.pixelColor(700, 826), theme::color(Token::Bar));
    EXPECT_EQ(image.pixelColor(700, 168), theme::color(Token::Border));
}

TEST_P(Gallery, FollowsAChangeOfPalette) {
    build();
    const diary::Palette other =
        theme::tokens().isDark() ? diary::Palette::plain : diary::Palette::indigo;
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("DIARY_PALETTE"), diary::palette::rawValue(other));
    const Settings changed(
        std::make_unique<QSettings>(folder.filePath(QStringLiteral("s.ini")), QSettings::IniFormat),
        folder.path(), environment);
    EXPECT_TRUE(appearance::apply(changed));
    EXPECT_FALSE(appearance::apply(changed));
    if (GetParam().hasAlert) return;
    const QImage image = window.grab().toImage();
    EXPECT_EQ(image.pixelColor(700, 14), theme::color(Token::Bar));
    EXPECT_EQ(image.pixelColor(20, 500), theme::color(Token::Paper));
    EXPECT_EQ(image.pixelColor(700, 826), theme::color(Token::Bar));
}

INSTANTIATE_TEST_SUITE_P(Scenes, Gallery, testing::ValuesIn(scenes()), [](const auto& scene) {
    std::string name = scene.param.name;
    std::ranges::replace(name, '-', '_');
    return name;
});

}  // namespace
}  // namespace velmar
