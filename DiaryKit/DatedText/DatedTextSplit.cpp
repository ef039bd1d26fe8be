#include "DiaryKit/DatedText/DatedTextSplit.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "DiaryKit/DatedText/DateLine.h"
#include "DiaryKit/Foundation/LineEnds.h"
#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Import/ImportPlanCharacters.h"
#include "DiaryKit/Import/LocalTime.h"

namespace diary::DatedTextSplit {

namespace {

// A date line and its place in the text.
struct DatedLine {
    qsizetype start = 0;
    qsizetype end = 0;
    DateLine::Match match;
    // Behind a blank line, or the first line.
    bool afterBlank = false;
};

using DatedLines = std::vector<DatedLine>;

// Calls `visit(start, end)` for each line; the text behind the last LF is one, also if empty.
template <typename Visit>
void forEachLine(QStringView text, Visit visit) {
    for (qsizetype start = 0;;) {
        const qsizetype found = text.indexOf(u'\n', start);
        visit(start, found < 0 ? text.size() : found);
        if (found < 0) return;
        start = found + 1;
    }
}

bool isBlankLine(QStringView line) {
    return text::trimmedOfBlanks(line).isEmpty();
}

DatedLines datedLines(QStringView text) {
    DatedLines found;
    QStringView previous;
    forEachLine(text, [&](qsizetype start, qsizetype end) {
        const QStringView line = text.sliced(start, end - start);
        if (auto match = DateLine::match(line)) {
            found.push_back({start, end, std::move(*match), isBlankLine(previous)});
        }
        previous = line;
    });
    return found;
}

// A handful of stray dates in running text doesn't unseat a text of which at least four in five
// date lines begin paragraphs.
Placement placementOf(std::size_t paragraphStarts, std::size_t all) {
    constexpr std::size_t kFewest = 2;
    constexpr double kShare = 0.8;
    const bool areMost = static_cast<double>(all) * kShare <= static_cast<double>(paragraphStarts);
    return paragraphStarts >= kFewest && areMost ? Placement::paragraphStart : Placement::anyLine;
}

// The cut of one text.
class Cut {
public:
    Cut(QStringView text, const Options& options) : m_text(text), m_options(options) {
        chooseAnchors(datedLines(text));
        settleOrder();
        for (std::size_t i = 0; i < m_anchors.size(); ++i) addEntry(i);
    }

    [[nodiscard]] ImportBatch batch(const QString& name) && {
        ImportBatch batch{.source = ImportSource::datedText, .name = name};
        batch.entries = std::move(m_entries);
        batch.skipped.undated = (hasPreamble() ? 1 : 0) + m_summary.unknownYear;
        batch.split = std::move(m_summary);
        return batch;
    }

private:
    [[nodiscard]] QStringView lineOf(const DatedLine& dated) const {
        return m_text.sliced(dated.start, dated.end - dated.start);
    }

    [[nodiscard]] QString trimmedLine(const DatedLine& dated) const {
        return text::trimmedOfBlanks(lineOf(dated)).toString();
    }

    // The lines that open entries, out of all date lines.
    void chooseAnchors(DatedLines&& candidates) {
        const auto paragraphStarts = static_cast<std::size_t>(
            std::count_if(candidates.begin(), candidates.end(),
                          [](const DatedLine& dated) { return dated.afterBlank; }));
        m_summary.paragraphStartCount = static_cast<int>(paragraphStarts);
        m_summary.anyLineCount = static_cast<int>(candidates.size());
        m_summary.placement =
            m_options.placement.value_or(placementOf(paragraphStarts, candidates.size()));
        m_anchors = std::move(candidates);
        if (m_summary.placement == Placement::paragraphStart) leaveInlineDates();
        if (!m_anchors.empty()) m_summary.sampleLine = trimmedLine(m_anchors.front());
    }

    void leaveInlineDates() {
        for (const DatedLine& dated : m_anchors) {
            if (!dated.afterBlank) m_summary.inlineDates << trimmedLine(dated);
        }
        std::erase_if(m_anchors, [](const DatedLine& dated) { return !dated.afterBlank; });
    }

    void settleOrder() {
        m_summary.dayFirst = m_options.dayFirst.value_or(false);
        const bool isOpen =
            !m_options.dayFirst &&
            std::any_of(m_anchors.begin(), m_anchors.end(),
                        [](const DatedLine& dated) { return dated.match.isAmbiguousOrder; });
        if (!isOpen) return;
        for (const DatedLine& anchor : m_anchors) {
            if (const auto evidence = swappedOrderEvidence(lineOf(anchor))) {
                m_summary.dayFirst = *evidence;
                return;
            }
        }
        m_summary.orderUnsettled = true;
    }

    [[nodiscard]] bool hasPreamble() const {
        bool found = false;
        const QStringView ahead = m_anchors.empty() ? m_text : m_text.first(m_anchors[0].start);
        forEachLine(ahead, [&](qsizetype start, qsizetype end) {
            found = found || !isBlankLine(ahead.sliced(start, end - start));
        });
        return found;
    }

    // The lines between an anchor and the next one, without the line ends around them.
    [[nodiscard]] QStringView linesBelow(std::size_t index) const {
        const qsizetype start = m_anchors[index].end + 1;
        const qsizetype end =
            index + 1 < m_anchors.size() ? m_anchors[index + 1].start - 1 : m_text.size();
        return start < end ? m_text.sliced(start, end - start) : QStringView();
    }

    // Whether the text behind the date is to stand in the body.
    [[nodiscard]] bool isWriting(QStringView rest) const {
        if (rest.isEmpty()) return false;
        return m_options.rest == Rest::body || hasMoreCharactersThan(rest, kLongestLabel);
    }

    static bool hasMoreCharactersThan(QStringView text, qsizetype count) {
        if (text.size() <= count) return false;
        // Most long texts show it soon. The cut may split one character in two.
        const QStringView start = text.first(std::min(4 * count, text.size()));
        return characterCount(start) > count + 1 || characterCount(text) > count;
    }

    // Fills in the text behind the date and the lines below it.
    void setText(ImportedEntry& entry, const QString& rest, QStringView below) const {
        if (isWriting(rest)) {
            QString body = rest;
            body.append(u'\n').append(below);
            entry.body = text::trimmed(body).toString();
            return;
        }
        entry.body = text::trimmed(below).toString();
        if (m_options.rest != Rest::weatherOrTitle) return;
        WeatherAndTitle label = splitWeather(rest);
        entry.weather = std::move(label.weather);
        entry.title = std::move(label.title);
    }

    void addEntry(std::size_t index) {
        DateLine::Match& match = m_anchors[index].match;
        if (match.isAmbiguousOrder && m_summary.dayFirst) std::swap(match.month, match.day);
        const std::optional<int> year = match.year ? match.year : m_options.assumedYear;
        if (!year) {
            ++m_summary.unknownYear;
            return;
        }
        // 29 February was taken for a date while its year was open.
        if (!LocalTime::isValid(*year, match.month, match.day)) return;
        ImportedEntry entry{.day = {*year, match.month, match.day}, .time = match.time};
        setText(entry, match.rest, linesBelow(index));
        if (entry.body.isEmpty() && !entry.title) return;
        m_entries.push_back(std::move(entry));
    }

    QStringView m_text;
    const Options& m_options;
    DatedLines m_anchors;
    Summary m_summary;
    std::vector<ImportedEntry> m_entries;
};

}  // namespace

ImportBatch split(QString text, const QString& name, const Options& options) {
    const QString plain = text::withLineFeeds(std::move(text));
    return Cut(plain, options).batch(name);
}

}  // namespace diary::DatedTextSplit
