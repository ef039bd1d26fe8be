// What becomes of single typed characters: spaces behind look-alikes of markers, and closing marks.
#include <QtCore/QStringBuilder>
#include <algorithm>
#include <array>

#include "DiaryKit/Markdown/MarkdownEditing.h"
#include "DiaryKit/Markdown/MarkdownInline.h"
#include "DiaryKit/Markdown/MarkdownLine.h"

namespace diary::MarkdownEditing {

namespace {

constexpr qsizetype kMostHeadingMarks = 6;
constexpr qsizetype kMostNumberUnits = 9;

// What keyboards and input methods give where the ASCII marker is meant.
constexpr std::array<QStringView, 4> kQuotes = {u">", u"\uFF1E", u"\u300B", u"\u3009"};
constexpr std::array<QStringView, 10> kDashes = {u"-",      u"\uFF0D", u"\u2014", u"\u2014\u2014",
                                                 u"\u2013", u"\u00B7", u"\u30FB", u"\u2022",
                                                 u"\uFF0A", u"\uFF0B"};

bool isHeadingMarks(QStringView body) {
    return body.size() <= kMostHeadingMarks &&
           std::all_of(body.begin(), body.end(),
                       [](QChar unit) { return unit == u'#' || unit == u'\uFF03'; });
}

// A decimal number with an optional sign, or nothing. At most nine units, so an int holds it.
std::optional<int> signedNumber(QStringView digits) {
    const bool hasSign = digits.startsWith(u'-') || digits.startsWith(u'+');
    const QStringView plain = hasSign ? digits.sliced(1) : digits;
    if (plain.isEmpty()) return std::nullopt;
    int number = 0;
    for (const QChar digit : plain) {
        if (digit < u'0' || digit > u'9') return std::nullopt;
        number = number * 10 + (digit.unicode() - u'0');
    }
    return digits.startsWith(u'-') ? -number : number;
}

std::optional<int> orderedNumber(QStringView body) {
    if (!body.endsWith(u'.') && !body.endsWith(u'\u3002') && !body.endsWith(u'\uFF0E')) {
        return std::nullopt;
    }
    QString digits = body.chopped(1).toString();
    if (digits.size() > kMostNumberUnits) return std::nullopt;
    for (QChar& digit : digits) {
        if (digit >= u'\uFF10' && digit <= u'\uFF19') {
            digit = QChar(digit.unicode() - u'\uFF10' + u'0');
        }
    }
    return signedNumber(digits);
}

// The marker that is meant, whether it is typed so already or not.
std::optional<QString> meantMarker(QStringView body, const QString& indentation) {
    // Headings and quotes have no indentation.
    if (isHeadingMarks(body)) {
        if (!indentation.isEmpty()) return std::nullopt;
        return QString(body.size(), u'#') % u' ';
    }
    if (std::find(kQuotes.begin(), kQuotes.end(), body) != kQuotes.end()) {
        if (!indentation.isEmpty()) return std::nullopt;
        return QStringLiteral("> ");
    }
    if (body == u"*" || body == u"+") return indentation % body % u' ';
    if (std::find(kDashes.begin(), kDashes.end(), body) != kDashes.end()) {
        return indentation % QLatin1String("- ");
    }
    const std::optional<int> number = orderedNumber(body);
    if (!number) return std::nullopt;
    return indentation % QString::number(*number) % QLatin1String(". ");
}

bool closesAt(qsizetype column, const std::vector<TextRange>& matches, qsizetype width) {
    return std::any_of(matches.begin(), matches.end(), [=](const TextRange& match) {
        return column >= match.end() - width && column < match.end();
    });
}

}  // namespace

std::optional<QString> markdownMarker(QStringView typed, QStringView space) {
    qsizetype spaces = 0;
    while (spaces < typed.size() && typed[spaces] == u' ') ++spaces;
    const QStringView body = typed.sliced(spaces);
    if (body.isEmpty()) return std::nullopt;
    std::optional<QString> marker = meantMarker(body, QString(spaces, u' '));
    // A marker that is typed already needs no step of its own to undo.
    if (!marker || *marker == typed % space) return std::nullopt;
    return marker;
}

std::optional<MarkdownChange> space(QStringView typed, QStringView text, TextRange selection) {
    const qsizetype caret = selection.location;
    if (selection.length > 0) return std::nullopt;
    const qsizetype start = markdownLineRange(text, caret).location;
    const auto marker = markdownMarker(text.sliced(start, caret - start), typed);
    if (!marker || isInsideFence(text, caret)) return std::nullopt;
    const qsizetype behind = caret + typed.size();
    return MarkdownChange{{{{caret, 0}, typed.toString(), {behind, 0}},
                           {{start, behind - start}, *marker, {start + marker->size(), 0}}}};
}

std::optional<MarkdownChange> overtype(QStringView typed, QStringView text, TextRange selection) {
    const qsizetype caret = selection.location;
    if (selection.length > 0 || typed.size() != 1 || caret >= text.size()) return std::nullopt;
    if (text[caret] != typed.front()) return std::nullopt;
    const MarkdownLine line = MarkdownLine::at(text, caret);
    if (!isInClosingMarker(caret - line.range.location, line.text, typed.front())) {
        return std::nullopt;
    }
    return MarkdownChange::select({caret + 1, 0});
}

bool isInClosingMarker(qsizetype column, QStringView line, QChar marker) {
    switch (marker.unicode()) {
        case u'*':
            return closesAt(column, markdowninline::starBold(line), 2) ||
                   closesAt(column, markdowninline::starItalic(line), 1);
        case u'`':
            return closesAt(column, markdowninline::code(line), 1);
        case u'~':
            return closesAt(column, markdowninline::strike(line), 2);
        default:
            return false;
    }
}

}  // namespace diary::MarkdownEditing
