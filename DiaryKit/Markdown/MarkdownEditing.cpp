// What the caret stands in, and the commands that look at single marks: deleting and moving levels.
#include "DiaryKit/Markdown/MarkdownEditing.h"

#include "DiaryKit/Markdown/MarkdownLine.h"

namespace diary::MarkdownEditing {

namespace {

constexpr qsizetype kUnitsPerLevel = 2;
constexpr qsizetype kFenceMarks = 3;
// The longer mark goes first, or "**|**" would lose one star on each side only.
constexpr QStringView kPairs[] = {u"**", u"~~", u"`", u"*"};

// Whether only spaces stand between the start of the position's line and the position.
bool isFirstInLine(QStringView text, qsizetype position) {
    qsizetype start = position;
    while (start > 0 && text[start - 1] == u' ') --start;
    return start == 0 || endsMarkdownLine(text[start - 1]);
}

std::optional<MarkdownChange> removingMarker(const MarkdownLine& line) {
    const qsizetype start = line.range.location + line.prefix.indent;
    return MarkdownChange::replace({start, line.prefix.length - line.prefix.indent}, QString(),
                                   {start, 0});
}

bool standsAround(QStringView pair, QStringView text, qsizetype caret) {
    return caret >= pair.size() && text.first(caret).endsWith(pair) &&
           text.sliced(caret).startsWith(pair);
}

MarkdownContext::Kind contextKind(MarkdownLinePrefix::Kind kind) {
    switch (kind) {
        case MarkdownLinePrefix::Kind::heading:
            return MarkdownContext::Kind::heading;
        case MarkdownLinePrefix::Kind::task:
            return MarkdownContext::Kind::task;
        case MarkdownLinePrefix::Kind::ordered:
            return MarkdownContext::Kind::ordered;
        case MarkdownLinePrefix::Kind::bullet:
            return MarkdownContext::Kind::bullet;
        case MarkdownLinePrefix::Kind::quote:
            return MarkdownContext::Kind::quote;
        case MarkdownLinePrefix::Kind::plain:
        case MarkdownLinePrefix::Kind::rule:
            break;
    }
    return MarkdownContext::Kind::plain;
}

}  // namespace

bool isInsideFence(QStringView text, qsizetype position) {
    const QStringView ahead = text.first(markdownLineRange(text, position).location);
    bool isInside = false;
    // Back-ticks are rare, so it is the search for the next one that takes the time.
    for (qsizetype at = ahead.indexOf(u'`'); at >= 0; at = ahead.indexOf(u'`', at)) {
        const qsizetype start = at;
        while (at < ahead.size() && ahead[at] == u'`') ++at;
        if (at - start >= kFenceMarks && isFirstInLine(ahead, start)) isInside = !isInside;
    }
    return isInside;
}

std::optional<MarkdownChange> backspace(QStringView text, TextRange selection) {
    const qsizetype caret = selection.location;
    if (selection.length > 0 || caret == 0 || isInsideFence(text, caret)) return std::nullopt;
    const MarkdownLine line = MarkdownLine::at(text, caret);
    if (line.prefix.length >= 1 && caret == line.range.location + line.prefix.length) {
        return removingMarker(line);
    }
    for (const QStringView pair : kPairs) {
        if (!standsAround(pair, text, caret)) continue;
        const qsizetype start = caret - pair.size();
        return MarkdownChange::replace({start, 2 * pair.size()}, QString(), {start, 0});
    }
    return std::nullopt;
}

std::optional<MarkdownChange> indent(QStringView text, TextRange selection) {
    const MarkdownLine line = MarkdownLine::at(text, selection.location);
    if (!line.prefix.isList()) return std::nullopt;
    return MarkdownChange::replace({line.range.location, 0}, QString(kUnitsPerLevel, u' '),
                                   {selection.location + kUnitsPerLevel, selection.length});
}

std::optional<MarkdownChange> outdent(QStringView text, TextRange selection) {
    const MarkdownLine line = MarkdownLine::at(text, selection.location);
    if (!line.prefix.isList() || line.prefix.indent < 1) return std::nullopt;
    const qsizetype amount = qMin(line.prefix.indent, kUnitsPerLevel);
    const qsizetype start = qMax(selection.location - amount, line.range.location);
    const qsizetype end = qMax(selection.end() - amount, start);
    return MarkdownChange::replace({line.range.location, amount}, QString(), {start, end - start});
}

MarkdownContext context(QStringView text, TextRange selection) {
    if (selection.length > 0) return {MarkdownContext::Kind::selection, 0};
    const MarkdownLinePrefix prefix = MarkdownLine::at(text, selection.location).prefix;
    const MarkdownContext::Kind kind = contextKind(prefix.kind);
    if (kind == MarkdownContext::Kind::plain || isInsideFence(text, selection.location)) return {};
    const bool hasValue =
        kind == MarkdownContext::Kind::heading || kind == MarkdownContext::Kind::task;
    return {kind, hasValue ? prefix.value : 0};
}

}  // namespace diary::MarkdownEditing
