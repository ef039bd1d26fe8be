#include "DiaryApp/Search/SnippetLayout.h"

#include <algorithm>
#include <cmath>

#include "DiaryApp/Appearance/Fonts.h"

namespace velmar {

namespace {

constexpr double kMarkRadius = 3;
constexpr double kMarkReach = 1;

// The scripts behind this letter are mostly as wide as high; the others take about this share.
constexpr QChar kFirstWide(0x2E80);
constexpr double kLetterShare = 0.47;

QFont snippetFont() {
    return fonts::serif(13.5);
}

}  // namespace

SnippetLayout::SnippetLayout(const QString& text, const std::vector<diary::TextRange>& marks,
                             double width)
    : m_width(width), m_marks(marks), m_layout(text, snippetFont()) {
    layOut();
    if (m_layout.lineCount() <= maximumLines) return;
    m_layout.setText(elided());
    layOut();
}

int SnippetLayout::lineCount(const QString& text, double width) {
    return SnippetLayout(text, {}, width).lineCount();
}

int SnippetLayout::likelyLineCount(const QString& text, double width) {
    const auto wide =
        std::ranges::count_if(text, [](QChar letter) { return letter >= kFirstWide; });
    const double letters = kLetterShare * static_cast<double>(text.size() - wide);
    const double length = (letters + static_cast<double>(wide)) * snippetFont().pixelSize();
    return std::clamp(static_cast<int>(std::ceil(length / width)), 1, maximumLines);
}

void SnippetLayout::layOut() {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_layout.setTextOption(option);
    const double baseline = fonts::baseline(m_layout.font(), lineHeight);
    m_layout.beginLayout();
    // One line more than there may be tells whether something has to go.
    for (int i = 0; i <= maximumLines; ++i) {
        QTextLine line = m_layout.createLine();
        if (!line.isValid()) break;
        line.setLineWidth(m_width);
        line.setPosition({0, i * lineHeight + baseline - line.ascent()});
    }
    m_layout.endLayout();
}

QString SnippetLayout::elided() const {
    const int last = m_layout.lineAt(maximumLines - 1).textStart();
    const QString rest = m_layout.text().mid(last);
    return m_layout.text().left(last) +
           QFontMetricsF(m_layout.font()).elidedText(rest, Qt::ElideRight, m_width);
}

std::vector<QRectF> SnippetLayout::markBoxes() const {
    std::vector<QRectF> boxes;
    for (int i = 0; i < m_layout.lineCount(); ++i) {
        const QTextLine line = m_layout.lineAt(i);
        const int lineEnd = line.textStart() + line.textLength();
        for (const diary::TextRange& mark : m_marks) {
            const int from = std::max(static_cast<int>(mark.location), line.textStart());
            const int to = std::min(static_cast<int>(mark.end()), lineEnd);
            if (from >= to) continue;
            const double left = line.cursorToX(from);
            const double right = line.cursorToX(to);
            boxes.emplace_back(std::min(left, right), i * lineHeight, std::abs(right - left),
                               lineHeight);
        }
    }
    return boxes;
}

void SnippetLayout::paint(QPainter& painter, const QPointF& topLeft, Token color) const {
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme::color(Token::AccentSoft));
    for (const QRectF& box : markBoxes()) {
        const QRectF mark = box.adjusted(-kMarkReach, -kMarkReach, kMarkReach, kMarkReach);
        painter.drawRoundedRect(mark.translated(topLeft), kMarkRadius, kMarkRadius);
    }
    QList<QTextLayout::FormatRange> formats;
    for (const diary::TextRange& mark : m_marks) {
        QTextCharFormat format;
        format.setForeground(theme::color(Token::AccentDeep));
        formats.append({static_cast<int>(mark.location), static_cast<int>(mark.length), format});
    }
    painter.setPen(theme::color(color));
    m_layout.draw(&painter, topLeft, formats);
}

}  // namespace velmar
