// Return in lists and quotes.
#include <QtCore/QStringBuilder>

#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Markdown/MarkdownEditing.h"
#include "DiaryKit/Markdown/MarkdownLine.h"

namespace diary::MarkdownEditing {

namespace {

constexpr qsizetype kUnitsPerLevel = 2;

bool isContinued(const MarkdownLinePrefix& prefix) {
    return prefix.isList() || prefix.kind == MarkdownLinePrefix::Kind::quote;
}

// Return on an empty item goes one level out, and from the outermost level out of the list.
MarkdownChange endingItem(const MarkdownLine& line) {
    if (line.prefix.indent < kUnitsPerLevel) {
        return MarkdownChange::replace(line.range, QString(), {line.range.location, 0});
    }
    return MarkdownChange::replace({line.range.location, kUnitsPerLevel}, QString(),
                                   {line.range.end() - kUnitsPerLevel, 0});
}

QString nextMarker(const MarkdownLine& line) {
    const MarkdownLinePrefix& prefix = line.prefix;
    if (prefix.kind == MarkdownLinePrefix::Kind::quote) return QStringLiteral("> ");
    const QString indentation(prefix.indent, u' ');
    if (prefix.kind == MarkdownLinePrefix::Kind::ordered) {
        return indentation % QString::number(prefix.value + 1) % QLatin1String(". ");
    }
    // A new task is open, whatever the one above is.
    const bool isTask = prefix.kind == MarkdownLinePrefix::Kind::task;
    return indentation % line.text[prefix.indent] %
           (isTask ? QLatin1String(" [ ] ") : QLatin1String(" "));
}

struct Renumbered {
    TextRange range;
    QString text;
};

// The run of ordered items of this indentation behind the line that holds `below`, counted from
// `from`; nothing if it counts so already. Blank lines and deeper items end the run.
std::optional<Renumbered> renumbered(QStringView text, qsizetype below, qsizetype indent,
                                     int from) {
    Renumbered result;
    bool hasChanged = false;
    int expected = from;
    auto next = markdownNextLine(text, markdownLineRange(text, below));
    for (bool isFirst = true; next; isFirst = false, ++expected) {
        const MarkdownLine line = MarkdownLine::at(text, *next);
        const MarkdownLinePrefix& prefix = line.prefix;
        if (prefix.kind != MarkdownLinePrefix::Kind::ordered || prefix.indent != indent) break;
        if (isFirst) result.range.location = line.range.location;
        if (!isFirst) result.text += u'\n';
        if (prefix.value == expected) {
            result.text += line.text;
        } else {
            result.text += QString(indent, u' ') % QString::number(expected) % QLatin1String(". ") %
                           line.content();
            hasChanged = true;
        }
        result.range.length = line.range.end() - result.range.location;
        next = markdownNextLine(text, line.range);
    }
    return hasChanged ? std::optional(result) : std::nullopt;
}

// The step that puts the marker behind the line break. For an ordered item it also takes in what
// follows, so that one undo takes the marker and the counting back together.
MarkdownChange::Step markerStep(QStringView text, TextRange selection, const MarkdownLine& line) {
    const QString marker = nextMarker(line);
    const qsizetype start = selection.location + 1;
    MarkdownChange::Step step{{start, 0}, marker, {start + marker.size(), 0}};
    if (line.prefix.kind != MarkdownLinePrefix::Kind::ordered) return step;
    const QString broken = text.first(selection.location) % u'\n' % text.sliced(selection.end());
    const auto below = renumbered(broken, start, line.prefix.indent, line.prefix.value + 2);
    if (!below) return step;
    step.range.length = below->range.end() - start;
    step.replacement +=
        QStringView(broken).sliced(start, below->range.location - start) % below->text;
    return step;
}

}  // namespace

std::optional<MarkdownChange> newline(QStringView text, TextRange selection) {
    const MarkdownLine line = MarkdownLine::at(text, selection.location);
    if (selection.end() > line.range.end() || !isContinued(line.prefix)) return std::nullopt;
    if (selection.location - line.range.location < line.prefix.length) return std::nullopt;
    if (isInsideFence(text, selection.location)) return std::nullopt;
    if (text::trimmedOfBlanks(line.content()).isEmpty()) return endingItem(line);
    const MarkdownChange::Step lineBreak{
        selection, QStringLiteral("\n"), {selection.location + 1, 0}};
    return MarkdownChange{{lineBreak, markerStep(text, selection, line)}};
}

}  // namespace diary::MarkdownEditing
