#include "DiaryKit/Documents/RtfText.h"

#include <QtCore/QHash>
#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "DiaryKit/Documents/CodePages.h"
#include "DiaryKit/Documents/PlainTextBuilder.h"
#include "DiaryKit/Documents/RtfLexer.h"
#include "DiaryKit/Documents/RtfWords.h"
#include "DiaryKit/Import/ImportError.h"

namespace diary::documents {

namespace {

// Word processors nest some dozens; a group is a few bytes in the file and more in memory.
constexpr std::size_t kMaxGroups = 10'000;
constexpr int kNoCodePage = -1;

enum class Destination : uint8_t { Body, FontTable, LeftOut, TwoForms };

struct Group {
    Destination destination = Destination::Body;
    int font = 0;
    int unicodeSkip = 1;
    bool isHidden = false;
    // The first word of a group may tell what the group is.
    bool isAtStart = true;
    // The group begins with "\*".
    bool mayBeLeftOut = false;
    bool isAside = false;
    bool isAttachment = false;
    // It stands among two forms of a text and hasn't shown to be the second.
    bool isFirstForm = false;
};

// Whether the bytes beyond ASCII stand in pairs, as those of a double-byte code page mostly do.
bool standInPairs(QByteArrayView bytes) {
    const auto isHigh = [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; };
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        if (!isHigh(bytes[i])) continue;
        if (i + 1 == bytes.size() || !isHigh(bytes[i + 1])) return false;
        ++i;
    }
    return true;
}

class RtfReader {
public:
    explicit RtfReader(QByteArrayView rtf) : m_lexer(rtf) {}

    QString text();

private:
    [[nodiscard]] Group& group() { return m_groups.back(); }
    void take(const RtfToken& token);
    void openGroup();
    void closeGroup();
    void takeWord(const RtfToken& token);
    void beginDestination(RtfMeaning meaning);
    void takeFormatting(RtfMeaning meaning, std::optional<int> number);
    void takeFont(RtfMeaning meaning, std::optional<int> number);
    void takeBreak(RtfMeaning meaning);
    void takeSymbol(char symbol);
    void takeUnicode(int number);
    void takeBytes(QByteArrayView bytes);
    void takeCharacter(char16_t character);
    [[nodiscard]] bool isRead();
    [[nodiscard]] bool skips();
    [[nodiscard]] int codePage();
    [[nodiscard]] QString decoded(QByteArrayView bytes, int codePage);
    void settleBytes();

