#include "DiaryApp/Navigation/SidebarParts.h"

#include <QtGui/QKeySequence>
#include <QtGui/QPainter>
#include <cmath>

#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Icons.h"
#include "DiaryApp/Appearance/TextPainter.h"

namespace velmar {

namespace {

constexpr double kRadius = 8;
constexpr double kLine = 20;
constexpr double kCaptionLine = 16;
constexpr double kIconSize = 16;
constexpr double kSearchPadding = 11;
constexpr double kSearchText = 36;
constexpr double kTodayPadding = 13;
constexpr double kTitleLine = 28;
constexpr double kTitleTop = 2;
constexpr double kYearGap = 9;
constexpr double kYearDrop = 1;
constexpr int kStepTop = 2;
constexpr double kStatHeight = 27;
constexpr double kStatTextTop = 5;
constexpr int kDoorHeight = 28;
constexpr double kDoorIcon = 8;
constexpr double kDoorText = 31;
constexpr double kDoorEnd = 11;
constexpr int kFootPadding = 12;
constexpr int kFootTop = 8;

QFont key() {
    return fonts::mono(11);
}

Button* iconButton(const QString& icon, QWidget* parent) {
    auto* button = new Button(Button::Kind::Quiet, parent);
    button->setIconName(icon);
    button->resize(button->sizeHint());
    return button;
}

double widthOf(const QString& text, const QFont& font) {
    return QFontMetricsF(font).horizontalAdvance(text);
}

}  // namespace

SearchButton::SearchButton(QWidget* parent) : CardButton(kRadius, parent) {}

void SearchButton::retranslate() {
    const QKeySequence keys(Qt::CTRL | Qt::Key_F);
    setText(qtTrId("SidebarSearch"));
    setToolTip(text() + QStringLiteral("   ") + keys.toString(QKeySequence::NativeText));
    m_key = keys.toString(QKeySequence::NativeText).replace(u'+', u' ');
    update();
}

void SearchButton::paintContent(QPainter& painter) const {
    icons::paint(painter, {kSearchPadding, (height() - kIconSize) / 2, kIconSize, kIconSize},
                 QStringLiteral("search"), theme::color(Token::Chevron));
    const double keyWidth = widthOf(m_key, key());
    const double keyLeft = width() - kSearchPadding - keyWidth;
    paintLine(painter,
              {kSearchText, (height() - kLine) / 2, keyLeft - kSearchPadding - kSearchText, kLine},
              text(), {fonts::sans(13.5), kLine, Token::ChromeText});
    paintLine(painter, {keyLeft, (height() - kCaptionLine) / 2, keyWidth, kCaptionLine}, m_key,
              {key(), kCaptionLine, Token::RailFoot});
}

MonthHead::MonthHead(QWidget* parent)
    : QWidget(parent),
      m_previous(iconButton(QStringLiteral("chevron-left"), this)),
      m_next(iconButton(QStringLiteral("chevron-right"), this)) {}

void MonthHead::setMonth(const QString& title, int year) {
    m_title = title;
    m_year = year;
    setAccessibleName(title + u' ' + QString::number(year));
    update();
}

void MonthHead::retranslate() {
    m_previous->setAccessibleName(qtTrId("SidebarPreviousMonth"));
    m_previous->setHint(qtTrId("SidebarPreviousMonth"));
    m_next->setAccessibleName(qtTrId("SidebarNextMonth"));
    m_next->setHint(qtTrId("SidebarNextMonth"));
}

void MonthHead::resizeEvent(QResizeEvent* /*event*/) {
    m_next->move(width() - m_next->width(), kStepTop);
    m_previous->move(m_next->x() - m_previous->width(), kStepTop);
}

void MonthHead::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const TextLook title = {fonts::serif(20, QFont::DemiBold), kTitleLine, Token::InkTitle};
    const TextLook year = {fonts::mono(12), kTitleLine, Token::ChromeText};
    const double room = m_previous->x() - widthOf(QString::number(m_year), year.font) - kYearGap;
    paintLine(painter, {0, kTitleTop, room, kTitleLine}, m_title, title);
    const double x = qMin(room, widthOf(m_title, title.font)) + kYearGap;
    paintLine(painter, {x, kTitleTop + kYearDrop, m_previous->x() - x, kTitleLine},
              QString::number(m_year), year);
}

TodayButton::TodayButton(QWidget* parent) : CardButton(kRadius, parent) {}

void TodayButton::setTexts(const QString& title, const QString& date) {
    setText(title);
    m_date = date;
    setAccessibleName(title + QStringLiteral(", ") + date);
    setToolTip(title + QStringLiteral("   ") +
               QKeySequence(Qt::CTRL | Qt::Key_T).toString(QKeySequence::NativeText));
    update();
}

