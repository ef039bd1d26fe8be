// The block formats that commands and clicks give a line.
#include <QtCore/QStringBuilder>

#include "DiaryKit/Markdown/MarkdownEditing.h"
#include "DiaryKit/Markdown/MarkdownLine.h"

namespace diary::MarkdownEditing {

namespace {

using Prefix = MarkdownLinePrefix;
using Style = MarkdownBlockStyle;

// The number that a line gets when it is turned into an ordered item.
int orderedStart(QStringView text, qsizetype lineStart, qsizetype indent) {
    if (lineStart == 0) return 1;
    const Prefix above = MarkdownLine::at(text, lineStart - 1).prefix;
    return above.kind == Prefix::Kind::ordered && above.indent == indent ? above.value + 1 : 1;
}

// Whether the line has the format already, so that asking for it takes it away.
bool has(const Prefix& prefix, const Style& style) {
    switch (style.kind) {
        case Style::Kind::heading:
            return prefix.kind == Prefix::Kind::heading && prefix.value == style.level;
        case Style::Kind::bullet:
            return prefix.kind == Prefix::Kind::bullet;
        case Style::Kind::task:
            return prefix.kind == Prefix::Kind::task;
        case Style::Kind::ordered:
            return prefix.kind == Prefix::Kind::ordered;
        case Style::Kind::quote:
            return prefix.kind == Prefix::Kind::quote;
        case Style::Kind::plain:
            break;
    }
    return false;
}

// The marker of the format for this line. A list item that becomes another keeps its level.
QString newMarker(const Style& style, QStringView text, const MarkdownLine& line) {
    if (has(line.prefix, style)) return {};
    const QString kept(style.isList() ? line.prefix.indent : 0, u' ');
    switch (style.kind) {
        case Style::Kind::heading:
            return QString(style.level, u'#') % u' ';
        case Style::Kind::bullet:
            return kept % QLatin1String("- ");
        case Style::Kind::task:
            return kept % QLatin1String("- [ ] ");
        case Style::Kind::ordered:
            return kept % QString::number(orderedStart(text, line.range.location, kept.size())) %
                   QLatin1String(". ");
        case Style::Kind::quote:
            return QStringLiteral("> ");
        case Style::Kind::plain:
            break;
    }
    return {};
}

}  // namespace

std::optional<MarkdownChange> setBlock(MarkdownBlockStyle style, QStringView text,
                                       TextRange selection) {
    const MarkdownLine line = MarkdownLine::at(text, selection.location);
    const TextRange old{line.range.location, line.prefix.length};
    if (style.kind == Style::Kind::plain && old.length == 0) return std::nullopt;
    const QString marker = newMarker(style, text, line);
    const qsizetype delta = marker.size() - old.length;
    const qsizetype start = qMax(selection.location + delta, old.location + marker.size());
    const qsizetype end = qMax(selection.end() + delta, start);
    return MarkdownChange::replace(old, marker, {start, end - start});
}

std::optional<MarkdownChange> toggleTask(qsizetype linePosition, QStringView text,
                                         TextRange selection) {
    const MarkdownLine line = MarkdownLine::at(text, linePosition);
    if (line.prefix.kind != Prefix::Kind::task) return std::nullopt;
    // Marker, space and bracket stand ahead of the box's inside.
    const qsizetype inside = line.range.location + line.prefix.indent + 3;
    return MarkdownChange::replace({inside, 1}, QString(line.prefix.isChecked() ? u' ' : u'x'),
                                   selection);
}

}  // namespace diary::MarkdownEditing
