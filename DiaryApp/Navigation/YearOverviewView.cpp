#include "DiaryApp/Navigation/YearOverviewView.h"

#include <QtGui/QPainter>

#include "DiaryApp/Appearance/CardButton.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/TextPainter.h"
#include "DiaryApp/Navigation/MonthHeatView.h"

namespace velmar {

namespace {

constexpr int kLeft = 32;
constexpr double kTitleTop = 30;
constexpr double kTitleLine = 32;
constexpr double kTitleSpacing = -0.1;
constexpr int kCardsTop = 82;
constexpr int kCardWidth = 252;
constexpr int kCardHeight = 150;
constexpr int kCardGapX = 20;
constexpr int kCardGapY = 16;
constexpr int kCardsPerRow = 3;
constexpr double kCardRadius = 10;
constexpr int kCardPaddingX = 16;
constexpr int kHeatTop = 49;
constexpr double kNameTop = 13;
constexpr double kNameLine = 24;
constexpr double kCaptionLine = 16;
constexpr double kBottomTop = 750;
constexpr double kBottomHeight = 18;
constexpr double kSwatchWidth = 18;
constexpr double kSwatchHeight = 12;
constexpr double kSwatchRadius = 3;
constexpr double kSwatchLead = 16;
constexpr double kSwatchGap = 5;
constexpr double kFootnoteTop = 776;

QPoint cardCorner(int month) {
    const int column = (month - 1) % kCardsPerRow;
    const int row = (month - 1) / kCardsPerRow;
    return {kLeft + column * (kCardWidth + kCardGapX), kCardsTop + row * (kCardHeight + kCardGapY)};
}

QRectF bottomLine(double width) {
    return {kLeft, kBottomTop, width - 2 * kLeft, kBottomHeight};
}

}  // namespace

YearOverviewView::YearOverviewView(QWidget* parent) : QWidget(parent) {
    setFixedSize(viewSize);
    for (int month = 1; month <= 12; ++month) {
        auto* heat = new MonthHeatView(this);
        heat->move(cardCorner(month) + QPoint(1 + kCardPaddingX, kHeatTop) -
                   QPoint(MonthHeatView::reach, MonthHeatView::reach));
        heat->onPick = [this](diary::MonthDay day) {
            if (onPick) onPick(day);
        };
        heat->onTurn = [this, month](int delta) { turn(month, delta); };
        m_heats[month - 1] = heat;
    }
}

void YearOverviewView::update(const YearOverviewModel& model) {
    m_model = model;
    for (const YearOverviewModel::Month& month : model.months) {
        heat(month.month)->update(month, model.language);
    }
    setAccessibleName(model.title);
    setAccessibleDescription(model.legend + u' ' + model.total + model.totalSuffix +
                             QStringLiteral(". ") + model.footnote);
    QWidget::update();
}

void YearOverviewView::focusDay(diary::MonthDay day) {
    heat(day.month)->setFocusDay(day.day);
    heat(day.month)->setFocus(Qt::OtherFocusReason);
}

// The neighbouring month, on the same day; from December to January and back.
void YearOverviewView::turn(int month, int delta) {
    MonthHeatView* next = heat((month - 1 + delta + 12) % 12 + 1);
    next->setFocusDay(heat(month)->focusDay());
    next->setFocus(Qt::TabFocusReason);
}

void YearOverviewView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), theme::color(Token::Paper));
    const QFont title = fonts::spaced(fonts::serif(25, QFont::DemiBold), kTitleSpacing);
    paintLine(painter, {kLeft, kTitleTop, width() - 2.0 * kLeft, kTitleLine}, m_model.title,
              {title, kTitleLine, Token::InkTitle});
    for (const YearOverviewModel::Month& month : m_model.months) paintMonth(painter, month);
    paintLegend(painter);
    paintTotal(painter);
    paintLine(painter, {kLeft, kFootnoteTop, width() - 2.0 * kLeft, kCaptionLine}, m_model.footnote,
              {fonts::mono(11.5), kCaptionLine, Token::Footnote});
}

void YearOverviewView::paintMonth(QPainter& painter, const YearOverviewModel::Month& month) const {
    const QRectF card(cardCorner(month.month), QSizeF(kCardWidth, kCardHeight));
    paintCard(painter, card, kCardRadius, theme::color(Token::CardBg),
              theme::color(Token::CardBorder));
    const double padding = 1 + kCardPaddingX;
    const QRectF line = card.adjusted(padding, kNameTop, -padding, 0);
    const TextLook name = {fonts::serif(15.5, QFont::DemiBold), kNameLine, Token::InkTitle};
    const TextLook count = {fonts::mono(11.5), kCaptionLine, Token::StatLabel};
    const double drop =
        fonts::baseline(name.font, kNameLine) - fonts::baseline(count.font, kCaptionLine);
    paintLine(painter, line, month.name, name);
    paintLine(painter, line.translated(0, drop), month.dayCount, count, Qt::AlignRight);
}

void YearOverviewView::paintLegend(QPainter& painter) const {
    const TextLook look = {fonts::mono(11.5), kBottomHeight, Token::ChromeText};
    const QFontMetricsF metrics(look.font);
    QRectF line = bottomLine(width());
    paintLine(painter, line, m_model.legend, look);
    line.setLeft(line.left() + metrics.horizontalAdvance(m_model.legend));
    static const QStringList marks = {QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("2"),
                                      QStringLiteral("3+")};
    for (int shade = 0; shade < marks.size(); ++shade) {
        const QRectF swatch(std::round(line.left() + kSwatchLead),
                            line.center().y() - kSwatchHeight / 2, kSwatchWidth, kSwatchHeight);
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme::tokens().heatShades()[shade]);
        painter.drawRoundedRect(swatch, kSwatchRadius, kSwatchRadius);
        line.setLeft(swatch.right() + kSwatchGap);
        paintLine(painter, line, marks[shade], look);
        line.setLeft(line.left() + metrics.horizontalAdvance(marks[shade]));
    }
}

void YearOverviewView::paintTotal(QPainter& painter) const {
    const QFont font = fonts::mono(13);
    QRectF line = bottomLine(width());
    paintLine(painter, line, m_model.totalSuffix, {font, kBottomHeight, Token::ChromeText},
              Qt::AlignRight);
    line.setRight(line.right() - QFontMetricsF(font).horizontalAdvance(m_model.totalSuffix));
    paintLine(painter, line, m_model.total, {font, kBottomHeight, Token::InkMed}, Qt::AlignRight);
}

}  // namespace velmar
