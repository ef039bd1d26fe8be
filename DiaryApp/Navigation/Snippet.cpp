#include "DiaryApp/Navigation/Snippet.h"

#include <unicode/brkiter.h>

#include <memory>

namespace velmar {

namespace {

// Room for the snippet's characters in nearly every text; emoji and accents take several units.
constexpr qsizetype kFirstLook = kSnippetCharacters * 4;

icu::BreakIterator& characters() {
    static const std::unique_ptr<icu::BreakIterator> iterator = [] {
        UErrorCode status = U_ZERO_ERROR;
        return std::unique_ptr<icu::BreakIterator>(
            icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    }();
    return *iterator;
}

// Where the snippet's last character ends, or the text's size if it has no more characters.
qsizetype snippetEnd(QStringView text) {
    UErrorCode status = U_ZERO_ERROR;
    UText units = UTEXT_INITIALIZER;
    utext_openUChars(&units, text.utf16(), text.size(), &status);
    icu::BreakIterator& iterator = characters();
    iterator.setText(&units, status);
    const int32_t end = iterator.next(kSnippetCharacters);
    utext_close(&units);
    return end == icu::BreakIterator::DONE ? text.size() : end;
}

}  // namespace

QString shortened(QStringView text) {
    for (qsizetype look = kFirstLook;; look *= 2) {
        const QStringView beginning = text.first(qMin(look, text.size()));
        const qsizetype end = snippetEnd(beginning);
        const bool isWhole = beginning.size() == text.size();
        if (isWhole && end == text.size()) return text.toString();
        // The last character seen may go on behind what was looked at.
        if (isWhole || end < beginning.size()) return text.first(end).toString() + u'…';
    }
}

}  // namespace velmar
