#include "DiaryKit/Foundation/TextSets.h"

#include <unicode/brkiter.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>

#include <memory>

namespace diary::text {

namespace {

// The code point that ends right before `position`.
char32_t codePointBefore(QStringView text, qsizetype position) {
    const QChar last = text[position - 1];
    if (last.isLowSurrogate() && position >= 2 && text[position - 2].isHighSurrogate()) {
        return QChar::surrogateToUcs4(text[position - 2], last);
    }
    return last.unicode();
}

char32_t codePointAt(QStringView text, qsizetype position) {
    const QChar first = text[position];
    if (first.isHighSurrogate() && position + 1 < text.size() &&
        text[position + 1].isLowSurrogate()) {
        return QChar::surrogateToUcs4(first, text[position + 1]);
    }
    return first.unicode();
}

qsizetype unitsOf(char32_t codePoint) {
    return codePoint > 0xFFFF ? 2 : 1;
}

template <typename Predicate>
QStringView trimmedStart(QStringView text, Predicate belongs) {
    qsizetype start = 0;
    while (start < text.size()) {
        const char32_t codePoint = codePointAt(text, start);
        if (!belongs(codePoint)) break;
        start += unitsOf(codePoint);
    }
    return text.sliced(start);
}

template <typename Predicate>
QStringView trimmedEnd(QStringView text, Predicate belongs) {
    qsizetype end = text.size();
    while (end > 0) {
        const char32_t codePoint = codePointBefore(text, end);
        if (!belongs(codePoint)) break;
        end -= unitsOf(codePoint);
    }
    return text.first(end);
}

int clusterBreakOf(char32_t codePoint) {
    return u_getIntPropertyValue(static_cast<UChar32>(codePoint), UCHAR_GRAPHEME_CLUSTER_BREAK);
}

// A white character joins what follows it if that extends a cluster, and what precedes it if that
// is a prepended mark; controls, the line ends among them, join neither (UAX #29, GB4 to GB9b).
bool joinsNext(QStringView text, qsizetype position) {
    if (position >= text.size()) return false;
    const int next = clusterBreakOf(codePointAt(text, position));
    return next == U_GCB_EXTEND || next == U_GCB_ZWJ || next == U_GCB_SPACING_MARK;
}

bool isControl(char32_t codePoint) {
    const int kind = clusterBreakOf(codePoint);
    return kind == U_GCB_CONTROL || kind == U_GCB_CR || kind == U_GCB_LF;
}

// Between two such units there is always a boundary of characters, CR LF aside, which is white
// anyway: Latin and its neighbours below the combining marks, kana, and the common ideographs.
bool isSimple(QChar unit) {
    const char16_t code = unit.unicode();
    return code < 0x300 || (code >= 0x3400 && code <= 0x9FFF) ||
           (code >= 0x3041 && code <= 0x3096) || (code >= 0x309D && code <= 0x30FF) ||
           (code >= 0x3000 && code <= 0x3029);
}

// The exact count, by the full segmentation of characters.
int segmentedContentCount(QStringView text) {
    // Counting happens at every keystroke, so the iterator is made once for each thread.
    thread_local const std::unique_ptr<icu::BreakIterator> characters = [] {
        UErrorCode status = U_ZERO_ERROR;
        return std::unique_ptr<icu::BreakIterator>(
            icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    }();
    UErrorCode status = U_ZERO_ERROR;
    UText units = UTEXT_INITIALIZER;
    utext_openUChars(&units, text.utf16(), text.size(), &status);
    characters->setText(&units, status);
    int count = 0;
    int32_t start = characters->first();
    for (int32_t end = characters->next(); end != icu::BreakIterator::DONE;
         start = end, end = characters->next()) {
        if (hasContent(text.sliced(start, end - start))) ++count;
    }
    utext_close(&units);
    return count;
}

}  // namespace

bool isWhiteSpace(char32_t codePoint) {
    if (codePoint < 0x80) return codePoint == ' ' || (codePoint >= 0x09 && codePoint <= 0x0D);
    return u_hasBinaryProperty(static_cast<UChar32>(codePoint), UCHAR_WHITE_SPACE);
}

bool isNewline(char32_t codePoint) {
    return (codePoint >= 0x0A && codePoint <= 0x0D) || codePoint == 0x85 || codePoint == 0x2028 ||
           codePoint == 0x2029;
}

bool isWhitespaceOrNewline(char32_t codePoint) {
    if (codePoint < 0x80) return codePoint == ' ' || (codePoint >= 0x09 && codePoint <= 0x0D);
    return codePoint == 0x85 || (U_GET_GC_MASK(static_cast<UChar32>(codePoint)) & U_GC_Z_MASK) != 0;
}

bool isBlank(char32_t codePoint) {
    if (codePoint < 0x80) return codePoint == ' ' || codePoint == '\t';
    return u_charType(static_cast<UChar32>(codePoint)) == U_SPACE_SEPARATOR;
}

QStringView trimmed(QStringView text) {
    return trimmedStart(trimmedEnd(text, isWhitespaceOrNewline), isWhitespaceOrNewline);
}

QStringView trimmedOfBlanks(QStringView text) {
    return trimmedStart(trimmedEnd(text, isBlank), isBlank);
}

QStringView trimmedOf(QStringView text, QStringView units) {
    while (!text.isEmpty() && units.contains(text.front())) text = text.sliced(1);
    while (!text.isEmpty() && units.contains(text.back())) text.chop(1);
    return text;
}

QStringView withoutTrailingWhiteSpace(QStringView text) {
    const qsizetype end = trimmedEnd(text, isWhiteSpace).size();
    if (end == text.size() || end == 0) return text.first(end);
    const char32_t first = codePointAt(text, end);
    const bool prepended = clusterBreakOf(codePointBefore(text, end)) == U_GCB_PREPEND;
    return text.first(prepended && !isControl(first) ? end + unitsOf(first) : end);
}

QStringView withoutLeadingWhiteSpace(QStringView text) {
    const QStringView rest = trimmedStart(text, isWhiteSpace);
    const qsizetype start = text.size() - rest.size();
    if (start == 0 || !joinsNext(text, start)) return rest;
    const char32_t last = codePointBefore(text, start);
    return text.sliced(isControl(last) ? start : start - unitsOf(last));
}

QStringView withoutLeadingNewlines(QStringView text) {
    return trimmedStart(text, isNewline);
}

bool hasContent(QStringView text) {
    return !trimmedStart(text, isWhiteSpace).isEmpty();
}

int contentCharacterCount(QStringView text) {
    int count = 0;
    for (qsizetype at = 0; at < text.size();) {
        if (isSimple(text[at]) && (at + 1 == text.size() || isSimple(text[at + 1]))) {
            if (!isWhiteSpace(text[at].unicode())) ++count;
            ++at;
            continue;
        }
        qsizetype end = at + 1;
        while (end < text.size() && !(isSimple(text[end - 1]) && isSimple(text[end]))) ++end;
        count += segmentedContentCount(text.sliced(at, end - at));
        at = end;
    }
    return count;
}

bool standsAlone(QStringView text, qsizetype position) {
    // Below the combining marks nothing joins.
    constexpr QChar kFirstMark = u'\u0300';
    const qsizetype next = position + 1;
    if (next < text.size() && text[next] >= kFirstMark && joinsNext(text, next)) return false;
    return position == 0 || text[position - 1] < kFirstMark ||
           clusterBreakOf(codePointBefore(text, position)) != U_GCB_PREPEND;
}

bool canonicallyEqual(QStringView a, QStringView b) {
    if (a == b) return true;
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* canonical = icu::Normalizer2::getNFDInstance(status);
    const auto decomposed = [&](QStringView text) {
        return canonical->normalize(
            icu::UnicodeString(false, text.utf16(), static_cast<int32_t>(text.size())), status);
    };
    return decomposed(a) == decomposed(b) && U_SUCCESS(status);
}

qsizetype indexOfLineEnd(QStringView text, qsizetype from) {
    // Nearly all that reading a day file costs is here; QStringView::indexOf() takes twice as long
    // for lines as short as those of a text.
    const char16_t* const start = text.utf16();
    const char16_t* const end = start + text.size();
    for (const char16_t* at = start + from; at < end; ++at) {
        at = QtPrivate::qustrchr(QStringView(at, end), u'\n');
        if (at < end && (at == start || at[-1] != u'\r')) return at - start;
    }
    return -1;
}

}  // namespace diary::text
