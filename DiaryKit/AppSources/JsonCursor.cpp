#include "DiaryKit/AppSources/JsonCursor.h"

#include <cmath>
#include <limits>

#include "DiaryKit/Foundation/Utf8.h"

namespace diary {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool endsPlainRun(char c) {
    return c == '"' || c == '\\' || static_cast<unsigned char>(c) < 0x20;
}

// Most texts are one run without escapes.
void appendRun(QString& text, QByteArrayView run) {
    if (run.isEmpty()) return;
    // Qt takes a mark at the start of bytes for one of their encoding.
    QString decoded =
        run.startsWith("\xEF\xBB\xBF") ? utf8::decodedWithRepair(run) : QString::fromUtf8(run);
    if (text.isEmpty()) {
        text = std::move(decoded);
    } else {
        text.append(decoded);
    }
}

int hexValue(char c) {
    if (isDigit(c)) return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    throw JsonError();
}

}  // namespace

JsonCursor::JsonCursor(QByteArrayView utf8) : m_at(utf8.begin()), m_end(utf8.end()) {
    if (!utf8::isValid(utf8)) throw JsonError();
    if (utf8.startsWith("\xEF\xBB\xBF")) m_at += 3;
}

void JsonCursor::skipWhiteSpace() {
    while (m_at != m_end && (*m_at == ' ' || *m_at == '\n' || *m_at == '\r' || *m_at == '\t')) {
        ++m_at;
    }
}

// The character that comes next behind white space, not taken yet.
char JsonCursor::next() {
    skipWhiteSpace();
    if (m_at == m_end) throw JsonError();
    return *m_at;
}

void JsonCursor::expect(char character) {
    if (next() != character) throw JsonError();
    ++m_at;
}

void JsonCursor::enter(char opening) {
    expect(opening);
    if (++m_depth > kMaxDepth) throw JsonError();
}

bool JsonCursor::nextItem(char closing, bool isFirst) {
    if (next() == closing) {
        ++m_at;
        return false;
    }
    if (!isFirst) expect(',');
    return true;
}

JsonCursor::Kind JsonCursor::kind() {
    switch (next()) {
        case '{':
            return Kind::Object;
        case '[':
            return Kind::Array;
        case '"':
            return Kind::String;
        case 't':
        case 'f':
            return Kind::Boolean;
        case 'n':
            return Kind::Null;
        default:
            return Kind::Number;
    }
}

QString JsonCursor::takeString() {
    expect('"');
    QString text;
    while (true) {
        const char* const run = m_at;
        while (m_at != m_end && !endsPlainRun(*m_at)) ++m_at;
        appendRun(text, {run, m_at - run});
        if (m_at == m_end) throw JsonError();
        const char c = *m_at++;
        if (c == '"') return text;
        if (c != '\\') throw JsonError();
        appendEscape(text);
    }
}

void JsonCursor::appendEscape(QString& text) {
    if (m_at == m_end) throw JsonError();
    const char c = *m_at++;
    constexpr QByteArrayView kNames = "\"\\/bfnrt";
    constexpr QStringView kCharacters = u"\"\\/\b\f\n\r\t";
    if (const qsizetype index = kNames.indexOf(c); index >= 0) {
        text.append(kCharacters[index]);
        return;
    }
    if (c != 'u') throw JsonError();
    const char16_t unit = takeHexUnit();
    if (!QChar::isSurrogate(unit)) {
        text.append(QChar(unit));
        return;
    }
    // The low half must follow as an escape of its own.
    const char* const behind = m_at;
    if (QChar::isHighSurrogate(unit) && m_end - m_at >= 6 && m_at[0] == '\\' && m_at[1] == 'u') {
        m_at += 2;
        const char16_t low = takeHexUnit();
        if (QChar::isLowSurrogate(low)) {
            text.append(QChar(unit)).append(QChar(low));
            return;
        }
    }
    m_at = behind;
    text.append(QChar::ReplacementCharacter);
}

