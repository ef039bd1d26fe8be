// Made-up vaults of a given size, the same at each run.
#pragma once

#include <QtCore/QString>

namespace diary::bench {

// A day file of so many years, each of about `bodyLength` characters, a third of them in Chinese
// or Japanese.
[[nodiscard]] QString dayFile(int years, int bodyLength);

// Writes 366 files of 50 years each into the folder, about 20 MB.
void writeVault(const QString& folder);

}  // namespace diary::bench
