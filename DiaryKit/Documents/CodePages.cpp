#include "DiaryKit/Documents/CodePages.h"

#include <unicode/ucnv.h>

#include <array>

namespace diary::documents {

namespace {

using Owned = std::unique_ptr<UConverter, decltype(&ucnv_close)>;

UConverter* opened(const QByteArray& name) {
    UErrorCode error = U_ZERO_ERROR;
    UConverter* const converter = ucnv_open(name.constData(), &error);
    return U_SUCCESS(error) ? converter : nullptr;
}

// The names that ICU knows where it doesn't know the number.
QByteArray nameOf(int codePage) {
    switch (codePage) {
        case CodePages::kMacRoman:
            return "macintosh";
        case 932:
        case 10001:
            return "ibm-943_P15A-2003";
        case 936:
        case 10008:
            return "windows-936-2000";
        case 949:
        case 10003:
            return "windows-949-2000";
        case 950:
        case 10002:
            return "windows-950-2000";
        case 10006:
            return "x-mac-greek";
        case 10007:
            return "x-mac-cyrillic";
        case 10029:
            return "x-mac-centraleurroman";
        case 10081:
            return "x-mac-turkish";
        case 54936:
            return "gb18030";
        case CodePages::kUtf8:
            return "utf-8";
        default:
            return "windows-" + QByteArray::number(codePage);
    }
}

std::optional<QString> convert(UConverter* converter, QByteArrayView bytes, bool stops) {
    UErrorCode error = U_ZERO_ERROR;
    ucnv_reset(converter);
    ucnv_setToUCallBack(converter, stops ? UCNV_TO_U_CALLBACK_STOP : UCNV_TO_U_CALLBACK_SUBSTITUTE,
                        nullptr, nullptr, nullptr, &error);
    QString text;
    const char* source = bytes.data();
    const char* const end = source + bytes.size();
    while (true) {
        std::array<char16_t, 1024> piece = {};
        char16_t* target = piece.data();
        error = U_ZERO_ERROR;
        ucnv_toUnicode(converter, &target, piece.data() + piece.size(), &source, end, nullptr, true,
                       &error);
        text += QStringView(piece.data(), target - piece.data());
        if (error != U_BUFFER_OVERFLOW_ERROR) break;
    }
    if (U_FAILURE(error)) return std::nullopt;
    return text;
}

}  // namespace

void CodePages::Closer::operator()(UConverter* converter) const {
    ucnv_close(converter);
}

UConverter* CodePages::converter(int codePage) {
    const auto found = m_converters.find(codePage);
    if (found != m_converters.end()) return found->second.get();
    // A text may name any number of code pages that don't exist.
    constexpr std::size_t kMostConverters = 256;
    if (m_converters.size() >= kMostConverters) return nullptr;
    UConverter* made = opened(nameOf(codePage));
    if (made == nullptr) made = opened("cp" + QByteArray::number(codePage));
    m_converters.emplace(codePage, made);
    return made;
}

std::optional<QString> CodePages::converted(QByteArrayView bytes, int codePage,
                                            OnBadSequence onBadSequence) {
    UConverter* found = converter(codePage);
    if (found == nullptr) found = converter(kWestern);
    if (found == nullptr) return std::nullopt;
    return convert(found, bytes, onBadSequence == OnBadSequence::Stop);
}

QString CodePages::decoded(QByteArrayView bytes, int codePage) {
    return converted(bytes, codePage, OnBadSequence::Replace).value_or(QString::fromLatin1(bytes));
}

std::optional<QString> CodePages::decodedStrictly(QByteArrayView bytes, int codePage) {
    return converted(bytes, codePage, OnBadSequence::Stop);
}

bool CodePages::isDoubleByte(int codePage) {
    return codePage == 932 || codePage == 936 || codePage == 949 || codePage == 950 ||
           (codePage >= 10001 && codePage <= 10003) || codePage == 10008;
}

std::optional<QString> decodedAs(QByteArrayView bytes, const QByteArray& encoding) {
    const Owned converter(opened(encoding), &ucnv_close);
    if (!converter || encoding.isEmpty()) return std::nullopt;
    return convert(converter.get(), bytes, false);
}

}  // namespace diary::documents
