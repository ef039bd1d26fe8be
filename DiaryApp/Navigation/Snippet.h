// The beginning of a text, for a card.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>

namespace velmar {

// The most characters, as a reader counts them, that a snippet takes over.
inline constexpr int kSnippetCharacters = 46;

// The text without its markers, in one line, as MarkdownEditing::plainText makes it. What has 47
// characters (grapheme clusters) or more is cut behind the 46th and gets an ellipsis. Reads no
// further than the lines that it takes.
[[nodiscard]] QString snippetOf(QStringView markdown);

}  // namespace velmar
