// Simple case folding, and the terms of a search prepared by it. Not for use outside
// DiaryKit/Search.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QStringView>
#include <optional>
#include <vector>

#include "DiaryKit/Foundation/TextRange.h"

namespace diary::casefolding {

// Whether a cut at `at` would split a surrogate pair.
[[nodiscard]] inline bool isInsidePair(QStringView text, qsizetype at) {
    return at > 0 && at < text.size() && text[at].isLowSurrogate() &&
           text[at - 1].isHighSurrogate();
}

// Simple case folding by Unicode's default mappings. 'A', 'a' -> 'a'; 'ſ' -> 's'; 'ß' -> 'ß'
[[nodiscard]] char32_t folded(char32_t codePoint);

// The text with each code point folded; a unit of a broken surrogate pair stays. No folding leads
// from one plane to another, so every position stays where it was.
[[nodiscard]] QString folded(QStringView text);

// Terms ready to be sought in many texts. Copies share their texts; any thread.
class FoldedTerms {
public:
    explicit FoldedTerms(const QStringList& terms);

    // What matchRanges() tells.
    [[nodiscard]] std::optional<std::vector<TextRange>> rangesIn(QStringView text) const;

    [[nodiscard]] const std::vector<QString>& terms() const { return m_terms; }

private:
    std::vector<QString> m_terms;
};

}  // namespace diary::casefolding
