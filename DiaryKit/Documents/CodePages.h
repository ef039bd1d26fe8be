// Text from the code pages of old systems, by their numbers.
#pragma once

#include <QtCore/QByteArrayView>
#include <QtCore/QString>
#include <map>
#include <memory>
#include <optional>

struct UConverter;

namespace diary::documents {

// Opens each code page once. For one thread.
class CodePages {
public:
    // Of western Windows; what stands in for a code page that isn't known.
    static constexpr int kWestern = 1252;
    static constexpr int kMacRoman = 10000;
    static constexpr int kUtf8 = 65001;

    // The bytes as text, with U+FFFD for each bad sequence.
    [[nodiscard]] QString decoded(QByteArrayView bytes, int codePage);

    // The same, or nothing if a sequence is bad.
    [[nodiscard]] std::optional<QString> decodedStrictly(QByteArrayView bytes, int codePage);

    // Whether characters of the code page may be two bytes long.
    [[nodiscard]] static bool isDoubleByte(int codePage);

private:
    struct Closer {
        void operator()(UConverter* converter) const;
    };
    enum class OnBadSequence : bool { Stop, Replace };

    [[nodiscard]] UConverter* converter(int codePage);
    [[nodiscard]] std::optional<QString> converted(QByteArrayView bytes, int codePage,
                                                   OnBadSequence onBadSequence);

    std::map<int, std::unique_ptr<UConverter, Closer>> m_converters;
};

// The bytes in the encoding of that name (IANA), or nothing if the name isn't known.
[[nodiscard]] std::optional<QString> decodedAs(QByteArrayView bytes, const QByteArray& encoding);

}  // namespace diary::documents
