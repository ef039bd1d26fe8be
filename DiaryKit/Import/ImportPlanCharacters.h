// Texts by their user-perceived characters (extended grapheme clusters, UAX #29).
#pragma once

#include <QtCore/QStringView>
#include <functional>

namespace diary {

// Calls `visit` with each character in order. Any thread.
void forEachCharacter(QStringView text, const std::function<void(QStringView)>& visit);

// The number of characters.
[[nodiscard]] qsizetype characterCount(QStringView text);

}  // namespace diary
