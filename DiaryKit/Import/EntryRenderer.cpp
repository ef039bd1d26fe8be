#include "DiaryKit/Import/EntryRenderer.h"

#include <QtCore/QStringBuilder>
#include <algorithm>

#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Import/HTMLToMarkdown.h"

namespace diary::EntryRenderer {

namespace {

const QLatin1String kBlankLine("\n\n");
const QStringView kFence = u"```";
// Between the details of an entry, and between its time and its title.
const QStringView kDot = u" \u00B7 ";

// The levels that Markdown has, and how far the vault's own two push the others down.
constexpr qsizetype kDeepestHeading = 6;
constexpr qsizetype kReservedLevels = 2;

qsizetype leading(QStringView line, char16_t unit) {
    qsizetype count = 0;
    while (count < line.size() && line[count] == unit) ++count;
    return count;
}

// The line with its heading pushed down, or as it is. "#tag" is no heading.
QString demoted(QStringView line) {
    const qsizetype marks = leading(line, u'#');
    const QStringView rest = line.sliced(marks);
    const bool isHeading = marks > 0 && marks <= kDeepestHeading &&
                           (rest.isEmpty() || rest[0] == u' ' || rest[0] == u'\t');
    if (!isHeading) return line.toString();
    const qsizetype level = std::min(marks + kReservedLevels, kDeepestHeading);
    return QString(level, u'#') % rest;
}

QString tagText(QStringView tag) {
    const auto isStripped = [](QChar unit) { return unit == u'#' || unit == u' '; };
    while (!tag.isEmpty() && isStripped(tag.front())) tag = tag.sliced(1);
    while (!tag.isEmpty() && isStripped(tag.back())) tag.chop(1);
    return tag.isEmpty() ? QString() : u'#' % tag;
}

QString tagLine(const QStringList& tags) {
    QStringList written;
    for (const QString& tag : tags) {
        const QString text = tagText(tag);
        if (!text.isEmpty()) written << text;
    }
    return written.join(u' ');
}

std::optional<QString> headingText(const ImportedEntry& entry, bool showsTime) {
    if (!showsTime || !entry.time) return entry.title;
    return entry.title ? QString(entry.time->text() % kDot % *entry.title) : entry.time->text();
}

std::optional<QString> block(const ImportedEntry& entry, const ImportOptions& options,
                             bool showsTime, bool isFurther) {
    if (entry.isVelmarSection) return text::trimmed(entry.body).toString();
    QStringList parts;
    if (const auto heading = headingText(entry, showsTime)) {
        parts << QLatin1String("### ") + *heading;
    } else if (isFurther) {
        parts << QStringLiteral("---");
    }
    const QString prepared = prepare(entry.body);
    if (!prepared.isEmpty()) parts << prepared;
    if (const auto details = metaLine(entry, options)) parts << *details;
    return parts.isEmpty() ? std::nullopt : std::optional(parts.join(kBlankLine));
}

}  // namespace

QString prepare(QStringView body) {
    QString text = body.toString();
    if (text.contains(u'\r')) text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    QString prepared;
    prepared.reserve(text.size() + 16);
    bool isFenced = false;
    bool isFirst = true;
    for (const QStringView line : QStringView(text).tokenize(u'\n')) {
        if (!isFirst) prepared += u'\n';
        isFirst = false;
        if (line.sliced(leading(line, u' ')).startsWith(kFence)) {
            isFenced = !isFenced;
            prepared += line;
        } else if (isFenced || !line.startsWith(u'#')) {
            prepared += line;
        } else {
            prepared += demoted(line);
        }
    }
    if (isFenced) prepared += u'\n' % kFence;
    return HTMLToMarkdown::tidy(prepared);
}

std::optional<QString> metaLine(const ImportedEntry& entry, const ImportOptions& options) {
    QStringList details;
    if (options.place && entry.place) details << *entry.place;
    if (options.weather && entry.weather) details << *entry.weather;
    if (options.mood && entry.mood) details << *entry.mood;
    const QString tags = options.tags ? tagLine(entry.tags) : QString();
    if (!tags.isEmpty()) details << tags;
    return details.isEmpty() ? std::nullopt : std::optional(details.join(kDot));
}

std::vector<std::optional<QString>> blocks(std::span<const ImportedEntry> entries,
                                           const ImportOptions& options, Placement placement) {
    const bool isAlone = entries.size() < 2;
    const bool showsTime = !isAlone || options.timeForSingle || placement == Placement::Appended;
    std::vector<std::optional<QString>> written;
    written.reserve(entries.size());
    for (const ImportedEntry& entry : entries) {
        written.push_back(block(entry, options, showsTime, !written.empty()));
    }
    return written;
}

QString section(std::span<const ImportedEntry> entries, const ImportOptions& options,
                Placement placement) {
    QStringList present;
    for (const std::optional<QString>& one : blocks(entries, options, placement)) {
        if (one) present << *one;
    }
    return present.join(kBlankLine);
}

bool matchesWholeSection(const ImportedEntry& entry, QStringView body,
                         const ImportOptions& options) {
    if (body.isEmpty()) return false;
    const bool hidesSomething = entry.time || entry.journal || (entry.place && !options.place) ||
                                (entry.weather && !options.weather) ||
                                (entry.mood && !options.mood) ||
                                (!entry.tags.isEmpty() && !options.tags);
    if (!entry.isVelmarSection && hidesSomething) return false;
    return section({&entry, 1}, options, Placement::Alone) == body;
}

}  // namespace diary::EntryRenderer
