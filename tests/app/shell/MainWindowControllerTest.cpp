// The window put together: what is typed into it, what it shows, how it closes.
#include <gtest/gtest.h>

#include <QtCore/QElapsedTimer>
#include <QtTest/QTest>
#include <QtWidgets/QMenuBar>

#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Chrome/AlertSheet.h"
#include "DiaryApp/Chrome/StatusBarView.h"
#include "DiaryApp/Chrome/TopBarView.h"
#include "DiaryApp/Navigation/SidebarView.h"
#include "DiaryApp/Navigation/YearRailView.h"
#include "tests/app/shell/ShellFixture.h"

namespace velmar {
namespace {

class MainWindowControllerTest : public test::ShellFixture {
protected:
    MainWindowControllerTest() { controller = makeController(); }

    void type(const QString& text) const { QTest::keyClicks(editor(), text); }

    [[nodiscard]] QString fileName() const { return today.monthDay().fileName(); }
    using test::ShellFixture::onDisk;
    [[nodiscard]] QString onDisk() const {
        return onDisk(today.monthDay().headerTitle(), today.year);
    }
};

TEST_F(MainWindowControllerTest, WritesWhatIsTypedASecondLater) {
    type(QStringLiteral("words"));
    EXPECT_TRUE(controller->window()->isWindowModified());
    EXPECT_FALSE(vault.exists(fileName()));
    EXPECT_TRUE(waitUntil([&] { return onDisk() == u"words"; }));
    EXPECT_FALSE(controller->window()->isWindowModified());
}

TEST_F(MainWindowControllerTest, SavesAtTheCommand) {
    type(QStringLiteral("words"));
    controller->perform(Action::Save);
    EXPECT_EQ(onDisk(), u"words");
}

TEST_F(MainWindowControllerTest, ShowsWhatAnotherProgramWrites) {
    vault.write(fileName(), QStringLiteral("## %1\n\ntheirs\n").arg(today.year).toUtf8());
    EXPECT_TRUE(waitUntil([&] { return editor()->draft() == u"theirs"; }));
}

// The desktop makes the application active while its first page is still being painted.
TEST_F(MainWindowControllerTest, LooksAgainBehindTheFirstPaintWhenItBecameActiveAheadOfIt) {
    controller.reset();
    vault.write(fileName(), QStringLiteral("## %1\n\nours\n").arg(today.year).toUtf8());
    MainWindowController started(settings, std::make_unique<diary::DiaryStore>(vault.path()));
    const GrowingTextView* text = started.window()->entryView()->editor();
    vault.write(fileName(), QStringLiteral("## %1\n\ntheirs\n").arg(today.year).toUtf8());
    started.applicationBecameActive();
    EXPECT_EQ(text->draft(), u"ours") << "nothing holds the first page back";
    QString whenColumnsCame;
    const auto complete = started.window()->onFirstPaint;
    started.window()->onFirstPaint = [&] {
        complete();
        whenColumnsCame = text->draft();
    };
    started.show();
    ASSERT_TRUE(waitUntil([&] { return started.window()->rail()->isVisible(); }));
    EXPECT_EQ(whenColumnsCame, u"theirs");
}

TEST_F(MainWindowControllerTest, CountsTheCharactersOfTheDraft) {
    type(QStringLiteral("a b"));
    EXPECT_EQ(controller->window()->statusBar()->rightText(),
              QStringLiteral("Viewing ## %1 · 2 chars").arg(today.year));
}

TEST_F(MainWindowControllerTest, WalksTheDays) {
    controller->perform(Action::NextDay);
    EXPECT_EQ(controller->session().currentMonthDay(), today.monthDay().advanced(1));
    controller->perform(Action::PreviousDay);
    controller->perform(Action::PreviousDay);
    EXPECT_EQ(controller->session().currentMonthDay(), today.monthDay().advanced(-1));
    controller->perform(Action::Today);
    EXPECT_EQ(controller->session().currentMonthDay(), today.monthDay());
    EXPECT_EQ(controller->window()->windowTitle(), fileName() + QStringLiteral("[*]"));
}

TEST_F(MainWindowControllerTest, SavesWhenItCloses) {
    type(QStringLiteral("words"));
    controller->perform(Action::Quit);
    EXPECT_EQ(onDisk(), u"words");
    EXPECT_EQ(closed, 1);
}

TEST_F(MainWindowControllerTest, ClosesAfterTheAlertOfAFailedSaveAndKeepsTheDraft) {
    QDir().mkpath(vault.filePath(fileName()));
    type(QStringLiteral("precious"));
    controller->window()->close();
    EXPECT_EQ(closed, 0);
    auto* alert = controller->window()->findChild<AlertSheet*>();
    ASSERT_NE(alert, nullptr);
    alert->button()->click();
    EXPECT_TRUE(waitUntil([&] { return closed == 1; }));
    QDir(vault.filePath(fileName())).removeRecursively();
    controller = makeController();
    EXPECT_TRUE(controller->window()->statusBar()->leftText().contains(QLatin1String("kept")));
}

TEST_F(MainWindowControllerTest, PutsAKeptDraftBackAtTheLink) {
    controller->session().store().keptTexts().keep(today.monthDay().headerTitle(), today.year,
                                                   diary::KeptReason::UnsavedDraft, "precious",
                                                   QDateTime::currentDateTime());
    controller->perform(Action::Today);
    StatusBarView* bar = controller->window()->statusBar();
    ASSERT_FALSE(bar->linkRect().isEmpty());
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->linkRect().center());
    EXPECT_EQ(editor()->draft(), u"precious");
    EXPECT_EQ(onDisk(), u"precious");
    EXPECT_TRUE(bar->linkRect().isEmpty());
}

TEST_F(MainWindowControllerTest, UndoTakesBackWhatWasPutBackAndNothingElse) {
    type(QStringLiteral("here"));
    controller->perform(Action::Save);
    controller->session().store().keptTexts().keep(today.monthDay().headerTitle(), today.year,
                                                   diary::KeptReason::UnsavedDraft, "precious",
                                                   QDateTime::currentDateTime());
    controller->perform(Action::Today);
    type(QStringLiteral("!"));
    StatusBarView* bar = controller->window()->statusBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->linkRect().center());
    EXPECT_EQ(editor()->draft(), u"here!\n\nprecious");
    EXPECT_EQ(editor()->selection(), (diary::TextRange{15, 0}));
    ASSERT_EQ(window()->focusWidget(), editor());
    controller->perform(Action::Undo);
    EXPECT_EQ(editor()->draft(), u"here!");
    EXPECT_EQ(controller->session().draft(), u"here!");
    controller->perform(Action::Save);
    EXPECT_EQ(onDisk(), u"here!");
    controller->perform(Action::Redo);
    controller->perform(Action::Save);
    EXPECT_EQ(onDisk(), u"here!\n\nprecious");
}

