#include "DiaryApp/Navigation/Snippet.h"

#include <unicode/brkiter.h>

#include <memory>
#include <optional>

#include "DiaryKit/Markdown/MarkdownEditing.h"

namespace velmar {

namespace {

// Units of the text, and of its plain form, that are enough for nearly every snippet.
constexpr qsizetype kFirstLines = 256;
constexpr qsizetype kFirstCharacters = 4L * kSnippetCharacters;

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

// The first 46 characters of a text that has more; nothing of one that hasn't.
std::optional<QStringView> cut(QStringView text) {
    for (qsizetype look = kFirstCharacters;; look *= 2) {
        const QStringView beginning = text.first(qMin(look, text.size()));
        const qsizetype end = snippetEnd(beginning);
        // A character that ends with what was looked at may go on behind it.
        if (end < beginning.size()) return text.first(end);
        if (beginning.size() == text.size()) return std::nullopt;
    }
}

}  // namespace

QString snippetOf(QStringView markdown) {
    for (qsizetype look = kFirstLines;; look *= 2) {
        // Lines are made plain one by one, so whole lines give the beginning of the whole.
        const qsizetype lineEnd = look < markdown.size() ? markdown.indexOf(u'\n', look) : -1;
        const bool isWhole = lineEnd < 0;
        QString plain =
            diary::MarkdownEditing::plainText(isWhole ? markdown : markdown.first(lineEnd));
        if (const auto beginning = cut(plain)) return beginning->toString() + u'…';
        if (isWhole) return plain;
    }
}

}  // namespace velmar
