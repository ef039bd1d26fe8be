// What the year calendar shows: every date of the year and how many years were written on it.
// Nothing here knows a widget; YearOverviewView.h shows it.
#pragma once

#include <QtCore/QHash>
#include <QtCore/QString>
#include <array>
#include <vector>

#include "DiaryApp/Settings/Localization.h"
#include "DiaryKit/Vault/ArchiveSnapshot.h"
#include "DiaryKit/Vault/MonthDay.h"

namespace velmar {

struct YearOverviewModel {
    struct Month {
        // 1 is January.
        int month = 1;
        QString name;
        // "16 d", the days of the month with content.
        QString dayCount;
        // The number of written years by day; day 1 comes first, February has 29.
        std::vector<int> counts;

        bool operator==(const Month&) const = default;
    };

    QString title;
    std::array<Month, 12> months;
    // Ahead of the legend's shades.
    QString legend;
    QString total;
    // Behind the total and fainter, " / 365".
    QString totalSuffix;
    QString footnote;
    Language language = Language::en;

    bool operator==(const YearOverviewModel&) const = default;
};

// `counts` has the number of years with content for each date that has any; keys that are no date
// of the calendar, such as 31 April, aren't shown. Texts come in the installed language, month
// names in the given one.
[[nodiscard]] YearOverviewModel yearOverviewModel(const QHash<diary::MonthDay, int>& counts,
                                                  const diary::Overview& overview,
                                                  Language language);

}  // namespace velmar
