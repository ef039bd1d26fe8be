#include "DiaryKit/Foundation/Utf8.h"

#include <QtCore/QStringDecoder>

namespace diary::utf8 {

namespace {

struct Decoded {
    QString text;
    bool hasError = false;
};

Decoded decoded(QByteArrayView bytes) {
    // Stateless: a sequence that the end cuts short is an error, not something to wait for.
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::ConvertInitialBom |
                                                       QStringConverter::Flag::Stateless);
    Decoded result;
    result.text = decoder.decode(bytes);
    result.hasError = decoder.hasError();
    return result;
}

}  // namespace

std::optional<QString> decodedStrictly(QByteArrayView bytes) {
    Decoded result = decoded(bytes);
    if (result.hasError) return std::nullopt;
    return std::move(result.text);
}

QString decodedWithRepair(QByteArrayView bytes) {
    return decoded(bytes).text;
}

bool isValid(QByteArrayView bytes) {
    return bytes.isValidUtf8();
}

}  // namespace diary::utf8
