#include "DiaryApp/Chrome/TopBarView.h"

#include <QtGui/QKeySequence>
#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>

#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/TextPainter.h"

namespace velmar {

namespace {

constexpr int kLeft = 20;
constexpr int kRight = 14;
constexpr int kButtonGap = 4;
constexpr double kDividerGap = 14;
constexpr double kDividerHeight = 14;
constexpr double kLine = 20;

Button* barButton(const QString& icon, QWidget* parent) {
    auto* button = new Button(Button::Kind::Quiet, parent);
    button->setIconName(icon);
    return button;
}

}  // namespace

TopBarView::TopBarView(QWidget* parent)
    : QWidget(parent),
      m_today(barButton(QStringLiteral("calendar"), this)),
      m_random(barButton(QStringLiteral("die"), this)) {
    setFixedHeight(barHeight);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(kLeft, 1, kRight, 0);
    layout->setSpacing(kButtonGap);
    layout->addStretch();
    layout->addWidget(m_today);
    layout->addWidget(m_random);
    connect(m_today, &Button::clicked, this, [this] {
        if (onToday) onToday();
    });
    connect(m_random, &Button::clicked, this, [this] {
        if (onRandom) onRandom();
    });
    retranslate();
}

void TopBarView::update(const QString& fileName, int sectionCount) {
    m_fileName = fileName;
    m_sectionCount = sectionCount;
    setAccessibleDescription(fileName + QStringLiteral(", ") +
                             qtTrId("%d year sections", sectionCount));
    QWidget::update();
}

void TopBarView::retranslate() {
    setAccessibleName(qtTrId("AccessibleTopBar"));
    m_today->setText(qtTrId("Today"));
    m_today->setHint(qtTrId("Today"), QKeySequence(Qt::CTRL | Qt::Key_T));
    m_random->setText(qtTrId("Random Day"));
    m_random->setHint(qtTrId("Random Day"), QKeySequence(Qt::CTRL | Qt::Key_R));
    for (Button* button : {m_today, m_random}) button->updateGeometry();
    update(m_fileName, m_sectionCount);
}

void TopBarView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), theme::color(Token::Bar));
    paintHairline(painter, {0, height() - 1.0}, width(), Token::Border);

    const TextLook file = {fonts::mono(13, QFont::Medium), kLine, Token::InkMed};
    const TextLook count = {fonts::mono(11.5), kLine, Token::ChromeText};
    const double top = (height() - 1 - kLine) / 2;
    const double right = m_today->x() - kDividerGap;
    paintLine(painter, {double(kLeft), top, right - kLeft, kLine}, m_fileName, file);
    const double divider =
        kLeft + QFontMetricsF(file.font).horizontalAdvance(m_fileName) + kDividerGap;
    painter.fillRect(
        QRectF(qRound(divider), (height() - 1 - kDividerHeight) / 2, 1, kDividerHeight),
        theme::color(Token::Border));
    const double x = divider + 1 + kDividerGap;
    paintLine(painter, {x, top, right - x, kLine}, qtTrId("%d year sections", m_sectionCount),
              count);
}

}  // namespace velmar
