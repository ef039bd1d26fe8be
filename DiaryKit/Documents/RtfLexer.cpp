#include "DiaryKit/Documents/RtfLexer.h"

#include <algorithm>

namespace diary::documents {

namespace {

bool isLetter(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

int hexDigit(char byte) {
    if (isDigit(byte)) return byte - '0';
    if (byte >= 'a' && byte <= 'f') return byte - 'a' + 10;
    if (byte >= 'A' && byte <= 'F') return byte - 'A' + 10;
    return -1;
}

// Line ends are there for the eyes of people; a tab is text.
bool isLeftOut(char byte) {
    const auto value = static_cast<unsigned char>(byte);
    return value < 0x20 && byte != '\t';
}

bool isText(char byte) {
    return byte != '\\' && byte != '{' && byte != '}' && !isLeftOut(byte);
}

}  // namespace

RtfToken RtfLexer::next() {
    while (!atEnd() && isLeftOut(m_rtf[m_at])) ++m_at;
    if (atEnd()) return {};
    switch (m_rtf[m_at]) {
        case '{':
            ++m_at;
            return {.kind = RtfToken::Kind::OpenGroup};
        case '}':
            ++m_at;
            return {.kind = RtfToken::Kind::CloseGroup};
        case '\\':
            ++m_at;
            return control();
        default:
            return text();
    }
}

RtfToken RtfLexer::control() {
    if (atEnd()) return {};
    const char first = m_rtf[m_at];
    if (isLetter(first)) return word();
    ++m_at;
    if (first == '\'') return byte();
    // A line end of two bytes is one symbol.
    if (first == '\r' && !atEnd() && m_rtf[m_at] == '\n') ++m_at;
    return {.kind = RtfToken::Kind::Symbol, .character = first};
}

RtfToken RtfLexer::word() {
    const qsizetype start = m_at;
    while (!atEnd() && isLetter(m_rtf[m_at])) ++m_at;
    RtfToken token{.kind = RtfToken::Kind::Word, .bytes = m_rtf.sliced(start, m_at - start)};
    token.number = number();
    if (!atEnd() && m_rtf[m_at] == ' ') ++m_at;
    if (token.bytes == "bin") {
        m_at += std::clamp<qsizetype>(token.number.value_or(0), 0, m_rtf.size() - m_at);
    }
    return token;
}

std::optional<int> RtfLexer::number() {
    constexpr int kLargest = 100'000'000;
    qsizetype at = m_at;
    const bool isNegative = at < m_rtf.size() && m_rtf[at] == '-';
    if (isNegative) ++at;
    const qsizetype digits = at;
    int value = 0;
    for (; at < m_rtf.size() && isDigit(m_rtf[at]); ++at) {
        value = std::min(value, kLargest) * 10 + (m_rtf[at] - '0');
    }
    if (at == digits) return std::nullopt;
    m_at = at;
    return isNegative ? -value : value;
}

RtfToken RtfLexer::byte() {
    if (m_rtf.size() - m_at < 2) {
        m_at = m_rtf.size();
        return {};
    }
    const int high = hexDigit(m_rtf[m_at]);
    const int low = hexDigit(m_rtf[m_at + 1]);
    // Not a byte: what stands there is text.
    if (high < 0 || low < 0) return {.kind = RtfToken::Kind::Text};
    m_at += 2;
    const auto character = static_cast<char>(high * 16 + low);
    if (isLeftOut(character)) return {.kind = RtfToken::Kind::Text};
    return {.kind = RtfToken::Kind::Byte, .character = character};
}

RtfToken RtfLexer::text() {
    const qsizetype start = m_at;
    while (!atEnd() && isText(m_rtf[m_at])) ++m_at;
    return {.kind = RtfToken::Kind::Text, .bytes = m_rtf.sliced(start, m_at - start)};
}

}  // namespace diary::documents
