// Moments as exports write them.
#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QStringView>
#include <optional>

namespace diary {

// The moment of "2021-03-04T05:06:07Z", with or without a fraction of the second and with "+09:00"
// in place of "Z"; nothing for every other form and for dates that the calendar doesn't have.
[[nodiscard]] std::optional<QDateTime> isoMoment(QStringView text);

// The moment that many milliseconds after the beginning of 1970 (UTC), or before it; not valid for
// what is no number, and beyond 100 million days, which no calendar needs.
[[nodiscard]] QDateTime momentSince1970(double milliseconds);

}  // namespace diary
