#include "DiaryApp/Chrome/StatusBarView.h"

#include <QtCore/QEvent>
#include <QtGui/QAccessible>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>

#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Motion.h"
#include "DiaryApp/Appearance/TextPainter.h"

namespace velmar {

namespace {

constexpr int kPadding = 20;
constexpr double kLine = 16;
constexpr double kGap = 24;
constexpr double kUnderlineDrop = 3;
constexpr int kFadeInMilliseconds = 120;
constexpr int kFadeOutMilliseconds = 200;

QFont caption() {
    return fonts::mono(11.5);
}

double widthOf(const QString& text) {
    return QFontMetricsF(caption()).horizontalAdvance(text);
}

const QString& separator() {
    static const QString text = QStringLiteral(" · ");
    return text;
}

}  // namespace

StatusBarView::StatusBarView(QString homeFolder, QWidget* parent, int flashTime)
    : QWidget(parent), m_homeFolder(std::move(homeFolder)) {
    setFixedHeight(barHeight);
    setMouseTracking(true);
    m_flashTimer.setSingleShot(true);
    m_flashTimer.setInterval(flashTime);
    connect(&m_flashTimer, &QTimer::timeout, this, [this] {
        m_flash.reset();
        refresh();
        fadeFlash(0, kFadeOutMilliseconds);
    });
    m_fade.setEasingCurve(QEasingCurve::OutQuad);
    connect(&m_fade, &QVariantAnimation::valueChanged, this, [this](const QVariant& share) {
        m_flashShare = share.toDouble();
        QWidget::update();
    });
    retranslate();
}

void StatusBarView::update(const QString& path, const QString& status) {
    m_currentPath = withHomeShort(path);
    m_status = status;
    refresh();
}

void StatusBarView::flash(const QString& text) {
    m_flash = text;
    m_flashText = text;
    m_flashTimer.start();
    refresh();
    fadeFlash(1, kFadeInMilliseconds);
    announce();
}

void StatusBarView::pin(const QString& text, const QString& link, std::function<void()> action) {
    m_pinned = Pinned{text, link, std::move(action)};
    refresh();
    announce();
}

void StatusBarView::unpin() {
    m_pinned.reset();
    refresh();
}

void StatusBarView::fadeFlash(double target, int milliseconds) {
    m_fade.stop();
    if (!isVisible() || motion::isReduced()) {
        m_flashShare = target;
        QWidget::update();
        return;
    }
    m_fade.setStartValue(m_flashShare);
    m_fade.setEndValue(target);
    m_fade.setDuration(milliseconds);
    m_fade.start();
}

QString StatusBarView::leftText() const {
    return m_flash ? *m_flash : restText();
}

QString StatusBarView::restText() const {
    if (!m_pinned) return m_currentPath;
    return m_pinned->link.isEmpty() ? m_pinned->text
                                    : m_pinned->text + separator() + m_pinned->link;
}

QRect StatusBarView::linkRect() const {
    return m_flash ? QRect() : restLinkRect();
}

QRect StatusBarView::restLinkRect() const {
    if (!m_pinned || m_pinned->link.isEmpty()) return {};
    const double x = kPadding + widthOf(m_pinned->text + separator());
    return QRectF(x, 1, widthOf(m_pinned->link), height() - 1.0).toAlignedRect();
}

void StatusBarView::retranslate() {
    setAccessibleName(qtTrId("AccessibleStatusBar"));
}

QString StatusBarView::withHomeShort(const QString& path) const {
    const bool isBelowHome = !m_homeFolder.isEmpty() && path.startsWith(m_homeFolder + u'/');
    return isBelowHome ? u'~' + path.mid(m_homeFolder.size()) : path;
}

void StatusBarView::refresh() {
    setAccessibleDescription(leftText() + QStringLiteral(", ") + m_status);
    setFocusPolicy(linkRect().isEmpty() ? Qt::NoFocus : Qt::TabFocus);
    if (linkRect().isEmpty()) unsetCursor();
    QWidget::update();
}

// Screen readers speak what they are alerted to; a description that changes they don't.
void StatusBarView::announce() {
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void StatusBarView::runAction() {
    if (!m_pinned) return;
    // The action may pin or unpin something else.
    const std::function<void()> action = m_pinned->action;
    if (action) action();
}

bool StatusBarView::event(QEvent* event) {
    if (event->type() == QEvent::Leave) unsetCursor();
    return QWidget::event(event);
}

void StatusBarView::mouseMoveEvent(QMouseEvent* event) {
    if (linkRect().contains(event->position().toPoint())) {
        setCursor(Qt::PointingHandCursor);
    } else {
        unsetCursor();
    }
}

void StatusBarView::mouseReleaseEvent(QMouseEvent* event) {
    const bool isLink = linkRect().contains(event->position().toPoint());
    if (isLink && event->button() == Qt::LeftButton) runAction();
}

void StatusBarView::keyPressEvent(QKeyEvent* event) {
    const bool isPress = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
                         event->key() == Qt::Key_Space;
    if (isPress && !linkRect().isEmpty()) {
        runAction();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void StatusBarView::focusInEvent(QFocusEvent* /*event*/) {
    QWidget::update();
}

void StatusBarView::focusOutEvent(QFocusEvent* /*event*/) {
    QWidget::update();
}

void StatusBarView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), theme::color(Token::Bar));
    paintHairline(painter, {0, 0}, width(), Token::Border);
    const QRectF line(kPadding, (height() + 1 - kLine) / 2 + 0.5, width() - 2 * kPadding, kLine);
    paintLine(painter, line, m_status, {caption(), kLine, Token::StatusText}, Qt::AlignRight);
    paintLeft(painter, line.adjusted(0, 0, -widthOf(m_status) - kGap, 0));
}

void StatusBarView::paintLeft(QPainter& painter, const QRectF& line) const {
    if (m_flashShare < 1) {
        painter.setOpacity(1 - m_flashShare);
        paintRest(painter, line);
    }
    if (m_flashShare > 0) {
        painter.setOpacity(m_flashShare);
        paintLine(painter, line, m_flashText, {caption(), kLine, Token::InkMed});
    }
}

void StatusBarView::paintRest(QPainter& painter, const QRectF& line) const {
    const TextLook plain = {caption(), kLine, Token::StatusText};
    const QRect link = restLinkRect();
    if (link.isEmpty() || !m_pinned) {
        paintLine(painter, line, restText(), plain);
        return;
    }
    paintLine(painter, line, m_pinned->text + separator(), plain);
    const QRectF place(link.left(), line.top(), line.right() - link.left(), kLine);
    paintLine(painter, place, m_pinned->link, {caption(), kLine, Token::Accent});
    const double y = line.top() + fonts::baseline(caption(), kLine) + kUnderlineDrop;
    paintHairline(painter, {double(link.left()), std::floor(y)}, widthOf(m_pinned->link),
                  Token::Accent);
    if (hasFocus()) {
        painter.setPen(QPen(theme::color(Token::Accent, 0.55), 2));
        painter.drawRoundedRect(QRectF(link).adjusted(-4, 3, 4, -3), 6, 6);
    }
}

}  // namespace velmar
