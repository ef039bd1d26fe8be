#include "DiaryApp/Search/SearchPaneParts.h"

#include <QtGui/QPainter>

#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Icons.h"
#include "DiaryApp/Appearance/TextPainter.h"

namespace velmar {

namespace {

constexpr double kCountLine = 16;
constexpr double kCountGap = 2;

constexpr int kNoticePaddingX = 12;
constexpr int kNoticePaddingY = 9;
constexpr int kNoticeIcon = 16;
constexpr int kNoticeGap = 8;
constexpr double kNoticeRadius = 10;

constexpr double kHintLeft = 20;
constexpr double kHintTop = 11;
constexpr double kHintLine = 18;

TextLook noticeLook() {
    return {fonts::sans(13), 18, Token::PastText};
}

double noticeTextWidth(int width) {
    return width - 2 * kNoticePaddingX - kNoticeIcon - kNoticeGap;
}

// As many of the counts as there is room for, the first in any case.
QString fittingCounts(const QString& counts, const QFont& font, double width) {
    const QFontMetricsF metrics(font);
    const QString separator = QStringLiteral(" · ");
    QString shown = counts;
    while (metrics.horizontalAdvance(shown) > width && shown.contains(separator)) {
        shown.truncate(shown.lastIndexOf(separator));
    }
    return shown;
}

// "[Enter] open": keys stand in brackets, which aren't shown.
void paintKeys(QPainter& painter, const QRectF& rect, const QString& line) {
    double x = rect.left();
    bool isKey = false;
    for (const QString& part : line.split(u'[')) {
        for (const QString& piece : part.split(u']')) {
            const TextLook look = {fonts::mono(10.5, isKey ? QFont::Medium : QFont::Normal),
                                   kHintLine, isKey ? Token::InkMed : Token::ChromeText};
            paintLine(painter, {x, rect.top(), rect.right() - x, kHintLine}, piece, look);
            x += QFontMetricsF(look.font).horizontalAdvance(piece);
            isKey = false;
        }
        isKey = true;
    }
}

}  // namespace

void SearchCountLine::update(const std::optional<QString>& count, bool isSearching) {
    m_count = count;
    m_isSearching = isSearching;
    QWidget::update();
}

void SearchCountLine::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRectF line(0, 0, width(), kCountLine);
    double right = 0;
    if (m_isSearching) {
        const TextLook look = {fonts::sans(12.5), kCountLine, Token::Accent};
        const QString text = qtTrId("SearchSearching");
        paintLine(painter, line, text, look, Qt::AlignRight);
        right = QFontMetricsF(look.font).horizontalAdvance(text) + kCountGap;
    }
    if (!m_count) return;
    const TextLook look = {fonts::mono(11), kCountLine, Token::ChromeText};
    const QRectF left = line.adjusted(0, 0, -right, 0);
    paintLine(painter, left, fittingCounts(*m_count, look.font, left.width()), look);
    paintHairline(painter, {0, height() - 1.0}, width(), Token::BorderSoft);
}

void SearchNoticeBox::update(const SearchPaneState::Notice& notice) {
    m_notice = notice;
    setAccessibleName(notice.text);
    QWidget::update();
}

int SearchNoticeBox::heightForWidth(int width) const {
    const double text = paragraphHeight(m_notice.text, noticeLook(), noticeTextWidth(width));
    return static_cast<int>(text) + 2 * kNoticePaddingY;
}

void SearchNoticeBox::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(theme::color(Token::BorderSoft), 1));
    painter.setBrush(theme::color(Token::Panel));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kNoticeRadius,
                            kNoticeRadius);
    const bool isPending = m_notice.kind == SearchPaneState::Notice::Kind::Pending;
    icons::paint(
        painter, {double(kNoticePaddingX), kNoticePaddingY + 1.0, kNoticeIcon, kNoticeIcon},
        isPending ? QStringLiteral("cloud") : QStringLiteral("info"), theme::color(Token::Chevron));
    const double left = kNoticePaddingX + kNoticeIcon + kNoticeGap;
    paintParagraph(
        painter,
        {left, double(kNoticePaddingY), noticeTextWidth(width()), height() - 2.0 * kNoticePaddingY},
        m_notice.text, noticeLook());
}

void SearchKeysHint::update(bool hasText) {
    const QString escape = hasText ? qtTrId("SearchKeysClear") : qtTrId("SearchKeysClose");
    QString text = qtTrId("SearchKeysHint").arg(escape);
    m_lines = text.split(u'\n');
    setAccessibleName(text.remove(u'[').remove(u']'));
    QWidget::update();
}

void SearchKeysHint::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), theme::color(Token::Panel));
    paintHairline(painter, {0, 0}, width(), Token::BorderSoft);
    double top = kHintTop;
    for (const QString& line : m_lines) {
        paintKeys(painter, {kHintLeft, top, width() - kHintLeft, kHintLine}, line);
        top += kHintLine;
    }
}

}  // namespace velmar
