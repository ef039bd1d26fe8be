// Texts of a source's fields joined for display, as place and weather are.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>
#include <optional>
#include <span>

namespace diary {

// The parts without white space and newlines around them, joined. Absent and empty parts are left
// out, and of equal ones the first is kept; nothing if no part is left.
// {" a", absent, "", "a ", "b"}, " · " -> "a · b"
[[nodiscard]] std::optional<QString> uniqueJoined(std::span<const std::optional<QString>> parts,
                                                  QStringView separator);

}  // namespace diary
