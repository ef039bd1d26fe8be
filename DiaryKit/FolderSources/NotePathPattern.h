// Patterns that find a date in the path of a note: those that any tool uses, and the one that a
// format in the notation of Moment.js stands for, in which Obsidian keeps how its daily notes are
// named.
#pragma once

#include <unicode/regex.h>

#include <QtCore/QString>
#include <QtCore/QStringView>
#include <memory>
#include <optional>

#include "DiaryKit/Vault/DiaryDay.h"

namespace diary {

// Immutable and cheap to copy; any thread.
class NotePathPattern {
public:
    // A regular expression of ICU with the named groups y, m, d and mname, all of which may be
    // missing; nothing for one that isn't valid.
    [[nodiscard]] static std::optional<NotePathPattern> compiled(const QString& expression);

    // The date in the path's first match: the year from y, the month from m or an English name in
    // mname, the day from d. Nothing without a match, or where it is no day from 1900 to 2100. A
    // match that takes unreasonably long is none.
    [[nodiscard]] std::optional<DiaryDay> date(const QString& path) const;

    [[nodiscard]] bool matches(const QString& path) const;

private:
    explicit NotePathPattern(std::shared_ptr<const icu::RegexPattern> pattern)
        : m_pattern(std::move(pattern)) {}

    std::shared_ptr<const icu::RegexPattern> m_pattern;
};

namespace MarkdownFolderSource {

// What a date format of Moment.js stands for, on the path of a note below `folder`, or of one in
// any folder if that is empty. Nothing for a format that makes no valid pattern.
//   "YYYY-MM-DD", "daily" -> daily/2021-03-04.md
[[nodiscard]] std::optional<NotePathPattern> momentRegex(const QString& format,
                                                         const QString& folder);

}  // namespace MarkdownFolderSource

}  // namespace diary
