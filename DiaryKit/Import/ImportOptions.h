// The user's choices of how an import's entries are written. Compared by value, to see whether a
// plan must be made again.
#pragma once

#include <QtCore/QString>
#include <array>
#include <set>

namespace diary {

struct ImportOptions {
    // What becomes of a year section that has text already.
    enum class Conflict {
        // New entries go behind its text and a separator.
        append,
        // It is left alone.
        skip
    };
    static constexpr std::array<Conflict, 2> allConflicts = {Conflict::append, Conflict::skip};

    Conflict conflict = Conflict::append;
    // What the line of details below an entry's heading shows. Weather alone is left out at first:
    // most sources record it without being asked.
    bool place = true;
    bool weather = false;
    bool mood = true;
    bool tags = true;
    // Write the time heading also where an entry is alone in its year of that day.
    bool timeForSingle = false;
    // Journals whose entries are left out.
    std::set<QString> excludedJournals;

    bool operator==(const ImportOptions&) const = default;
};

}  // namespace diary
