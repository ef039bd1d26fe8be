#include "DiaryApp/Appearance/SegmentedControl.h"

#include <QtGui/QFocusEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QAbstractButton>
#include <algorithm>
#include <cmath>

#include "DiaryApp/Appearance/ControlAccess.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/HoverFade.h"
#include "DiaryApp/Appearance/Icons.h"
#include "DiaryApp/Appearance/Theme.h"

namespace velmar {

namespace {

constexpr int kHeight = 32;
// A line of 1 and 2 of the track.
constexpr int kInset = 3;
constexpr int kSegmentHeight = kHeight - 2 * kInset;
constexpr double kRadius = 9;
constexpr double kSegmentRadius = 6.5;
constexpr double kPadding = 15;
constexpr double kLeastWidth = 64;
constexpr QSizeF kDrawing(20, 14);
constexpr double kDrawingGap = 6;
constexpr double kDrawingOpacity = 0.75;

}  // namespace

class SegmentedControl::Segment : public QAbstractButton {
public:
    explicit Segment(QWidget* parent) : QAbstractButton(parent), m_hover(this) {
        setCheckable(true);
        setAutoExclusive(true);
        setFocusPolicy(Qt::TabFocus);
        setAttribute(Qt::WA_Hover);
    }

    void setDrawing(const QString& name) {
        m_drawing = name;
        update();
    }

    [[nodiscard]] QSize sizeHint() const override {
        return {static_cast<int>(std::ceil(std::max(kLeastWidth, 2 * kPadding + labelWidth()))),
                kSegmentHeight};
    }

protected:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::HoverEnter) m_hover.setOver(true);
        if (event->type() == QEvent::HoverLeave) m_hover.setOver(false);
        return QAbstractButton::event(event);
    }

    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        paintBox(painter);
        paintLabel(painter);
    }

private:
    // Measured in the heavier face, so that nothing moves when another segment is chosen.
    [[nodiscard]] double labelWidth() const {
        const double words = QFontMetricsF(labelFont(true)).horizontalAdvance(text());
        return m_drawing.isEmpty() ? words : kDrawing.width() + kDrawingGap + words;
    }

    [[nodiscard]] static QFont labelFont(bool isChosen) {
        return fonts::sans(13.5, isChosen ? QFont::Medium : QFont::Normal);
    }

    [[nodiscard]] QColor textColor() const {
        if (!isEnabled()) return theme::color(Token::Faint);
        if (isChecked()) return theme::color(Token::InkMed);
        return theme::mixed(theme::color(Token::ChromeText), theme::color(Token::InkMed),
                            m_hover.share());
    }

    void paintBox(QPainter& painter) const {
        if (!isChecked() && !isDown()) return;
        painter.setPen(isChecked() ? QPen(theme::color(Token::CardBorderHover), 1)
                                   : QPen(Qt::NoPen));
        painter.setBrush(theme::color(isChecked() ? Token::CardBgActive : Token::HoverBg));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kSegmentRadius,
                                kSegmentRadius);
    }

    void paintLabel(QPainter& painter) const {
        const QFont font = labelFont(isChecked());
        double x = (width() - labelWidth()) / 2;
        if (!m_drawing.isEmpty()) {
            x = std::floor(x);
            QColor color = textColor();
            color.setAlphaF(static_cast<float>(kDrawingOpacity));
            icons::paint(painter, {QPointF(x, (height() - kDrawing.height()) / 2), kDrawing},
                         m_drawing, color);
            x += kDrawing.width() + kDrawingGap;
        } else {
            x = (width() - QFontMetricsF(font).horizontalAdvance(text())) / 2;
        }
        painter.setFont(font);
        painter.setPen(textColor());
        painter.drawText(QPointF(x, fonts::baseline(font, height())), text());
    }

    QString m_drawing;
    HoverFade m_hover;
};

SegmentedControl::SegmentedControl(QWidget* parent) : QWidget(parent), m_ring(this, kRadius) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    access::setRole(this, QAccessible::Grouping);
}

