// What the control words of rich text mean to a reader of plain text.
#pragma once

#include <QtCore/QByteArrayView>
#include <cstdint>

namespace diary::documents {

enum class RtfMeaning : uint8_t {
    // Formatting, and all that isn't known.
    Nothing,
    // A character of its own.
    Character,
    Unicode,
    UnicodeSkip,
    Paragraph,
    LineBreak,
    StartRow,
    Cell,
    Row,
    RowInCell,
    // Formatting that matters.
    Font,
    Plain,
    Hidden,
    // Of the document and of its fonts.
    DefaultFont,
    AnsiCodePage,
    MacCharacters,
    PcCharacters,
    FontCharset,
    FontCodePage,
    // The beginnings of groups.
    FontTable,
    LeftOut,
    Aside,
    Attachment,
    // Two forms of the same text, of which the second is in Unicode.
    TwoForms,
    UnicodeForm,
    // A group that is marked as one to be left out by who doesn't know it, and that holds text.
    Known,
};

struct RtfWord {
    RtfMeaning meaning = RtfMeaning::Nothing;
    char16_t character = 0;
};

[[nodiscard]] RtfWord rtfWord(QByteArrayView name);

// The Windows code page of a font's character set, as Windows numbers the sets; 0 is the set of
// western Windows, and -1 stands for the document's own.
[[nodiscard]] int codePageOfCharset(int charset);

}  // namespace diary::documents
