#include "DiaryApp/Entry/YearCard.h"

#include <QtGui/QFocusEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtGui/QTextDocument>

#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Icons.h"
#include "DiaryApp/Editor/GrowingTextView.h"
#include "DiaryApp/Editor/RhythmStyle.h"
#include "DiaryApp/Entry/PageParts.h"
#include "DiaryApp/Entry/SourceLayout.h"
#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Markdown/MarkdownEditing.h"

namespace velmar {

namespace {

constexpr double kRadius = 10;
constexpr double kArrow = 14;
constexpr double kArrowGap = 7;
constexpr double kHintHeight = 20;
constexpr qsizetype kSpokenLength = 80;

// The beginning of a text as it is read, ended at a blank if there is one.
QString firstWords(const QString& body) {
    QString plain = diary::MarkdownEditing::plainText(body.left(4 * kSpokenLength)).simplified();
    if (plain.size() <= kSpokenLength) return plain;
    const qsizetype blank = plain.lastIndexOf(u' ', kSpokenLength);
    return plain.first(blank > 0 ? blank : kSpokenLength) + u'…';
}

}  // namespace

CardStyle::CardStyle(const Settings& settings)
    : body(fonts::body(settings, settings.editorFontSize())),
      size(settings.editorFontSize()),
      lineHeight(RhythmStyle(body, size, theme::color(Token::Ink)).lineHeight()),
      narrow(QFontMetricsF(body).averageCharWidth()),
      wide(QFontMetricsF(body).horizontalAdvance(QStringLiteral("永"))) {}

YearCard::YearCard(const CardStyle& style, QWidget* page)
    : QAbstractButton(page), m_style(style), m_hover(this), m_ring(this, kRadius) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
}

YearCard::~YearCard() {
    delete m_text;
}

GrowingTextView* YearCard::text() const {
    return m_text;
}

bool YearCard::hasText() const {
    return !diary::text::trimmed(m_year.body).isEmpty();
}

void YearCard::setYear(const Year& year) {
    const bool isOtherText = year.body != m_year.body;
    const bool isOtherColor = year.isCurrent != m_year.isCurrent;
    m_year = year;
    setAccessibleName(spokenName());
    setAccessibleDescription(hint());
    if (isOtherText) {
        m_matches.clear();
        m_isLaidOut = false;
        m_estimatedWidth = 0;
        if (m_text != nullptr) m_text->hide();
    }
    if (isOtherColor && m_text != nullptr) styleText();
    update();
}

QString YearCard::spokenName() const {
    QStringList parts = {QString::number(m_year.year), m_year.ago};
    if (hasText()) {
        parts.append(firstWords(m_year.body));
    } else if (m_year.isCurrent) {
        parts.append(qtTrId("CurrentYearEmpty"));
    }
    return parts.join(QStringLiteral(", "));
}

QString YearCard::hint() const {
    return m_year.isCurrent ? qtTrId("Keep writing") : qtTrId("Open");
}

void YearCard::setMatches(std::vector<diary::TextRange> ranges) {
    m_matches = std::move(ranges);
    if (m_isLaidOut && m_text != nullptr) m_text->setMatches(m_matches, -1);
}

void YearCard::restyle() {
    m_estimatedWidth = 0;
    if (m_text != nullptr) styleText();
    update();
}

void YearCard::makeText() {
    m_text = new GrowingTextView(parentWidget());
    m_text->setReadOnly(true);
    m_text->setInert(true);
    styleText();
}

void YearCard::styleText() {
    const Token color = m_year.isCurrent ? Token::Ink : Token::InkMed;
    m_text->restyle(m_style.body, m_style.size, theme::color(color));
}

void YearCard::layOut(double pageWidth) {
    if (!hasText()) {
        m_isLaidOut = true;
        return;
    }
    if (m_text == nullptr) makeText();
    const int width = qRound(PageLayout::columnWidth(pageWidth)) + GrowingTextView::markRoom;
    m_text->show();
    m_text->resize(width, m_text->height());
    // A field whose window isn't shown yet is told its size too late for its height to count.
    QTextDocument* document = m_text->document();
    if (document->pageSize().width() != width) document->setPageSize(QSizeF(width, -1));
    if (std::exchange(m_isLaidOut, true)) return;
    m_text->setAccessibleName(QString::number(m_year.year));
    m_text->load(m_year.body);
    m_text->setMatches(m_matches, -1);
    m_text->raise();
}

