// The tags that MiniHTML knows by name.
#pragma once

#include <QtCore/QStringView>
#include <cstdint>

#include "DiaryKit/Import/MiniHTML.h"

namespace diary::minihtml {

// How a tag ends: by its closing tag, at once, or by its closing tag with nothing read until then.
enum class TagEnd : uint8_t { Closed, Void, Raw };

struct KnownTag {
    QStringView name;
    HTMLRole role = HTMLRole::Plain;
    TagEnd end = TagEnd::Closed;
};

// The number of known tags, which are numbered from 0.
[[nodiscard]] int knownTagCount();

// The number of a tag, or -1 for one that isn't known. ASCII letters match in either case.
[[nodiscard]] int knownTagNumber(QStringView name);

[[nodiscard]] const KnownTag& knownTag(int number);

}  // namespace diary::minihtml
