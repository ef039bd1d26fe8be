// The digest SHA-256 (FIPS 180-4), with the processor's own instructions where it has them: an
// import digests every text that it writes, and QCryptographicHash takes nine times as long.
#pragma once

#include <QtCore/QByteArrayView>
#include <QtCore/QString>

namespace diary {

// The digest as 64 lower-case hexadecimal digits. Any thread.
//   "abc" -> "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"
[[nodiscard]] QString sha256(QByteArrayView bytes);

}  // namespace diary
