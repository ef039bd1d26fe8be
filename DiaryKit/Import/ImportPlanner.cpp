#include "DiaryKit/Import/ImportPlanner.h"

#include <QtCore/QSet>
#include <algorithm>
#include <map>
#include <unordered_set>

#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Import/EntryRenderer.h"
#include "DiaryKit/Import/ImportRecordKeys.h"
#include "DiaryKit/Vault/DayFile.h"
#include "DiaryKit/Vault/YearSectionParser.h"

namespace diary::ImportPlanner {

namespace {

using Addition = ImportPlan::Addition;
using Entries = std::vector<const ImportedEntry*>;
using Trait = ImportPlan::Sample::Trait;

const QStringView kSeparator = u"---";

// Entries with a time come first, by their times; otherwise the batch's order stands.
bool comesFirst(const ImportedEntry* a, const ImportedEntry* b) {
    if (!a->time || !b->time) return a->time && !b->time;
    return *a->time < *b->time;
}

bool hasHeading(const ImportedEntry& entry) {
    const bool isInside = !entry.isVelmarSection && entry.body.contains(QLatin1String("\n#"));
    return isInside || entry.body.startsWith(u'#');
}

std::set<Trait> traitsOf(const Addition& addition) {
    std::set<Trait> traits;
    if (addition.entries.size() >= 2) traits.insert(Trait::several);
    if (addition.appended) traits.insert(Trait::appended);
    const bool hasHeadings =
        std::any_of(addition.entries.begin(), addition.entries.end(), hasHeading);
    if (hasHeadings) traits.insert(Trait::headings);
    return traits;
}

// White space ahead of a first line can hide a fence, which shows once the addition is trimmed to
// be written and then swallows all later years. Any other addition stays as it was rendered.
QString withClosedFence(const QString& section) {
    const QStringView trimmed = text::trimmed(section);
    if (!YearSectionParser::leavesFenceOpen(trimmed)) return section;
    return YearSectionParser::closingFence(trimmed);
}

// Entries of a section, by all that makes their identities: finding a repeated one among them costs
// far less than digesting each.
struct SameEntry {
    size_t operator()(const ImportedEntry* entry) const {
        const int time = entry->time ? entry->time->hour * 60 + entry->time->minute : -1;
        return qHashMulti(0, entry->body, entry->title.value_or(QString()),
                          entry->place.value_or(QString()), entry->weather.value_or(QString()),
                          entry->mood.value_or(QString()), entry->journal.value_or(QString()),
                          entry->tags, time);
    }
    bool operator()(const ImportedEntry* a, const ImportedEntry* b) const { return *a == *b; }
};
using DistinctEntries = std::unordered_set<const ImportedEntry*, SameEntry, SameEntry>;

// Gathers a plan, day by day.
class Planning {
public:
    Planning(const ImportBatch& batch, const ImportOptions& options,
             std::span<const ImportRecord> history)
        : m_batch(batch), m_history(history) {
        m_plan.options = options;
        for (const ImportedEntry& entry : batch.entries) group(entry);
    }

    ImportPlan finished(const ExistingText& existingText) {
        for (auto& [monthDay, years] : m_days) planDay(monthDay, years, existingText(monthDay));
        m_plan.samples = pickSamples(m_samples);
        return std::move(m_plan);
    }

private:
    using Years = std::map<int, Entries>;

    // A day while it is planned: what its file will hold, and the keys it holds already.
    struct Day {
        ImportPlan::FileChange change;
        SectionedText text;
        QSet<QString> seen;
    };

    void group(const ImportedEntry& entry) {
        if (entry.journal && m_plan.options.excludedJournals.contains(*entry.journal)) {
            ++m_plan.stats.excluded;
        } else if (!entry.title && text::trimmed(entry.body).isEmpty()) {
            ++m_plan.stats.empty;
        } else {
            m_days[entry.day.monthDay()][entry.day.year].push_back(&entry);
        }
    }

