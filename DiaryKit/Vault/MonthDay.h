// A date without a year: the key of a day file. Its cycle has 366 positions whatever the year, so
// 02-29 is a day like any other. A calendar day with its year is a DiaryDay.
#pragma once

#include <QtCore/QHashFunctions>
#include <QtCore/QString>
#include <QtCore/QStringView>
#include <array>
#include <compare>
#include <optional>

namespace diary {

struct MonthDay {
    int month = 1;
    int day = 1;

    static constexpr int cycleLength = 366;
    // February always has 29 days here.
    static constexpr std::array<int, 12> daysInCycleMonth = {31, 29, 31, 30, 31, 30,
                                                             31, 31, 30, 31, 30, 31};

    // The key that a file's name stands for: "03-07.md" -> 7 March. The day isn't checked against
    // the month, so "02-31.md" is a key too; "3-7.md" and "13-01.md" are none.
    [[nodiscard]] static std::optional<MonthDay> parse(QStringView fileName);

    [[nodiscard]] static bool isLeapYear(int year);

    // "03-07.md"
    [[nodiscard]] QString fileName() const;

    // "03-07", the title of the file.
    [[nodiscard]] QString headerTitle() const;

    // The position in the cycle, 1 to 366. 1 March is 61.
    [[nodiscard]] int ordinalInCycle() const;

    // The number of the day in that year, from 1. 29 February of a common year ties with 1 March.
    [[nodiscard]] int ordinal(int year) const;

    // 366 for 29 February and in leap years, otherwise 365.
    [[nodiscard]] int daysInYear(int year) const;

    // 1 is Sunday, 7 Saturday; nothing for 29 February of a common year.
    [[nodiscard]] std::optional<int> weekday(int year) const;

    // `days` further along the cycle, around its ends in both directions.
    [[nodiscard]] MonthDay advanced(int days) const;

    auto operator<=>(const MonthDay&) const = default;
};

inline size_t qHash(const MonthDay& key, size_t seed = 0) {
    return ::qHash(key.month * 32 + key.day, seed);
}

}  // namespace diary
