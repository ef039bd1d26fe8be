// A search that moves through the diary of a real writing session: what is being written is saved
// before a hit takes its place.
#include <gtest/gtest.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QEventLoop>

#include "DiaryApp/Search/BackgroundSearch.h"
#include "DiaryApp/Search/SearchController.h"
#include "DiaryKit/Search/SearchMatch.h"
#include "tests/app/session/SessionFixture.h"

namespace velmar {
namespace {

using diary::MonthDay;

class SearchFlushTest : public test::SessionFixture {
protected:
    SearchFlushTest() : controller(host(), timers.maker()) {
        write({11, 21}, "# 11-21\n\n## 2026\n\nThe canal.\n\n## 2021\n\nA canal by night.\n");
        write({10, 2}, "# 10-02\n\n## 2026\n\nA canal in October.\n");
        session->open(today, Focus::Unchanged);
        controller.showSearch();
    }

    void write(const MonthDay& day, const char* text) { vault.write(day.fileName(), text); }

    SearchHost host() {
        SearchHost made;
        made.currentMonthDay = [this] { return session->currentMonthDay(); };
        made.viewedYear = [this] { return session->viewedYear(); };
        made.showAllYears = [this] { return session->showAllYears(); };
        made.draft = [this] { return session->draft(); };
        made.body = [this](int year) { return session->body(year); };
        made.open = [this](MonthDay day, int year) {
            return session->open(day, Focus::Unchanged, year);
        };
        made.pickYear = [this](int year) { return session->pickYear(year, Focus::Unchanged); };
        made.setAllYears = [this](bool isOn) { session->setAllYears(isOn); };
        made.startSearch = [this](const diary::SearchQuery& query, auto finish) {
            pending = [this, query, finish = std::move(finish)] {
                finish(diary::DiaryStore::search(store.rootURL(), query,
                                                 diary::DiaryStore::searchLimit,
                                                 diary::DownloadService()));
            };
        };
        return made;
    }

    void search(const QString& line) {
        controller.searchQueryChanged(line, SearchController::Run::Immediately);
        std::exchange(pending, {})();
    }

    SearchController controller;
    std::function<void()> pending;
};

TEST_F(SearchFlushTest, AHitOnAnotherDaySavesTheDraftFirst) {
    search(QStringLiteral("canal"));
    ASSERT_EQ(controller.session()->selected, 0);
    session->draftChanged(QStringLiteral("The canal, and more."));
    controller.select(1);
    EXPECT_EQ(session->currentMonthDay(), (MonthDay{10, 2}));
    EXPECT_EQ(onDisk(2026), QStringLiteral("The canal, and more."));
    EXPECT_FALSE(session->isDirty());
    EXPECT_EQ(told.focused, 0);
}

TEST_F(SearchFlushTest, AHitInAnotherYearSavesTheDraftFirst) {
    search(QStringLiteral("canal"));
    session->draftChanged(QStringLiteral("The canal, and more."));
    controller.select(2);
    EXPECT_EQ(session->viewedYear(), 2021);
    EXPECT_EQ(session->draft(), QStringLiteral("A canal by night."));
    EXPECT_EQ(onDisk(2026), QStringLiteral("The canal, and more."));
}

TEST_F(SearchFlushTest, TheFirstHitOpensWithTheAnswerAndSavesWhatWasBeingWritten) {
    session->draftChanged(QStringLiteral("Something else."));
    search(QStringLiteral("october"));
    EXPECT_EQ(session->currentMonthDay(), (MonthDay{10, 2}));
    EXPECT_EQ(onDisk(2026), QStringLiteral("Something else."));
}

TEST_F(SearchFlushTest, TurningAllYearsOnSavesTheDraft) {
    search(QStringLiteral("canal"));
    session->draftChanged(QStringLiteral("The canal, and more."));
    controller.openSelected(OpenHit::AllYears);
    EXPECT_TRUE(session->showAllYears());
    EXPECT_EQ(onDisk(2026), QStringLiteral("The canal, and more."));
}

TEST_F(SearchFlushTest, TheBackgroundsAnswerComesThroughTheEventLoop) {
    QObject context;
    const auto start = backgroundSearch(store.rootURL(), {}, &context);
    std::optional<diary::SearchResult> answer;
    start(diary::SearchQuery::parsing(u"canal"),
          [&](diary::SearchResult result) { answer = std::move(result); });
    EXPECT_FALSE(answer);
    QDeadlineTimer patience(10'000);
    while (!answer && !patience.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    }
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->hits.size(), 3U);
    EXPECT_FALSE(answer->truncated);
}

}  // namespace
}  // namespace velmar
