// What the settings change while the application runs, and that no word is lost by it.
#include "DiaryApp/Shell/AppDelegate.h"

#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Chrome/StatusBarView.h"
#include "DiaryApp/SettingsWindow/OnboardingSheet.h"
#include "DiaryApp/SettingsWindow/PathField.h"
#include "DiaryApp/SettingsWindow/SettingsWindow.h"
#include "DiaryApp/SettingsWindow/SettingsWindowController.h"
#include "DiaryKit/Files/TemporaryName.h"
#include "DiaryKit/Files/UserFolders.h"
#include "tests/app/shell/ShellFixture.h"

namespace velmar {
namespace {

class AppDelegateTest : public test::ShellFixture {
protected:
    AppDelegateTest() {
        settings.setVaultPath(vault.path());
        delegate.start();
        delegate.showSettings();
        QTest::keyClicks(text(), QStringLiteral("words"));
    }
    ~AppDelegateTest() override {
        settings.setLightPalette(diary::Palette::paper);
        appearance::apply(settings);
    }

    [[nodiscard]] WritingSession& session() const {
        return delegate.mainWindowController()->session();
    }
    [[nodiscard]] GrowingTextView* text() const {
        return delegate.mainWindowController()->window()->entryView()->editor();
    }
    [[nodiscard]] SettingsWindowController& preferences() const {
        return *delegate.settingsWindowController();
    }
    [[nodiscard]] QString day() const { return today.monthDay().headerTitle(); }

