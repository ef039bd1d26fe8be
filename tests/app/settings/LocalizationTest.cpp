#include "DiaryApp/Settings/Localization.h"

#include <QtCore/QCoreApplication>

#include "SettingsFixture.h"

namespace velmar {
namespace {

class LocalizationTest : public test::SettingsFixture {
protected:
    [[nodiscard]] Language effective(const QStringList& system) const {
        return localization::effectiveLanguage(settings(), system);
    }
};

TEST_F(LocalizationTest, FollowsTheFirstSystemLanguageThatItHas) {
    struct Row {
        QStringList system;
        Language expected;
    };
    const std::vector<Row> rows = {
        {{QStringLiteral("zh-CN")}, Language::zhHans},
        {{QStringLiteral("zh-Hans-CN"), QStringLiteral("en")}, Language::zhHans},
        {{QStringLiteral("zh")}, Language::zhHans},
        {{QStringLiteral("ja-JP")}, Language::ja},
        {{QStringLiteral("ja_JP")}, Language::ja},
        {{QStringLiteral("en-GB"), QStringLiteral("ja")}, Language::en},
        {{QStringLiteral("fr-FR"), QStringLiteral("ja")}, Language::ja},
        {{QStringLiteral("fr-FR")}, Language::en},
        {{QStringLiteral("zhx")}, Language::en},
        {{QStringLiteral("C")}, Language::en},
        {{}, Language::en},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(effective(row.system), row.expected) << row.system.join(u',').toStdString();
    }
}

TEST_F(LocalizationTest, TheChoiceGoesBeforeTheSystem) {
    Settings chosen = settings();
    chosen.setLanguageOverride(QStringLiteral("ja"));
    EXPECT_EQ(localization::effectiveLanguage(chosen, {QStringLiteral("zh-CN")}), Language::ja);
    chosen.setLanguageOverride(QStringLiteral("fr"));
    EXPECT_EQ(localization::effectiveLanguage(chosen, {QStringLiteral("zh-CN")}), Language::zhHans);
    chosen.setLanguageOverride(std::nullopt);
    EXPECT_EQ(localization::effectiveLanguage(chosen, {QStringLiteral("en")}), Language::en);
}

TEST_F(LocalizationTest, TheEnvironmentGoesBeforeTheChoiceIfItIsSupported) {
    store(QStringLiteral("languageOverride"), QStringLiteral("ja"));
    set(QStringLiteral("DIARY_LANGUAGE"), QStringLiteral("zh-Hans"));
    EXPECT_EQ(effective({}), Language::zhHans);
    set(QStringLiteral("DIARY_LANGUAGE"), QStringLiteral("zh"));
    EXPECT_EQ(effective({}), Language::ja);
}

TEST_F(LocalizationTest, SwitchesAtRunTime) {
    localization::install(Language::ja);
    EXPECT_EQ(qtTrId("This year"), QStringLiteral("今年"));
    EXPECT_EQ(qtTrId("Today"), QStringLiteral("今日"));
    localization::install(Language::zhHans);
    EXPECT_EQ(qtTrId("Today"), QStringLiteral("今天"));
    EXPECT_EQ(localization::installedLanguage(), Language::zhHans);
    localization::install(Language::en);
    EXPECT_EQ(qtTrId("Today"), QStringLiteral("Today"));
}

TEST_F(LocalizationTest, QtsOwnTextsFollowWhereTheyAreInstalled) {
    const QString folder = QStringLiteral(VELMAR_QT_TEXTS);
    const auto cancel = [] { return QCoreApplication::translate("QPlatformTheme", "Cancel"); };
    localization::install(Language::ja, folder);
    EXPECT_EQ(cancel(), QStringLiteral("キャンセル"));
    localization::install(Language::zhHans, folder);
    EXPECT_EQ(cancel(), QStringLiteral("取消"));
    EXPECT_EQ(qtTrId("Today"), QStringLiteral("今天")) << "ours stay ours";
    EXPECT_EQ(QCoreApplication::translate("QShortcut", "Left"), QStringLiteral("Left"))
        << "the names of keys in our menus";
    localization::install(Language::en, folder);
    EXPECT_EQ(cancel(), QStringLiteral("Cancel"));
    localization::install(Language::ja, QStringLiteral("/nowhere"));
    EXPECT_EQ(cancel(), QStringLiteral("Cancel"));
    EXPECT_EQ(qtTrId("Today"), QStringLiteral("今日"));
    localization::install(Language::en);
}

TEST_F(LocalizationTest, CountsHaveTheirPlurals) {
    localization::install(Language::en);
    EXPECT_EQ(qtTrId("%d years ago", 1), QStringLiteral("1 year ago"));
    EXPECT_EQ(qtTrId("%d years ago", 2), QStringLiteral("2 years ago"));
    EXPECT_EQ(qtTrId("%d year sections", 0), QStringLiteral("0 year sections"));
    EXPECT_EQ(qtTrId("Viewing ## %@ · %d chars", 1).arg(2026),
              QStringLiteral("Viewing ## 2026 · 1 char"));
    localization::install(Language::zhHans);
    EXPECT_EQ(qtTrId("%d years ago", 1), QStringLiteral("1 年前"));
    localization::install(Language::en);
}

TEST(TextInAllLanguages, GivesEachLanguagesOwnText) {
    const QStringList markers = localization::textInAllLanguages("ConflictMarker");
    EXPECT_EQ(QSet<QString>(markers.begin(), markers.end()).size(), 3);
    EXPECT_TRUE(localization::textInAllLanguages("NoSuchKey").isEmpty());
}

}  // namespace
}  // namespace velmar
