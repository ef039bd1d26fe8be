#include "DiaryKit/Vault/YearScan.h"

#include <cstring>

#include "DiaryKit/Vault/YearHeader.h"

namespace diary {

namespace {

// The length in bytes of the White_Space character at `at`, or 0. The characters are few and
// fixed by Unicode's stability policy for their encoding; anything else is content.
int whiteSpaceLength(const char* at, const char* end) {
    const auto unit = [&](int i) { return at + i < end ? static_cast<unsigned char>(at[i]) : 0; };
    const unsigned first = unit(0);
    if (first == ' ' || (first >= 0x09 && first <= 0x0D)) return 1;
    if (first == 0xC2) return unit(1) == 0x85 || unit(1) == 0xA0 ? 2 : 0;
    if (first == 0xE1) return unit(1) == 0x9A && unit(2) == 0x80 ? 3 : 0;  // U+1680
    if (first == 0xE3) return unit(1) == 0x80 && unit(2) == 0x80 ? 3 : 0;  // U+3000
    if (first != 0xE2) return 0;
    if (unit(1) == 0x81) return unit(2) == 0x9F ? 3 : 0;  // U+205F
    if (unit(1) != 0x80) return 0;
    const unsigned last = unit(2);  // U+2000 to U+200A, U+2028, U+2029, U+202F
    return (last >= 0x80 && last <= 0x8A) || last == 0xA8 || last == 0xA9 || last == 0xAF ? 3 : 0;
}

bool hasContent(const char* start, const char* end) {
    while (start < end) {
        const int length = whiteSpaceLength(start, end);
        if (length == 0) return true;
        start += length;
    }
    return false;
}

// The end of the line at `start`: its lone LF, or `end`.
const char* lineEnd(const char* start, const char* end, const char* text) {
    for (const char* from = start; from < end;) {
        const void* found = std::memchr(from, '\n', static_cast<size_t>(end - from));
        if (!found) return end;
        const char* at = static_cast<const char*>(found);
        if (at == text || at[-1] != '\r') return at;
        from = at + 1;
    }
    return end;
}

bool mayBeSpecial(char first) {
    return first == '#' || first == '`' || first == ' ';
}

// Calls `visit(line, stop, next, year)` for each line: its bytes, where the next one begins, and
// the year that it is the header of, or -1.
template <typename Visit>
void forEachLine(QByteArrayView bytes, Visit visit) {
    const char* const text = bytes.data();
    const char* const end = text + bytes.size();
    bool isFenced = false;
    for (const char* line = text; line < end;) {
        const char* stop = lineEnd(line, end, text);
        const qsizetype length = stop - line;
        int year = -1;
        if (length > 0 && mayBeSpecial(*line)) {
            if (yearheader::isFence(line, length)) {
                isFenced = !isFenced;
            } else if (!isFenced) {
                year = yearheader::year(line, length);
            }
        }
        const char* const next = stop < end ? stop + 1 : end;
        visit(line, stop, next, year);
        line = next;
    }
}

}  // namespace

std::set<int> yearsWithContent(QByteArrayView bytes) {
    std::set<int> years;
    int openYear = -1;
    bool openHasContent = false;
    forEachLine(bytes, [&](const char* line, const char* stop, const char*, int year) {
        if (year >= 0) {
            openYear = year;
            openHasContent = false;
        } else if (openYear >= 0 && !openHasContent && hasContent(line, stop)) {
            openHasContent = true;
            years.insert(openYear);
        }
    });
    return years;
}

std::vector<ByteSection> byteSections(QByteArrayView bytes) {
    std::vector<ByteSection> found;
    const char* const end = bytes.data() + bytes.size();
    forEachLine(bytes, [&](const char* line, const char*, const char* next, int year) {
        if (year < 0) return;
        if (!found.empty()) found.back().body = {found.back().body.data(), line};
        found.push_back({year, {next, end}});
    });
    return found;
}

}  // namespace diary
