// Models as the application makes them, for a day in November with four earlier years.
#pragma once

#include <gtest/gtest.h>

#include "DiaryApp/Appearance/Appearance.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Motion.h"
#include "DiaryApp/Navigation/RailModel.h"
#include "DiaryApp/Navigation/SidebarModel.h"
#include "DiaryApp/Navigation/YearOverviewModel.h"
#include "DiaryApp/Settings/Formatters.h"

namespace velmar {

class NavigationTest : public testing::Test {
protected:
    NavigationTest() {
        appearance::prepare();
        setLanguage(Language::en);
        motion::setReduced(false);
    }
    ~NavigationTest() override {
        setLanguage(Language::en);
        theme::setPalette(diary::Palette::paper);
        motion::setReduced(false);
    }

    void setLanguage(Language chosen) {
        localization::install(chosen);
        fonts::setLanguage(chosen);
        sidebar.language = chosen;
    }

    SidebarState sidebar{
        .day = {11, 21},
        .viewedYear = 2026,
        .today = {2026, 11, 21},
        .daysWithContent = {1,  2,  4,  5,  6,  8,  9,  11, 13, 14, 15,
                            16, 18, 19, 20, 21, 23, 24, 27, 28, 30},
        .overview = diary::Overview{214, 2014, 231},
        .language = Language::en,
    };
    RailState rail{
        .day = {11, 21},
        .viewedYear = 2026,
        .currentYear = 2026,
        .draft = QStringLiteral("### First frost on the canal\nWoke at seven to **white roofs**."),
        .currentBody = QStringLiteral("First frost"),
        .pastEntries = {{2025, QStringLiteral("Rain from the first light to the last. Finished")},
                        {2023, QStringLiteral("The clinic, then the long tram home with my fore")},
                        {2021,
                         QStringLiteral("First night in the new flat. No curtains, one chair")},
                        {2018, QStringLiteral("Grandfather’s desk came up the stairs.")}},
        .showAllYears = false,
        .hits = {},
    };
};

}  // namespace velmar
