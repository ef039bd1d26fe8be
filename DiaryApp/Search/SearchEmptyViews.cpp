#include "DiaryApp/Search/SearchEmptyViews.h"

#include <QtGui/QPainter>
#include <QtGui/QTextLayout>

#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/TextPainter.h"
#include "DiaryApp/Search/RecentSearchRow.h"

namespace velmar {

namespace {

constexpr double kLeft = 20;
constexpr double kHeadTop = 22;
constexpr double kHeadLine = 14;
constexpr int kRowsTop = 44;
constexpr int kRowMargin = 10;
constexpr double kHintGap = 16;

constexpr double kNoneLeft = 20;
constexpr double kNoneTop = 34;
constexpr double kNoneGap = 6;
constexpr int kResetGap = 16;
constexpr int kResetHeight = 28;

TextLook recentsHintLook() {
    return {fonts::sans(13), 19, Token::ChromeText};
}

TextLook messageLook() {
    return {fonts::serif(16.5, QFont::DemiBold), 24, Token::InkTitle};
}

TextLook noneHintLook() {
    return {fonts::sans(13.5), 20, Token::PastText};
}

TextLook headLook() {
    const bool isLatin = localization::installedLanguage() == Language::en;
    return {fonts::spaced(fonts::mono(10.5, QFont::Medium), isLatin ? 1.47 : 1.05), kHeadLine,
            Token::SectionHead};
}

// Wrapped and centred, from the rectangle's top.
void paintCentred(QPainter& painter, const QRectF& rect, const QString& text,
                  const TextLook& look) {
    QTextLayout layout(text, look.font);
    QTextOption option(Qt::AlignHCenter);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    const double baseline = fonts::baseline(look.font, look.lineHeight);
    double top = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(rect.width());
        line.setPosition({0, top + baseline - line.ascent()});
        top += look.lineHeight;
    }
    layout.endLayout();
    painter.setPen(theme::color(look.color));
    layout.draw(&painter, rect.topLeft());
}

}  // namespace

void SearchRecentsView::update(const SearchPaneState::Recents& recents) {
    if (m_recents.searches != recents.searches) remake(recents.searches);
    m_recents = recents;
    setAccessibleName(qtTrId("SearchRecent"));
    setAccessibleDescription(recents.hint);
    place();
    QWidget::update();
}

void SearchRecentsView::remake(const QStringList& searches) {
    for (RecentSearchRow* row : m_rows) {
        row->hide();
        row->deleteLater();
    }
    m_rows.clear();
    for (const QString& search : searches) {
        auto* row = new RecentSearchRow(search, this);
        connect(row, &RecentSearchRow::clicked, this, [this, search] {
            if (onRecent) onRecent(search);
        });
        row->onStep = [this, at = static_cast<int>(m_rows.size())](int delta) {
            focusRow(at + delta);
        };
        row->show();
        m_rows.push_back(row);
    }
}

bool SearchRecentsView::focusFirst() {
    if (m_rows.empty()) return false;
    focusRow(0);
    return true;
}

// Ahead of the first row is the field; below the last one is nothing.
void SearchRecentsView::focusRow(int row) {
    if (row < 0) {
        if (onLeft) onLeft();
    } else if (row < static_cast<int>(m_rows.size())) {
        m_rows[static_cast<std::size_t>(row)]->setFocus(Qt::TabFocusReason);
    }
}

void SearchRecentsView::place() {
    int top = kRowsTop;
    for (RecentSearchRow* row : m_rows) {
        row->setGeometry(kRowMargin, top, width() - 2 * kRowMargin, RecentSearchRow::rowHeight);
        top += RecentSearchRow::rowHeight;
    }
}

double SearchRecentsView::hintTop() const {
    if (m_rows.empty()) return kHeadTop;
    return kRowsTop + double(m_rows.size()) * RecentSearchRow::rowHeight + kHintGap;
}

void SearchRecentsView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    place();
}

void SearchRecentsView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const double textWidth = width() - 2 * kLeft;
    if (!m_rows.empty()) {
        const QString head = qtTrId("SearchRecent");
        const bool isLatin = localization::installedLanguage() == Language::en;
        paintLine(painter, {kLeft, kHeadTop, textWidth, kHeadLine}, isLatin ? head.toUpper() : head,
                  headLook());
    }
    paintParagraph(painter, {kLeft, hintTop(), textWidth, double(height())}, m_recents.hint,
                   recentsHintLook());
}

SearchNoResultsView::SearchNoResultsView(QWidget* parent)
    : QWidget(parent), m_reset(new Button(Button::Kind::Plain, this)) {
    connect(m_reset, &Button::clicked, this, [this] {
        if (onResetScope) onResetScope();
    });
}

void SearchNoResultsView::update(const SearchPaneState::NoResults& nothing) {
    m_nothing = nothing;
    m_reset->setText(nothing.resetScope.value_or(QString()));
    m_reset->setVisible(nothing.resetScope.has_value());
    setAccessibleName(nothing.message);
    setAccessibleDescription(nothing.hint);
    place();
    QWidget::update();
}

double SearchNoResultsView::hintTop() const {
    const double textWidth = width() - 2 * kNoneLeft;
    return kNoneTop + paragraphHeight(m_nothing.message, messageLook(), textWidth) + kNoneGap;
}

void SearchNoResultsView::place() {
    const double textWidth = width() - 2 * kNoneLeft;
    const double hint = paragraphHeight(m_nothing.hint, noneHintLook(), textWidth);
    const int buttonWidth = m_reset->sizeHint().width();
    m_reset->setGeometry((width() - buttonWidth) / 2, qRound(hintTop() + hint) + kResetGap,
                         buttonWidth, kResetHeight);
}

void SearchNoResultsView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    place();
}

void SearchNoResultsView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const double textWidth = width() - 2 * kNoneLeft;
    paintCentred(painter, {kNoneLeft, kNoneTop, textWidth, double(height())}, m_nothing.message,
                 messageLook());
    paintCentred(painter, {kNoneLeft, hintTop(), textWidth, double(height())}, m_nothing.hint,
                 noneHintLook());
}

}  // namespace velmar
