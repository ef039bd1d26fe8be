// The beginning of a text, for a card.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>

namespace velmar {

// The most characters, as a reader counts them, that a snippet takes over.
inline constexpr int kSnippetCharacters = 46;

// A text of 47 characters (grapheme clusters) or more is cut behind the 46th and gets an ellipsis;
// a shorter one stays as it is. Looks at the text's beginning only.
[[nodiscard]] QString shortened(QStringView text);

}  // namespace velmar
