#include "DiaryKit/Markdown/MarkdownLinePrefix.h"

#include <optional>

namespace diary {

namespace {

using Kind = MarkdownLinePrefix::Kind;

constexpr qsizetype kMostHeadingMarks = 6;
constexpr qsizetype kMostRuleIndent = 3;
constexpr qsizetype kLeastRuleMarks = 3;
// So that every number fits an int.
constexpr qsizetype kMostDigits = 9;

bool holds(QStringView line, qsizetype at, char16_t unit) {
    return at < line.size() && line[at] == unit;
}

// How many units from `from` on are `unit`.
qsizetype run(QStringView line, qsizetype from, char16_t unit) {
    qsizetype end = from;
    while (holds(line, end, unit)) ++end;
    return end - from;
}

std::optional<MarkdownLinePrefix> heading(QStringView line) {
    const qsizetype marks = run(line, 0, u'#');
    if (marks < 1 || marks > kMostHeadingMarks || !holds(line, marks, u' ')) return std::nullopt;
    return MarkdownLinePrefix{Kind::heading, static_cast<int>(marks), 0, marks + 1};
}

bool isRule(QStringView line) {
    const qsizetype start = qMin(run(line, 0, u' '), kMostRuleIndent);
    if (start == line.size()) return false;
    const char16_t mark = line[start].unicode();
    if (mark != u'*' && mark != u'-' && mark != u'_') return false;
    const qsizetype marks = run(line, start, mark);
    const qsizetype behind = start + marks;
    return marks >= kLeastRuleMarks && behind + run(line, behind, u' ') == line.size();
}

// Whether "[ ] ", "[x] " or "[X] " stands at `at`.
bool isTaskBox(QStringView line, qsizetype at) {
    return at + 3 < line.size() && line[at] == u'[' &&
           (line[at + 1] == u' ' || line[at + 1] == u'x' || line[at + 1] == u'X') &&
           line[at + 2] == u']' && line[at + 3] == u' ';
}

std::optional<MarkdownLinePrefix> bulletOrTask(QStringView line, qsizetype indent) {
    if (indent >= line.size() || !holds(line, indent + 1, u' ')) return std::nullopt;
    const QChar mark = line[indent];
    if (mark != u'*' && mark != u'+' && mark != u'-') return std::nullopt;
    if (!isTaskBox(line, indent + 2)) {
        return MarkdownLinePrefix{Kind::bullet, 0, indent, indent + 2};
    }
    const int isChecked = line[indent + 3] == u' ' ? 0 : 1;
    return MarkdownLinePrefix{Kind::task, isChecked, indent, indent + 6};
}

std::optional<MarkdownLinePrefix> ordered(QStringView line, qsizetype indent) {
    int number = 0;
    qsizetype at = indent;
    while (at < line.size() && at - indent < kMostDigits && line[at] >= u'0' && line[at] <= u'9') {
        number = number * 10 + (line[at].unicode() - u'0');
        ++at;
    }
    if (at == indent || !holds(line, at, u'.') || !holds(line, at + 1, u' ')) return std::nullopt;
    return MarkdownLinePrefix{Kind::ordered, number, indent, at + 2};
}

}  // namespace

MarkdownLinePrefix MarkdownLinePrefix::parse(QStringView line) {
    if (const auto found = heading(line)) return *found;
    if (isRule(line)) return {Kind::rule, 0, 0, 0};
    const qsizetype spaces = run(line, 0, u' ');
    if (const auto found = bulletOrTask(line, spaces)) return *found;
    if (const auto found = ordered(line, spaces)) return *found;
    if (holds(line, 0, u'>')) return {Kind::quote, 0, 0, holds(line, 1, u' ') ? 2 : 1};
    return {};
}

bool MarkdownLinePrefix::isList() const {
    return kind == Kind::task || kind == Kind::ordered || kind == Kind::bullet;
}

}  // namespace diary
