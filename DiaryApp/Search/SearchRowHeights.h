// The heights of the results list's lines. A hit is as high as its snippet, and to lay out hundreds
// of snippets takes longer than a key may wait; so a line has the height that is likely until it is
// measured. Whoever shows it measures it first.
#pragma once

#include <vector>

#include "DiaryApp/Search/SearchResultsModel.h"

namespace velmar {

class SearchRowHeights {
public:
    // The model must outlive it.
    explicit SearchRowHeights(const SearchResultsModel& model) : m_model(model) {}

    // Nothing is measured any more: the lines are others, or what they are written in is.
    void clear();
    // The width of a line; nothing is measured at another one.
    void setWidth(int width);

    [[nodiscard]] int height(int row) const;
    // True if the line isn't as high as it was taken to be.
    bool measure(int row);
    // The first line that isn't measured; below 0 without one.
    [[nodiscard]] int firstUnmeasured() const;

private:
    struct Height {
        // 0 until it is asked for.
        int height = 0;
        bool isMeasured = false;
    };

    [[nodiscard]] Height& at(int row) const;

    const SearchResultsModel& m_model;
    int m_width = 0;
    mutable std::vector<Height> m_heights;
    // All lines ahead of it are measured.
    mutable int m_firstUnmeasured = 0;
};

}  // namespace velmar
