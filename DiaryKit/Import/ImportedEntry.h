// One entry as a source's reader found it. The reader cleans the text of the source's own marks;
// what it looks like in a day file is decided when it is rendered.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <compare>
#include <optional>

#include "DiaryKit/Vault/DiaryDay.h"

namespace diary {

// Absent texts are absent rather than empty wherever a reader can tell.
struct ImportedEntry {
    // A local time of writing.
    struct Time {
        int hour = 0;
        int minute = 0;

        // "07:05"
        [[nodiscard]] QString text() const;

        auto operator<=>(const Time&) const = default;
    };

    // The calendar day in the entry's own local time.
    DiaryDay day = {};
    std::optional<Time> time = {};
    std::optional<QString> title = {};
    // Markdown, with headings at the levels that the source gave them and fences as they are.
    QString body = {};
    std::optional<QString> place = {};
    // Weather and mood are texts for display already.
    std::optional<QString> weather = {};
    std::optional<QString> mood = {};
    // In any form; rendering strips number signs and blanks.
    QStringList tags = {};
    // The journal or notebook inside of the source.
    std::optional<QString> journal = {};
    // The body is the whole text of another vault's year section, to be taken over verbatim.
    bool isVelmarSection = false;

    bool operator==(const ImportedEntry&) const = default;
};

}  // namespace diary
