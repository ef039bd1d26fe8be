// The kinds of source that an import can come from.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>
#include <array>
#include <optional>

namespace diary {

// Records on disk hold a source by its spelling, which is the name of its case.
enum class ImportSource {
    dayOne,
    appleJournal,
    flomo,
    journey,
    daylio,
    markdownFolder,
    velmarFolder,
    datedText
};

namespace import_source {

// All of them, in the order in which they are offered.
inline constexpr std::array<ImportSource, 8> all = {
    ImportSource::dayOne,       ImportSource::appleJournal, ImportSource::flomo,
    ImportSource::journey,      ImportSource::daylio,       ImportSource::markdownFolder,
    ImportSource::velmarFolder, ImportSource::datedText};

// The source of a spelling such as "dayOne"; case matters.
[[nodiscard]] std::optional<ImportSource> parse(QStringView spelling);
[[nodiscard]] QString spelling(ImportSource source);

// The product's own name, the same in every language. Nothing where the source has none, and for
// Apple's journal, whose name the system translates.
[[nodiscard]] std::optional<QString> brandName(ImportSource source);

}  // namespace import_source

}  // namespace diary
