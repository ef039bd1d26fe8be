// The rows of the results list: the heads of the years, and under each its hits. Read aloud as one
// sentence a row.
#pragma once

#include <QtCore/QAbstractListModel>
#include <vector>

#include "DiaryApp/Search/SearchPaneState.h"

namespace velmar {

class SearchResultsModel : public QAbstractListModel {
    Q_OBJECT

public:
    // A line of the list. A head has no row.
    struct Line {
        const SearchPaneState::Group* group = nullptr;
        const SearchPaneState::Row* row = nullptr;
    };

    using QAbstractListModel::QAbstractListModel;

    void setGroups(std::vector<SearchPaneState::Group> groups);

    // The line at a valid index of this model, until the next setGroups().
    [[nodiscard]] const Line& line(const QModelIndex& index) const;
    // The place of a hit by its number among all hits; invalid if there is none.
    [[nodiscard]] QModelIndex indexOfHit(int hit) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    std::vector<SearchPaneState::Group> m_groups;
    std::vector<Line> m_lines;
};

}  // namespace velmar
