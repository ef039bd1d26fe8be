// The years of a day file, straight from its bytes: the overview of the archive and the search read
// hundreds of files and need no text of most of them.
#pragma once

#include <QtCore/QByteArrayView>
#include <set>
#include <vector>

namespace diary {

// Exactly YearSectionParser::yearsWithContent of the bytes as UTF-8, invalid sequences counting as
// content. Pure; linear in time; any thread.
[[nodiscard]] std::set<int> yearsWithContent(QByteArrayView bytes);

// A section of a day file; `body` lies in the bytes that were scanned.
struct ByteSection {
    int year = 0;
    QByteArrayView body;
};

// Exactly YearSectionParser::sections of the bytes as UTF-8, repaired where they aren't valid: each
// body, decoded by itself, is the section's. Pure; linear in time; any thread.
[[nodiscard]] std::vector<ByteSection> byteSections(QByteArrayView bytes);

}  // namespace diary
