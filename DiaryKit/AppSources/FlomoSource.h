// Reads a flomo export: a page that holds all memos, in a folder or a zip, with media beside it.
// Media are counted, never copied.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include "DiaryKit/Import/ImportBatch.h"
#include "DiaryKit/Import/ImportPackage.h"

namespace diary::FlomoSource {

// The package's pages that hold a memo near their beginning, in its order.
[[nodiscard]] QStringList memoFiles(const ImportPackage& package);

// All memos. Those without a usable date are counted. Memos may nest, as they do where a page
// doesn't close its tags; one whose content lies within NestingBound::kMost others' is no entry of
// its own, since they hold its words, and counts as another note. Throws ImportError (unrecognized)
// without any page of memos, and what the package throws. Blocks; holds one page at a time.
[[nodiscard]] ImportBatch read(const ImportPackage& package, const QString& name);

}  // namespace diary::FlomoSource
