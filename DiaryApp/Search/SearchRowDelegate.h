// Paints the lines of the results list: the head of a year, and a hit with its date, its number of
// matches and a snippet of up to three lines with the matches marked.
#pragma once

#include <QtWidgets/QStyledItemDelegate>

namespace velmar {

class SearchRowHeights;

class SearchRowDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    // The heights must outlive it.
    explicit SearchRowDelegate(const SearchRowHeights& heights, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;

    // The box of a hit within its line of the list.
    [[nodiscard]] static QRectF box(const QRectF& line);
    static constexpr double boxRadius = 8;
    static constexpr int headHeight = 34;
    // The height of a hit's line with so many lines of snippet, and the width that they have.
    [[nodiscard]] static int hitHeight(int snippetLines);
    [[nodiscard]] static double snippetWidth(double lineWidth);

private:
    const SearchRowHeights& m_heights;
};

}  // namespace velmar
