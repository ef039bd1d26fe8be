#include "DiaryKit/Vault/SectionedText.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Vault/YearSectionParser.h"

namespace diary {

namespace {

// Whether what is put behind the text is read as it is read by itself: the text ends with a line's
// end, which the LF of a CR LF pair is not, and leaves no fence open.
bool standsApart(QStringView text) {
    const bool endsLine = text.isEmpty() || (text.endsWith(u'\n') && !text.endsWith(u"\r\n"));
    return endsLine && !YearSectionParser::leavesFenceOpen(text);
}

}  // namespace

SectionedText::SectionedText(const MonthDay& monthDay, QStringView text)
    : m_monthDay(monthDay), m_pieces(pieces(text)) {}

QString SectionedText::text() const {
    return joined({0, m_pieces.size()});
}

std::optional<QStringView> SectionedText::section(int year) const {
    const std::optional<std::size_t> place = find(year);
    if (!place) return std::nullopt;
    const Piece& piece = m_pieces[*place];
    return QStringView(piece.text).sliced(piece.headerLength);
}

QStringView SectionedText::body(int year) const {
    return text::trimmed(section(year).value_or(QStringView()));
}

bool SectionedText::leavesFenceOpen() const {
    return YearSectionParser::leavesFenceOpen(m_pieces.back().text);
}

void SectionedText::closeFence() {
    m_pieces.back().text = YearSectionParser::closingFence(m_pieces.back().text);
}

bool SectionedText::appendWhole(QStringView body, QStringView separator, int year) {
    const QStringView addition = text::trimmed(body);
    bool isThere = false;
    perform(
        reach(year),
        [&](QStringView lines) {
            return YearSectionParser::appendingBody(body, separator, year, m_monthDay, lines);
        },
        [&] {
            isThere = this->body(year).contains(addition);
            return isThere;
        });
    return isThere;
}

void SectionedText::replaceBody(QStringView body, int year) {
    perform(
        reach(year),
        [&](QStringView lines) {
            return YearSectionParser::replacingBody(body, year, m_monthDay, lines);
        },
        [] { return true; });
}

void SectionedText::removeSection(int year) {
    const std::optional<std::size_t> place = find(year);
    if (!place) return;
    // The blank lines at the end of what stands ahead change with it.
    perform(
        {*place - 1, 2},
        [&](QStringView lines) { return YearSectionParser::removingSection(year, lines); },
        [] { return true; });
}

std::vector<SectionedText::Piece> SectionedText::pieces(QStringView text) {
    const std::vector<YearSectionParser::Section> sections = YearSectionParser::sections(text);
    std::vector<Piece> pieces;
    pieces.reserve(sections.size() + 1);
    const qsizetype head = sections.empty() ? text.size() : sections.front().headerRange.location;
    pieces.push_back({.text = text.first(head).toString()});
    for (const YearSectionParser::Section& section : sections) {
        const qsizetype start = section.headerRange.location;
        pieces.push_back({.year = section.year,
                          .text = text.sliced(start, section.bodyRange.end() - start).toString(),
                          .headerLength = section.headerRange.length});
    }
    return pieces;
}

std::optional<std::size_t> SectionedText::find(int year) const {
    const auto found = std::find_if(m_pieces.begin() + 1, m_pieces.end(),
                                    [&](const Piece& piece) { return piece.year == year; });
    if (found == m_pieces.end()) return std::nullopt;
    return static_cast<std::size_t>(found - m_pieces.begin());
}

// The year's section, or what a new one would be put behind, whose end changes then.
SectionedText::Reach SectionedText::reach(int year) const {
    if (const std::optional<std::size_t> place = find(year)) return {*place, 1};
    std::size_t below = 0;
    std::size_t least = 0;
    for (std::size_t i = 1; i < m_pieces.size(); ++i) {
        const int other = m_pieces[i].year;
        if (other < year && (below == 0 || other > m_pieces[below].year)) below = i;
        if (least == 0 || other < m_pieces[least].year) least = i;
    }
    if (below != 0) return {below, 1};
    return {least == 0 ? 0 : least - 1, 1};
}

QString SectionedText::joined(Reach reach) const {
    QString text;
    qsizetype size = 0;
    for (std::size_t i = 0; i < reach.count; ++i) size += m_pieces[reach.first + i].text.size();
    text.reserve(size);
    for (std::size_t i = 0; i < reach.count; ++i) text += m_pieces[reach.first + i].text;
    return text;
}

// Puts other pieces in the place of those, and gives what stood there.
std::vector<SectionedText::Piece> SectionedText::replace(Reach reach, std::vector<Piece> pieces) {
    const auto first = m_pieces.begin() + static_cast<std::ptrdiff_t>(reach.first);
    const auto end = first + static_cast<std::ptrdiff_t>(reach.count);
    std::vector<Piece> old(std::make_move_iterator(first), std::make_move_iterator(end));
    const std::size_t common = std::min(reach.count, pieces.size());
    const auto middle = pieces.begin() + static_cast<std::ptrdiff_t>(common);
    const auto rest = std::move(pieces.begin(), middle, first);
    if (common < reach.count) {
        m_pieces.erase(rest, end);
    } else {
        m_pieces.insert(rest, std::make_move_iterator(middle),
                        std::make_move_iterator(pieces.end()));
    }
    return old;
}

// Runs the edit on the pieces in reach; what stood there comes back unless it `isKept`.
void SectionedText::perform(Reach reach, const Edit& edit, const std::function<bool()>& isKept) {
    const std::size_t behind = reach.first + reach.count;
    const bool isAtEnd = behind == m_pieces.size();
    // Edits see that a header follows, and nothing of what is behind it.
    const QString header =
        isAtEnd ? QString() : m_pieces[behind].text.first(m_pieces[behind].headerLength);
    QString edited = edit(joined(reach) + header);
    edited.chop(header.size());
    std::vector<Piece> made = pieces(edited);
    const bool isAhead = reach.first == 0;
    if ((isAhead || made.front().text.isEmpty()) && (isAtEnd || standsApart(edited))) {
        if (!isAhead) made.erase(made.begin());
    } else {
        // The edit changes how other lines are read.
        made =
            pieces(joined({0, reach.first}) + edited + joined({behind, m_pieces.size() - behind}));
        reach = {0, m_pieces.size()};
    }
    const Reach now = {reach.first, made.size()};
    std::vector<Piece> old = replace(reach, std::move(made));
    if (!isKept()) replace(now, std::move(old));
}

}  // namespace diary
