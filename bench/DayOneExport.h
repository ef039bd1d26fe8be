// A made-up Day One export of a given size, the same at each run.
#pragma once

#include <QtCore/QByteArray>

namespace diary::bench {

// The journal of so many entries over all 366 days and several years, several a day: English,
// Chinese and Markdown, about 500 to 2,000 characters each, with the details, the escapes and the
// doubled rich text that the application writes.
[[nodiscard]] QByteArray dayOneJournal(int entries);

// The same as an archive, packed, with a photo beside it.
[[nodiscard]] QByteArray dayOneArchive(const QByteArray& journal);

}  // namespace diary::bench
