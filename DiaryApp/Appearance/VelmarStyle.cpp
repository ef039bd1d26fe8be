#include "DiaryApp/Appearance/VelmarStyle.h"

#include <QtGui/QBitmap>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtWidgets/QFocusFrame>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QStyleOption>
#include <cmath>

#include "DiaryApp/Appearance/FocusRing.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Icons.h"
#include "DiaryApp/Appearance/SearchField.h"
#include "DiaryApp/Appearance/TextPainter.h"
#include "DiaryApp/Appearance/Theme.h"

namespace velmar {

namespace {

constexpr int kBarItemPadding = 9;
constexpr int kBarHeight = 28;
constexpr int kBarItemHeight = 22;
constexpr int kMenuPanel = 5;
constexpr int kMenuItemHeight = 28;
constexpr int kMenuTextLeft = 28;
constexpr int kMenuTextRight = 10;
constexpr int kMenuKeyGap = 28;
constexpr double kMenuCheckSize = 14;
constexpr double kMenuArrowSize = 14;
constexpr int kMenuSeparatorHeight = 11;
constexpr int kMenuLeastWidth = 222;
constexpr double kMenuRadius = 10;
constexpr double kItemRadius = 6;
constexpr double kTipRadius = 7;
constexpr int kTipPadding = 5;
constexpr int kRingReach = 4;

// "&Save" is shown as "Save"; the texts here have no marked letters, but a name may hold "&&".
QString plain(const QString& text) {
    QString shown = text;
    shown.replace(QLatin1String("&&"), QLatin1String("&"));
    return shown;
}

void fillRounded(QPainter* painter, const QRectF& rect, double radius, const QColor& fill) {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(fill);
    painter->drawRoundedRect(rect, radius, radius);
    painter->restore();
}

void drawBarItem(const QStyleOptionMenuItem& item, QPainter* painter, const QWidget* widget) {
    painter->fillRect(item.rect, theme::color(Token::Bar));
    const bool isOpen =
        item.state.testFlag(QStyle::State_Selected) || item.state.testFlag(QStyle::State_Sunken);
    QRectF box = item.rect;
    box.setTop(box.center().y() - kBarItemHeight / 2.0);
    box.setHeight(kBarItemHeight);
    if (isOpen) fillRounded(painter, box, kItemRadius, theme::color(Token::HoverBg));
    const auto* bar = qobject_cast<const QMenuBar*>(widget);
    const bool isFirst = bar != nullptr && !bar->actions().isEmpty() &&
                         bar->actionGeometry(bar->actions().first()) == item.rect;
    const QFont font = fonts::sans(13, isFirst ? QFont::DemiBold : QFont::Normal);
    const Token color = isFirst || isOpen ? Token::InkMed : Token::ChromeText;
    paintLine(*painter, box.adjusted(kBarItemPadding, 0, 0, 0), plain(item.text),
              {font, kBarItemHeight, color});
}

// The menu's title and its keys, which Qt hands over in one text.
void drawMenuTexts(const QStyleOptionMenuItem& item, QPainter* painter) {
    const bool isOn = item.state.testFlag(QStyle::State_Enabled);
    const bool isOver = item.state.testFlag(QStyle::State_Selected);
    const QString title = plain(item.text.section(QLatin1Char('\t'), 0, 0));
    const QString keys = item.text.section(QLatin1Char('\t'), 1);
    const QRectF row = QRectF(item.rect).adjusted(kMenuTextLeft, 0, -kMenuTextRight, 0);
    const Token color = !isOn ? Token::Faint : isOver ? Token::Ink : Token::InkMed;
    const auto height = static_cast<double>(item.rect.height());
    paintLine(*painter, row, title, {fonts::sans(13.5), height, color});
    paintLine(*painter, row, keys,
              {fonts::mono(11), height, isOn ? Token::ChromeText : Token::Faint}, Qt::AlignRight);
}

void drawMenuItem(const QStyleOptionMenuItem& item, QPainter* painter) {
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        const int middle = item.rect.top() + kMenuSeparatorHeight / 2;
        const QPointF from(item.rect.left() + 8, middle);
        paintHairline(*painter, from, item.rect.width() - 16, Token::BorderSoft);
        return;
    }
    const bool isOver =
        item.state.testFlag(QStyle::State_Selected) && item.state.testFlag(QStyle::State_Enabled);
    if (isOver) fillRounded(painter, item.rect, kItemRadius, theme::color(Token::HoverBg));
    if (item.checkType != QStyleOptionMenuItem::NotCheckable && item.checked) {
        const double y = item.rect.top() + (item.rect.height() - kMenuCheckSize) / 2.0;
        icons::paint(*painter, {item.rect.left() + 8.0, y, kMenuCheckSize, kMenuCheckSize},
                     QStringLiteral("check"), theme::color(Token::Accent));
    }
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu) {
        const double x = item.rect.right() + 1 - kMenuTextRight - kMenuArrowSize;
        const double y = item.rect.top() + (item.rect.height() - kMenuArrowSize) / 2.0;
        icons::paint(*painter, {x, y, kMenuArrowSize, kMenuArrowSize},
                     QStringLiteral("chevron-right"), theme::color(Token::Chevron));
    }
    drawMenuTexts(item, painter);
}

