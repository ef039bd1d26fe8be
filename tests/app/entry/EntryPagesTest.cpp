// How the view goes from one of its pages to another, and what works on all of them.
#include <QtCore/QMimeData>
#include <QtCore/QUrl>
#include <QtGui/QDropEvent>
#include <QtGui/QNativeGestureEvent>
#include <QtGui/QPointingDevice>
#include <QtWidgets/QScrollBar>

#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Entry/PageFade.h"
#include "tests/app/entry/EntryViewFixture.h"

namespace velmar {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class EntryPagesTest : public EntryViewFixture {
protected:
    EntryPagesTest() {
        view.onPinch = [this](bool isClosing, std::optional<int> year) {
            pinches.emplace_back(isClosing, year.value_or(0));
        };
    }

    PageFade& fade() { return *view.findChild<PageFade*>(); }

    void gesture(Qt::NativeGestureType type, double value, QWidget* target, const QPoint& at) {
        const QPointF local(at);
        const QPointF global(target->mapToGlobal(at));
        QNativeGestureEvent event(type, QPointingDevice::primaryPointingDevice(), 2, local, local,
                                  global, value, QPointF());
        QCoreApplication::sendEvent(target, &event);
    }

    void pinch(double value, QWidget* target, const QPoint& at) {
        gesture(Qt::BeginNativeGesture, 0, target, at);
        for (int i = 0; i < 4; ++i) gesture(Qt::ZoomNativeGesture, value / 4, target, at);
        gesture(Qt::EndNativeGesture, 0, target, at);
    }

