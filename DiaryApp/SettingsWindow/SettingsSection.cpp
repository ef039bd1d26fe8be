#include "DiaryApp/SettingsWindow/SettingsSection.h"

#include <QtGui/QPainter>

#include "DiaryApp/Appearance/ControlAccess.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/TextPainter.h"

namespace velmar {

namespace {

constexpr int kTitleWidth = 136;
constexpr int kPadding = 20;
constexpr int kHairline = 1;
constexpr int kGap = 10;
constexpr int kTitleGap = 4;
constexpr double kTitleHeight = 32;
constexpr int kFurthestOutdent = static_cast<int>(SettingsSection::Outdent::Quiet);

QFont titleFont() {
    return fonts::serif(15.5, QFont::DemiBold);
}

}  // namespace

bool SettingsSection::hasWholeTitle() const {
    const double width = QFontMetricsF(titleFont()).horizontalAdvance(accessibleName());
    return width <= kTitleWidth - kTitleGap;
}

SettingsSection::SettingsSection(QWidget* parent)
    : QWidget(parent), m_lines(new QVBoxLayout(this)) {
    access::setRole(this, QAccessible::Grouping);
    m_lines->setContentsMargins(kTitleWidth - kFurthestOutdent, kPadding, 0, kPadding + kHairline);
    m_lines->setSpacing(0);
}

void SettingsSection::setTitle(const QString& title) {
    setAccessibleName(title);
    update();
}

void SettingsSection::setLast() {
    m_isLast = true;
    update();
}

QHBoxLayout* SettingsSection::addLine(Outdent outdent, int height, int gap) {
    auto* line = new QHBoxLayout;
    line->setContentsMargins(kFurthestOutdent - static_cast<int>(outdent), 0,
                             outdent == Outdent::Ring ? 0 : rightRoom, 0);
    line->setSpacing(kGap);
    line->addStrut(height);
    if (!m_lines->isEmpty()) m_lines->addSpacing(gap);
    m_lines->addLayout(line);
    return line;
}

void SettingsSection::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    paintLine(painter, QRectF(0, kPadding, kTitleWidth - kTitleGap, kTitleHeight), accessibleName(),
              {titleFont(), kTitleHeight, Token::InkTitle});
    if (!m_isLast) {
        paintHairline(painter, QPointF(0, height() - kHairline), width() - rightRoom,
                      Token::BorderSoft);
    }
}

}  // namespace velmar
