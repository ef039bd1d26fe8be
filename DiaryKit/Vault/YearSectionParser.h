// The day file format: pure functions over a day file's text. A file is a preamble (its title line
// "# MM-DD") and sections headed "## YYYY"; docs/formats/day-file.md tells it line by line.
//
// Ranges are in UTF-16 units of the text given. Lines end at a lone LF; the LF of a CR LF pair ends
// none. Where a year stands twice, the operations act on its first section in file order. Nothing
// here throws, reads a file or knows about sessions; saving a draft is SectionSave.h, merging two
// files DocumentMerge.h.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>
#include <optional>
#include <set>
#include <vector>

#include "DiaryKit/Foundation/TextRange.h"
#include "DiaryKit/Vault/MonthDay.h"

namespace diary::YearSectionParser {

struct Section {
    int year = 0;
    // From the header line's first unit up to and including its LF.
    TextRange headerRange;
    // From there to the next header line, or to the end of the text.
    TextRange bodyRange;

    bool operator==(const Section&) const = default;
};

struct YearBody {
    int year = 0;
    // Trimmed of whitespace and newlines; may be empty.
    QString body;

    bool operator==(const YearBody&) const = default;
};

struct EnsuredSection {
    QString text;
    qsizetype caretUTF16Offset = 0;

    bool operator==(const EnsuredSection&) const = default;
};

// The sections in file order. A header inside a fenced block is body text; a fence that is never
// closed runs to the end.
[[nodiscard]] std::vector<Section> sections(QStringView text);

// The years of which at least one section holds a character that isn't white space.
[[nodiscard]] std::set<int> yearsWithContent(QStringView text);

// Year and trimmed body of each section in file order, repeated years included.
[[nodiscard]] std::vector<YearBody> sectionBodies(QStringView text);

// The trimmed body of the year's first section; empty if there is none.
[[nodiscard]] QString body(int year, QStringView text);

// Whether every line is empty, the title "# " + `title`, or a year header; blanks around a line
// don't count, and fences aren't looked at.
[[nodiscard]] bool isEffectivelyEmpty(QStringView text, QStringView title);

// The trimmed text ahead of the first header, or nothing if that is empty.
[[nodiscard]] std::optional<QString> documentPreamble(QStringView text);

// Makes sure that the year has a section, in ascending order, and tells where its text goes on. A
// fence that is open ahead of the new header is closed by a line of three back-ticks.
//   ("# 01-02\n", 2024) -> "# 01-02\n\n## 2024\n\n", caret at the end
[[nodiscard]] EnsuredSection ensuringSection(int year, const MonthDay& monthDay, QStringView text);

// The text with `body` at the end of the year's section, behind `separator` if the section has
// text already. A blank body changes nothing.
[[nodiscard]] QString appendingBody(QStringView body, QStringView separator, int year,
                                    const MonthDay& monthDay, QStringView text);

// The text with the year's section holding `body`, trimmed, and nothing else. The header stays
// even if the body is empty.
[[nodiscard]] QString replacingBody(QStringView body, int year, const MonthDay& monthDay,
                                    QStringView text);

// The text without the year's section.
[[nodiscard]] QString removingSection(int year, QStringView text);

// Whether a fence that the text opens is still open at its end.
[[nodiscard]] bool leavesFenceOpen(QStringView text);

// The text with a line of three back-ticks behind it if it leaves a fence open.
[[nodiscard]] QString closingFence(QStringView text);

}  // namespace diary::YearSectionParser