void SegmentedControl::setChoices(const std::vector<Choice>& choices) {
    const int before = chosen();
    while (m_segments.size() > choices.size()) {
        delete m_segments.back();
        m_segments.pop_back();
    }
    while (m_segments.size() < choices.size()) {
        auto* made = new Segment(this);
        made->installEventFilter(this);
        connect(made, &QAbstractButton::clicked, this, [this, made] {
            const auto place = std::ranges::find(m_segments, made);
            choose(static_cast<int>(place - m_segments.begin()));
        });
        made->setVisible(true);
        m_segments.push_back(made);
    }
    for (std::size_t i = 0; i < choices.size(); ++i) {
        m_segments[i]->setText(choices[i].text);
        m_segments[i]->setDrawing(choices[i].drawing);
    }
    setChosen(before >= 0 && before < static_cast<int>(choices.size()) ? before : 0);
    updateGeometry();
    place();
}

void SegmentedControl::setChosen(int index) {
    if (index < 0 || index >= static_cast<int>(m_segments.size())) return;
    for (std::size_t i = 0; i < m_segments.size(); ++i) {
        const bool isChosen = i == static_cast<std::size_t>(index);
        if (isChosen) m_segments[i]->setChecked(true);
        // The Tab key stops at the chosen one alone.
        m_segments[i]->setFocusPolicy(isChosen ? Qt::TabFocus : Qt::NoFocus);
    }
    setFocusProxy(m_segments[static_cast<std::size_t>(index)]);
}

int SegmentedControl::chosen() const {
    const auto place = std::ranges::find_if(m_segments, &QAbstractButton::isChecked);
    return place == m_segments.end() ? -1 : static_cast<int>(place - m_segments.begin());
}

QWidget* SegmentedControl::segment(int index) const {
    const bool exists = index >= 0 && index < static_cast<int>(m_segments.size());
    return exists ? m_segments[static_cast<std::size_t>(index)] : nullptr;
}

// A click has checked the segment already; only the stop of the Tab key tells what was chosen.
void SegmentedControl::choose(int index) {
    const bool isAnother = focusProxy() != segment(index);
    setChosen(index);
    if (isAnother && onChosen) onChosen(index);
}

QSize SegmentedControl::sizeHint() const {
    int width = 2 * kInset;
    for (const Segment* each : m_segments) width += each->sizeHint().width();
    return {width, kHeight};
}

void SegmentedControl::place() {
    int x = kInset;
    for (Segment* each : m_segments) {
        const int width = each->sizeHint().width();
        each->setGeometry(x, kInset, width, kSegmentHeight);
        x += width;
    }
}

bool SegmentedControl::event(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) {
        updateGeometry();
        place();
    }
    return QWidget::event(event);
}

void SegmentedControl::resizeEvent(QResizeEvent* /*event*/) {
    place();
}

bool SegmentedControl::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::FocusIn:
            m_ring.focusIn(static_cast<QFocusEvent*>(event)->reason());
            break;
        case QEvent::FocusOut:
            m_ring.focusOut(static_cast<QFocusEvent*>(event)->reason());
            break;
        case QEvent::KeyPress:
            return moveByKey(static_cast<QKeyEvent*>(event)->key());
        default:
            break;
    }
    return QWidget::eventFilter(watched, event);
}

// True if the key was one of ours.
bool SegmentedControl::moveByKey(int key) {
    const int count = static_cast<int>(m_segments.size());
    const int now = chosen();
    int next = now;
    if (key == Qt::Key_Left || key == Qt::Key_Up) next = (now + count - 1) % count;
    if (key == Qt::Key_Right || key == Qt::Key_Down) next = (now + 1) % count;
    if (key == Qt::Key_Home) next = 0;
    if (key == Qt::Key_End) next = count - 1;
    if (next == now) return false;
    choose(next);
    // Qt moves the focus along with the check mark only for its own keys.
    segment(next)->setFocus(Qt::TabFocusReason);
    return true;
}

void SegmentedControl::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(theme::color(Token::Border), 1));
    painter.setBrush(theme::color(Token::Bar));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
}

}  // namespace velmar
