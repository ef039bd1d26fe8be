#include "DiaryApp/Appearance/Appearance.h"

#include <QtGui/QPalette>
#include <QtGui/QStyleHints>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>
#include <optional>
#include <utility>

#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Theme.h"
#include "DiaryApp/Appearance/VelmarStyle.h"

namespace velmar::appearance {

namespace {

struct SystemLook {
    bool isDark = false;
    // Absent until it is read.
    std::optional<int> caretFlashTime = {};
};

// Read once, before our own palette hides what the desktop has given.
SystemLook& systemLook() {
    static SystemLook look;
    return look;
}

constexpr int kDarkBelow = 128;

QPalette qtPalette(const Tokens& tokens) {
    QPalette palette;
    palette.setColor(QPalette::Window, tokens[Token::Paper]);
    palette.setColor(QPalette::Base, tokens[Token::Paper]);
    palette.setColor(QPalette::AlternateBase, tokens[Token::CardBg]);
    palette.setColor(QPalette::WindowText, tokens[Token::Ink]);
    palette.setColor(QPalette::Text, tokens[Token::Ink]);
    palette.setColor(QPalette::PlaceholderText, tokens[Token::Placeholder]);
    palette.setColor(QPalette::Button, tokens[Token::CardBgActive]);
    palette.setColor(QPalette::ButtonText, tokens[Token::InkMed]);
    palette.setColor(QPalette::Highlight, tokens[Token::SelectionBg]);
    palette.setColor(QPalette::HighlightedText, tokens[Token::Ink]);
    palette.setColor(QPalette::ToolTipBase, tokens[Token::CardBgActive]);
    palette.setColor(QPalette::ToolTipText, tokens[Token::InkMed]);
    palette.setColor(QPalette::Link, tokens[Token::Accent]);
    return palette;
}

}  // namespace

void prepare() {
    SystemLook& look = systemLook();
    look.isDark = QGuiApplication::palette().color(QPalette::Window).lightness() < kDarkBelow;
    // A second time it would be the one set here.
    if (!look.caretFlashTime) {
        look.caretFlashTime = QGuiApplication::styleHints()->cursorFlashTime();
    }
    QGuiApplication::styleHints()->setCursorFlashTime(0);
    fonts::load();
    QApplication::setStyle(new VelmarStyle);
}

diary::Palette chosenPalette(const Settings& settings, bool systemIsDark) {
    const auto forced = settings.environment(QStringLiteral("DIARY_PALETTE"));
    if (const auto palette = diary::palette::parse(forced.value_or(QString()))) return *palette;
    return diary::appearance_mode::palette(settings.appearanceMode(), settings.lightPalette(),
                                           settings.darkPalette(), systemIsDark);
}

bool apply(const Settings& settings) {
    static std::optional<diary::Palette> applied;
    const diary::Palette palette = chosenPalette(settings, systemIsDark());
    fonts::setLanguage(localization::effectiveLanguage(settings));
    if (applied == palette) return false;
    applied = palette;
    theme::setPalette(palette);
    QApplication::setPalette(qtPalette(theme::tokens()));
    QApplication::setFont(fonts::sans(13.5));
    // Widgets paint from the tokens, not from Qt's palette, so each is told, whatever Qt's differs.
    for (QWidget* each : QApplication::allWidgets()) {
        QEvent event(QEvent::PaletteChange);
        QCoreApplication::sendEvent(each, &event);
    }
    return true;
}

bool systemIsDark() {
    return systemLook().isDark;
}

void setSystemIsDark(bool isDark) {
    systemLook().isDark = isDark;
}

int caretFlashTime() {
    return systemLook().caretFlashTime.value_or(0);
}

}  // namespace velmar::appearance
