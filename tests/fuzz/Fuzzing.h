// What the fuzz targets share: reading their input, and ending on an invariant that doesn't hold.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>

#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Foundation/Utf8.h"
#include "DiaryKit/Vault/YearHeader.h"
#include "DiaryKit/Vault/YearSectionParser.h"

namespace diary::fuzz {

constexpr MonthDay kDay{11, 21};

// Prints the texts and aborts if the invariant doesn't hold; libFuzzer then keeps the input.
inline void require(bool holds, const char* invariant, std::initializer_list<QStringView> texts) {
    if (holds) return;
    std::fprintf(stderr, "violated: %s\n", invariant);
    for (QStringView text : texts) {
        std::fprintf(stderr, "---\n%s\n", text.toUtf8().toPercentEncoding(" \n#`").constData());
    }
    std::abort();
}

// The input's pieces between its NULs, repaired where they aren't UTF-8.
inline QList<QString> pieces(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QList<QString> texts;
    for (const QByteArray& piece : bytes.split('\0')) texts << utf8::decodedWithRepair(piece);
    return texts;
}

// Whether a line of the text becomes a year header once it loses the white space at its end, as it
// does where a new section is put behind it: "## 2024" and an ideographic space, or a CR LF.
inline bool hasHeaderInWaiting(QStringView text) {
    for (qsizetype start = 0; start < text.size();) {
        const qsizetype found = text::indexOfLineEnd(text, start);
        const qsizetype end = found < 0 ? text.size() : found;
        const QStringView line = text.sliced(start, end - start);
        const QStringView cut = text::withoutTrailingWhiteSpace(line);
        if (yearheader::year(cut.utf16(), cut.size()) >= 0 &&
            yearheader::year(line.utf16(), line.size()) < 0) {
            return true;
        }
        start = end + 1;
    }
    return false;
}

// Whether each body and the preamble, trimmed, still hold no section. White space ahead of a first
// line can hide a fence that shows once it is trimmed.
inline bool staysWholeWhenTrimmed(QStringView text) {
    const auto bodies = YearSectionParser::sectionBodies(text);
    return YearSectionParser::sections(
               YearSectionParser::documentPreamble(text).value_or(QString()))
               .empty() &&
           std::all_of(bodies.begin(), bodies.end(), [](const YearSectionParser::YearBody& one) {
               return YearSectionParser::sections(one.body).empty();
           });
}

}  // namespace diary::fuzz
