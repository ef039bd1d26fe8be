// Time zones and dates as sources name them. All reading of dates goes through here.
#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QStringView>
#include <QtCore/QTimeZone>
#include <optional>

#include "DiaryKit/Import/ImportedEntry.h"

namespace diary::LocalTime {

struct DayAndTime {
    DiaryDay day;
    ImportedEntry::Time time;

    bool operator==(const DayAndTime&) const = default;
};

// The zone of an identifier such as "Europe/Paris", in its exact case, or else of a common
// abbreviation such as "JST"; nothing if the name is neither.
[[nodiscard]] std::optional<QTimeZone> namedZone(QStringView name);

// The named zone; the machine's current zone for an empty or unknown name.
[[nodiscard]] QTimeZone zone(QStringView name);

// Day and time of a moment on a wall clock in `zone` (proleptic Gregorian). A moment that isn't
// valid is 1 January 2000, 00:00.
[[nodiscard]] DayAndTime split(const QDateTime& moment, const QTimeZone& zone);

// Whether the calendar has that day: 2024-02-29 is valid, 1900-02-29 isn't.
[[nodiscard]] bool isValid(int year, int month, int day);

}  // namespace diary::LocalTime