TEST_F(MainWindowControllerTest, LeadsFromPaneToPaneByF6) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    ASSERT_EQ(window()->focusWidget(), editor());
    const auto isIn = [this](const QWidget* pane) {
        return pane->isAncestorOf(window()->focusWidget());
    };
    QTest::keyClick(editor(), Qt::Key_F6);
    EXPECT_TRUE(isIn(window()->rail()));
    QTest::keyClick(window()->focusWidget(), Qt::Key_F6);
    EXPECT_TRUE(isIn(window()->topBar()));
    QTest::keyClick(window()->focusWidget(), Qt::Key_F6);
    EXPECT_TRUE(isIn(window()->sidebar()));
    QTest::keyClick(window()->focusWidget(), Qt::Key_F6);
    EXPECT_EQ(window()->focusWidget(), editor());
    QTest::keyClick(editor(), Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_TRUE(isIn(window()->sidebar()));
}

TEST_F(MainWindowControllerTest, OpensTheFirstMenuByF10) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    QTest::keyClick(editor(), Qt::Key_F10);
    QWidget* menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu, window()->menuBar()->actions().constFirst()->menu());
    QTest::keyClick(menu, Qt::Key_Escape);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(window()->menuBar(), Qt::Key_Escape);
    EXPECT_EQ(window()->focusWidget(), editor());
}

TEST_F(MainWindowControllerTest, OpensTheContextMenuOfTheTextByShiftF10) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    QTest::keyClick(editor(), Qt::Key_F10, Qt::ShiftModifier);
    QWidget* menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->parentWidget(), editor());
    EXPECT_TRUE(QRect(window()->mapToGlobal(QPoint()), window()->size()).contains(menu->pos()));
    QTest::keyClick(menu, Qt::Key_Escape);
    EXPECT_EQ(window()->focusWidget(), editor());
}

