// Cuts rich text (RTF 1.9.1) into braces, control words and bytes. It knows nothing of what the
// words mean but of "bin", behind which bytes follow that are no text.
#pragma once

#include <QtCore/QByteArrayView>
#include <cstdint>
#include <optional>

namespace diary::documents {

struct RtfToken {
    enum class Kind : uint8_t { End, OpenGroup, CloseGroup, Word, Symbol, Byte, Text };

    Kind kind = Kind::End;
    // A word without its backslash and number, or the bytes of a text.
    QByteArrayView bytes = {};
    std::optional<int> number = {};
    // Of a symbol and of a byte.
    char character = 0;
};

class RtfLexer {
public:
    explicit RtfLexer(QByteArrayView rtf) : m_rtf(rtf) {}

    // `End` again and again once the bytes are at their end. A text ends at what isn't text, and
    // also at each line end and control character, which it leaves out.
    [[nodiscard]] RtfToken next();

private:
    [[nodiscard]] bool atEnd() const { return m_at >= m_rtf.size(); }
    [[nodiscard]] RtfToken control();
    [[nodiscard]] RtfToken word();
    [[nodiscard]] RtfToken byte();
    [[nodiscard]] RtfToken text();
    [[nodiscard]] std::optional<int> number();

    QByteArrayView m_rtf;
    qsizetype m_at = 0;
};

}  // namespace diary::documents
