// Text from and to the bytes of a file. A byte order mark is a character like any other here:
// what a file begins with must still be there after it has been written again.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QByteArrayView>
#include <QtCore/QString>
#include <optional>

namespace diary::utf8 {

// The text, or nothing if the bytes aren't valid UTF-8 (RFC 3629).
[[nodiscard]] std::optional<QString> decodedStrictly(QByteArrayView bytes);

// The text, with U+FFFD in place of each bad sequence.
[[nodiscard]] QString decodedWithRepair(QByteArrayView bytes);

// Whether the bytes are valid UTF-8.
[[nodiscard]] bool isValid(QByteArrayView bytes);

}  // namespace diary::utf8
