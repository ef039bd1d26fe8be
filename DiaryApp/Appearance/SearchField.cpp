#include "DiaryApp/Appearance/SearchField.h"

#include <QtGui/QClipboard>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QInputMethodEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QMenu>

#include "DiaryApp/Appearance/Appearance.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Icons.h"
#include "DiaryApp/Appearance/Theme.h"

namespace velmar {

namespace {

constexpr int kWidth = 228;
constexpr double kRadius = 8;
constexpr int kIconLeft = 11;
constexpr int kIconSize = 16;
constexpr int kTextLeft = 35;
constexpr int kTextRight = 10;
constexpr int kClearSize = 24;
constexpr int kClearRight = 6;
constexpr int kClearIcon = 14;
constexpr int kCaretWidth = 2;
constexpr int kCaretHeight = 18;
// QLineEdit keeps this much free on both sides of its text, and shows its caret's surroundings.
constexpr int kLineEditMargin = 2;
constexpr int kCaretSurroundings = 5;

class ClearButton : public QAbstractButton {
public:
    explicit ClearButton(QWidget* parent) : QAbstractButton(parent) {
        setFocusPolicy(Qt::NoFocus);
        setAttribute(Qt::WA_Hover);
        setCursor(Qt::ArrowCursor);
        resize(kClearSize, kClearSize);
        hide();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        const double inset = (kClearSize - kClearIcon) / 2.0;
        const Token color = underMouse() || isDown() ? Token::InkMed : Token::Chevron;
        icons::paint(painter, {inset, inset, kClearIcon, kClearIcon}, QStringLiteral("close"),
                     theme::color(color));
    }
};

}  // namespace

SearchField::SearchField(QWidget* parent)
    : QLineEdit(parent), m_clear(new ClearButton(this)), m_blink(appearance::caretFlashTime()) {
    setFrame(false);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setTextMargins(boxMargin + kTextLeft - kLineEditMargin, 0, boxMargin + kTextRight, 0);
    connect(m_clear, &QAbstractButton::clicked, this, &SearchField::clearByButton);
    connect(this, &QLineEdit::cursorPositionChanged, this, [this] {
        if (hasFocus()) m_blink.wake();
    });
    connect(&m_blink, &CaretBlink::changed, this, [this] { update(caretRect()); });
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_clear->setVisible(!text.isEmpty());
        const int right = text.isEmpty() ? kTextRight : kClearRight + kClearSize;
        setTextMargins(textMargins().left(), 0, boxMargin + right, 0);
    });
    applyPalette();
}

void SearchField::setClearText(const QString& text) {
    m_clear->setAccessibleName(text);
    m_clear->setToolTip(text);
}

QSize SearchField::sizeHint() const {
    return {kWidth + 2 * boxMargin, boxHeight + 2 * boxMargin};
}

// What Qt paints of a line edit in our colours; its ground is paintBox()'s.
void SearchField::applyPalette() {
    m_isApplyingPalette = true;
    QPalette colors = palette();
    colors.setColor(QPalette::Base, theme::none());
    colors.setColor(QPalette::Text, theme::color(Token::Ink));
    colors.setColor(QPalette::PlaceholderText, theme::color(Token::Placeholder));
    colors.setColor(QPalette::Highlight, theme::color(Token::SelectionBg));
    colors.setColor(QPalette::HighlightedText, theme::color(Token::Ink));
    setPalette(colors);
    setFont(fonts::sans(13.5));
    m_isApplyingPalette = false;
}

bool SearchField::event(QEvent* event) {
    const bool isRestyled =
        event->type() == QEvent::PaletteChange || event->type() == QEvent::LanguageChange;
    if (isRestyled && !m_isApplyingPalette) applyPalette();
    return QLineEdit::event(event);
}

void SearchField::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    m_clear->move(width() - boxMargin - kClearRight - kClearSize, (height() - kClearSize) / 2);
}

// Qt's own menu is in English, whatever the language of the interface.
void SearchField::contextMenuEvent(QContextMenuEvent* event) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const QString& text, bool isOn, auto act) {
        QAction* item = menu->addAction(text);
        item->setEnabled(isOn);
        connect(item, &QAction::triggered, this, act);
    };
    add(qtTrId("Undo"), isUndoAvailable(), [this] { undo(); });
    add(qtTrId("Redo"), isRedoAvailable(), [this] { redo(); });
    menu->addSeparator();
    add(qtTrId("Cut"), hasSelectedText(), [this] { cut(); });
    add(qtTrId("Copy"), hasSelectedText(), [this] { copy(); });
    add(qtTrId("Paste"), !QGuiApplication::clipboard()->text().isEmpty(), [this] { paste(); });
    menu->addSeparator();
    add(qtTrId("Select All"), !text().isEmpty(), [this] { selectAll(); });
    menu->popup(event->globalPos());
}

void SearchField::keyPressEvent(QKeyEvent* event) {
    m_blink.wake();
    QLineEdit::keyPressEvent(event);
}

void SearchField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    m_blink.wake();
}

void SearchField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    m_blink.stop();
}

void SearchField::inputMethodEvent(QInputMethodEvent* event) {
    m_blink.wake();
    m_isComposing = !event->preeditString().isEmpty();
    QLineEdit::inputMethodEvent(event);
}

void SearchField::clearByButton() {
    clear();
    setFocus(Qt::OtherFocusReason);
    Q_EMIT textEdited(QString());
}

void SearchField::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        paintBox(painter);
    }
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    paintCaret(painter);
}

void SearchField::paintBox(QPainter& painter) const {
    const QRectF box = QRectF(rect()).adjusted(boxMargin, boxMargin, -boxMargin, -boxMargin);
    if (hasFocus()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme::color(Token::Accent, 0.14));
        painter.drawRoundedRect(QRectF(rect()), kRadius + boxMargin, kRadius + boxMargin);
    }
    const Token line = hasFocus()     ? Token::Accent
                       : underMouse() ? Token::CardBorderHover
                                      : Token::Border;
    painter.setPen(QPen(theme::color(line), 1));
    painter.setBrush(theme::color(isEnabled() ? Token::CardBgActive : Token::CardBg));
    painter.drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
    icons::paint(painter,
                 {box.left() + kIconLeft, box.center().y() - kIconSize / 2.0, kIconSize, kIconSize},
                 QStringLiteral("search"), theme::color(Token::Chevron));
}

QRect SearchField::caretRect() const {
    const int x = cursorRect().left() + kCaretSurroundings;
    return {x, (height() - kCaretHeight) / 2, kCaretWidth, kCaretHeight};
}

// VelmarStyle gives Qt's own caret here no width: it can't have a colour apart from the text's.
void SearchField::paintCaret(QPainter& painter) const {
    if (!m_blink.isLit() || hasSelectedText() || isReadOnly()) return;
    painter.fillRect(caretRect(), theme::color(Token::Accent));
}

}  // namespace velmar
