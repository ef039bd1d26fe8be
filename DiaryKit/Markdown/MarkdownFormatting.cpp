// Marks inside a line: bold and its kin, and links.
#include <QtCore/QStringBuilder>
#include <QtCore/QUrl>
#include <algorithm>

#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Markdown/MarkdownEditing.h"
#include "DiaryKit/Markdown/MarkdownLine.h"

namespace diary::MarkdownEditing {

namespace {

// A star next to another one belongs to a bold mark, so it never opens or closes an italic one.
bool canOpen(QStringView marker, QStringView text, qsizetype start) {
    return marker != u"*" || start == 0 || text[start - 1] != u'*';
}

bool canClose(QStringView marker, QStringView text, qsizetype end) {
    return marker != u"*" || end >= text.size() || text[end] != u'*';
}

// Whether the marker stands on both sides of the range, as a pair of its own.
bool isWrapped(QStringView marker, QStringView text, TextRange range) {
    const qsizetype start = range.location - marker.size();
    const qsizetype end = range.end() + marker.size();
    return start >= 0 && text.first(range.location).endsWith(marker) &&
           text.sliced(range.end()).startsWith(marker) && canOpen(marker, text, start) &&
           canClose(marker, text, end);
}

// Whether the selected text brings its own marker along, with something inside.
bool wrapsItself(QStringView marker, QStringView selected) {
    if (selected.size() <= 2 * marker.size()) return false;
    if (!selected.startsWith(marker) || !selected.endsWith(marker)) return false;
    return marker != u"*" || (!selected.startsWith(u"**") && !selected.endsWith(u"**"));
}

MarkdownChange wrapSelection(QStringView marker, QStringView text, TextRange selection) {
    const qsizetype width = marker.size();
    const QStringView selected = text.sliced(selection.location, selection.length);
    if (isWrapped(marker, text, selection)) {
        const TextRange outer{selection.location - width, selection.length + 2 * width};
        return MarkdownChange::replace(outer, selected.toString(),
                                       {outer.location, selection.length});
    }
    if (wrapsItself(marker, selected)) {
        const QStringView inside = selected.sliced(width, selected.size() - 2 * width);
        return MarkdownChange::replace(selection, inside.toString(),
                                       {selection.location, inside.size()});
    }
    return MarkdownChange::replace(selection, marker % selected % marker,
                                   {selection.location + width, selection.length});
}

// Whether the marker behind the caret closes something that the caret stands in.
bool canLeap(QStringView marker, QStringView text, qsizetype caret) {
    if (marker.isEmpty() || !text.sliced(caret).startsWith(marker)) return false;
    if (!canClose(marker, text, caret + marker.size())) return false;
    const TextRange line = markdownLineRange(text, caret);
    return isInClosingMarker(caret - line.location, text.sliced(line.location, line.length),
                             marker.front());
}

MarkdownChange wrapCaret(QStringView marker, QStringView text, TextRange selection) {
    const qsizetype caret = selection.location;
    const qsizetype width = marker.size();
    if (isWrapped(marker, text, selection)) {
        return MarkdownChange::replace({caret - width, 2 * width}, QString(), {caret - width, 0});
    }
    if (canLeap(marker, text, caret)) return MarkdownChange::select({caret + width, 0});
    return MarkdownChange::replace(selection, marker.toString().repeated(2), {caret + width, 0});
}

bool hasWhiteSpace(QStringView text) {
    return std::any_of(text.begin(), text.end(),
                       [](QChar unit) { return text::isWhiteSpace(unit.unicode()); });
}

bool isWebAddress(QStringView text) {
    if (text.isEmpty() || hasWhiteSpace(text)) return false;
    const QUrl url(text.toString(), QUrl::TolerantMode);
    // QUrl gives the scheme in lower case.
    return url.isValid() && (url.scheme() == u"http" || url.scheme() == u"https");
}

}  // namespace

MarkdownChange wrap(QStringView marker, QStringView text, TextRange selection) {
    return selection.length > 0 ? wrapSelection(marker, text, selection)
                                : wrapCaret(marker, text, selection);
}

MarkdownChange link(QStringView text, TextRange selection) {
    const QStringView title = text.sliced(selection.location, selection.length);
    const QString made = u'[' % title % QLatin1String("]()");
    const qsizetype caret = title.isEmpty() ? 1 : made.size() - 1;
    return MarkdownChange::replace(selection, made, {selection.location + caret, 0});
}

std::optional<MarkdownChange> pasteLink(QStringView pasted, QStringView text, TextRange selection) {
    const QStringView title = text.sliced(selection.location, selection.length);
    const QStringView address = text::trimmed(pasted);
    if (title.isEmpty() || title.contains(u'\n') || !isWebAddress(address)) return std::nullopt;
    const QString made = u'[' % title % QLatin1String("](") % address % u')';
    return MarkdownChange::replace(selection, made, {selection.location + made.size(), 0});
}

}  // namespace diary::MarkdownEditing
