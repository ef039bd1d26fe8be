// Merging of two states of one day file, section by section. Nothing that either side wrote is
// lost: where a year differs, both texts stay, with a marker line between. Pure; any thread.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>

#include "DiaryKit/Vault/MonthDay.h"

namespace diary::YearSectionParser {

// Both files as one, in normal form: the head, then each year ascending, one blank line around
// each. A year that one side wrote further than the other is taken from that side; one that both
// changed holds current's text, the marker, and other's text. A year that stands twice in
// `current` keeps both bodies. Bodies and head with an open fence are closed.
//   ("## 2024\nA", "## 2024\nB", "(both)") -> "# 01-02\n\n## 2024\n\nA\n\n(both)\n\nB\n"
// Deterministic, but neither symmetric nor idempotent: see mergingVersion.
[[nodiscard]] QString mergingDocuments(QStringView current, QStringView other,
                                       const MonthDay& monthDay, const QString& conflictMarker);

// The merge for a copy that a sync service left, which another machine may be taking in at the
// same time: a year is left out where current holds the copy's text on lines of its own already,
// and current's text where the copy holds it. A copy without sections that has CR LF line ends is
// read with LF ends.
[[nodiscard]] QString mergingVersion(QStringView current, QStringView version,
                                     const MonthDay& monthDay, const QString& conflictMarker);

// Whether `needle` stands in `text` on lines of its own: at the start or behind a line end, and up
// to a line end or the end. An empty needle never does. ("a\nb c\nd", "b c") -> true
[[nodiscard]] bool holdsOnOwnLines(QStringView text, QStringView needle);

}  // namespace diary::YearSectionParser
