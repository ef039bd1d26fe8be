// The folders of this user that the XDG base directories give an application, apart
// from those that Qt finds itself.
#pragma once

#include <QtCore/QString>

namespace diary {

// Where lock files live: $XDG_RUNTIME_DIR/velmar, else /run/user/<uid>/velmar, else the temporary
// folder below. A runtime folder that isn't this user's own is passed over. Made if it is missing;
// an empty text if none can be had.
[[nodiscard]] QString userRuntimeFolder();

// A folder of mode 0700 under the system's temporary folder, $TMPDIR or /tmp, that belongs to this
// user. Made if it is missing; an empty text if something else stands in its place.
[[nodiscard]] QString userTemporaryFolder();

// Where kept texts live: $XDG_STATE_HOME/velmar, else ~/.local/state/velmar. Not made.
[[nodiscard]] QString userStateFolder();

// The real path of a folder that may not exist yet: the existing part with its links resolved, the
// rest as it is written. Two spellings of one vault give one key.
[[nodiscard]] QString resolvedPath(const QString& path);

}  // namespace diary
