// How a text without structure was divided at its date lines: what the user is shown, and may
// overrule. The division itself is DatedTextSplit::split.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <optional>

namespace diary::DatedTextSplit {

// Which date lines open an entry.
enum class Placement {
    // Those behind a blank line, and one on the first line.
    paragraphStart,
    // All.
    anyLine
};

struct Summary {
    // The placement that was used.
    Placement placement = Placement::paragraphStart;
    // How many date lines stand behind a blank line or first, and how many there are.
    int paragraphStartCount = 0;
    int anyLineCount = 0;
    // The first line that opened an entry, trimmed of blanks.
    std::optional<QString> sampleLine;
    // The date lines that opened none for want of a blank line, trimmed; none under `anyLine`.
    QStringList inlineDates;
    // Some date could be day/month or month/day, no order was given, and none of them told.
    bool orderUnsettled = false;
    // The order in which such dates were read.
    bool dayFirst = false;
    // Entries that were dropped because their year is unknown.
    int unknownYear = 0;

    bool operator==(const Summary&) const = default;
};

}  // namespace diary::DatedTextSplit
