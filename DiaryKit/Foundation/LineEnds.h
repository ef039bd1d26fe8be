// Line ends of other systems as those of this one.
#pragma once

#include <QtCore/QString>

namespace diary::text {

// The text with LF for each CR LF; a CR by itself stays. Moves each unit at most once and, handed a
// text that nobody else holds, takes no memory; QString::replace would move the rest of the text
// again and again, for minutes where it is a diary of half a gigabyte.
//   "a\r\nb\rc" -> "a\nb\rc"
[[nodiscard]] QString withoutCarriageReturnPairs(QString text);

// The same, with LF for each CR by itself as well.  "a\r\nb\rc" -> "a\nb\nc"
[[nodiscard]] QString withLineFeeds(QString text);

}  // namespace diary::text
