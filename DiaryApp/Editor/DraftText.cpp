#include "DiaryApp/Editor/DraftText.h"

#include <algorithm>
#include <utility>

#include "DiaryKit/Foundation/LineEnds.h"

namespace velmar {

namespace {

// Code points that Unicode keeps free and that fonts show as nothing.
constexpr char16_t kFirstStandIn = u'\uFFF0';
constexpr char16_t kLastStandIn = u'\uFFF8';

qsizetype commonPrefix(QStringView a, QStringView b) {
    const auto [end, other] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    return end - a.begin();
}

qsizetype commonSuffix(QStringView a, QStringView b) {
    const auto [end, other] = std::mismatch(a.rbegin(), a.rend(), b.rbegin(), b.rend());
    return end - a.rbegin();
}

}  // namespace

QString DraftText::load(const QString& draft) {
    m_text = draft;
    // Stand-ins that the text itself has would be taken for what they stand for.
    auto standIn = m_standIns.begin();
    for (char16_t free = kFirstStandIn; free <= kLastStandIn; ++free) {
        if (standIn == m_standIns.end()) break;
        if (!draft.contains(QChar(free))) *standIn++ = free;
    }
    return shown(draft);
}

QString DraftText::shown(QString text) const {
    std::ranges::transform(text, text.begin(), [this](QChar each) { return display(each); });
    return text;
}

std::optional<DraftText::Edit> DraftText::replace(qsizetype position, qsizetype removed,
                                                  const QString& shown) {
    const qsizetype from = std::clamp<qsizetype>(position, 0, m_text.size());
    const qsizetype length = std::clamp<qsizetype>(removed, 0, m_text.size() - from);
    const QString before = this->shown(m_text.mid(from, length));

    const qsizetype head = commonPrefix(before, shown);
    const qsizetype tail =
        commonSuffix(QStringView(before).mid(head), QStringView(shown).mid(head));
    QString added = shown.mid(head, shown.size() - head - tail);
    const qsizetype dropped = before.size() - head - tail;
    if (dropped == 0 && added.isEmpty()) return std::nullopt;
    // An undo brings stand-ins back, which are the characters that were loaded.
    std::ranges::transform(added, added.begin(), [this](QChar each) { return exact(each); });
    m_text.replace(from + head, dropped, added);
    return Edit{from + head, dropped, added.size()};
}

QString DraftText::pasted(QString text) {
    return diary::text::withLineFeeds(std::move(text));
}

QChar DraftText::display(QChar character) const {
    const auto found = std::ranges::find(kFolded, character.unicode());
    return found == kFolded.end() ? character
                                  : QChar(m_standIns[std::size_t(found - kFolded.begin())]);
}

QChar DraftText::exact(QChar character) const {
    const auto found = std::ranges::find(m_standIns, character.unicode());
    return found == m_standIns.end() ? character
                                     : QChar(kFolded[std::size_t(found - m_standIns.begin())]);
}

}  // namespace velmar
