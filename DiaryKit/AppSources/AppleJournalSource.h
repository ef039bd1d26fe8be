// Reads an Apple Journal export: a page for each entry in a folder "Entries", in a folder or a zip.
// Photos and the like are counted, never copied; moods and places are read from their captions.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include "DiaryKit/Import/ImportBatch.h"
#include "DiaryKit/Import/ImportPackage.h"
#include "DiaryKit/Import/MiniHTML.h"

namespace diary::AppleJournalSource {

// The package's pages below a folder named exactly "Entries", in its order.
[[nodiscard]] QStringList entryFiles(const ImportPackage& package);

// All entries. Those without a date, neither in their file's name nor in their header, are counted.
// Throws ImportError (unrecognized) if there is no page, and what the package throws. Blocks; holds
// one page at a time.
[[nodiscard]] ImportBatch read(const ImportPackage& package, const QString& name);

// A page as the system's writer of rich text makes it, with its paragraphs as lines: each line of
// such a page is a paragraph of its own, in spans that cross the export's elements. Every other
// page stays as it is. Linear.
//   "<meta content=\"Cocoa HTML Writer\"><p class=p1><span>a</span><br></p>"
//       -> "<meta content=\"Cocoa HTML Writer\">a<br>"
[[nodiscard]] QString unwrapCocoa(const QString& html);

// The captions of an asset: the texts of its first header, footer and text, in this order, without
// empty ones. The asset's element may itself be one of them.
[[nodiscard]] QStringList overlayText(const HTMLNode& node);

}  // namespace diary::AppleJournalSource
