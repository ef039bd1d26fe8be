#include "DiaryApp/Appearance/ButtonLook.h"

#include "DiaryApp/Appearance/Theme.h"

namespace velmar {

namespace {

using theme::color;

ButtonColors quiet(ButtonState state) {
    const QColor none = theme::none();
    switch (state) {
        case ButtonState::Rest:
            // Fades to its hover without passing through another hue.
            return {color(Token::HoverBg, 0), none, color(Token::ChromeText),
                    color(Token::Chevron)};
        case ButtonState::Hover:
            return {color(Token::HoverBg), none, color(Token::InkMed), color(Token::Chevron)};
        case ButtonState::Pressed:
            return {color(Token::GridHoverOutline), none, color(Token::Ink), color(Token::Chevron)};
        case ButtonState::Disabled:
            break;
    }
    return {none, none, color(Token::Faint), color(Token::Faint)};
}

ButtonColors plain(ButtonState state) {
    switch (state) {
        case ButtonState::Rest:
            return {color(Token::CardBgActive), color(Token::Border), color(Token::InkMed),
                    color(Token::Chevron)};
        case ButtonState::Hover:
            return {color(Token::CardBgActive), color(Token::CardBorderHover), color(Token::Ink),
                    color(Token::Chevron)};
        case ButtonState::Pressed:
            return {color(Token::HoverBg), color(Token::CardBorderHover), color(Token::Ink),
                    color(Token::Chevron)};
        case ButtonState::Disabled:
            break;
    }
    return {color(Token::CardBg), color(Token::BorderSoft), color(Token::Faint),
            color(Token::Faint)};
}

ButtonColors filled(ButtonState state) {
    const QColor none = theme::none();
    const QColor text = color(Token::Paper);
    switch (state) {
        case ButtonState::Rest:
            return {color(Token::Accent), none, text, text};
        case ButtonState::Hover:
            return {color(Token::AccentDeep), none, text, text};
        case ButtonState::Pressed:
            return {theme::mixed(color(Token::AccentDeep), color(Token::InkStrong), 0.14), none,
                    text, text};
        case ButtonState::Disabled:
            break;
    }
    return {color(Token::HoverBg), none, color(Token::Faint), color(Token::Faint)};
}

ButtonColors danger(ButtonState state) {
    const QColor accent = color(Token::Accent);
    const QColor deep = color(Token::AccentDeep);
    switch (state) {
        case ButtonState::Rest:
            return {color(Token::CardBgActive), color(Token::Border), accent, accent};
        case ButtonState::Hover:
            return {color(Token::AccentSoft), accent, deep, deep};
        case ButtonState::Pressed:
            return {color(Token::AccentSoft), deep, deep, deep};
        case ButtonState::Disabled:
            break;
    }
    return plain(ButtonState::Disabled);
}

ButtonColors link(ButtonState state) {
    const Token token = state == ButtonState::Disabled  ? Token::Faint
                        : state == ButtonState::Pressed ? Token::AccentDeep
                                                        : Token::Accent;
    return {theme::none(), theme::none(), color(token), color(token)};
}

}  // namespace

ButtonColors buttonColors(ButtonKind kind, ButtonState state) {
    switch (kind) {
        case ButtonKind::Quiet:
            return quiet(state);
        case ButtonKind::Plain:
            return plain(state);
        case ButtonKind::Filled:
            return filled(state);
        case ButtonKind::Danger:
            return danger(state);
        case ButtonKind::Link:
            break;
    }
    return link(state);
}

ButtonColors mixed(const ButtonColors& from, const ButtonColors& to, double share) {
    return {theme::mixed(from.fill, to.fill, share), theme::mixed(from.line, to.line, share),
            theme::mixed(from.text, to.text, share), theme::mixed(from.icon, to.icon, share)};
}

ButtonMeasures buttonMeasures(ButtonKind kind, ButtonSize size) {
    const bool isQuiet = kind == ButtonKind::Quiet;
    switch (size) {
        case ButtonSize::Bar:
            return {.height = 28, .fontSize = 13, .radius = 8, .iconSize = 16, .padding = 11};
        case ButtonSize::Small:
            return {.height = 28,
                    .fontSize = 13,
                    .radius = 7,
                    .iconSize = 15,
                    .padding = isQuiet ? 11.0 : 13.0};
        case ButtonSize::Regular:
            return {.height = 32,
                    .fontSize = 13.5,
                    .radius = 8,
                    .iconSize = 16,
                    .padding = isQuiet ? 11.0 : 16.0};
        case ButtonSize::Sheet:
            return {.height = 40, .fontSize = 14, .radius = 8, .iconSize = 16, .padding = 16};
        case ButtonSize::Line:
            break;
    }
    return {.height = 20, .fontSize = 13.5, .radius = 4, .iconSize = 15, .padding = 0};
}

}  // namespace velmar
