// Which entries of earlier imports a day file still holds. An entry stays recognised while its text
// can be found: retouched it still is, deleted it comes back with the next import. Pure; any
// thread.
#pragma once

#include <QtCore/QSet>
#include <QtCore/QString>
#include <optional>
#include <span>

#include "DiaryKit/Import/ImportRecord.h"

namespace diary::ImportLog {

// The SHA-256 of the text's UTF-8 bytes, in lower-case hexadecimal.
[[nodiscard]] QString hash(QStringView text);

// The identities of entries that imports from this source wrote into the day and that its text
// still holds; none without a text. Imports that were undone don't count.
[[nodiscard]] QSet<QString> entryKeys(std::span<const ImportRecord> records, ImportSource source,
                                      const MonthDay& monthDay, const std::optional<QString>& text);

// Whether a section still holds an entry's block: word for word, by its heading, or by seven tenths
// of its pairs of neighbouring characters, which works without word boundaries.
[[nodiscard]] bool isStillThere(QStringView entryText, QStringView sectionBody);

// The number of different pairs of neighbouring characters, white space left out.
//   "ab ab" -> 2 ("ab", "ba")
[[nodiscard]] qsizetype bigramCount(QStringView text);

}  // namespace diary::ImportLog
