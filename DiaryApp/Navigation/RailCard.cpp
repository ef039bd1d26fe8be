#include "DiaryApp/Navigation/RailCard.h"

#include <QtGui/QPainter>
#include <QtWidgets/QMenu>
#include <algorithm>

#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Icons.h"
#include "DiaryApp/Appearance/TextPainter.h"

namespace velmar {

namespace {

constexpr double kRadius = 10;
constexpr double kPaddingX = 15;
constexpr double kPaddingY = 11;
constexpr double kYearLine = 20;
constexpr double kYearSpacing = -0.15;
constexpr double kCaptionLine = 16;
constexpr double kSnippetTop = 24;
constexpr double kSnippetLine = 20;
constexpr int kSnippetLines = 2;
constexpr double kFootTop = 68;
constexpr double kBadgeHeight = 17;
constexpr double kBadgePadding = 8;
constexpr double kAddIconLeft = 14;
constexpr double kAddIconSize = 15;
constexpr double kAddTextLeft = 38;
constexpr double kAddChevronSize = 13;
constexpr double kAddLine = 20;

// A text of one line for painting: separators and controls, which would break it, are blanks.
QString onOneLine(QString text) {
    const auto breaks = [](QChar unit) {
        return unit.category() == QChar::Other_Control ||
               unit.category() == QChar::Separator_Line ||
               unit.category() == QChar::Separator_Paragraph;
    };
    if (std::ranges::none_of(text, breaks)) return text;
    std::ranges::replace_if(text, breaks, QLatin1Char(' '));
    return text;
}

QString spoken(const RailModel::Card& card) {
    QStringList parts{QString::number(card.year), card.meta, card.snippet};
    if (!card.ago.isEmpty()) parts.append(card.ago);
    if (card.hits) parts.append(*card.hits);
    return parts.join(QStringLiteral(", "));
}

}  // namespace

RailCard::RailCard(QWidget* parent) : CardButton(kRadius, parent) {
    setCheckable(true);
}

void RailCard::update(const RailModel::Card& card) {
    if (card == m_card) return;
    m_card = card;
    setChecked(card.isActive);
    setAccessibleName(spoken(card));
    setGround({.fill = card.background,
               .line = card.border,
               .hoverLine = card.isActive ? card.border : Token::CardBorderHover});
}

void RailCard::paintContent(QPainter& painter) const {
    const QRectF inner = QRectF(rect()).adjusted(kPaddingX, kPaddingY, -kPaddingX, 0);
    paintHead(painter, inner);
    paintLines(painter, inner.adjusted(0, kSnippetTop, 0, 0), onOneLine(m_card.snippet),
               {fonts::serif(13.5), kSnippetLine, m_card.snippetColor}, kSnippetLines);
    paintFoot(painter, inner);
}

void RailCard::paintHead(QPainter& painter, const QRectF& inner) const {
    const TextLook year = {fonts::spaced(fonts::mono(15, QFont::Medium), kYearSpacing), kYearLine,
                           m_card.yearColor};
    const TextLook meta = {fonts::mono(11), kCaptionLine,
                           m_card.isActive ? Token::ChromeText : Token::AgoText};
    paintLine(painter, inner, QString::number(m_card.year), year);
    const double drop =
        fonts::baseline(year.font, kYearLine) - fonts::baseline(meta.font, kCaptionLine);
    paintLine(painter, inner.translated(0, drop), m_card.meta, meta, Qt::AlignRight);
}

void RailCard::paintFoot(QPainter& painter, const QRectF& inner) const {
    const QRectF line(inner.left(), inner.top() + kFootTop, inner.width(), kCaptionLine);
    const TextLook ago = {fonts::mono(11), kCaptionLine,
                          m_card.isActive ? Token::ChromeText : Token::AgoText};
    if (!m_card.hits) return paintLine(painter, line, m_card.ago, ago);
    const TextLook look = {fonts::mono(10.5, QFont::Medium), kBadgeHeight, Token::AccentDeep};
    const double width = QFontMetricsF(look.font).horizontalAdvance(*m_card.hits);
    const QRectF badge(line.right() - width - 2 * kBadgePadding,
                       line.center().y() - kBadgeHeight / 2, width + 2 * kBadgePadding,
                       kBadgeHeight);
    paintLine(painter, line.adjusted(0, 0, -badge.width() - kBadgePadding, 0), m_card.ago, ago);
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme::color(Token::AccentSoft));
    painter.drawRoundedRect(badge, kBadgeHeight / 2, kBadgeHeight / 2);
    paintLine(painter, badge.adjusted(kBadgePadding, 0, -kBadgePadding, 0), *m_card.hits, look);
}

AddYearCard::AddYearCard(QWidget* parent) : CardButton(kRadius, parent) {
    setGround(
        {.line = Token::CardBorderHover, .hoverLine = Token::CardBorderActive, .isDashed = true});
    connect(this, &AddYearCard::clicked, this, &AddYearCard::openMenu);
}

void AddYearCard::setYears(const std::vector<int>& years) {
    m_years = years;
}

void AddYearCard::retranslate() {
    setText(qtTrId("Add a past year"));
    setAccessibleDescription(qtTrId("AccessibleAddYear"));
    update();
}

void AddYearCard::openMenu() {
    delete m_menu;
    m_menu = new QMenu(this);
    m_menu->setAccessibleName(text());
    for (const int year : m_years) {
        QAction* item = m_menu->addAction(QString::number(year));
        connect(item, &QAction::triggered, this, [this, year] {
            if (onAddYear) onAddYear(year);
        });
    }
    m_menu->popup(mapToGlobal(QPoint(0, height() + 4)));
}

void AddYearCard::paintContent(QPainter& painter) const {
    const QColor ink = hovered(Token::ChromeText, Token::InkMed);
    icons::paint(painter, {kAddIconLeft, (height() - kAddIconSize) / 2, kAddIconSize, kAddIconSize},
                 QStringLiteral("plus"), ink);
    const double right = width() - kAddIconLeft - kAddChevronSize;
    icons::paint(painter,
                 {right, (height() - kAddChevronSize) / 2, kAddChevronSize, kAddChevronSize},
                 QStringLiteral("chevron-down"), theme::color(Token::Chevron));
    const QFont font = fonts::sans(13.5);
    const double top = (height() - kAddLine) / 2;
    painter.setFont(font);
    painter.setPen(ink);
    painter.drawText(
        QPointF(kAddTextLeft, top + fonts::baseline(font, kAddLine)),
        QFontMetricsF(font).elidedText(text(), Qt::ElideRight, right - kAddTextLeft - 4));
}

}  // namespace velmar
