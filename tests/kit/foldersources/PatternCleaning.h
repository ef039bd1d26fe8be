// The rules that clean a note as the regular expressions that they stand for, on ICU's engine. Slow
// on texts made to hurt; for comparing with what replaces them.
#pragma once

#include <unicode/regex.h>

#include <QtCore/QString>
#include <memory>
#include <optional>
#include <utility>

#include "DiaryKit/FolderSources/MarkdownNote.h"
#include "DiaryKit/Import/HTMLToMarkdown.h"

namespace diary::test {

// An expression and what stands in for its matches.
class CleaningRule {
public:
    CleaningRule(const char* expression, const char* replacement, uint32_t flags = 0)
        : m_pattern(icu::RegexPattern::compile(icu::UnicodeString::fromUTF8(expression), flags,
                                               m_status)),
          m_replacement(icu::UnicodeString::fromUTF8(replacement)) {}

    // The text with each match replaced, and how many there were; nothing if the engine gives up.
    [[nodiscard]] std::optional<std::pair<QString, int>> apply(const QString& text) const {
        UErrorCode status = m_status;
        const icu::UnicodeString input(reinterpret_cast<const char16_t*>(text.utf16()),
                                       static_cast<int32_t>(text.size()));
        const std::unique_ptr<icu::RegexMatcher> matcher(
            U_SUCCESS(status) ? m_pattern->matcher(input, status) : nullptr);
        int count = 0;
        while (matcher && matcher->find(status)) ++count;
        if (U_FAILURE(status)) return std::nullopt;
        matcher->reset();
        const icu::UnicodeString result = matcher->replaceAll(m_replacement, status);
        if (U_FAILURE(status)) return std::nullopt;
        // Not by fromUtf16, which takes U+FEFF at the front for a byte order mark.
        const auto* units = reinterpret_cast<const QChar*>(result.getBuffer());
        return std::pair(QString(units, result.length()), count);
    }

private:
    UErrorCode m_status = U_ZERO_ERROR;
    std::unique_ptr<icu::RegexPattern> m_pattern;
    icu::UnicodeString m_replacement;
};

inline std::optional<MarkdownFolderSource::Cleaned> cleanedByPatterns(
    const QString& text, MarkdownFolderSource::Flavor flavor) {
    using MarkdownFolderSource::Flavor;
    static const CleaningRule imageEmbed(
        "!\\[\\[[^\\]]+\\.(?:png|jpe?g|gif|heic|webp|svg|bmp|tiff?|mp4|mov|m4a|mp3|pdf)"
        "(?:\\|[^\\]]*)?\\]\\]",
        "", UREGEX_CASE_INSENSITIVE);
    static const CleaningRule noteEmbed("!\\[\\[([^\\]]+)\\]\\]", "[[$1]]");
    static const CleaningRule markdownImage("!\\[[^\\]]*\\]\\([^)]*\\)(?:\\{[^}]*\\})?", "");
    static const CleaningRule highlight("::([^:\\n]+)::", "**$1**");
    static const CleaningRule underline("__([^_\\n]+)__", "$1");
    static const CleaningRule strike("(?<!~)~([^~\\n]+)~(?!~)", "~~$1~~");
    static const CleaningRule property(
        "^\\s*(?:-\\s+)?(?:id|collapsed|heading|background-color|card-[a-z-]+)::.*$", "",
        UREGEX_MULTILINE);
    std::optional<std::pair<QString, int>> now(std::in_place, text, 0);
    const auto apply = [&now](const CleaningRule& rule) {
        if (now) now = rule.apply(now->first);
        return now ? now->second : 0;
    };
    int removed = apply(imageEmbed);
    apply(noteEmbed);
    removed += apply(markdownImage);
    if (flavor == Flavor::diarly) {
        apply(highlight);
        apply(underline);
        apply(strike);
    } else if (flavor == Flavor::logseq) {
        apply(property);
    }
    if (!now) return std::nullopt;
    return MarkdownFolderSource::Cleaned{HTMLToMarkdown::tidy(now->first), removed};
}

}  // namespace diary::test
