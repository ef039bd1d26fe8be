#include "DiaryKit/Foundation/JsonText.h"

#include <QtCore/QStringEncoder>
#include <array>

namespace diary::json {

namespace {

// What stands behind the backslash for each byte: nothing for one that stays, 'u' for one that is
// told by its number.
constexpr std::array<char, 256> kEscapes = [] {
    std::array<char, 256> escapes{};
    for (std::size_t control = 0; control < 0x20; ++control) escapes[control] = 'u';
    escapes['\b'] = 'b';
    escapes['\f'] = 'f';
    escapes['\n'] = 'n';
    escapes['\r'] = 'r';
    escapes['\t'] = 't';
    escapes['"'] = '"';
    escapes['\\'] = '\\';
    return escapes;
}();

constexpr std::array<char, 256> kEscapesAndSlash = [] {
    std::array<char, 256> escapes = kEscapes;
    escapes['/'] = '/';
    return escapes;
}();

void appendEscaped(unsigned char byte, char escape, QByteArray& json) {
    constexpr const char* kDigits = "0123456789abcdef";
    json += '\\';
    json += escape;
    if (escape != 'u') return;
    json += "00";
    json += kDigits[byte >> 4];
    json += kDigits[byte & 0xF];
}

}  // namespace

bool append(QStringView text, Slash slash, QByteArray& json) {
    const std::array<char, 256>& escapes = slash == Slash::Plain ? kEscapes : kEscapesAndSlash;
    QStringEncoder encoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    const QByteArray utf8 = encoder.encode(text);
    json += '"';
    // Most texts are a few long runs between line ends.
    qsizetype start = 0;
    for (qsizetype at = 0; at < utf8.size(); ++at) {
        const auto byte = static_cast<unsigned char>(utf8.constData()[at]);
        if (escapes[byte] == 0) continue;
        json.append(utf8.constData() + start, at - start);
        appendEscaped(byte, escapes[byte], json);
        start = at + 1;
    }
    json.append(utf8.constData() + start, utf8.size() - start);
    json += '"';
    return !encoder.hasError();
}

}  // namespace diary::json
