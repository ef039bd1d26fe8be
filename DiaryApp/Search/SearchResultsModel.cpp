#include "DiaryApp/Search/SearchResultsModel.h"

#include <algorithm>

namespace velmar {

namespace {

QString spoken(const SearchResultsModel::Line& line) {
    QStringList parts = {line.group->title, line.group->count};
    if (line.row != nullptr) {
        parts = {line.row->date, line.row->weekday, line.row->hits.value_or(QString()),
                 line.row->snippet};
    }
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

}  // namespace

void SearchResultsModel::setGroups(std::vector<SearchPaneState::Group> groups) {
    beginResetModel();
    m_groups = std::move(groups);
    m_lines.clear();
    for (const SearchPaneState::Group& group : m_groups) {
        m_lines.push_back({&group, nullptr});
        for (const SearchPaneState::Row& row : group.rows) m_lines.push_back({&group, &row});
    }
    endResetModel();
}

const SearchResultsModel::Line& SearchResultsModel::line(const QModelIndex& index) const {
    return m_lines.at(static_cast<std::size_t>(index.row()));
}

QModelIndex SearchResultsModel::indexOfHit(int hit) const {
    const auto found = std::ranges::find_if(
        m_lines, [hit](const Line& each) { return each.row != nullptr && each.row->index == hit; });
    return found == m_lines.end() ? QModelIndex()
                                  : index(static_cast<int>(found - m_lines.begin()));
}

int SearchResultsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_lines.size());
}

QVariant SearchResultsModel::data(const QModelIndex& index, int role) const {
    const Line& asked = line(index);
    // Typed digits look among what is displayed: they go to a date, past the heads.
    const bool isAsked =
        role == Qt::AccessibleTextRole || (role == Qt::DisplayRole && asked.row != nullptr);
    return isAsked ? spoken(asked) : QVariant();
}

Qt::ItemFlags SearchResultsModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    const bool isHit = line(index).row != nullptr;
    return isHit ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::ItemIsEnabled;
}

}  // namespace velmar