// Whether windows may be shown without a compositor, as X11 may do. Nothing of Qt 6.4 tells.
bool mayLackCompositor() {
    return QGuiApplication::platformName() == QLatin1String("xcb");
}

// The ground of a menu or a tooltip.
void drawPanel(const QStyleOption& option, QPainter* painter, double radius) {
    const QColor fill =
        theme::color(theme::tokens().isDark() ? Token::CardBg : Token::CardBgActive);
    painter->save();
    // What the corners' smooth edge lets through would be black; the mask cuts off the rest.
    if (mayLackCompositor()) painter->fillRect(option.rect, theme::color(Token::Border));
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(theme::color(Token::Border), 1));
    painter->setBrush(fill);
    painter->drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    painter->restore();
}

// Two pixels wide, two pixels outside the box that has the focus.
void drawFocusRing(const QStyleOption& option, QPainter* painter, const QWidget* widget) {
    const auto* frame = qobject_cast<const QFocusFrame*>(widget);
    const double radius = FocusRing::cornerRadius(frame ? frame->widget() : nullptr) + 2;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(theme::color(Token::Accent, 0.55), 2));
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(QRectF(option.rect).adjusted(1, 1, -1, -1), radius, radius);
    painter->restore();
}

// A line edit asks for its caret's width without telling who it is, but for the option.
bool paintsItsCaret(const QStyleOption* option) {
    return option != nullptr && qobject_cast<const SearchField*>(option->styleObject) != nullptr;
}

// Without a compositor see-through corners would be black: there the window of a menu or a tooltip
// itself has round ones.
int roundMask(const QStyleOption* option, QStyleHintReturn* result, double radius) {
    auto* mask = qstyleoption_cast<QStyleHintReturnMask*>(result);
    if (!mask || !option || !mayLackCompositor()) return 0;
    // By pixels: a region of the outline's polygon would have corners of two kinds.
    QBitmap shape(option->rect.size());
    shape.clear();
    QPainter painter(&shape);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::color1);
    painter.drawRoundedRect(shape.rect(), radius, radius);
    painter.end();
    mask->region = QRegion(shape).translated(option->rect.topLeft());
    return 1;
}

}  // namespace

VelmarStyle::VelmarStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void VelmarStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    // Qt's tooltip, whose class has no header.
    if (widget->inherits("QTipLabel")) widget->setAttribute(Qt::WA_TranslucentBackground);
    if (qobject_cast<QMenu*>(widget) == nullptr) return;
    widget->setWindowFlag(Qt::FramelessWindowHint);
    widget->setWindowFlag(Qt::NoDropShadowWindowHint);
    widget->setAttribute(Qt::WA_TranslucentBackground);
}

void VelmarStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    switch (element) {
        case CE_MenuBarItem:
            if (item != nullptr) drawBarItem(*item, painter, widget);
            return;
        case CE_MenuBarEmptyArea:
            painter->fillRect(option->rect, theme::color(Token::Bar));
            return;
        case CE_MenuItem:
            if (item != nullptr) drawMenuItem(*item, painter);
            return;
        case CE_MenuEmptyArea:
            return;
        case CE_FocusFrame:
            drawFocusRing(*option, painter, widget);
            return;
        default:
            QProxyStyle::drawControl(element, option, painter, widget);
    }
}

void VelmarStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const {
    switch (element) {
        case PE_PanelMenu:
            drawPanel(*option, painter, kMenuRadius);
            return;
        case PE_PanelTipLabel:
            drawPanel(*option, painter, kTipRadius);
            return;
        case PE_PanelMenuBar:
        case PE_FrameMenu:
        case PE_FrameFocusRect:
            return;
        default:
            QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

QSize VelmarStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                    const QSize& size, const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (item == nullptr) return QProxyStyle::sizeFromContents(type, option, size, widget);
    if (type == CT_MenuBarItem) {
        // Measured in the heavier face, so that a title doesn't move when it comes first.
        const QFontMetricsF metrics(fonts::sans(13, QFont::DemiBold));
        const double width = metrics.horizontalAdvance(plain(item->text)) + 2 * kBarItemPadding;
        return {static_cast<int>(std::ceil(width)), kBarHeight};
    }
    if (type == CT_MenuItem) {
        if (item->menuItemType == QStyleOptionMenuItem::Separator) {
            return {kMenuLeastWidth, kMenuSeparatorHeight};
        }
        const QString title = plain(item->text.section(QLatin1Char('\t'), 0, 0));
        const QString keys = item->text.section(QLatin1Char('\t'), 1);
        double width = kMenuTextLeft + kMenuTextRight +
                       QFontMetricsF(fonts::sans(13.5)).horizontalAdvance(title);
        if (!keys.isEmpty()) {
            width += kMenuKeyGap + QFontMetricsF(fonts::mono(11)).horizontalAdvance(keys);
        }
        if (item->menuItemType == QStyleOptionMenuItem::SubMenu) {
            width += kMenuKeyGap + kMenuArrowSize;
        }
        return {qMax(kMenuLeastWidth, static_cast<int>(std::ceil(width))), kMenuItemHeight};
    }
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

int VelmarStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                             const QWidget* widget) const {
    switch (metric) {
        case PM_MenuBarPanelWidth:
        case PM_MenuBarItemSpacing:
        case PM_MenuBarVMargin:
        case PM_MenuTearoffHeight:
            return 0;
        case PM_MenuBarHMargin:
            return 10;
        case PM_MenuPanelWidth:
            return 0;
        case PM_MenuHMargin:
        case PM_MenuVMargin:
            return kMenuPanel;
        case PM_ToolTipLabelFrameWidth:
            return kTipPadding;
        case PM_FocusFrameHMargin:
        case PM_FocusFrameVMargin:
            return kRingReach;
        case PM_TextCursorWidth:
            return paintsItsCaret(option) ? 0 : 2;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int VelmarStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                           QStyleHintReturn* result) const {
    switch (hint) {
        case SH_FocusFrame_AboveWidget:
        case SH_MenuBar_AltKeyNavigation:
            return 1;
        case SH_FocusFrame_Mask:
            // The mask would cut the ring where it goes around a box's round corners.
            return 0;
        case SH_ToolTipLabel_Opacity:
            return 255;
        case SH_Menu_Mask:
            return roundMask(option, result, kMenuRadius);
        case SH_ToolTip_Mask:
            return roundMask(option, result, kTipRadius);
        default:
            return QProxyStyle::styleHint(hint, option, widget, result);
    }
}

// A menu bar asks for the sign of the menus that don't fit into it as soon as it is made. For Qt's
// own, all that reads image files would be loaded, which takes as long as a whole page of text.
QIcon VelmarStyle::standardIcon(StandardPixmap standardIcon, const QStyleOption* option,
                                const QWidget* widget) const {
    if (standardIcon == SP_ToolBarHorizontalExtensionButton) {
        return icons::icon(QStringLiteral("chevron-right"), Token::Chevron);
    }
    return QProxyStyle::standardIcon(standardIcon, option, widget);
}

}  // namespace velmar
