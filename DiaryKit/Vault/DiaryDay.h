// A day of the calendar, with its year. The key of the file it is written in is its MonthDay.
#pragma once

#include <QtCore/QDateTime>
#include <compare>

#include "DiaryKit/Foundation/Clock.h"
#include "DiaryKit/Vault/MonthDay.h"

namespace diary {

// Proleptic Gregorian. Moments are in the time zone that was current at the first use; a later
// change of the machine's zone doesn't reach a running diary.
struct DiaryDay {
    int year = 2000;
    int month = 1;
    int day = 1;

    [[nodiscard]] static DiaryDay today(const Clock& clock = Clock::system());

    // The day of a moment.
    [[nodiscard]] static DiaryDay of(const QDateTime& moment);

    [[nodiscard]] MonthDay monthDay() const { return {month, day}; }

    // Noon of the day. A day past its month's end rolls into the next month.
    [[nodiscard]] QDateTime date() const;

    // `days` later by the calendar, so 28 February 2023 is followed by 1 March.
    [[nodiscard]] DiaryDay advanced(int days) const;

    // 1 is Sunday, 7 Saturday.
    [[nodiscard]] int weekday() const;

    auto operator<=>(const DiaryDay&) const = default;
};

}  // namespace diary
