#include "DiaryApp/Search/SearchRowHeights.h"

#include <utility>

#include "DiaryApp/Search/SearchRowDelegate.h"
#include "DiaryApp/Search/SnippetLayout.h"

namespace velmar {

void SearchRowHeights::clear() {
    m_heights.clear();
    m_firstUnmeasured = 0;
}

void SearchRowHeights::setWidth(int width) {
    if (std::exchange(m_width, width) != width) clear();
}

SearchRowHeights::Height& SearchRowHeights::at(int row) const {
    m_heights.resize(static_cast<std::size_t>(m_model.rowCount()));
    return m_heights.at(static_cast<std::size_t>(row));
}

int SearchRowHeights::height(int row) const {
    Height& known = at(row);
    if (known.height > 0) return known.height;
    const SearchPaneState::Row* hit = m_model.line(m_model.index(row)).row;
    known.height = SearchRowDelegate::headHeight;
    if (hit == nullptr) {
        known.isMeasured = true;
    } else {
        const double width = SearchRowDelegate::snippetWidth(m_width);
        known.height =
            SearchRowDelegate::hitHeight(SnippetLayout::likelyLineCount(hit->snippet, width));
    }
    return known.height;
}

bool SearchRowHeights::measure(int row) {
    const int before = height(row);
    Height& known = at(row);
    if (known.isMeasured) return false;
    const SearchPaneState::Row* hit = m_model.line(m_model.index(row)).row;
    const double width = SearchRowDelegate::snippetWidth(m_width);
    known.height = SearchRowDelegate::hitHeight(SnippetLayout::lineCount(hit->snippet, width));
    known.isMeasured = true;
    return known.height != before;
}

int SearchRowHeights::firstUnmeasured() const {
    const int count = m_model.rowCount();
    while (m_firstUnmeasured < count && at(m_firstUnmeasured).isMeasured) ++m_firstUnmeasured;
    return m_firstUnmeasured < count ? m_firstUnmeasured : -1;
}

}  // namespace velmar