void TodayButton::paintContent(QPainter& painter) const {
    const TextLook date = {fonts::mono(11.5), kCaptionLine, Token::ChromeText};
    const double dateWidth = widthOf(m_date, date.font);
    const double dateLeft = width() - kTodayPadding - dateWidth;
    paintLine(painter, {dateLeft, (height() - kCaptionLine) / 2, dateWidth, kCaptionLine}, m_date,
              date);
    paintLine(painter, {kTodayPadding, (height() - kLine) / 2, dateLeft - 2 * kTodayPadding, kLine},
              text(), {fonts::sans(13.5, QFont::Medium), kLine, Token::InkMed});
}

StatsView::StatsView(QWidget* parent) : QWidget(parent) {}

void StatsView::update(const std::array<SidebarModel::Stat, 3>& stats) {
    if (stats == m_stats) return;
    m_stats = stats;
    QStringList spoken;
    for (const SidebarModel::Stat& stat : stats) {
        spoken.append((stat.label + u' ' + stat.value + stat.suffix).trimmed());
    }
    setAccessibleName(spoken.join(QStringLiteral(", ")));
    QWidget::update();
}

void StatsView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const TextLook label = {fonts::sans(13), kCaptionLine, Token::StatLabel};
    const TextLook value = {fonts::mono(12), kCaptionLine, Token::InkMed};
    const TextLook suffix = {fonts::mono(12), kCaptionLine, Token::RailFoot};
    double top = 0;
    for (const SidebarModel::Stat& stat : m_stats) {
        QRectF line(0, top + kStatTextTop, width(), kCaptionLine);
        paintLine(painter, line, stat.suffix, suffix, Qt::AlignRight);
        line.setRight(line.right() - widthOf(stat.suffix, suffix.font));
        paintLine(painter, line, stat.value, value, Qt::AlignRight);
        line.setRight(line.right() - widthOf(stat.value, value.font));
        paintLine(painter, line, stat.label, label);
        if (top > 0) paintHairline(painter, {0, top - 1}, width(), Token::BorderSoft);
        top += kStatHeight;
    }
}

DoorButton::DoorButton(const QString& icon, QWidget* parent)
    : CardButton(kRadius, parent), m_icon(icon) {}

void DoorButton::setTexts(const QString& text, const QKeySequence& keys) {
    setText(text);
    setToolTip(text + QStringLiteral("   ") + keys.toString(QKeySequence::NativeText));
    resize(sizeHint());
}

QSize DoorButton::sizeHint() const {
    const double width = kDoorText + widthOf(text(), fonts::sans(13)) + kDoorEnd;
    return {static_cast<int>(std::ceil(width)), kDoorHeight};
}

void DoorButton::paintGround(QPainter& painter) const {
    const double share = isDown() ? 1 : hoverShare();
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme::color(isDown() ? Token::GridHoverOutline : Token::HoverBg, share));
    painter.drawRoundedRect(rect(), kRadius, kRadius);
}

void DoorButton::paintContent(QPainter& painter) const {
    icons::paint(painter, {kDoorIcon, (height() - kIconSize) / 2, kIconSize, kIconSize}, m_icon,
                 theme::color(Token::Chevron));
    const QFont font = fonts::sans(13);
    painter.setFont(font);
    painter.setPen(isDown() ? theme::color(Token::Ink) : hovered(Token::ChromeText, Token::InkMed));
    painter.drawText(QPointF(kDoorText, fonts::baseline(font, height())), text());
}

SidebarFoot::SidebarFoot(QWidget* parent)
    : QWidget(parent),
      m_yearCalendar(new DoorButton(QStringLiteral("calendar"), this)),
      m_settings(new DoorButton(QStringLiteral("sliders"), this)) {}

void SidebarFoot::retranslate() {
    m_yearCalendar->setTexts(qtTrId("SidebarYearCalendar"), QKeySequence(Qt::CTRL | Qt::Key_Y));
    m_settings->setTexts(qtTrId("SidebarSettings"), QKeySequence(Qt::CTRL | Qt::Key_Comma));
    place();
}

void SidebarFoot::place() {
    m_yearCalendar->move(kFootPadding, kFootTop);
    m_settings->move(width() - kFootPadding - m_settings->width(), kFootTop);
}

void SidebarFoot::resizeEvent(QResizeEvent* /*event*/) {
    place();
}

void SidebarFoot::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    paintHairline(painter, {0, 0}, width(), Token::BorderSoft);
}

}  // namespace velmar
