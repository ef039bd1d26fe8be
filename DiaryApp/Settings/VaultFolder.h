// Whether a folder can be the diary's. Looks at the disk and changes nothing there.
#pragma once

#include <QtCore/QString>
#include <optional>

namespace velmar::vaultfolder {

enum class Problem {
    // Something else has that name.
    NotAFolder,
    // It is there and can't be written in, or not be listed.
    NotWritable,
    // It isn't there, and can't be made where it should be.
    CannotBeMade,
};

// Absent where all is well: the folder is there and can be written in, or could be made. A folder
// that isn't there yet is made by the diary's first save.
[[nodiscard]] std::optional<Problem> problem(const QString& folder);

}  // namespace velmar::vaultfolder
