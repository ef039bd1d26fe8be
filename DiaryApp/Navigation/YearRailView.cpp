#include "DiaryApp/Navigation/YearRailView.h"

#include <QtGui/QPainter>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>
#include <algorithm>

#include "DiaryApp/Appearance/CapsHead.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/OverlayScrollBar.h"
#include "DiaryApp/Appearance/TextPainter.h"
#include "DiaryApp/Navigation/AllYearsChip.h"
#include "DiaryApp/Navigation/RailCard.h"

namespace velmar {

namespace {

constexpr int kLineWidth = 1;
constexpr int kPadding = 16;
constexpr int kHeadTop = 14;
constexpr int kHeadHeight = 32;
constexpr int kCardsTop = 56;
constexpr int kCardWidth = 220;
constexpr int kCardGap = 8;
constexpr int kFootHeight = 44;
constexpr double kFootLine = 16;
// The cards scroll out of sight a little above the first one's place, so that its ring shows.
constexpr int kAreaTop = kHeadTop + kHeadHeight;

}  // namespace

YearRailView::YearRailView(QWidget* parent)
    : QWidget(parent),
      m_chip(new AllYearsChip(this)),
      m_area(new QScrollArea(this)),
      m_list(new QWidget),
      m_addYear(new AddYearCard(m_list)) {
    setFixedWidth(railWidth);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setFocusPolicy(Qt::NoFocus);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setWidget(m_list);
    m_area->viewport()->setAutoFillBackground(false);
    m_list->setAutoFillBackground(false);
    new OverlayScrollBar(m_area);
    m_addYear->hide();
    wire();
    retranslate();
}

void YearRailView::wire() {
    connect(m_chip, &AllYearsChip::clicked, this, [this] {
        if (onSetAllYears) onSetAllYears(!m_chip->isChecked());
    });
    m_addYear->onAddYear = [this](int year) {
        if (onAddYear) onAddYear(year);
    };
    connect(m_area->verticalScrollBar(), &QScrollBar::rangeChanged, this,
            qOverload<>(&QWidget::update));
}

void YearRailView::update(const RailModel& model) {
    arrangeCards(model);
    m_addYear->setYears(model.addYears);
    m_addYear->setVisible(!model.addYears.empty());
    m_chip->update(model.writtenYearCount, model.showsAllYears);
    if (model.footer != m_footer) {
        m_footer = model.footer;
        setAccessibleDescription(m_footer);
        QWidget::update();
    }
    place();
    showActiveCard(model);
}

// Once, when another card becomes the active one: what the user scrolls to afterwards stays.
void YearRailView::showActiveCard(const RailModel& model) {
    const auto active = std::ranges::find_if(model.cards, &Card::isActive);
    const int index =
        active == model.cards.end() ? -1 : static_cast<int>(active - model.cards.begin());
    const int year = index < 0 ? 0 : active->year;
    if (std::exchange(m_activeYear, year) == year || index < 0) return;
    // The footer lies over the lower end of the area.
    m_area->ensureWidgetVisible(m_cards[static_cast<std::size_t>(index)], 0,
                                kFootHeight + kCardGap);
}

void YearRailView::arrangeCards(const RailModel& model) {
    const bool isSameYears =
        std::ranges::equal(m_cards, model.cards, {}, &RailCard::year, &RailModel::Card::year);
    if (!isSameYears) {
        m_spare.insert(m_spare.end(), m_cards.begin(), m_cards.end());
        m_cards.clear();
        for (const Card& card : model.cards) m_cards.push_back(takeCard(card.year));
        for (RailCard* spare : m_spare) spare->hide();
    }
    QWidget* before = m_chip;
    for (std::size_t i = 0; i < model.cards.size(); ++i) {
        m_cards[i]->update(model.cards[i]);
        if (isSameYears) continue;
        m_cards[i]->show();
        setTabOrder(before, m_cards[i]);
        before = m_cards[i];
    }
    if (!isSameYears) setTabOrder(before, m_addYear);
}

// The year's own card if there is one, so that what has the focus keeps it.
RailCard* YearRailView::takeCard(int year) {
    auto found = std::ranges::find(m_spare, year, &RailCard::year);
    if (found == m_spare.end() && !m_spare.empty()) found = std::prev(m_spare.end());
    if (found != m_spare.end()) {
        RailCard* card = *found;
        m_spare.erase(found);
        return card;
    }
    auto* card = new RailCard(m_list);
    connect(card, &RailCard::clicked, this, [this, card] {
        if (onPickYear) onPickYear(card->year());
    });
    return card;
}

void YearRailView::scrollToTop() {
    m_activeYear = 0;
    m_area->verticalScrollBar()->setValue(0);
}

void YearRailView::retranslate() {
    setAccessibleName(qtTrId("AccessibleRail"));
    m_chip->retranslate();
    m_addYear->retranslate();
    place();
    QWidget::update();
}

bool YearRailView::isScrollable() const {
    return m_area->verticalScrollBar()->maximum() > 0;
}

void YearRailView::resizeEvent(QResizeEvent* /*event*/) {
    place();
}

void YearRailView::place() {
    m_chip->resize(m_chip->sizeHint());
    m_chip->move(width() - kPadding - m_chip->width(),
                 kHeadTop + (kHeadHeight - Chip::chipHeight) / 2);
    m_area->setGeometry(kLineWidth, kAreaTop, width() - kLineWidth,
                        qMax(0, height() - kAreaTop - kFootHeight));
    const int left = kPadding - kLineWidth;
    int top = kCardsTop - kAreaTop;
    for (RailCard* card : m_cards) {
        card->setGeometry(left, top, kCardWidth, RailCard::cardHeight);
        top += RailCard::cardHeight + kCardGap;
    }
    if (!m_addYear->isHidden()) {
        m_addYear->setGeometry(left, top, kCardWidth, AddYearCard::cardHeight);
        top += AddYearCard::cardHeight + kCardGap;
    }
    m_list->resize(m_area->width(), top);
}

void YearRailView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), theme::color(Token::Panel));
    const double pixel = 1 / devicePixelRatioF();
    painter.fillRect(QRectF(0, 0, pixel, height()), theme::color(Token::Border));
    const double headTop = kHeadTop + (kHeadHeight - kCapsHeadHeight) / 2;
    paintCapsHead(painter, {kPadding, headTop, m_chip->x() - 2.0 * kPadding, kCapsHeadHeight},
                  qtTrId("RailHead"));
    const double foot = height() - kFootHeight;
    if (isScrollable()) paintHairline(painter, {kLineWidth, foot}, width(), Token::BorderSoft);
    paintLine(painter,
              {kPadding, foot + (kFootHeight - kFootLine) / 2, width() - 2.0 * kPadding, kFootLine},
              m_footer, {fonts::mono(11), kFootLine, Token::RailFoot});
}

}  // namespace velmar
