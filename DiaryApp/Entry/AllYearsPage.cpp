#include "DiaryApp/Entry/AllYearsPage.h"

#include <QtCore/QScopedValueRollback>
#include <QtCore/QTimerEvent>
#include <QtWidgets/QScrollBar>
#include <limits>

#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Entry/AllYearsModel.h"
#include "DiaryApp/Entry/DayHead.h"
#include "DiaryApp/Entry/GapRow.h"

namespace velmar {

using AllYears = EntryModel::AllYears;

AllYearsPage::AllYearsPage(const Settings& settings, QWidget* parent)
    : PageScroll(parent), m_style(settings), m_settings(settings), m_head(new DayHead(page())) {
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &AllYearsPage::layOutVisible);
    retranslate();
}

void AllYearsPage::retranslate() {
    page()->setAccessibleName(qtTrId("AccessiblePage"));
    m_head->retranslate();
}

void AllYearsPage::restyle() {
    PageScroll::restyle();
    m_style = CardStyle(m_settings);
    for (const auto& [year, card] : m_cards) card->restyle();
    place();
    layOutVisible();
}

void AllYearsPage::update(const QString& dayKey, const AllYears& years) {
    const SummaryParts summary = summaryParts(years.summary);
    m_head->setTexts({dayKey, summary.span, summary.counts, summary.hint, true});
    showRows(years.rows);
    orderTabs();
    place();
    layOutVisible();
}

void AllYearsPage::showRows(const std::vector<AllYears::Row>& rows) {
    m_rows.clear();
    std::map<int, YearCard*> shown;
    std::size_t gaps = 0;
    for (const AllYears::Row& row : rows) {
        if (const auto* year = std::get_if<AllYears::Year>(&row)) {
            YearCard* card = cardOf(year->year);
            card->setYear(*year);
            shown[year->year] = card;
            m_rows.push_back({card, nullptr});
        } else {
            GapRow* gap = gapRow(gaps++);
            gap->setGap(std::get<AllYears::Gap>(row));
            m_rows.push_back({nullptr, gap});
        }
    }
    dropCardsBut(shown);
    for (std::size_t i = 0; i < m_gaps.size(); ++i) m_gaps[i]->setVisible(i < gaps);
}

YearCard* AllYearsPage::cardOf(int year) {
    YearCard*& card = m_cards[year];
    if (card != nullptr) return card;
    card = new YearCard(m_style, page());
    connect(card, &QAbstractButton::clicked, this, [this, year] {
        if (onOpenYear) onOpenYear(year);
    });
    card->show();
    return card;
}

GapRow* AllYearsPage::gapRow(std::size_t index) {
    if (index < m_gaps.size()) return m_gaps[index];
    auto* gap = new GapRow(page());
    connect(gap->button(), &QAbstractButton::clicked, this, [this, gap] {
        if (onOpenYear) onOpenYear(gap->firstYear());
    });
    m_gaps.push_back(gap);
    return gap;
}

void AllYearsPage::dropCardsBut(const std::map<int, YearCard*>& kept) {
    for (const auto& [year, card] : m_cards) {
        if (kept.contains(year)) continue;
        // Qt would hand the focus of what goes to whatever comes next.
        if (card->hasFocus()) setFocus(Qt::OtherFocusReason);
        card->hide();
        card->deleteLater();
    }
    m_cards = kept;
}

void AllYearsPage::orderTabs() const {
    QWidget* last = m_head->next();
    for (const Row& row : m_rows) {
        QWidget* next = row.card != nullptr ? static_cast<QWidget*>(row.card) : row.gap->button();
        setTabOrder(last, next);
        last = next;
    }
}

void AllYearsPage::place() {
    if (m_isPlacing) return;
    const QScopedValueRollback<bool> placing(m_isPlacing, true);
    const double width = viewport()->width();
    std::vector<YearRowParts> parts;
    for (const Row& row : m_rows) {
        if (row.card != nullptr && row.card->isLaidOut()) row.card->layOut(width);
        parts.push_back(row.card != nullptr ? row.card->parts(width)
                                            : YearRowParts{YearRowParts::Kind::Gap, 0, 0});
    }
    const AllYearsLayout layout = layOutAllYears(width, viewport()->height(), parts);
    m_head->setColumn(layout.head.toRect());
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const QRect rect = layout.rows[i].toRect();
        m_rows[i].card != nullptr ? m_rows[i].card->place(rect, width)
                                  : m_rows[i].gap->setGeometry(rect);
    }
    page()->resize(qRound(width), qRound(layout.height));
}

YearCard* AllYearsPage::nextToLayOut(int above) const {
    for (const Row& row : m_rows) {
        if (row.card == nullptr || row.card->isLaidOut()) continue;
        return row.card->y() < above ? row.card : nullptr;
    }
    return nullptr;
}

// What stands at the top of the window stays there when a card above it turns out higher or lower
// than it was taken to be.
void AllYearsPage::layOut(YearCard* card) {
    const int top = verticalScrollBar()->value();
    const bool isAbove = card->geometry().bottom() < top;
    const int before = card->height();
    card->layOut(viewport()->width());
    place();
    if (isAbove) verticalScrollBar()->setValue(top + card->height() - before);
}

// From the top down to the window's bottom, so that what is in view is where it will stay. The
// cards below follow one by one once no event waits.
void AllYearsPage::layOutVisible() {
    if (m_isPlacing) return;
    const auto bottom = [this] { return verticalScrollBar()->value() + viewport()->height(); };
    while (YearCard* card = nextToLayOut(bottom())) layOut(card);
    if (nextToLayOut(std::numeric_limits<int>::max()) != nullptr) m_idle.start(0, this);
}

void AllYearsPage::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_idle.timerId()) return PageScroll::timerEvent(event);
    YearCard* card = nextToLayOut(std::numeric_limits<int>::max());
    if (card == nullptr) return m_idle.stop();
    layOut(card);
}

void AllYearsPage::setMatches(const std::map<int, std::vector<diary::TextRange>>& ranges) {
    for (const auto& [year, card] : m_cards) {
        const auto found = ranges.find(year);
        card->setMatches(found != ranges.end() ? found->second : std::vector<diary::TextRange>());
    }
}

void AllYearsPage::glideToYear(int year) {
    const auto found = m_cards.find(year);
    if (found == m_cards.end()) return;
    // Where it will stand is known once all above it is laid out.
    while (YearCard* card = nextToLayOut(found->second->geometry().bottom())) layOut(card);
    glideTo(found->second->geometry());
}

std::optional<int> AllYearsPage::yearAt(const QPoint& global) const {
    const QPoint point = page()->mapFromGlobal(global);
    if (!viewport()->rect().contains(viewport()->mapFromGlobal(global))) return std::nullopt;
    for (const auto& [year, card] : m_cards) {
        if (card->geometry().contains(point)) return year;
    }
    return std::nullopt;
}

void AllYearsPage::resizeEvent(QResizeEvent* event) {
    PageScroll::resizeEvent(event);
    place();
    layOutVisible();
}

}  // namespace velmar