    // As the window system sends it, so that it goes from child to parent.
    void wheel(int angle, QWidget* target, const QPoint& at, Qt::KeyboardModifiers modifiers) {
        QWheelEvent event(at, target->mapToGlobal(at), {}, {0, angle}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        event.setTimestamp(m_time += 100);
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(target, &event);
    }

    std::vector<std::pair<bool, int>> pinches;

private:
    quint64 m_time = 1000;
};

TEST_F(EntryPagesTest, TheModelTellsThePageAndTheSourceGoesFirst) {
    EXPECT_TRUE(view.showsEditor());
    EXPECT_TRUE(view.yearCards().empty());
    showAllYears();
    EXPECT_FALSE(view.showsEditor());
    EXPECT_TRUE(allYears().isVisible());
    EXPECT_FALSE(oneYear().isVisible());
    showSource(QStringLiteral("# 11-21"));
    EXPECT_TRUE(source().isVisible());
    EXPECT_FALSE(allYears().isVisible());
    state.showSource = false;
    state.showAllYears = false;
    show();
    EXPECT_TRUE(view.showsEditor());
    EXPECT_TRUE(editor().isVisible());
}

TEST_F(EntryPagesTest, EveryPageFillsTheView) {
    showAllYears();
    EXPECT_EQ(allYears().geometry(), view.rect());
    showSource(QString());
    window.resize(700, 600);
    EXPECT_EQ(source().geometry(), view.rect());
    state.showSource = false;
    show();
    EXPECT_EQ(allYears().geometry(), view.rect());
    EXPECT_EQ(allYears().widget()->width(), 700);
}

TEST_F(EntryPagesTest, TheFocusGoesWithThePageAndComesBack) {
    ASSERT_EQ(QApplication::focusWidget(), &editor());
    showAllYears();
    EXPECT_EQ(QApplication::focusWidget(), &allYears());
    showSource(QStringLiteral("x"));
    EXPECT_EQ(QApplication::focusWidget(), source().text());
    state.showSource = false;
    state.showAllYears = false;
    show();
    EXPECT_EQ(QApplication::focusWidget(), &editor());
}

TEST_F(EntryPagesTest, TheFocusStaysOnThePageWhereAHintReplacesTheEditor) {
    state.day = {2, 29};
    show();
    EXPECT_EQ(QApplication::focusWidget(), &oneYear());
    showAllYears();
    EXPECT_EQ(QApplication::focusWidget(), &allYears());
    state.showAllYears = false;
    show();
    EXPECT_EQ(QApplication::focusWidget(), &oneYear());
}

TEST_F(EntryPagesTest, AFocusElsewhereInTheWindowStaysThere) {
    auto* other = new Button(Button::Kind::Quiet, &window);
    other->show();
    other->setFocus();
    showAllYears();
    EXPECT_EQ(QApplication::focusWidget(), other);
    view.focusEditor();
    EXPECT_EQ(QApplication::focusWidget(), other);
}

TEST_F(EntryPagesTest, AnEditorOutOfViewTakesNothing) {
    state.draft = QStringLiteral("abc");
    show();
    showAllYears();
    editor().type(QStringLiteral("x"));
    editor().perform(FormatCommand::Bold);
    editor().paste();
    EXPECT_TRUE(editor().isReadOnly());
    EXPECT_EQ(view.draft(), QStringLiteral("abc"));
    EXPECT_TRUE(drafts.isEmpty());
    state.showAllYears = false;
    show();
    EXPECT_FALSE(editor().isReadOnly());
    view.focusEditor();
    QTest::keyClicks(&editor(), QStringLiteral("x"));
    EXPECT_EQ(drafts, QStringList{QStringLiteral("abcx")});
}

TEST_F(EntryPagesTest, AnUndoOutOfViewReachesNoDraft) {
    QTest::keyClicks(&editor(), QStringLiteral("abc"));
    state.draft = view.draft();
    showAllYears();
    drafts.clear();
    editor().undo();
    EXPECT_TRUE(drafts.isEmpty());
    state.showAllYears = false;
    show();
    EXPECT_EQ(view.draft(), QStringLiteral("abc"));
}

TEST_F(EntryPagesTest, AnImportKeepsTheEditorClosedOnEveryPage) {
    view.setEditable(false);
    showAllYears();
    state.showAllYears = false;
    show();
    EXPECT_TRUE(editor().isReadOnly());
    showAllYears();
    view.setEditable(true);
    EXPECT_TRUE(editor().isReadOnly());
    state.showAllYears = false;
    show();
    EXPECT_FALSE(editor().isReadOnly());
}

TEST_F(EntryPagesTest, AnotherDayInAllYearsLeavesNoOldTextInTheEditor) {
    state.draft = QStringLiteral("today");
    show();
    showAllYears();
    state.day = {11, 22};
    state.draft = QStringLiteral("tomorrow");
    show();
    EXPECT_EQ(view.draft(), QStringLiteral("tomorrow"));
    EXPECT_EQ(card(2026).text()->draft(), QStringLiteral("tomorrow"));
}

TEST_F(EntryPagesTest, TheStepsOfTheHeadWorkOverAllYears) {
    int steps = 0;
    view.onPreviousDay = [&] { steps -= 1; };
    view.onNextDay = [&] { steps += 10; };
    showAllYears();
    QTest::mouseClick(allYears().head()->previous(), Qt::LeftButton);
    QTest::mouseClick(allYears().head()->next(), Qt::LeftButton);
    EXPECT_EQ(steps, 9);
}

TEST_F(EntryPagesTest, YearsFadeIntoEachOtherAndDaysDoNot) {
    motion::setReduced(false);
    const auto fades = [this] {
        const bool isFading = fade().isVisible();
        fade().stop();
        return isFading;
    };
    state.viewedYear = 2025;
    show();
    EXPECT_TRUE(fades());
    showAllYears();
    EXPECT_TRUE(fades());
    state.showAllYears = false;
    show();
    EXPECT_TRUE(fades());
    show();
    EXPECT_FALSE(fades());
    state.draft = QStringLiteral("x");
    show();
    EXPECT_FALSE(fades());
    state.day = {11, 22};
    state.viewedYear = 2026;
    show();
    EXPECT_FALSE(fades());
    showSource(QStringLiteral("x"));
    EXPECT_FALSE(fades());
}

TEST_F(EntryPagesTest, AFadeShowsTheOldPageAndEnds) {
    motion::setReduced(false);
    state.draft = QStringLiteral("a text of this year");
    show();
    const QImage before = view.grab().toImage();
    state.viewedYear = 2025;
    state.draft = QString();
    show();
    ASSERT_TRUE(fade().isVisible());
    EXPECT_EQ(view.childAt(300, 200), editor().viewport());
    const QImage started = view.grab().toImage();
    EXPECT_EQ(started, before);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !fade().isVisible(); }));
    EXPECT_NE(view.grab().toImage(), before);
}

