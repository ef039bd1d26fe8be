// A shown EntryView with settings of its own, and a state to be changed and shown.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <QtWidgets/QVBoxLayout>
#include <map>

#include "DiaryApp/Appearance/Appearance.h"
#include "DiaryApp/Appearance/Motion.h"
#include "DiaryApp/Editor/GrowingTextView.h"
#include "DiaryApp/Entry/AllYearsPage.h"
#include "DiaryApp/Entry/DayHead.h"
#include "DiaryApp/Entry/EntryView.h"
#include "DiaryApp/Entry/OneYearPage.h"
#include "DiaryApp/Entry/SourcePage.h"

namespace velmar {

class EntryViewFixture : public testing::Test {
protected:
    EntryViewFixture()
        : settings(std::make_unique<QSettings>(folder.filePath(QStringLiteral("s.ini")),
                                               QSettings::IniFormat),
                   folder.path(), QProcessEnvironment()),
          view((appearance::prepare(), settings), (localization::install(Language::en), &window)) {
        appearance::apply(settings);
        motion::setReduced(true);
        auto* layout = new QVBoxLayout(&window);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(&view);
        window.resize(840, 740);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        state.body = [this](int year) {
            return bodies.contains(year) ? bodies.at(year) : QString();
        };
        view.onDraftChanged = [this](const QString& draft) { drafts.append(draft); };
        view.onOpenYear = [this](int year) { opened.push_back(year); };
        show();
        view.focusEditor();
    }

    ~EntryViewFixture() override {
        motion::setReduced(false);
        // It isn't the window's to delete.
        view.setParent(nullptr);
    }

    void show() { view.update(entryModel(state)); }

    // Writes into a past year, newest first.
    void write(int year, const QString& body) {
        bodies[year] = body;
        state.pastEntries.clear();
        for (const auto& [each, text] : bodies) {
            if (each == state.currentYear) continue;
            state.pastEntries.insert(state.pastEntries.begin(), {each, text});
        }
    }

    void showAllYears() {
        state.showAllYears = true;
        show();
    }

    void showSource(const QString& text) {
        state.showSource = true;
        state.rawText = text;
        show();
    }

    GrowingTextView& editor() { return *view.editor(); }
    OneYearPage& oneYear() { return *view.findChild<OneYearPage*>(); }
    AllYearsPage& allYears() { return *view.findChild<AllYearsPage*>(); }
    SourcePage& source() { return *view.findChild<SourcePage*>(); }
    YearCard& card(int year) { return *view.yearCards().at(year); }

    QTemporaryDir folder;
    Settings settings;
    QWidget window;
    EntryView view;
    QStringList drafts;
    std::vector<int> opened;
    std::map<int, QString> bodies;
    EntryState state{.day = {11, 21},
                     .viewedYear = 2026,
                     .currentYear = 2026,
                     .draft = QString(),
                     .pastEntries = {}};
};

inline QString manyLines(int count) {
    return QStringList(count, QStringLiteral("line")).join(QLatin1Char('\n'));
}

}  // namespace velmar
