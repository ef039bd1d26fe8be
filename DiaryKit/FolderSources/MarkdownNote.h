// One note of a Markdown folder as text: what its front matter tells, and its body without what the
// diary has no use for. All pure; any thread; linear in the text's length.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QStringView>
#include <optional>

#include "DiaryKit/Vault/DiaryDay.h"

namespace diary::MarkdownFolderSource {

// Which application wrote the notes, as far as its Markdown has marks of its own.
enum class Flavor { obsidian, logseq, diarly, generic };

struct Frontmatter {
    // The text behind the front matter, or all of it without one, with LF for CR LF.
    QString body;
    QStringList tags = {};
    // The day of the first key "date", "created" or "day" that holds one.
    std::optional<DiaryDay> date = {};

    bool operator==(const Frontmatter&) const = default;
};

// A block between two lines "---" at the very start (as in Jekyll), of which only tags and a date
// are read.  "---\ntags: [a, b c]\n---\nx" -> body "x", tags a, b, c
[[nodiscard]] Frontmatter splitFrontmatter(QString text);

struct Cleaned {
    QString text;
    // How many images and other media were cut out.
    int removed = 0;

    bool operator==(const Cleaned&) const = default;
};

// The body without embedded media, with links in place of embedded notes, and with the flavor's own
// marks as Markdown.
[[nodiscard]] Cleaned clean(const QString& text, Flavor flavor);

// The text without a first heading that only repeats a date.
//   "# 2021-03-04\n\nx" -> "x";  "# 2021-03-04 Trip\nx" stays
[[nodiscard]] QString dropDateTitle(const QString& text);

}  // namespace diary::MarkdownFolderSource
