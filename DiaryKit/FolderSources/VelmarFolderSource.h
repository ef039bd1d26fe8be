// Reads a folder that is in the vault's own format already: another vault, a backup of one, or
// what an agent has converted. The format is taken at its word, and each departure from it becomes
// an issue of the batch, so that the same reading checks an agent's work. Sections are taken over
// verbatim; docs/formats/day-file.md tells what they are made of.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>
#include <array>
#include <optional>

#include "DiaryKit/Import/ImportBatch.h"

namespace diary::VelmarFolderSource {

// What the folder for a conversion's day files is called in each language, and the report beside
// it; in the order in which they are looked for.
inline constexpr std::array<QStringView, 3> outputFolderNames = {u"输出", u"output", u"出力"};
inline constexpr std::array<QStringView, 3> reportNames = {u"报告.md", u"report.md",
                                                           u"レポート.md"};

// How many names in the folder are those of day files; 0 if it can't be listed. Blocks.
[[nodiscard]] int dayFileCount(const QString& folder);

// The folder that holds the day files: the picked one, or else the first of its output folders
// that has any; nothing if there is none. Blocks.
[[nodiscard]] std::optional<QString> dayFolder(const QString& url);

// The entries of all sections and the issues of all files, both in the order of the names. Names
// that begin with a dot, or aren't UTF-8, are passed over; years from 1900 to `currentYear` are
// taken. A batch without entries is a result like any other. Throws ImportError (unrecognized) if
// there is no folder of day files, FileError (Read) if it can't be listed. Blocks.
[[nodiscard]] ImportBatch read(const QString& url, const QString& name, int currentYear);

// The first line outside of fences that begins with one or two number signs and a blank: in a
// section only deeper headings may stand.  "### a\n## b" -> "## b";  " ## b" -> nothing
[[nodiscard]] std::optional<QString> undemotedHeading(QStringView body);

}  // namespace diary::VelmarFolderSource
