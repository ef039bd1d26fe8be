#include "DiaryKit/Import/TextDecoding.h"

#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>

#include <QtCore/QStringDecoder>
#include <algorithm>
#include <memory>
#include <optional>

#include "DiaryKit/Foundation/Utf8.h"

namespace diary::TextDecoding {

namespace {

struct ConverterCloser {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, ConverterCloser>;

// Code page 932 gives five single bytes that ICU's table leaves out characters of their own. One
// of them in a diary shouldn't turn all of it into another code page.
void takeLoneBytes(const void* context, UConverterToUnicodeArgs* arguments, const char* codeUnits,
                   int32_t length, UConverterCallbackReason reason, UErrorCode* error) {
    Q_UNUSED(context);
    if (reason > UCNV_IRREGULAR || length != 1) return;
    const auto byte = static_cast<unsigned char>(*codeUnits);
    char16_t character = 0;
    if (byte == 0x80) character = u'\u0080';
    if (byte == 0xA0) character = u'\uF8F0';
    if (byte >= 0xFD) character = static_cast<char16_t>(u'\uF8F1' + (byte - 0xFD));
    if (character == 0) return;
    *error = U_ZERO_ERROR;
    ucnv_cbToUWriteUChars(arguments, &character, 1, 0, error);
}

// The text in ICU's encoding of that name, or nothing if the bytes aren't valid in it.
std::optional<QString> converted(const char* name, QByteArrayView bytes,
                                 UConverterToUCallback onBadSequence) {
    UErrorCode error = U_ZERO_ERROR;
    const Converter converter(ucnv_open(name, &error));
    if (U_FAILURE(error)) return std::nullopt;
    ucnv_setToUCallBack(converter.get(), onBadSequence, nullptr, nullptr, nullptr, &error);

    // No encoding here makes more than one unit of a byte.
    QString text(bytes.size(), Qt::Uninitialized);
    auto* const begin = reinterpret_cast<char16_t*>(text.data());
    char16_t* target = begin;
    const char* source = bytes.data();
    ucnv_toUnicode(converter.get(), &target, begin + text.size(), &source, source + bytes.size(),
                   nullptr, true, &error);
    if (U_FAILURE(error)) return std::nullopt;
    text.truncate(target - begin);
    return text;
}

// ICU's table is that of an operating system which had three control characters swapped around.
QString withControlsInPlace(QString text) {
    for (QChar& unit : text) {
        if (unit == u'\u001C') {
            unit = u'\u001A';
        } else if (unit == u'\u007F') {
            unit = u'\u001C';
        } else if (unit == u'\u001A') {
            unit = u'\u007F';
        }
    }
    return text;
}

bool isKana(QChar unit) {
    return unit >= u'\u3040' && unit <= u'\u30FF';
}

std::optional<QString> shiftJis(QByteArrayView bytes) {
    std::optional<QString> text = converted("ibm-943_P15A-2003", bytes, takeLoneBytes);
    if (!text || std::none_of(text->begin(), text->end(), isKana)) return std::nullopt;
    return withControlsInPlace(std::move(*text));
}

bool hasLoneSurrogate(QStringView text) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!text[i].isSurrogate()) continue;
        if (text[i].isLowSurrogate() || i + 1 == text.size() || !text[i + 1].isLowSurrogate()) {
            return true;
        }
        ++i;
    }
    return false;
}

// The text behind a mark of UTF-16, or nothing if there is no mark or the units aren't sound.
std::optional<QString> utf16(QByteArrayView bytes) {
    if (!hasUtf16Mark(bytes) || bytes.size() % 2 != 0) return std::nullopt;
    const bool isLittleEndian = bytes.startsWith('\xFF');
    const QByteArrayView units = bytes.sliced(2);
    QStringDecoder decoder(isLittleEndian ? QStringConverter::Utf16LE : QStringConverter::Utf16BE,
                           QStringConverter::Flag::ConvertInitialBom);
    QString text = decoder.decode(units);
    if (text.size() != units.size() / 2 || hasLoneSurrogate(text)) return std::nullopt;
    return text;
}

}  // namespace

QString decode(QByteArrayView bytes) {
    if (bytes.startsWith("\xEF\xBB\xBF")) {
        if (auto text = utf8::decodedStrictly(bytes.sliced(3))) return std::move(*text);
    }
    if (auto text = utf16(bytes)) return std::move(*text);
    if (auto text = utf8::decodedStrictly(bytes)) return std::move(*text);
    return legacy(bytes);
}

bool hasUtf16Mark(QByteArrayView bytes) {
    return bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF");
}

QString legacy(QByteArrayView bytes) {
    if (auto text = shiftJis(bytes)) return std::move(*text);
    if (auto text = converted("gb18030", bytes, UCNV_TO_U_CALLBACK_STOP)) return std::move(*text);
    return QString::fromLatin1(bytes);
}

}  // namespace diary::TextDecoding