char16_t JsonCursor::takeHexUnit() {
    if (m_end - m_at < 4) throw JsonError();
    int unit = 0;
    for (int i = 0; i < 4; ++i) unit = unit * 16 + hexValue(*m_at++);
    return static_cast<char16_t>(unit);
}

void JsonCursor::skipString() {
    expect('"');
    while (true) {
        while (m_at != m_end && !endsPlainRun(*m_at)) ++m_at;
        if (m_at == m_end) throw JsonError();
        const char c = *m_at++;
        if (c == '"') return;
        if (c != '\\') throw JsonError();
        QString ignored;
        appendEscape(ignored);
    }
}

void JsonCursor::takeDigits() {
    if (m_at == m_end || !isDigit(*m_at)) throw JsonError();
    while (m_at != m_end && isDigit(*m_at)) ++m_at;
}

QByteArrayView JsonCursor::takeNumberText() {
    skipWhiteSpace();
    const char* const start = m_at;
    const auto takeIf = [this](auto... choices) {
        const bool isThere = m_at != m_end && ((*m_at == choices) || ...);
        if (isThere) ++m_at;
        return isThere;
    };
    takeIf('-');
    if (!takeIf('0')) takeDigits();
    if (takeIf('.')) takeDigits();
    if (takeIf('e', 'E')) {
        takeIf('+', '-');
        takeDigits();
    }
    return {start, m_at - start};
}

double JsonCursor::takeNumber() {
    bool isInRange = false;
    const double value = takeNumberText().toDouble(&isInRange);
    return isInRange ? value : std::numeric_limits<double>::infinity();
}

void JsonCursor::takeWord(QByteArrayView word) {
    skipWhiteSpace();
    if (m_end - m_at < word.size() || QByteArrayView(m_at, word.size()) != word) throw JsonError();
    m_at += word.size();
}

bool JsonCursor::takeBoolean() {
    const bool value = next() == 't';
    takeWord(value ? QByteArrayView("true") : QByteArrayView("false"));
    return value;
}

void JsonCursor::skip() {
    switch (kind()) {
        case Kind::Object:
            enter('{');
            for (bool isFirst = true; nextItem('}', isFirst); isFirst = false) {
                skipString();
                expect(':');
                skip();
            }
            return leave();
        case Kind::Array:
            return eachElement([this] { skip(); });
        case Kind::String:
            return skipString();
        case Kind::Number:
            (void)takeNumberText();
            return;
        case Kind::Boolean:
            (void)takeBoolean();
            return;
        case Kind::Null:
            return takeWord("null");
    }
}

bool JsonCursor::skipUnless(Kind expected) {
    const bool isExpected = kind() == expected;
    if (!isExpected) skip();
    return isExpected;
}

std::optional<QString> JsonCursor::optionalString() {
    if (!skipUnless(Kind::String)) return std::nullopt;
    return takeString();
}

std::optional<double> JsonCursor::optionalNumber() {
    if (!skipUnless(Kind::Number)) return std::nullopt;
    return takeNumber();
}

std::optional<bool> JsonCursor::optionalBoolean() {
    if (!skipUnless(Kind::Boolean)) return std::nullopt;
    return takeBoolean();
}

std::optional<qint64> JsonCursor::optionalInteger() {
    constexpr double kBeyond = 9223372036854775808.0;  // 2 to the 63rd power
    const std::optional<double> number = optionalNumber();
    if (!number || *number < -kBeyond || *number >= kBeyond || std::trunc(*number) != *number) {
        return std::nullopt;
    }
    return static_cast<qint64>(*number);
}

int JsonCursor::elementCount() {
    int count = 0;
    if (!skipUnless(Kind::Array)) return count;
    eachElement([&] {
        skip();
        ++count;
    });
    return count;
}

void JsonCursor::finish() {
    skipWhiteSpace();
    if (m_at != m_end) throw JsonError();
}

}  // namespace diary
