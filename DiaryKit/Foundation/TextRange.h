// A stretch of a text: location and length in UTF-16 units.
#pragma once

#include <QtCore/QtGlobal>

namespace diary {

struct TextRange {
    qsizetype location = 0;
    qsizetype length = 0;

    [[nodiscard]] qsizetype end() const { return location + length; }
    bool operator==(const TextRange&) const = default;
};

}  // namespace diary
