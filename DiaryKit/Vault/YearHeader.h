// What makes a line of a day file a year header or a fence. The text parser and the byte scanner
// both decide by this, for units of either width.
#pragma once

#include <QtCore/QtGlobal>

namespace diary::yearheader {

// Whether the units, after spaces, begin with three back-ticks.
template <typename Unit>
[[nodiscard]] bool isFence(const Unit* line, qsizetype length) {
    qsizetype at = 0;
    while (at < length && line[at] == ' ') ++at;
    return length - at >= 3 && line[at] == '`' && line[at + 1] == '`' && line[at + 2] == '`';
}

// The year of a header line, or -1: "##", spaces or tabs, exactly four ASCII digits, and then
// nothing but spaces, tabs and lone CRs. "## 2024 trip" is body text.
template <typename Unit>
[[nodiscard]] int year(const Unit* line, qsizetype length) {
    if (length < 7 || line[0] != '#' || line[1] != '#' || (line[2] != ' ' && line[2] != '\t')) {
        return -1;
    }
    qsizetype at = 3;
    while (at < length && (line[at] == ' ' || line[at] == '\t')) ++at;
    int result = 0;
    const qsizetype digits = at;
    for (; at < length && line[at] >= '0' && line[at] <= '9'; ++at) {
        if (at - digits == 4) return -1;
        result = result * 10 + static_cast<int>(line[at] - '0');
    }
    if (at - digits != 4) return -1;
    for (; at < length; ++at) {
        if (line[at] == '\r' && at + 1 < length && line[at + 1] == '\n') return -1;
        if (line[at] != ' ' && line[at] != '\t' && line[at] != '\r') return -1;
    }
    return result;
}

}  // namespace diary::yearheader