    void planDay(const MonthDay& monthDay, Years& years, const std::optional<QString>& text) {
        Day day{.change = {.monthDay = monthDay, .existed = text.has_value()},
                .text = {monthDay, text.value_or(dayfile::blankTemplate(monthDay))},
                .seen = ImportLog::entryKeys(m_history, m_batch.source, monthDay, text)};
        for (auto& [year, entries] : years) planYear(year, entries, day);
        if (day.change.additions.empty()) return;
        if (text) day.change.digest = ImportLog::hash(*text);
        ImportPlan::Stats& stats = m_plan.stats;
        stats.entries += day.change.entryCount;
        ++stats.days;
        if (!day.change.existed) ++stats.newFiles;
        m_plan.changes.push_back(std::move(day.change));
    }

    void planYear(int year, Entries& entries, Day& day) {
        std::stable_sort(entries.begin(), entries.end(), comesFirst);
        const QString body = day.text.body(year).toString();
        Addition addition{.year = year,
                          .appended = !body.isEmpty(),
                          .entries = newEntries(entries, body, day.seen)};
        if (addition.entries.empty()) return;
        if (addition.appended && isLeftAlone(addition.entries)) return;
        const auto placement = addition.appended ? EntryRenderer::Placement::Appended
                                                 : EntryRenderer::Placement::Alone;
        addition.text =
            withClosedFence(EntryRenderer::section(addition.entries, m_plan.options, placement));
        if (!append(addition.text, year, day.text)) return;
        add(std::move(addition), body, day.change);
    }

    // Those of the entries that neither the file nor the batch has already.
    std::vector<ImportedEntry> newEntries(const Entries& entries, const QString& body,
                                          const QSet<QString>& seen) {
        std::vector<ImportedEntry> kept;
        DistinctEntries local;
        for (const ImportedEntry* entry : entries) {
            const bool isSeen =
                !seen.isEmpty() && seen.contains(EntryRenderer::identity(*entry, m_batch.source));
            if (isSeen || !local.insert(entry).second ||
                EntryRenderer::matchesWholeSection(*entry, body, m_plan.options)) {
                ++m_plan.stats.duplicates;
            } else {
                kept.push_back(*entry);
            }
        }
        return kept;
    }

    // Counts a section that has text already, and tells whether it stays as it is.
    bool isLeftAlone(const std::vector<ImportedEntry>& entries) {
        ++m_plan.stats.overlapping;
        if (m_plan.options.conflict != ImportOptions::Conflict::skip) return false;
        m_plan.stats.skippedForConflict += static_cast<int>(entries.size());
        return true;
    }

    void add(Addition addition, const QString& body, ImportPlan::FileChange& change) {
        change.entryCount += static_cast<int>(addition.entries.size());
        m_samples.push_back({.monthDay = change.monthDay,
                             .year = addition.year,
                             .existing = body,
                             .added = addition.text,
                             .traits = traitsOf(addition)});
        YearRange& years = m_plan.stats.years.emplace(
            m_plan.stats.years.value_or(YearRange{addition.year, addition.year}));
        years.first = std::min(years.first, addition.year);
        years.last = std::max(years.last, addition.year);
        change.additions.push_back(std::move(addition));
    }

    const ImportBatch& m_batch;
    std::span<const ImportRecord> m_history;
    ImportPlan m_plan;
    std::map<MonthDay, Years> m_days;
    std::vector<ImportPlan::Sample> m_samples;
};

}  // namespace

ImportPlan plan(const ImportBatch& batch, const ImportOptions& options,
                std::span<const ImportRecord> history, const ExistingText& existingText) {
    return Planning(batch, options, history).finished(existingText);
}

ImportPlan plan(const ImportBatch& batch, const ImportOptions& options,
                std::span<const ImportRecord> history, const QString& vault) {
    return plan(batch, options, history,
                [&](const MonthDay& day) { return dayfile::existingText(vault, day); });
}

bool append(QStringView addition, int year, SectionedText& day) {
    if (text::trimmed(addition).isEmpty()) return false;
    if (day.appendWhole(addition, kSeparator, year)) return true;
    if (!day.leavesFenceOpen()) return false;
    // Behind a fence that the file leaves open, the addition's own fences are turned inside out,
    // and what they hold may end the section.
    SectionedText closed = day;
    closed.closeFence();
    if (!closed.appendWhole(addition, kSeparator, year)) return false;
    day = std::move(closed);
    return true;
}

}  // namespace diary::ImportPlanner