    RtfLexer m_lexer;
    std::vector<Group> m_groups{1};
    std::size_t m_groupsPassed = 0;
    PlainTextBuilder m_builder;
    CodePages m_codePages;
    // Code pages by the number of a font. Absent: the document's.
    QHash<int, int> m_fonts;
    int m_ansiCodePage = CodePages::kWestern;
    int m_defaultFont = 0;
    int m_describedFont = 0;
    // Bytes that wait to be decoded together, as a character may be spread over several tokens.
    QByteArray m_bytes;
    int m_bytesCodePage = kNoCodePage;
    // Characters that stand in for what was told in Unicode.
    int m_toSkip = 0;
    bool m_isOver = false;
};

QString RtfReader::text() {
    while (!m_isOver) {
        const RtfToken token = m_lexer.next();
        if (token.kind == RtfToken::Kind::End) break;
        take(token);
    }
    settleBytes();
    return m_builder.take();
}

void RtfReader::take(const RtfToken& token) {
    switch (token.kind) {
        case RtfToken::Kind::OpenGroup:
            return openGroup();
        case RtfToken::Kind::CloseGroup:
            return closeGroup();
        case RtfToken::Kind::Word:
            return takeWord(token);
        case RtfToken::Kind::Symbol:
            return takeSymbol(token.character);
        case RtfToken::Kind::Byte:
            return takeBytes(QByteArrayView(&token.character, 1));
        case RtfToken::Kind::Text:
            return takeBytes(token.bytes);
        case RtfToken::Kind::End:
            return;
    }
}

void RtfReader::openGroup() {
    m_toSkip = 0;
    // Groups beyond the bound are read as the one around them.
    if (m_groups.size() >= kMaxGroups) {
        ++m_groupsPassed;
        return;
    }
    Group inner = group();
    inner.isAtStart = true;
    inner.mayBeLeftOut = inner.isAside = inner.isAttachment = false;
    if (inner.destination == Destination::TwoForms) {
        inner.destination = Destination::LeftOut;
        inner.isFirstForm = true;
    } else {
        inner.isFirstForm = false;
    }
    group().isAtStart = false;
    m_groups.push_back(inner);
}

void RtfReader::closeGroup() {
    m_toSkip = 0;
    if (m_groupsPassed > 0) {
        --m_groupsPassed;
        return;
    }
    if (group().isAside) {
        settleBytes();
        m_builder.endAside();
    }
    // Behind an attachment stands one character in its place.
    if (group().isAttachment) m_toSkip = 1;
    m_groups.pop_back();
    // What follows the last brace is no part of the text.
    m_isOver = m_groups.size() <= 1;
}

void RtfReader::takeWord(const RtfToken& token) {
    const auto [meaning, character] = rtfWord(token.bytes);
    if (meaning == RtfMeaning::Character) return takeCharacter(character);
    if (meaning == RtfMeaning::Unicode) return takeUnicode(token.number.value_or(0));
    m_toSkip = 0;
    const bool isAtStart = std::exchange(group().isAtStart, false);
    if (meaning >= RtfMeaning::FontTable) {
        if (group().destination != Destination::LeftOut || group().isFirstForm) {
            beginDestination(meaning);
        }
    } else if (isAtStart && group().mayBeLeftOut) {
        group().destination = Destination::LeftOut;
    } else if (meaning == RtfMeaning::UnicodeSkip) {
        group().unicodeSkip = std::max(token.number.value_or(1), 0);
    } else if (meaning >= RtfMeaning::DefaultFont) {
        if (group().destination != Destination::LeftOut) takeFont(meaning, token.number);
    } else if (meaning >= RtfMeaning::Font) {
        takeFormatting(meaning, token.number);
    } else if (meaning != RtfMeaning::Nothing && isRead()) {
        takeBreak(meaning);
    }
}

void RtfReader::beginDestination(RtfMeaning meaning) {
    Group& now = group();
    if (now.isFirstForm && meaning == RtfMeaning::UnicodeForm) {
        now.isFirstForm = false;
        now.destination = Destination::Body;
        return;
    }
    if (now.isFirstForm) return;
    if (meaning == RtfMeaning::LeftOut || meaning == RtfMeaning::Attachment) {
        now.destination = Destination::LeftOut;
        now.isAttachment = meaning == RtfMeaning::Attachment;
    } else if (meaning == RtfMeaning::FontTable) {
        now.destination = Destination::FontTable;
    } else if (now.destination != Destination::Body) {
        return;
    } else if (meaning == RtfMeaning::TwoForms) {
        now.destination = Destination::TwoForms;
    } else if (meaning == RtfMeaning::Aside && !now.isAside) {
        settleBytes();
        m_builder.beginAside();
        now.isAside = true;
    }
}

void RtfReader::takeFont(RtfMeaning meaning, std::optional<int> number) {
    const bool isDescription = group().destination == Destination::FontTable;
    switch (meaning) {
        case RtfMeaning::DefaultFont:
            m_defaultFont = group().font = number.value_or(0);
            break;
        case RtfMeaning::AnsiCodePage:
            m_ansiCodePage = number.value_or(CodePages::kWestern);
            break;
        case RtfMeaning::MacCharacters:
            m_ansiCodePage = CodePages::kMacRoman;
            break;
        case RtfMeaning::PcCharacters:
            m_ansiCodePage = 850;
            break;
        case RtfMeaning::FontCharset:
            if (const int page = codePageOfCharset(number.value_or(0));
                isDescription && page >= 0) {
                m_fonts.insert(m_describedFont, page);
            }
            break;
        default:
            if (isDescription && number) m_fonts.insert(m_describedFont, *number);
            break;
    }
}

void RtfReader::takeFormatting(RtfMeaning meaning, std::optional<int> number) {
    Group& now = group();
    if (meaning == RtfMeaning::Hidden) {
        now.isHidden = number.value_or(1) != 0;
    } else if (meaning == RtfMeaning::Plain) {
        now.isHidden = false;
        now.font = m_defaultFont;
    } else if (now.destination == Destination::FontTable) {
        m_describedFont = number.value_or(0);
    } else {
        now.font = number.value_or(0);
    }
}

void RtfReader::takeBreak(RtfMeaning meaning) {
    settleBytes();
    switch (meaning) {
        case RtfMeaning::Paragraph:
            return m_builder.endParagraph();
        case RtfMeaning::LineBreak:
            return m_builder.append(u"\n");
        case RtfMeaning::StartRow:
            return m_builder.startRow();
        case RtfMeaning::Cell:
            return m_builder.endCell();
        case RtfMeaning::Row:
            m_builder.endRow();
            // Some writers describe the cells of the first row only.
            return m_builder.startRow();
        default:
            return m_builder.endRow();
    }
}

void RtfReader::takeSymbol(char symbol) {
    if (symbol == '*') {
        group().mayBeLeftOut = group().isAtStart;
        return;
    }
    switch (symbol) {
        case '\n':
        case '\r':
            m_toSkip = 0;
            if (isRead()) takeBreak(RtfMeaning::Paragraph);
            return;
        case '\t':
            return takeCharacter(u'\t');
        case '~':
            return takeCharacter(u'\u00A0');
        case '-':
            return takeCharacter(u'\u00AD');
        case '_':
            return takeCharacter(u'\u2011');
        case '\\':
        case '{':
        case '}':
            return takeBytes(QByteArrayView(&symbol, 1));
        default:
            return;
    }
}

void RtfReader::takeUnicode(int number) {
    group().isAtStart = false;
    // Most writers tell units as signed numbers of 16 bits; some tell whole code points.
    if (number < 0) number += 0x10000;
    if (isRead() && number >= 0x20 && number <= 0x10FFFF) {
        settleBytes();
        // Apple's programs write a line's end within a paragraph so.
        const bool isLineEnd =
            number == QChar::LineSeparator || number == QChar::ParagraphSeparator;
        const auto character = static_cast<char32_t>(number);
        m_builder.append(isLineEnd ? QStringView(u"\n") : QStringView(QChar::fromUcs4(character)));
    }
    m_toSkip = group().unicodeSkip;
}

void RtfReader::takeBytes(QByteArrayView bytes) {
    group().isAtStart = false;
    const qsizetype skipped = std::min<qsizetype>(m_toSkip, bytes.size());
    m_toSkip -= static_cast<int>(skipped);
    bytes = bytes.sliced(skipped);
    if (!isRead() || bytes.isEmpty()) return;
    const int page = codePage();
    if (page != m_bytesCodePage) settleBytes();
    m_bytesCodePage = page;
    m_bytes += bytes;
}

void RtfReader::takeCharacter(char16_t character) {
    group().isAtStart = false;
    if (skips() || !isRead()) return;
    settleBytes();
    m_builder.append(QStringView(&character, 1));
}

bool RtfReader::isRead() {
    return group().destination == Destination::Body && !group().isHidden && m_groups.size() > 1;
}

bool RtfReader::skips() {
    if (m_toSkip == 0) return false;
    --m_toSkip;
    return true;
}

int RtfReader::codePage() {
    return m_fonts.value(group().font, m_ansiCodePage);
}

QString RtfReader::decoded(QByteArrayView bytes, int codePage) {
    // Some writers of texts in East Asian languages say of all fonts that they are western.
    if (codePage == CodePages::kWestern && CodePages::isDoubleByte(m_ansiCodePage) &&
        standInPairs(bytes)) {
        if (auto text = m_codePages.decodedStrictly(bytes, m_ansiCodePage)) return *text;
    }
    return m_codePages.decoded(bytes, codePage);
}

void RtfReader::settleBytes() {
    if (m_bytes.isEmpty()) return;
    m_builder.append(decoded(m_bytes, m_bytesCodePage));
    m_bytes.clear();
}

// Halves of surrogate pairs without their other half are no characters.
QString withoutLoneSurrogates(QString text) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!text[i].isSurrogate()) continue;
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            ++i;
        } else {
            text[i] = QChar::ReplacementCharacter;
        }
    }
    return text;
}

}  // namespace

bool looksLikeRtf(QByteArrayView bytes) {
    return bytes.trimmed().startsWith("{\\rtf");
}

QString rtfText(QByteArrayView rtf) {
    if (!looksLikeRtf(rtf)) throw ImportError(ImportError::Kind::unrecognized);
    return withoutLoneSurrogates(RtfReader(rtf).text());
}

}  // namespace diary::documents
