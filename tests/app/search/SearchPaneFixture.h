// A search pane of the sidebar's size in a window of its own, and states to show in it.
#pragma once

#include <gmock/gmock.h>

#include <QtTest/QTest>

#include "DiaryApp/Appearance/Appearance.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/SearchField.h"
#include "DiaryApp/Search/SearchPaneView.h"
#include "DiaryApp/Search/SearchResultsList.h"
#include "DiaryKit/Search/SearchMatch.h"
#include "tests/support/Printing.h"

namespace velmar::test {

using State = SearchPaneState;

class SearchPaneFixture : public testing::Test {
protected:
    SearchPaneFixture() {
        window.resize(600, 740);
        pane.setGeometry(0, 0, 268, 740);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        field().setFocus();
    }

    static diary::SearchHit hit(diary::MonthDay day, int year, const QString& snippet,
                                const QString& word, int matches) {
        diary::SearchHit made{day, year, snippet, {}, {}};
        made.snippetRanges = diary::matchRanges({word}, snippet).value();
        for (int i = 0; i < matches; ++i) made.ranges.push_back({i * 10, word.size()});
        return made;
    }

    // The session that found "canal" in three years.
    static SearchSession canal() {
        SearchSession made;
        made.query = QStringLiteral("canal");
        made.years = {2026, 2025, 2024, 2023, 2021, 2019};
        made.terms = QStringList{made.query};
        made.generation = 1;
        made.selected = 0;
        made.result = diary::SearchResult();
        const QString& word = made.query;
        made.result->hits = {
            hit({11, 21}, 2026,
                QStringLiteral("… frost on the canal Woke at seven to white roofs.…"), word, 2),
            hit({10, 2}, 2026, QStringLiteral("Swam in the canal on a dare, in October. The ca…"),
                word, 3),
            hit({6, 9}, 2026, QStringLiteral("… dredging the canal. Out came eleven bicycles and…"),
                word, 1),
            hit({2, 17}, 2026,
                QStringLiteral("…d back on the canal, both ways into the wind; the…"), word, 2),
            hit({12, 2}, 2025,
                QStringLiteral("…hick that the canal was only a rumour under the b…"), word, 1),
            hit({8, 8}, 2025, QStringLiteral("…boats off the canal steps with Jonas’s girls. Min…"),
                word, 2),
            hit({11, 21}, 2021,
                QStringLiteral("…he floor. The canal throws the street lamp onto t…"), word, 1),
            hit({5, 1}, 2021, QStringLiteral("The canal."), word, 1),
        };
        return made;
    }

    static SearchPaneContext context() {
        return {2026,
                {QStringLiteral("canal"), QStringLiteral("herons 2025"),
                 QStringLiteral("Jonas boat"), QStringLiteral("2024-03"), QStringLiteral("03-07")},
                localization::installedLanguage()};
    }

    void show(const SearchSession& session) {
        pane.setQuery(session.query);
        pane.render(searchPaneState(session, context()));
    }

    [[nodiscard]] SearchField& field() { return *pane.findChild<SearchField*>(); }
    [[nodiscard]] SearchResultsList& list() { return *pane.findChild<SearchResultsList*>(); }

    // The rectangle of a hit's line in the list, in the viewport's coordinates.
    [[nodiscard]] QRect lineOf(const QString& date) {
        const QAbstractItemModel* model = list().model();
        for (int i = 0; i < model->rowCount(); ++i) {
            const QModelIndex index = model->index(i, 0);
            const QString line = index.data(Qt::AccessibleTextRole).toString();
            if (line.startsWith(date)) return list().visualRect(index);
        }
        return {};
    }

    // Before the pane asks for its texts.
    bool isPrepared = [] {
        localization::install(Language::en);
        appearance::prepare();
        return true;
    }();
    QWidget window;
    SearchPaneView pane{&window};
};

}  // namespace velmar::test
