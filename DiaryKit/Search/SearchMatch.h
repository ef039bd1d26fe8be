// Where the words of a search occur in a text, and the piece of the text that shows it. Pure
// functions; any thread. Positions and lengths are in UTF-16 units.
//
// Upper and lower case are one: code points are compared after simple case folding (Unicode's
// CaseFolding.txt, statuses C and S). So "STRASSE" doesn't find "Straße", while "s" finds the long
// "ſ" and the final "ς" is found by "Σ". Canonically equivalent texts aren't equal here, and a word
// may end ahead of a combining mark.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QStringView>
#include <optional>
#include <vector>

#include "DiaryKit/Foundation/TextRange.h"

namespace diary {

// All occurrences of all terms, by location; at one location in the order of the terms. Those of
// one term don't overlap, those of different ones may. Nothing if a term doesn't occur (an empty
// one never does); an empty list if there are no terms.
//   (["foo", "bar"], "Bar foo") -> (0, 3), (4, 3)
[[nodiscard]] std::optional<std::vector<TextRange>> matchRanges(const QStringList& terms,
                                                                QStringView text);

struct SearchSnippet {
    QString text;
    // The terms' occurrences in `text`.
    std::vector<TextRange> ranges;

    bool operator==(const SearchSnippet&) const = default;
};

// One line of the text: 14 units ahead of `around` to 30 behind it, widened to whole characters,
// with "…" where something is left out. Without `around` the first 50 units, one less where a
// surrogate pair stands across the cut. Line ends (LF) become spaces.
[[nodiscard]] SearchSnippet snippet(QStringView text, const QStringList& terms,
                                    std::optional<TextRange> around);

}  // namespace diary
