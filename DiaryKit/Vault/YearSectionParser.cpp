#include "DiaryKit/Vault/YearSectionParser.h"

#include <QtCore/QStringBuilder>
#include <algorithm>

#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Vault/YearHeader.h"

namespace diary::YearSectionParser {

namespace {

const QLatin1String kBlankLine("\n\n");
const QLatin1String kFence("```");

// Calls `visit(start, line, next)` for each line; `next` is where the one behind it begins.
template <typename Visit>
void forEachLine(QStringView text, Visit visit) {
    qsizetype start = 0;
    while (start < text.size()) {
        const qsizetype end = text::indexOfLineEnd(text, start);
        const qsizetype next = end < 0 ? text.size() : end + 1;
        visit(start, text.sliced(start, (end < 0 ? text.size() : end) - start), next);
        start = next;
    }
}

bool isFence(QStringView line) {
    return yearheader::isFence(line.utf16(), line.size());
}

std::optional<int> yearHeader(QStringView line) {
    const int year = yearheader::year(line.utf16(), line.size());
    return year < 0 ? std::nullopt : std::optional(year);
}

const Section* firstSection(const std::vector<Section>& sections, int year) {
    const auto found = std::find_if(sections.begin(), sections.end(),
                                    [&](const Section& section) { return section.year == year; });
    return found == sections.end() ? nullptr : &*found;
}

QStringView slice(QStringView text, const TextRange& range) {
    return text.sliced(range.location, range.length);
}

QString header(int year) {
    return QLatin1String("## ") + QString::number(year);
}

// Behind the last smaller year, else ahead of the first greater one, else the end.
qsizetype insertionPoint(int year, const std::vector<Section>& sections, QStringView text) {
    const Section* below = nullptr;
    const Section* least = nullptr;
    for (const Section& section : sections) {
        if (section.year < year && (!below || section.year > below->year)) below = &section;
        if (!least || section.year < least->year) least = &section;
    }
    if (below) return below->bodyRange.end();
    return least ? least->headerRange.location : text.size();
}

}  // namespace

std::vector<Section> sections(QStringView text) {
    std::vector<Section> found;
    bool isFenced = false;
    const auto closeAt = [&](qsizetype end) {
        if (!found.empty()) found.back().bodyRange.length = end - found.back().bodyRange.location;
    };
    forEachLine(text, [&](qsizetype start, QStringView line, qsizetype next) {
        if (isFence(line)) {
            isFenced = !isFenced;
            return;
        }
        if (isFenced) return;
        const std::optional<int> year = yearHeader(line);
        if (!year) return;
        closeAt(start);
        found.push_back({*year, {start, next - start}, {next, 0}});
    });
    closeAt(text.size());
    return found;
}

std::set<int> yearsWithContent(QStringView text) {
    std::set<int> years;
    for (const Section& section : sections(text)) {
        if (text::hasContent(slice(text, section.bodyRange))) years.insert(section.year);
    }
    return years;
}

std::vector<YearBody> sectionBodies(QStringView text) {
    std::vector<YearBody> bodies;
    for (const Section& section : sections(text)) {
        bodies.push_back({section.year, text::trimmed(slice(text, section.bodyRange)).toString()});
    }
    return bodies;
}

QString body(int year, QStringView text) {
    const std::vector<Section> all = sections(text);
    const Section* section = firstSection(all, year);
    return section ? text::trimmed(slice(text, section->bodyRange)).toString() : QString();
}

bool isEffectivelyEmpty(QStringView text, QStringView title) {
    bool isEmpty = true;
    forEachLine(text, [&](qsizetype, QStringView line, qsizetype) {
        if (!isEmpty) return;
        const QStringView content = text::trimmedOfBlanks(line);
        isEmpty = content.isEmpty() || yearHeader(content) ||
                  (content.startsWith(u"# ") && content.sliced(2) == title);
    });
    return isEmpty;
}

std::optional<QString> documentPreamble(QStringView text) {
    const std::vector<Section> all = sections(text);
    const QStringView head = all.empty() ? text : text.first(all.front().headerRange.location);
    const QStringView trimmed = text::trimmed(head);
    return trimmed.isEmpty() ? std::nullopt : std::optional(trimmed.toString());
}

EnsuredSection ensuringSection(int year, const MonthDay& monthDay, QStringView text) {
    if (!text::hasContent(text)) {
        const QString made =
            QLatin1String("# ") + monthDay.headerTitle() + kBlankLine + header(year) + kBlankLine;
        return {made, made.size()};
    }
    const std::vector<Section> all = sections(text);
    if (const Section* existing = firstSection(all, year)) {
        const QStringView body = slice(text, existing->bodyRange);
        const qsizetype content =
            text::hasContent(body) ? text::withoutTrailingWhiteSpace(body).size() : 0;
        return {text.toString(), existing->bodyRange.location + content};
    }
    const qsizetype cut = insertionPoint(year, all, text);
    const QStringView ahead = text::withoutTrailingWhiteSpace(text.first(cut));
    const QStringView behind = text::withoutLeadingNewlines(text.sliced(cut));
    QString made = closingFence(ahead);
    if (!made.isEmpty()) made += kBlankLine;
    made += header(year) + kBlankLine;
    const qsizetype caret = made.size();
    if (!behind.isEmpty()) made += kBlankLine % behind;
    return {made, caret};
}

QString appendingBody(QStringView body, QStringView separator, int year, const MonthDay& monthDay,
                      QStringView text) {
    const QStringView addition = text::trimmed(body);
    if (addition.isEmpty()) return text.toString();
    const EnsuredSection ensured = ensuringSection(year, monthDay, text);
    const std::vector<Section> all = sections(ensured.text);
    const Section* section = firstSection(all, year);
    if (!section) return ensured.text;
    const QStringView whole(ensured.text);
    QString result =
        text::withoutTrailingWhiteSpace(whole.first(ensured.caretUTF16Offset)).toString();
    result += kBlankLine;
    if (text::hasContent(slice(whole, section->bodyRange))) result += separator % kBlankLine;
    result += addition;
    const QStringView rest = text::withoutLeadingWhiteSpace(whole.sliced(ensured.caretUTF16Offset));
    if (rest.isEmpty()) return result + u'\n';
    return result % kBlankLine % rest;
}

QString replacingBody(QStringView body, int year, const MonthDay& monthDay, QStringView text) {
    const QStringView replacement = text::trimmed(body);
    const EnsuredSection ensured = ensuringSection(year, monthDay, text);
    const std::vector<Section> all = sections(ensured.text);
    const Section* section = firstSection(all, year);
    if (!section) return ensured.text;
    const QStringView whole(ensured.text);
    const QStringView behind = whole.sliced(section->bodyRange.end());
    QString result = whole.first(section->bodyRange.location) % u'\n';
    if (!replacement.isEmpty()) {
        result += replacement;
        result += behind.isEmpty() ? QLatin1String("\n") : kBlankLine;
    }
    return result % behind;
}

QString removingSection(int year, QStringView text) {
    const std::vector<Section> all = sections(text);
    const Section* section = firstSection(all, year);
    if (!section) return text.toString();
    const QStringView ahead =
        text::withoutTrailingWhiteSpace(text.first(section->headerRange.location));
    const QStringView behind =
        text::withoutLeadingWhiteSpace(text.sliced(section->bodyRange.end()));
    if (behind.isEmpty()) return ahead % u'\n';
    return ahead % kBlankLine % behind;
}

bool leavesFenceOpen(QStringView text) {
    bool isFenced = false;
    forEachLine(text, [&](qsizetype, QStringView line, qsizetype) {
        if (isFence(line)) isFenced = !isFenced;
    });
    return isFenced;
}

QString closingFence(QStringView text) {
    if (!leavesFenceOpen(text)) return text.toString();
    return text % u'\n' % kFence;
}

}  // namespace diary::YearSectionParser
