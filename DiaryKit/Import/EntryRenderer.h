// The one place that turns imported entries into the Markdown of a year section, and that tells
// what identifies an entry. "#" and "##" belong to the day file's title and years, so headings are
// pushed below them, and a fence that a body leaves open is closed before it swallows later years.
// Pure; any thread.
#pragma once

#include <QtCore/QString>
#include <optional>
#include <span>
#include <vector>

#include "DiaryKit/Import/ImportOptions.h"
#include "DiaryKit/Import/ImportSource.h"
#include "DiaryKit/Import/ImportedEntry.h"

namespace diary::EntryRenderer {

// Whether the entries go behind text that their section has already.
enum class Placement { Alone, Appended };

// A body as a section can hold it: CR LF become LF, headings start at level 3, an open fence is
// closed, and the whole is tidied.
//   "# Title\n#tag" -> "### Title\n#tag"
[[nodiscard]] QString prepare(QStringView body);

// Place, weather, mood and tags, as far as the options show them; nothing if none is left.
//   "Hangzhou · happy · #lake #tea"
[[nodiscard]] std::optional<QString> metaLine(const ImportedEntry& entry,
                                              const ImportOptions& options);

// The Markdown of each entry, in order; nothing for one that renders to nothing. Only entries that
// aren't alone have the time in their heading, unless the options ask for it.
[[nodiscard]] std::vector<std::optional<QString>> blocks(std::span<const ImportedEntry> entries,
                                                         const ImportOptions& options,
                                                         Placement placement);

// The blocks joined with blank lines.
[[nodiscard]] QString section(std::span<const ImportedEntry> entries, const ImportOptions& options,
                              Placement placement);

// The key that recognises an entry in later imports: the SHA-256 of its fields, in lower-case
// hexadecimal. Records on disk hold it, so what it is made of never changes; options have no part.
[[nodiscard]] QString identity(const ImportedEntry& entry, ImportSource source);

// Whether this entry alone, as it would be rendered, is the whole text of a section already. An
// entry with details that the section couldn't show never is.
[[nodiscard]] bool matchesWholeSection(const ImportedEntry& entry, QStringView body,
                                       const ImportOptions& options);

}  // namespace diary::EntryRenderer
