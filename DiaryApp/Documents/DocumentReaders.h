// All readers of documents that this build has, for DatedTextSource.
#pragma once

#include "DiaryKit/FolderSources/DatedTextSource.h"

namespace diary::documents {

// Beside what DatedTextSource expects of them, a doc that no program on this machine reads throws
// DocumentToolError.
[[nodiscard]] DatedTextSource::DocumentReaders documentReaders();

}  // namespace diary::documents
