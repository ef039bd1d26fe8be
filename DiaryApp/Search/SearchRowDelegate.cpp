#include "DiaryApp/Search/SearchRowDelegate.h"

#include <QtGui/QPainter>

#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Search/SearchResultsModel.h"
#include "DiaryApp/Search/SearchRowHeights.h"
#include "DiaryApp/Search/SnippetLayout.h"

namespace velmar {

namespace {

using Line = SearchResultsModel::Line;

constexpr double kHeadLeft = 20;
constexpr double kHeadTop = 14;
constexpr double kHeadLine = 16;
constexpr double kBoxMargin = 10;
// From the box's edge, its line included.
constexpr double kPaddingLeft = 11;
constexpr double kPaddingTop = 7;
constexpr double kPaddingBottom = 9;
constexpr double kDateLine = 20;
// Facts of 12.5 are drawn at 13 and would stand a pixel high.
constexpr double kDateDrop = 1;
constexpr double kDateGap = 8;

const Line& lineAt(const QModelIndex& index) {
    return static_cast<const SearchResultsModel*>(index.model())->line(index);
}

void paintHead(QPainter& painter, const QRectF& rect, const SearchPaneState::Group& group) {
    const TextLook title = {fonts::mono(12.5, QFont::Medium), kHeadLine, Token::RailYear};
    const TextLook count = {fonts::mono(11), kHeadLine, Token::AgoText};
    const QRectF line(rect.left() + kHeadLeft, rect.top() + kHeadTop, rect.width() - 2 * kHeadLeft,
                      kHeadLine);
    paintLine(painter, line, group.title, title);
    // On the title's baseline.
    const double drop =
        fonts::baseline(title.font, kHeadLine) - fonts::baseline(count.font, kHeadLine);
    paintLine(painter, line.translated(0, drop), group.count, count, Qt::AlignRight);
}

void paintBox(QPainter& painter, const QStyleOptionViewItem& option) {
    const QRectF box = SearchRowDelegate::box(option.rect);
    const bool isChosen = option.state.testFlag(QStyle::State_Selected);
    if (!isChosen && !option.state.testFlag(QStyle::State_MouseOver)) return;
    painter.setPen(isChosen ? QPen(theme::color(Token::CardBorderActive), 1) : QPen(Qt::NoPen));
    painter.setBrush(theme::color(isChosen ? Token::CardBgActive : Token::HoverBg));
    painter.drawRoundedRect(isChosen ? box.adjusted(0.5, 0.5, -0.5, -0.5) : box,
                            SearchRowDelegate::boxRadius, SearchRowDelegate::boxRadius);
}

// Date, weekday and number of matches, all on the date's baseline.
void paintDateLine(QPainter& painter, const QRectF& line, const SearchPaneState::Row& row) {
    const TextLook date = {fonts::mono(12.5, QFont::Medium), kDateLine, Token::InkMed};
    const TextLook weekday = {fonts::sans(12.5), kDateLine, Token::ChromeText};
    const TextLook hits = {fonts::mono(11), kDateLine, Token::ChromeText};
    const double baseline = fonts::baseline(date.font, kDateLine);
    const auto onBaseline = [&](const TextLook& look, const QRectF& rect) {
        return rect.translated(0, baseline - fonts::baseline(look.font, kDateLine));
    };
    paintLine(painter, line, row.date, date);
    const double right =
        row.hits ? QFontMetricsF(hits.font).horizontalAdvance(*row.hits) + kDateGap : 0;
    const double left = QFontMetricsF(date.font).horizontalAdvance(row.date) + kDateGap;
    paintLine(painter, onBaseline(weekday, line.adjusted(left, 0, -right, 0)), row.weekday,
              weekday);
    if (row.hits) paintLine(painter, onBaseline(hits, line), *row.hits, hits, Qt::AlignRight);
}

}  // namespace

SearchRowDelegate::SearchRowDelegate(const SearchRowHeights& heights, QObject* parent)
    : QStyledItemDelegate(parent), m_heights(heights) {}

QRectF SearchRowDelegate::box(const QRectF& line) {
    return line.adjusted(kBoxMargin, 0, -kBoxMargin, 0);
}

void SearchRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const {
    const Line& line = lineAt(index);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (line.row == nullptr) {
        paintHead(*painter, option.rect, *line.group);
    } else {
        paintBox(*painter, option);
        const QRectF content =
            box(option.rect).adjusted(kPaddingLeft, kPaddingTop, -kPaddingLeft, 0);
        const QRectF dateLine(content.topLeft(), QSizeF(content.width(), kDateLine));
        paintDateLine(*painter, dateLine.translated(0, kDateDrop), *line.row);
        const bool isChosen = option.state.testFlag(QStyle::State_Selected);
        SnippetLayout(line.row->snippet, line.row->snippetRanges, content.width())
            .paint(*painter, dateLine.bottomLeft(),
                   isChosen ? Token::RailTextActive : Token::RailSnippet);
    }
    painter->restore();
}

QSize SearchRowDelegate::sizeHint(const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const {
    return {option.rect.width(), m_heights.height(index.row())};
}

int SearchRowDelegate::hitHeight(int snippetLines) {
    return static_cast<int>(kPaddingTop + kDateLine + snippetLines * SnippetLayout::lineHeight +
                            kPaddingBottom);
}

double SearchRowDelegate::snippetWidth(double lineWidth) {
    return lineWidth - 2 * (kBoxMargin + kPaddingLeft);
}

}  // namespace velmar