int YearCard::textRows(double pageWidth) const {
    if (!hasText()) return 1;
    if (m_isLaidOut) return m_text->document()->lineCount();
    const double width = PageLayout::textWidth(pageWidth);
    if (std::exchange(m_estimatedWidth, width) != width) m_estimate = estimatedTextRows(width);
    return m_estimate;
}

int YearCard::estimatedTextRows(double width) const {
    int rows = 0;
    for (const QStringView line : QStringView(m_year.body).split(u'\n')) {
        rows += estimatedRows(line, m_style.narrow, m_style.wide, width);
    }
    return rows;
}

YearRowParts YearCard::parts(double pageWidth) const {
    return {YearRowParts::Kind::Card, double(textRows(pageWidth)) * m_style.lineHeight, 0};
}

void YearCard::place(const QRect& card, double pageWidth) {
    m_layout = layOutCard(pageWidth, parts(pageWidth));
    setGeometry(card);
    if (m_text == nullptr) return;
    const QRect column = m_layout.text.toRect().translated(card.topLeft());
    m_text->setGeometry(column.adjusted(-GrowingTextView::markRoom, 0, 0, 0));
}

bool YearCard::event(QEvent* event) {
    if (event->type() == QEvent::HoverEnter) m_hover.setOver(true);
    if (event->type() == QEvent::HoverLeave) m_hover.setOver(false);
    return QAbstractButton::event(event);
}

void YearCard::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintBox(painter);
    paintHead(painter);
    if (hasText() || !m_year.isCurrent) return;
    const double height = m_style.lineHeight;
    const QRectF line(m_layout.head.left(), m_layout.text.top(), m_layout.head.width(), height);
    paintLine(painter, line, qtTrId("CurrentYearEmpty"), {m_style.body, height, Token::EmptyText});
}

void YearCard::paintBox(QPainter& painter) const {
    const Token rest = m_year.isCurrent ? Token::CardBgActive : Token::CardBg;
    const double share = m_hover.share();
    painter.setPen(QPen(
        theme::mixed(theme::color(Token::CardBorder), theme::color(Token::CardBorderHover), share),
        1));
    painter.setBrush(theme::color(isDown() ? Token::HoverBg : rest));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
}

void YearCard::paintHead(QPainter& painter) const {
    const Token mark = m_year.isCurrent ? Token::Accent : Token::RailYear;
    paintYearMark(painter, m_layout.head, {QString::number(m_year.year), mark, m_year.ago});
    paintHint(painter, m_layout.head);
}

void YearCard::paintHint(QPainter& painter, const QRectF& head) const {
    const QString text = hint();
    const QColor color =
        theme::mixed(theme::color(Token::ChromeText), theme::color(Token::Accent), m_hover.share());
    const QFont font = fonts::sans(13);
    const double y = head.top() + (head.height() - kHintHeight) / 2 + 1;
    const QRectF arrow(head.right() - kArrow, y + (kHintHeight - kArrow) / 2, kArrow, kArrow);
    icons::paint(painter, arrow, QStringLiteral("arrow-right"), color);
    const double x = arrow.left() - kArrowGap - QFontMetricsF(font).horizontalAdvance(text);
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(QPointF(x, y + fonts::baseline(font, kHintHeight)), text);
}

// Return opens the card as Space does.
void YearCard::keyPressEvent(QKeyEvent* event) {
    m_ring.keyUsed();
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
    QAbstractButton::keyPressEvent(event);
}

void YearCard::focusInEvent(QFocusEvent* event) {
    QAbstractButton::focusInEvent(event);
    m_ring.focusIn(event->reason());
}

void YearCard::focusOutEvent(QFocusEvent* event) {
    QAbstractButton::focusOutEvent(event);
    m_ring.focusOut(event->reason());
}

}  // namespace velmar