TEST_F(MainWindowControllerTest, TheMousesBackAndForwardButtonsWalkTheDaysFromAnywhere) {
    for (QWidget* place : {static_cast<QWidget*>(window()), editor()->viewport(),
                           static_cast<QWidget*>(window()->sidebar())}) {
        QTest::mouseClick(place, Qt::BackButton, {}, place->rect().center());
        EXPECT_EQ(controller->session().currentMonthDay(), today.monthDay().advanced(-1));
        QTest::mouseClick(place, Qt::ForwardButton, {}, place->rect().center());
        EXPECT_EQ(controller->session().currentMonthDay(), today.monthDay());
    }
}

TEST_F(MainWindowControllerTest, KeepsADraftAtOnceWhenItsSaveFailsAtTheEnd) {
    QDir().mkpath(vault.filePath(fileName()));
    type(QStringLiteral("precious"));
    controller->window()->close();
    const auto kept = controller->session().store().keptTexts().list(
        today.monthDay().headerTitle(), diary::KeptReason::UnsavedDraft);
    EXPECT_EQ(kept.size(), 1U);
}

TEST_F(MainWindowControllerTest, RemembersItsSize) {
    controller->window()->resize(1200, 700);
    controller->window()->close();
    controller = makeController();
    EXPECT_EQ(controller->window()->size(), QSize(1200, 700));
}

TEST_F(MainWindowControllerTest, IsNeverSmallerThanItsParts) {
    controller->window()->resize(300, 200);
    EXPECT_EQ(controller->window()->size(), MainWindow::leastSize);
}

TEST_F(MainWindowControllerTest, ChangesItsLanguageWithoutLosingAnUnsavedWord) {
    type(QStringLiteral("words"));
    localization::install(Language::ja);
    controller->retranslate();
    EXPECT_EQ(editor()->draft(), u"words");
    EXPECT_TRUE(controller->session().isDirty());
    EXPECT_NE(controller->window()->statusBar()->rightText(),
              QStringLiteral("Viewing ## %1 · 5 chars").arg(today.year));
    editor()->undo();
    EXPECT_EQ(editor()->draft(), QString());
}

TEST_F(MainWindowControllerTest, TheFormatMenusKeysReachTheText) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(controller->window()));
    const auto press = [this](Qt::Key key, Qt::KeyboardModifiers modifiers) {
        QTest::keyClick(editor(), key, modifiers);
        return editor()->draft();
    };
    const auto both = Qt::ControlModifier | Qt::AltModifier;
    type(QStringLiteral("a"));
    EXPECT_EQ(press(Qt::Key_X, both), u"- [ ] a");
    EXPECT_EQ(press(Qt::Key_Return, Qt::ControlModifier), u"- [x] a");
    EXPECT_EQ(press(Qt::Key_BracketRight, Qt::ControlModifier), u"  - [x] a");
    EXPECT_EQ(press(Qt::Key_BracketLeft, Qt::ControlModifier), u"- [x] a");
    EXPECT_EQ(press(Qt::Key_U, both), u"- a");
    EXPECT_EQ(press(Qt::Key_2, both), u"## a");
    EXPECT_EQ(press(Qt::Key_0, both), u"a");
    editor()->selectAll();
    EXPECT_EQ(press(Qt::Key_B, Qt::ControlModifier), u"**a**");
    EXPECT_EQ(press(Qt::Key_B, Qt::ControlModifier), u"a");
    EXPECT_EQ(press(Qt::Key_I, Qt::ControlModifier), u"*a*");
    EXPECT_EQ(press(Qt::Key_I, Qt::ControlModifier), u"a");
    EXPECT_EQ(press(Qt::Key_E, Qt::ControlModifier), u"`a`");
    EXPECT_EQ(press(Qt::Key_E, Qt::ControlModifier), u"a");
    EXPECT_EQ(press(Qt::Key_X, Qt::ControlModifier | Qt::ShiftModifier), u"~~a~~");
    EXPECT_EQ(press(Qt::Key_X, Qt::ControlModifier | Qt::ShiftModifier), u"a");
    EXPECT_EQ(press(Qt::Key_K, Qt::ControlModifier), u"[a]()");
}

TEST_F(MainWindowControllerTest, IsReadOnlyWhileAnImportWrites) {
    ASSERT_TRUE(controller->session().importWillWrite());
    type(QStringLiteral("words"));
    EXPECT_EQ(editor()->draft(), QString());
    controller->session().importDidWrite();
    type(QStringLiteral("words"));
    EXPECT_EQ(editor()->draft(), u"words");
}

}  // namespace
}  // namespace velmar
