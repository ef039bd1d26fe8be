// What a save of the editor's draft makes of a day file: pure text functions that the writing
// session runs under the file's lock. The draft is the body of one year's section, but the user may
// type anything into it, a year header or the beginning of a fence included.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>
#include <optional>

#include "DiaryKit/Vault/MonthDay.h"

namespace diary {

// One save's result.
struct SectionSave {
    // The whole day file.
    QString text;
    // What stands behind the year's header now: the draft trimmed, with a fence closed that it left
    // open. The next save of the same stay gives it back as `lastWritten`.
    QString written;
    // The year's body in the file that this save replaced.
    QString replacedBody;

    bool operator==(const SectionSave&) const = default;
};

// The day file `latest` with the draft as the text of the year. Other years stay as they are.
//
// A draft that holds a line like "## 2024" is written as it is, and so that line is a year of its
// own in the file. `lastWritten`, what the previous save of this stay wrote, then tells which
// sections behind the year's own are this draft's and are replaced with it; those that the file
// held before are never touched. Absent at the first save of a stay.
//
// Nothing if the text would not be found again under that year (a year that a header can't hold):
// such a draft must not count as saved.
[[nodiscard]] std::optional<SectionSave> savingDraft(QStringView draft, int year,
                                                     const MonthDay& monthDay, QStringView latest,
                                                     const std::optional<QString>& lastWritten);

// Whether the file `latest` holds the draft as a save in this stay would write it: a draft that is
// still in the editor then needs no reload, which would drop its trailing blanks and the years
// typed into it.
[[nodiscard]] bool holdsDraft(QStringView draft, int year, const MonthDay& monthDay,
                              QStringView latest, const std::optional<QString>& lastWritten);

}  // namespace diary
