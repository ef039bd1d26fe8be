#include "DiaryApp/Chrome/AlertSheet.h"

#include <QtGui/QPainter>

#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/TextPainter.h"

namespace velmar {

namespace {

constexpr double kWidth = 420;
constexpr double kPaddingX = 28;
constexpr double kPaddingTop = 26;
constexpr double kPaddingBottom = 22;
constexpr double kTitleGap = 8;
constexpr double kButtonGap = 20;
constexpr int kBetweenButtons = 10;
constexpr int kLeastButtonWidth = 72;
constexpr double kTextWidth = kWidth - 2 * kPaddingX;

TextLook titleLook() {
    return {fonts::serif(18, QFont::DemiBold), 26, Token::InkTitle};
}
TextLook textLook() {
    return {fonts::sans(13.5), 20, Token::PastText};
}

Button* makeButton(Button::Kind kind, const QString& text, QWidget* parent) {
    auto* button = new Button(kind, parent);
    button->setText(text);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

}  // namespace

AlertSheet* AlertSheet::show(QWidget* window, const QString& title, const QString& text,
                             std::function<void()> onClosed) {
    auto* sheet = new AlertSheet(window->window(), title, text);
    sheet->m_button = makeButton(Button::Kind::Filled, qtTrId("OK"), sheet);
    sheet->m_onEscape = std::move(onClosed);
    connect(sheet->m_button, &Button::clicked, sheet, [sheet] { sheet->escaped(); });
    sheet->present(sheet->m_button, Qt::OtherFocusReason);
    return sheet;
}

AlertSheet* AlertSheet::ask(QWidget* window, const QString& title, const QString& text,
                            const Answers& answers, std::function<void()> onConfirmed) {
    auto* sheet = new AlertSheet(window->window(), title, text);
    sheet->m_cancel = makeButton(Button::Kind::Plain, answers.cancel, sheet);
    sheet->m_button = makeButton(Button::Kind::Filled, answers.act, sheet);
    connect(sheet->m_cancel, &Button::clicked, sheet, [sheet] { sheet->escaped(); });
    connect(sheet->m_button, &Button::clicked, sheet,
            [sheet, then = std::move(onConfirmed)] { sheet->close(then); });
    sheet->present(sheet->m_button, Qt::OtherFocusReason);
    return sheet;
}

AlertSheet::AlertSheet(QWidget* window, QString title, QString text)
    : Sheet(window, title, text), m_title(std::move(title)), m_text(std::move(text)) {}

double AlertSheet::titleHeight() const {
    return paragraphHeight(m_title, titleLook(), kTextWidth);
}

double AlertSheet::textHeight() const {
    double height = 0;
    for (const QString& paragraph : m_text.split(u'\n')) {
        height += paragraphHeight(paragraph, textLook(), kTextWidth);
    }
    return height;
}

QSizeF AlertSheet::panelSize() const {
    return {kWidth, kPaddingTop + titleHeight() + kTitleGap + textHeight() + kButtonGap +
                        m_button->sizeHint().height() + kPaddingBottom};
}

void AlertSheet::placeControls() {
    int right = qRound(panel().right() - kPaddingX);
    for (Button* each : {m_button, m_cancel}) {
        if (each == nullptr) continue;
        const QSize size(qMax(kLeastButtonWidth, each->sizeHint().width()),
                         each->sizeHint().height());
        each->setGeometry({QPoint(right - size.width(),
                                  qRound(panel().bottom() - kPaddingBottom - size.height())),
                           size});
        right -= size.width() + kBetweenButtons;
    }
}

void AlertSheet::escaped() {
    close(m_onEscape);
}

void AlertSheet::close(const std::function<void()>& then) {
    // The callable lives in what dismiss() may let go of.
    const std::function<void()> last = then;
    dismiss();
    if (last) last();
}

void AlertSheet::paintPanel(QPainter& painter) {
    QRectF place = panel().adjusted(kPaddingX, kPaddingTop, -kPaddingX, 0);
    paintParagraph(painter, place, m_title, titleLook());
    place.setTop(place.top() + titleHeight() + kTitleGap);
    for (const QString& paragraph : m_text.split(u'\n')) {
        paintParagraph(painter, place, paragraph, textLook());
        place.setTop(place.top() + paragraphHeight(paragraph, textLook(), kTextWidth));
    }
}

}  // namespace velmar
