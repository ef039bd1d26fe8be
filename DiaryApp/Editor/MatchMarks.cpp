#include "DiaryApp/Editor/MatchMarks.h"

#include <utility>

namespace velmar {

namespace {

constexpr int kFadeMilliseconds = 120;

// As cursors of a document move: what is put in at a place goes ahead of what begins there, and
// behind what ends there.
qsizetype movedStart(qsizetype start, const DraftText::Edit& edit) {
    if (start < edit.at) return start;
    return std::max(edit.at, start - edit.removed) + edit.added;
}

qsizetype movedEnd(qsizetype end, const DraftText::Edit& edit) {
    if (end <= edit.at) return end;
    const bool isBehind = end >= edit.at + edit.removed;
    return isBehind ? end - edit.removed + edit.added : edit.at;
}

}  // namespace

MatchMarks::MatchMarks() {
    m_fade.setStartValue(0.0);
    m_fade.setEndValue(1.0);
    m_fade.setDuration(kFadeMilliseconds);
    m_fade.setCurrentTime(kFadeMilliseconds);
    connect(&m_fade, &QVariantAnimation::valueChanged, this, &MatchMarks::changed);
}

void MatchMarks::set(std::vector<diary::TextRange> ranges, int current, bool animates) {
    const bool isStep = ranges == m_ranges;
    if (isStep && current == m_current) return;
    m_ranges = std::move(ranges);
    m_previous = isStep ? m_current : -1;
    m_current = current;
    m_fade.stop();
    m_fade.setCurrentTime(isStep && animates ? 0 : kFadeMilliseconds);
    if (isStep && animates) m_fade.start();
    Q_EMIT changed();
}

void MatchMarks::edit(const DraftText::Edit& edit) {
    for (diary::TextRange& range : m_ranges) {
        const qsizetype end = movedEnd(range.end(), edit);
        range.location = movedStart(range.location, edit);
        range.length = std::max<qsizetype>(0, end - range.location);
    }
}

std::vector<MatchMarks::Mark> MatchMarks::marksIn(qsizetype from, qsizetype to) const {
    std::vector<Mark> marks;
    for (std::size_t at = 0; at < m_ranges.size(); ++at) {
        const diary::TextRange& range = m_ranges[at];
        if (range.length <= 0 || range.location >= to || range.end() <= from) continue;
        marks.push_back({range, weight(static_cast<int>(at))});
    }
    return marks;
}

std::optional<diary::TextRange> MatchMarks::range(int index) const {
    if (index < 0 || static_cast<std::size_t>(index) >= m_ranges.size()) return std::nullopt;
    return m_ranges[static_cast<std::size_t>(index)];
}

double MatchMarks::weight(int index) const {
    const double share = m_fade.currentValue().toDouble();
    if (index == m_current) return share;
    return index == m_previous ? 1 - share : 0;
}

}  // namespace velmar