TEST_F(EntryPagesTest, AnotherDayEndsAFade) {
    motion::setReduced(false);
    showAllYears();
    ASSERT_TRUE(fade().isVisible());
    state.day = {11, 22};
    show();
    EXPECT_FALSE(fade().isVisible());
}

TEST_F(EntryPagesTest, WithReducedMotionNothingFades) {
    showAllYears();
    EXPECT_FALSE(fade().isVisible());
}

TEST_F(EntryPagesTest, AMatchOutOfViewIsScrolledTo) {
    state.draft = manyLines(80) + QStringLiteral("\nneedle");
    show();
    view.scrollToTop();
    const std::vector<diary::TextRange> ranges = {{0, 4}, {400, 6}};
    view.setHighlights(ranges, 1, EntryView::Scroll::None);
    EXPECT_EQ(oneYear().verticalScrollBar()->value(), 0);
    view.setHighlights(ranges, 1, EntryView::Scroll::ToMatch);
    const QRect match = editor().matchRect(1);
    const QPoint shown = editor().mapTo(&view, match.center());
    EXPECT_TRUE(view.rect().contains(shown)) << shown.y();
    // The pill, in the corner, doesn't cover it.
    EXPECT_LT(shown.y(), view.height() - 60);
    view.clearHighlights();
    EXPECT_TRUE(editor().matchRect(1).isEmpty());
}

TEST_F(EntryPagesTest, AMatchInViewIsNotScrolledTo) {
    state.draft = manyLines(80);
    show();
    view.scrollToTop();
    view.setHighlights({{10, 4}, {20, 4}}, 1, EntryView::Scroll::ToMatch);
    EXPECT_EQ(oneYear().verticalScrollBar()->value(), 0);
}

TEST_F(EntryPagesTest, TheWayToAMatchTakesTimeUnlessMotionIsReduced) {
    motion::setReduced(false);
    state.draft = manyLines(80);
    show();
    view.scrollToTop();
    QScrollBar* bar = oneYear().verticalScrollBar();
    view.setHighlights({{350, 4}}, 0, EntryView::Scroll::ToMatch);
    const int started = bar->value();
    EXPECT_TRUE(QTest::qWaitFor([&] {
        const QPoint shown = editor().mapTo(&view, editor().matchRect(0).center());
        return shown.y() < view.height() - 60;
    }));
    EXPECT_LT(started, bar->value());
}

TEST_F(EntryPagesTest, TypingEndsTheWayToAMatch) {
    motion::setReduced(false);
    state.draft = manyLines(80);
    show();
    view.scrollToTop();
    editor().moveCursor(QTextCursor::Start);
    view.setHighlights({{350, 4}}, 0, EntryView::Scroll::ToMatch);
    EXPECT_TRUE(oneYear().isGliding());
    QTest::keyClicks(&editor(), QStringLiteral("x"));
    EXPECT_FALSE(oneYear().isGliding());
    EXPECT_EQ(oneYear().verticalScrollBar()->value(), 0);
}

TEST_F(EntryPagesTest, ClosingFingersAskForAllYearsOnce) {
    pinch(-0.5, editor().viewport(), {300, 40});
    EXPECT_THAT(pinches, ElementsAre(Pair(true, 0)));
    pinch(-0.15, editor().viewport(), {300, 40});
    EXPECT_THAT(pinches, ElementsAre(Pair(true, 0)));
}

