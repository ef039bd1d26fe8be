// The split of a text, line by line and copy by copy: slow, and the yardstick for the one that
// cuts slices. Date lines, evidence and words of weather are told as there.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <vector>

#include "DiaryKit/DatedText/DateLine.h"
#include "DiaryKit/DatedText/DatedTextSplit.h"
#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Import/ImportPlanCharacters.h"
#include "DiaryKit/Import/LocalTime.h"

namespace diary::test {

struct PlainDatedLine {
    qsizetype index;
    DateLine::Match match;
};

inline bool isBlankLine(const QString& line) {
    return text::trimmedOfBlanks(line).isEmpty();
}

inline QString trimmedLine(const QString& line) {
    return text::trimmedOfBlanks(line).toString();
}

inline std::optional<bool> plainEvidence(const QStringList& lines,
                                         const std::vector<PlainDatedLine>& anchors) {
    for (const PlainDatedLine& anchor : anchors) {
        if (const auto told = DatedTextSplit::swappedOrderEvidence(lines[anchor.index]))
            return told;
    }
    return std::nullopt;
}

// The entry of an anchor with its own lines; without a body and title if there is none.
inline ImportedEntry plainEntry(const DateLine::Match& match, QStringList lines,
                                const DatedTextSplit::Options& options) {
    ImportedEntry entry;
    const bool isLong = characterCount(match.rest) > 30;
    if (isLong || (!match.rest.isEmpty() && options.rest == DatedTextSplit::Rest::body)) {
        lines.prepend(match.rest);
    } else if (options.rest == DatedTextSplit::Rest::weatherOrTitle) {
        const auto label = DatedTextSplit::splitWeather(match.rest);
        entry.weather = label.weather;
        entry.title = label.title;
    }
    entry.body = text::trimmed(lines.join(u'\n')).toString();
    entry.time = match.time;
    return entry;
}

inline ImportBatch plainSplit(QString text, const QString& name,
                              const DatedTextSplit::Options& options) {
    using DatedTextSplit::Placement;
    text.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
    const QStringList lines = text.split(u'\n');
    std::vector<PlainDatedLine> all;
    std::vector<PlainDatedLine> starts;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const auto match = DateLine::match(lines[i]);
        if (!match) continue;
        all.push_back({i, *match});
        if (i == 0 || isBlankLine(lines[i - 1])) starts.push_back({i, *match});
    }
    ImportBatch batch{.source = ImportSource::datedText, .name = name};
    DatedTextSplit::Summary summary;
    const bool areParagraphs = starts.size() >= 2 && static_cast<double>(all.size()) * 0.8 <=
                                                         static_cast<double>(starts.size());
    summary.placement =
        options.placement.value_or(areParagraphs ? Placement::paragraphStart : Placement::anyLine);
    summary.paragraphStartCount = static_cast<int>(starts.size());
    summary.anyLineCount = static_cast<int>(all.size());
    const bool isAnyLine = summary.placement == Placement::anyLine;
    const std::vector<PlainDatedLine>& anchors = isAnyLine ? all : starts;
    for (const PlainDatedLine& dated : all) {
        if (isAnyLine || dated.index == 0 || isBlankLine(lines[dated.index - 1])) continue;
        summary.inlineDates << trimmedLine(lines[dated.index]);
    }
    if (!anchors.empty()) summary.sampleLine = trimmedLine(lines[anchors[0].index]);

    bool isAmbiguous = false;
    for (const PlainDatedLine& anchor : anchors) isAmbiguous |= anchor.match.isAmbiguousOrder;
    summary.dayFirst = options.dayFirst.value_or(false);
    if (isAmbiguous && !options.dayFirst) {
        const auto evidence = plainEvidence(lines, anchors);
        summary.dayFirst = evidence.value_or(false);
        summary.orderUnsettled = !evidence;
    }

    const qsizetype first = anchors.empty() ? lines.size() : anchors[0].index;
    for (qsizetype i = 0; i < first; ++i) {
        if (!isBlankLine(lines[i])) batch.skipped.undated = 1;
    }
    for (std::size_t k = 0; k < anchors.size(); ++k) {
        DateLine::Match match = anchors[k].match;
        if (match.isAmbiguousOrder && summary.dayFirst) std::swap(match.month, match.day);
        const qsizetype next = k + 1 < anchors.size() ? anchors[k + 1].index : lines.size();
        const QStringList own = lines.mid(anchors[k].index + 1, next - anchors[k].index - 1);
        ImportedEntry entry = plainEntry(match, own, options);
        const auto year = match.year ? match.year : options.assumedYear;
        if (!year) {
            ++summary.unknownYear;
            continue;
        }
        if (!LocalTime::isValid(*year, match.month, match.day)) continue;
        if (entry.body.isEmpty() && !entry.title) continue;
        entry.day = {*year, match.month, match.day};
        batch.entries.push_back(entry);
    }
    batch.skipped.undated += summary.unknownYear;
    batch.split = summary;
    return batch;
}

// The options of that number: each combination of what can be chosen comes up.
inline DatedTextSplit::Options splitOptions(int number) {
    using DatedTextSplit::Placement;
    using DatedTextSplit::Rest;
    DatedTextSplit::Options options;
    if (number % 3 == 1) options.placement = Placement::paragraphStart;
    if (number % 3 == 2) options.placement = Placement::anyLine;
    number /= 3;
    options.rest = number % 3 == 0   ? Rest::weatherOrTitle
                   : number % 3 == 1 ? Rest::body
                                     : Rest::drop;
    number /= 3;
    if (number % 3 > 0) options.dayFirst = number % 3 == 1;
    number /= 3;
    if (number % 3 > 0) options.assumedYear = number % 3 == 1 ? 2024 : 2023;
    return options;
}

inline constexpr int kSplitOptions = 81;

}  // namespace diary::test
