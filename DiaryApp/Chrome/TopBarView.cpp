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
      m_random(barButton(QStringLiteral("die"), this)),
      m_source(barButton(QStringLiteral("source"), this)) {
    setFixedHeight(barHeight);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(kLeft, 1, kRight, 0);
    layout->setSpacing(kButtonGap);
    layout->addStretch();
    layout->addWidget(m_random);
    layout->addWidget(m_source);
    connect(m_random, &Button::clicked, this, [this] {
        if (onRandom) onRandom();
    });
    connect(m_source, &Button::clicked, this, [this] {
        if (onToggleSource) onToggleSource();
    });
    retranslate();
}

void TopBarView::update(const Model& model) {
    if (model == m_model) return;
    m_model = model;
    retranslate();
}

void TopBarView::retranslate() {
    setAccessibleName(qtTrId("AccessibleTopBar"));
    setAccessibleDescription(m_model.fileName + QStringLiteral(", ") +
                             qtTrId("%d year sections", m_model.sectionCount));
    m_random->setText(qtTrId("Random Day"));
    m_random->setHint(qtTrId("Random Day"), QKeySequence(Qt::CTRL | Qt::Key_R));
    m_source->setIconName(m_model.showsSource ? QStringLiteral("reader")
                                              : QStringLiteral("source"));
    m_source->setText(m_model.showsSource ? qtTrId("Reader") : qtTrId("Source"));
    m_source->setHint(qtTrId("Toggle Source"), QKeySequence(Qt::CTRL | Qt::Key_U));
    for (Button* button : {m_random, m_source}) button->updateGeometry();
    QWidget::update();
}

void TopBarView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), theme::color(Token::Bar));
    paintHairline(painter, {0, height() - 1.0}, width(), Token::Border);

    const TextLook file = {fonts::mono(13, QFont::Medium), kLine, Token::InkMed};
    const TextLook count = {fonts::mono(11.5), kLine, Token::ChromeText};
    const double top = (height() - 1 - kLine) / 2;
    const double right = m_random->x() - kDividerGap;
    paintLine(painter, {double(kLeft), top, right - kLeft, kLine}, m_model.fileName, file);
    const double divider =
        kLeft + QFontMetricsF(file.font).horizontalAdvance(m_model.fileName) + kDividerGap;
    painter.fillRect(
        QRectF(qRound(divider), (height() - 1 - kDividerHeight) / 2, 1, kDividerHeight),
        theme::color(Token::Border));
    const double x = divider + 1 + kDividerGap;
    paintLine(painter, {x, top, right - x, kLine}, qtTrId("%d year sections", m_model.sectionCount),
              count);
}

}  // namespace velmar