TEST_F(EntryPagesTest, OpeningFingersPickTheYearBelowThem) {
    write(2025, manyLines(3));
    pinch(0.5, editor().viewport(), {300, 40});
    EXPECT_THAT(pinches, IsEmpty());
    showAllYears();
    pinch(0.5, &card(2025), {300, 40});
    EXPECT_THAT(pinches, ElementsAre(Pair(false, 2025)));
    pinch(0.5, allYears().head(), {300, 40});
    EXPECT_THAT(pinches, ElementsAre(Pair(false, 2025), Pair(false, 0)));
}

TEST_F(EntryPagesTest, TheWheelWithCtrlTurnedDownAsksForAllYearsOnceABurst) {
    for (int i = 0; i < 3; ++i) wheel(-120, editor().viewport(), {300, 40}, Qt::ControlModifier);
    EXPECT_THAT(pinches, ElementsAre(Pair(true, 0)));
}

TEST_F(EntryPagesTest, TheWheelWithCtrlTurnedUpPicksTheYearBelowThePointer) {
    write(2025, manyLines(3));
    showAllYears();
    for (int i = 0; i < 3; ++i) wheel(120, &card(2025), {300, 40}, Qt::ControlModifier);
    EXPECT_THAT(pinches, ElementsAre(Pair(false, 2025)));
}

TEST_F(EntryPagesTest, TheWheelWithCtrlScrollsNothingAndWithoutItScrolls) {
    state.draft = manyLines(80);
    show();
    view.scrollToTop();
    QScrollBar* bar = oneYear().verticalScrollBar();
    const QFont font = editor().font();
    wheel(-120, editor().viewport(), {300, 40}, Qt::ControlModifier);
    EXPECT_EQ(bar->value(), 0);
    EXPECT_EQ(editor().font(), font);
    wheel(-120, editor().viewport(), {300, 40}, Qt::NoModifier);
    EXPECT_GT(bar->value(), 0);
    EXPECT_EQ(pinches.size(), 1U);
}

TEST_F(EntryPagesTest, TheWheelWithCtrlLeavesTheSourceAlone) {
    showSource(manyLines(200));
    const QFont font = source().text()->font();
    wheel(-120, source().text()->viewport(), {300, 40}, Qt::ControlModifier);
    EXPECT_EQ(source().verticalScrollBar()->value(), 0);
    EXPECT_EQ(source().text()->font(), font);
    EXPECT_THAT(pinches, ElementsAre(Pair(true, 0)));
    wheel(-120, source().text()->viewport(), {300, 40}, Qt::NoModifier);
    EXPECT_GT(source().verticalScrollBar()->value(), 0);
}

// A window that takes files in, as the import will.
class DropWindow : public QWidget {
public:
    DropWindow() { setAcceptDrops(true); }
    int entered = 0;

protected:
    void dragEnterEvent(QDragEnterEvent* event) override {
        ++entered;
        event->accept();
    }
};

TEST_F(EntryPagesTest, FilesDraggedOverAnyPageAreTheWindows) {
    DropWindow root;
    view.setParent(&root);
    root.resize(840, 740);
    view.setGeometry(root.rect());
    root.show();
    view.show();
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(QStringLiteral("/tmp/a.zip"))});
    files.setText(QStringLiteral("file:///tmp/a.zip"));
    const auto drag = [&](QWidget* target) {
        const int before = root.entered;
        QDragEnterEvent event(QPoint(5, 5), Qt::CopyAction, &files, Qt::LeftButton, {});
        QCoreApplication::sendEvent(target, &event);
        return root.entered == before + 1 && event.isAccepted();
    };
    write(2025, manyLines(3));
    EXPECT_TRUE(drag(editor().viewport()));
    showAllYears();
    EXPECT_TRUE(drag(card(2025).text()->viewport()));
    EXPECT_TRUE(drag(&card(2025)));
    EXPECT_TRUE(drag(allYears().viewport()));
    showSource(QStringLiteral("x"));
    EXPECT_TRUE(drag(source().text()->viewport()));
    view.setParent(nullptr);
}

}  // namespace
}  // namespace velmar
