#include "DiaryKit/Foundation/Sha256.h"

// The functions of the library's older interface need neither its configuration nor its providers,
// so that they are all that is linked of it.
#define OPENSSL_SUPPRESS_DEPRECATED
#include <openssl/sha.h>

#include <array>

namespace diary {

QString sha256(QByteArrayView bytes) {
    std::array<unsigned char, SHA256_DIGEST_LENGTH> digest{};
    SHA256_CTX context;
    SHA256_Init(&context);
    SHA256_Update(&context, bytes.data(), static_cast<std::size_t>(bytes.size()));
    SHA256_Final(digest.data(), &context);
    constexpr const char* kDigits = "0123456789abcdef";
    std::array<char, SHA256_DIGEST_LENGTH * 2> written{};
    for (std::size_t i = 0; i < digest.size(); ++i) {
        written[i * 2] = kDigits[digest[i] >> 4];
        written[i * 2 + 1] = kDigits[digest[i] & 0xF];
    }
    return QString::fromLatin1(written.data(), written.size());
}

}  // namespace diary
