#include "DiaryKit/Markdown/MarkdownLine.h"

namespace diary {

namespace {

bool isCrOrLf(QChar unit) {
    return unit == u'\n' || unit == u'\r';
}

bool isInsideCrLf(QStringView text, qsizetype at) {
    return at > 0 && at < text.size() && text[at - 1] == u'\r' && text[at] == u'\n';
}

}  // namespace

bool endsMarkdownLine(QChar unit) {
    return isCrOrLf(unit) || unit == u'\u0085' || unit == u'\u2028' || unit == u'\u2029';
}

TextRange markdownLineRange(QStringView text, qsizetype at) {
    const qsizetype position = qBound(qsizetype{0}, at, text.size());
    qsizetype start = isInsideCrLf(text, position) ? position - 1 : position;
    qsizetype end = start;
    while (start > 0 && !endsMarkdownLine(text[start - 1])) --start;
    while (end < text.size() && !endsMarkdownLine(text[end])) ++end;
    if (end < text.size() && !isCrOrLf(text[end])) ++end;
    return {start, end - start};
}

std::optional<qsizetype> markdownNextLine(QStringView text, TextRange line) {
    const qsizetype end = line.end();
    if (end < text.size() && isCrOrLf(text[end])) {
        return isInsideCrLf(text, end + 1) ? end + 2 : end + 1;
    }
    // The line's own last unit ends it, if anything does.
    if (line.length > 0 && endsMarkdownLine(text[end - 1])) return end;
    return std::nullopt;
}

MarkdownLine MarkdownLine::at(QStringView text, qsizetype position) {
    const TextRange range = markdownLineRange(text, position);
    const QStringView line = text.sliced(range.location, range.length);
    return {range, line, MarkdownLinePrefix::parse(line)};
}

}  // namespace diary
