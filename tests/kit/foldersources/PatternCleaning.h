// The rules that clean a note as the regular expressions that they stand for, on ICU's engine. Slow
// on texts made to hurt; for comparing with what replaces them.
#pragma once

#include <unicode/regex.h>

#include <QtCore/QString>
#include <optional>
#include <utility>

#include "DiaryKit/FolderSources/MarkdownNote.h"
#include "DiaryKit/Import/HTMLToMarkdown.h"

namespace diary::test {

// The text with each match replaced, and how many there were; nothing if the engine gives up.
inline std::optional<std::pair<QString, int>> replaced(const QString& text, const char* pattern,
                                                       const char* replacement,
                                                       uint32_t flags = 0) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString input(reinterpret_cast<const char16_t*>(text.utf16()),
                                   static_cast<int32_t>(text.size()));
    icu::RegexMatcher matcher(icu::UnicodeString::fromUTF8(pattern), input, flags, status);
    int count = 0;
    while (matcher.find(status)) ++count;
    matcher.reset();
    const icu::UnicodeString result =
        matcher.replaceAll(icu::UnicodeString::fromUTF8(replacement), status);
    if (U_FAILURE(status)) return std::nullopt;
    return std::pair(QString::fromUtf16(result.getBuffer(), result.length()), count);
}

inline std::optional<MarkdownFolderSource::Cleaned> cleanedByPatterns(
    const QString& text, MarkdownFolderSource::Flavor flavor) {
    using MarkdownFolderSource::Flavor;
    std::optional<std::pair<QString, int>> now(std::in_place, text, 0);
    int removed = 0;
    const auto replace = [&](const char* pattern, const char* replacement, uint32_t flags = 0) {
        if (now) now = replaced(now->first, pattern, replacement, flags);
    };
    const auto remove = [&](const char* pattern, uint32_t flags = 0) {
        replace(pattern, "", flags);
        if (now) removed += now->second;
    };
    remove(
        "!\\[\\[[^\\]]+\\.(?:png|jpe?g|gif|heic|webp|svg|bmp|tiff?|mp4|mov|m4a|mp3|pdf)"
        "(?:\\|[^\\]]*)?\\]\\]",
        UREGEX_CASE_INSENSITIVE);
    replace("!\\[\\[([^\\]]+)\\]\\]", "[[$1]]");
    remove("!\\[[^\\]]*\\]\\([^)]*\\)(?:\\{[^}]*\\})?");
    if (flavor == Flavor::diarly) {
        replace("::([^:\\n]+)::", "**$1**");
        replace("__([^_\\n]+)__", "$1");
        replace("(?<!~)~([^~\\n]+)~(?!~)", "~~$1~~");
    } else if (flavor == Flavor::logseq) {
        replace(
            "^\\s*(?:-\\s+)?(?:id|collapsed|heading|background-color|card-[a-z-]+)::.*$", "",
            UREGEX_MULTILINE);
    }
    if (!now) return std::nullopt;
    return MarkdownFolderSource::Cleaned{HTMLToMarkdown::tidy(now->first), removed};
}

}  // namespace diary::test
