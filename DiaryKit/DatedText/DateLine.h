// The one place that knows what a date line is: a line that opens with a date, in numbers
// (2021-03-04, 2021年3月4日, ????-03-04, 3/4/2021), with an English month name, or in brackets
// as plain text journals have it. Digits and white space are those of Unicode (UTS #18, \d and
// \s), but only ASCII digits make a number. Pure; any thread; linear in the line's length.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>
#include <optional>

#include "DiaryKit/Import/ImportedEntry.h"

namespace diary::DateLine {

struct Match {
    // 1900 to 2100; absent where the line has four question marks.
    std::optional<int> year = {};
    // A day that the calendar has: 29 February only in a leap year, or without a year.
    int month = 0;
    int day = 0;
    // The clock time in the date or right behind it. In the bracketed form nobody checks its
    // numbers: the hour is taken modulo 24, and a minute may be beyond 59.
    std::optional<ImportedEntry::Time> time = {};
    // What the line holds behind date, weekday and time, without separators at both ends.
    QString rest = {};
    // The date is a/b/year, read as month/day, and could be day/month as well.
    bool isAmbiguousOrder = false;

    // The day, if the line tells its year.
    [[nodiscard]] std::optional<DiaryDay> dayWithYear() const {
        return year ? std::optional(DiaryDay{*year, month, day}) : std::nullopt;
    }

    bool operator==(const Match&) const = default;
};

// The date that the line opens with, behind blanks and the marks of a heading, of emphasis or of
// a quote; nothing if it opens with none. A line may hold line ends of any kind.
//   "## 2021年3月4日 星期四 上午9:30 去爬山" -> 4 March 2021, 09:30, rest "去爬山"
//   "3/4/2021" -> 4 March 2021, of ambiguous order
[[nodiscard]] std::optional<Match> match(QStringView line);

// The day of a line that opens with a date and its year.
[[nodiscard]] std::optional<DiaryDay> day(QStringView line);

// The time of a clock with a word for the half of the day: "pm", "A.M.", "下午", "午前", … in any
// case, with or without dots; empty for none. The minute is passed on as it is.
//   12, 30, "a.m." -> 00:30;  1, 30, "中午" -> 13:30;  25, 10, "" -> 01:10
[[nodiscard]] ImportedEntry::Time clockTime(int hour, int minute, QStringView marker);

}  // namespace diary::DateLine