    diary::test::TemporaryVault otherVault;
    AppDelegate delegate{settings};
};

TEST_F(AppDelegateTest, AnotherLanguageKeepsTheUnsavedWordsAndTheirUndo) {
    settings.setLanguageOverride(QStringLiteral("ja"));
    preferences().onLanguageChanged();
    EXPECT_EQ(localization::installedLanguage(), Language::ja);
    EXPECT_EQ(text()->draft(), u"words");
    EXPECT_TRUE(session().isDirty());
    text()->undo();
    EXPECT_EQ(text()->draft(), QString());
}

TEST_F(AppDelegateTest, AnotherPaletteIsInForceAtOnce) {
    settings.setLightPalette(diary::Palette::celadon);
    preferences().onAppearanceChanged();
    EXPECT_EQ(theme::tokens().palette(), diary::Palette::celadon);
    EXPECT_EQ(text()->draft(), u"words");
    EXPECT_TRUE(session().isDirty());
}

TEST_F(AppDelegateTest, AnotherSizeReachesThePage) {
    const int before = text()->font().pixelSize();
    settings.setEditorFontSize(settings.editorFontSize() + 4);
    preferences().onReadingChanged();
    EXPECT_GT(text()->font().pixelSize(), before);
    EXPECT_EQ(text()->draft(), u"words");
}

TEST_F(AppDelegateTest, AnotherVaultTakesThePlaceOfTheFirstWhichIsSaved) {
    session().open({3, 7}, Focus::Editor);
    QTest::keyClicks(text(), QStringLiteral("more"));
    settings.setVaultPath(otherVault.path());
    preferences().onVaultChanged();
    EXPECT_EQ(onDisk(day(), today.year), u"words");
    EXPECT_EQ(onDisk(QStringLiteral("03-07"), today.year), u"more");
    EXPECT_EQ(session().store().rootURL(), otherVault.path());
    EXPECT_EQ(session().currentMonthDay(), (diary::MonthDay{3, 7}));
    EXPECT_EQ(text()->draft(), QString());
    EXPECT_TRUE(delegate.mainWindowController()->window()->isVisible());
}

TEST_F(AppDelegateTest, AnAnswerFromTheOldVaultTurnsNoPageOfTheNewOne) {
    write(QStringLiteral("05-01"), 2020, QStringLiteral("The canal in May."));
    MainWindowController* old = delegate.mainWindowController();
    old->perform(Action::Find);
    old->search().searchQueryChanged(QStringLiteral("canal"), SearchController::Run::Immediately);
    settings.setVaultPath(otherVault.path());
    preferences().onVaultChanged();
    ASSERT_NE(delegate.mainWindowController(), old);
    // The answer, and the old vault's looks, come while both windows are still there, or later.
    QTest::qWait(100);
    EXPECT_EQ(session().currentMonthDay(), today.monthDay());
    EXPECT_EQ(session().viewedYear(), today.year);
    EXPECT_FALSE(delegate.mainWindowController()->search().isOpen());
    EXPECT_EQ(text()->draft(), QString());
    EXPECT_EQ(onDisk(QStringLiteral("05-01"), 2020), u"The canal in May.");
}

TEST_F(AppDelegateTest, AVaultThatCannotBeSavedToIsLeftWithItsDraftKept) {
    QDir().mkpath(vault.filePath(day() + QLatin1String(".md")));
    const diary::KeptTexts kept = session().store().keptTexts();
    settings.setVaultPath(otherVault.path());
    preferences().onVaultChanged();
    EXPECT_EQ(kept.list(day(), diary::KeptReason::UnsavedDraft).size(), 1U);
    EXPECT_EQ(session().store().rootURL(), otherVault.path());
    const MainWindow* window = delegate.mainWindowController()->window();
    EXPECT_TRUE(window->statusBar()->isFlashing()) << "the new window tells of it";
}

// Files stand where the folders for what can't be saved would be made.
TEST_F(AppDelegateTest, AVaultWhoseDraftCanBeNeitherSavedNorKeptStays) {
    QDir().mkpath(vault.filePath(day() + QLatin1String(".md")));
    QStringList inTheWay;
    const QString vaultsName = session().store().keptTexts().folder().section(u'/', -1);
    for (const QString& base :
         {diary::userStateFolder(), diary::userRuntimeFolder(), diary::userTemporaryFolder()}) {
        if (base.isEmpty()) continue;
        QDir().mkpath(base + QLatin1String("/kept"));
        inTheWay += base + QLatin1String("/kept/") + vaultsName;
        ASSERT_TRUE(QFile(inTheWay.last()).open(QIODevice::WriteOnly));
    }
    const MainWindowController* before = delegate.mainWindowController();
    settings.setVaultPath(otherVault.path());
    preferences().onVaultChanged();
    EXPECT_EQ(delegate.mainWindowController(), before);
    EXPECT_TRUE(before->window()->isVisible());
    EXPECT_EQ(session().store().rootURL(), vault.path());
    EXPECT_EQ(settings.vaultPath(), vault.path()) << "the next start opens it as well";
    EXPECT_EQ(preferences().window()->findChild<PathField*>()->toolTip(), vault.path());
    EXPECT_EQ(text()->draft(), u"words");
    EXPECT_TRUE(session().isDirty());
    EXPECT_TRUE(before->window()->statusBar()->isFlashing()) << "it is said";

    for (const QString& each : inTheWay) QFile::remove(each);
    settings.setVaultPath(otherVault.path());
    preferences().onVaultChanged();
    EXPECT_EQ(session().store().rootURL(), otherVault.path());
    EXPECT_EQ(diary::KeptTexts(vault.path()).list(day(), diary::KeptReason::UnsavedDraft).size(),
              1U);
}

TEST_F(AppDelegateTest, TheNewWindowFollowsTheSettingsToo) {
    settings.setVaultPath(otherVault.path());
    preferences().onVaultChanged();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QTest::keyClicks(text(), QStringLiteral("new words"));
    settings.setLanguageOverride(QStringLiteral("zh-Hans"));
    preferences().onLanguageChanged();
    EXPECT_EQ(text()->draft(), u"new words");
    session().flushSaveIfDirty();
    EXPECT_TRUE(otherVault.exists(day() + QLatin1String(".md")));
}

class FirstStartTest : public test::ShellFixture {};

TEST_F(FirstStartTest, RemovesWhatADeadProcessLeftInTheVaultAndInItsImports) {
    diary::ProcessIdentity dead = diary::ProcessIdentity::current();
    dead.boot = QStringLiteral("00000000");
    const QString imports = QStringLiteral(".velmar/imports/");
    const QString left[] = {
        diary::temporaryName(QStringLiteral("03-07.md"), dead),
        imports + diary::temporaryName(QStringLiteral("one.json"), dead),
        imports + QLatin1String("one/before/") +
            diary::temporaryName(QStringLiteral("03-07.md"), dead),
    };
    for (const QString& name : left) vault.write(name, "half");
    const QString record = imports + QLatin1String("one.json");
    vault.write(record, "{}");
    settings.setVaultPath(vault.path());
    AppDelegate delegate(settings);
    delegate.start();
    EXPECT_TRUE(waitUntil([&] {
        return std::ranges::none_of(left, [&](const QString& name) { return vault.exists(name); });
    }));
    EXPECT_EQ(vault.read(record), "{}");
}

// The question is asked over the window and answered with a button on it.
TEST_F(FirstStartTest, TheAnswerMakesTheVaultAndTheWindowShowsIt) {
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("DIARY_VIEW_ONBOARD"), QStringLiteral("1"));
    Settings asked(std::make_unique<QSettings>(home.filePath(QStringLiteral("first.ini")),
                                               QSettings::IniFormat),
                   home.path(), environment);
    AppDelegate delegate(asked);
    delegate.start();
    auto* sheet = delegate.mainWindowController()->window()->findChild<OnboardingSheet*>();
    ASSERT_NE(sheet, nullptr);
    QTest::mouseClick(sheet->localButton(), Qt::LeftButton);
    const QString local = home.filePath(QStringLiteral("Documents/Diary"));
    ASSERT_TRUE(waitUntil([&] { return asked.vaultPath() == local; }));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(asked.hasOnboarded());
    EXPECT_EQ(delegate.mainWindowController()->session().store().rootURL(), local);
    EXPECT_TRUE(delegate.mainWindowController()->window()->isVisible());
}

}  // namespace
}  // namespace velmar
