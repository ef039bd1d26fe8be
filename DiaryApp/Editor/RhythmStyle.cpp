#include "DiaryApp/Editor/RhythmStyle.h"

#include <QtGui/QFontDatabase>
#include <QtGui/QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/Theme.h"

namespace velmar {

namespace {

using diary::MarkdownAttributes;
using diary::MarkdownColor;
using diary::MarkdownFont;

constexpr double kLineFactor = 2.05;
// How much larger than the body the headings of the six levels are, and how much smaller code is.
constexpr std::array kHeadingSteps = {6, 4, 2, 0, 0, 0};
constexpr MarkdownFont kFirstHeading = MarkdownFont::heading1;
constexpr int kCodeStep = -2;
constexpr double kMarkSize = 10;
constexpr double kPillSize = 11;

// Qt adds (spacing - 100) percent of an advance in steps of 1/64 pixel and takes 0 for "not set".
// This value makes the sum exactly 0 for every advance below a hundred pixels, in any font.
constexpr double kNoAdvance = -1.0 / 64;

QFont heading(QFont body, double size) {
    body.setPixelSize(fonts::pixelSize(size));
    body.setWeight(QFont::Bold);
    return body;
}

QFont code(double size) {
    QFont font = fonts::mono(size);
    font.setFamilies(codeFamilies(&QFontDatabase::hasFamily));
    return font;
}

bool isHeading(MarkdownFont font) {
    return font >= MarkdownFont::heading1;
}

}  // namespace

FontFace::FontFace(const QFont& made) : font(made) {
    const QFontMetricsF metrics(font);
    ascent = qRound(metrics.ascent());
    descent = qRound(metrics.descent());
    height = static_cast<int>(std::ceil(metrics.ascent() + metrics.descent()));
}

QStringList codeFamilies(const std::function<bool(const QString&)>& isThere) {
    QStringList families = fonts::mono(kMarkSize).families();
    const QStringList preferred = {QStringLiteral("Menlo"), families.front()};
    const auto found = std::find_if(preferred.begin(), preferred.end(), isThere);
    families.front() = found != preferred.end()
                           ? *found
                           : QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
    return families;
}

int rhythmBaseline(int lineHeight, int ascent, int descent) {
    const int spare = lineHeight - ascent - descent;
    return spare > 1 ? spare / 2 + ascent : lineHeight - descent;
}

RhythmStyle::RhythmStyle(const QFont& body, double fontSize, const QColor& textColor)
    : m_lineHeight(static_cast<int>(std::lround(fontSize * kLineFactor))),
      m_metrics{fontSize},
      m_textColor(textColor),
      m_body(body),
      m_fontSize(fontSize),
      m_hollowBullet(fonts::sans(fontSize)),
      m_mark(fonts::mono(kMarkSize)),
      m_pill(fonts::sans(kPillSize, QFont::Medium)) {}

QFont RhythmStyle::font(MarkdownFont font) const {
    if (font == MarkdownFont::body) return m_body;
    if (font == MarkdownFont::mono) return code(m_fontSize + kCodeStep);
    const auto level = static_cast<std::size_t>(font) - static_cast<std::size_t>(kFirstHeading);
    return heading(m_body, m_fontSize + kHeadingSteps[level]);
}

const FontFace& RhythmStyle::face(MarkdownFont font) const {
    std::optional<FontFace>& face = m_faces[static_cast<std::size_t>(font)];
    if (!face) face.emplace(this->font(font));
    return *face;
}

QColor RhythmStyle::color(MarkdownColor color) const {
    switch (color) {
        case MarkdownColor::base:
            break;
        case MarkdownColor::accent:
            return theme::color(Token::Accent);
        case MarkdownColor::faint:
            return theme::color(Token::Faint);
        case MarkdownColor::daySubText:
            return theme::color(Token::DaySubText);
        case MarkdownColor::inkSource:
            return theme::color(Token::InkSource);
    }
    return m_textColor;
}

QTextCharFormat RhythmStyle::format(const MarkdownAttributes& attributes) const {
    QTextCharFormat format;
    format.setProperty(kOwn, true);
    format.setProperty(kFont, static_cast<int>(attributes.font));
    if (attributes.font != MarkdownFont::body) {
        format.setProperty(QTextFormat::FontPixelSize, face(attributes.font).font.pixelSize());
    }
    if (attributes.font == MarkdownFont::mono) {
        format.setFontFamilies(face(attributes.font).font.families());
    }
    if (attributes.isBold || isHeading(attributes.font)) format.setFontWeight(QFont::Bold);
    if (attributes.color != MarkdownColor::base) format.setForeground(color(attributes.color));
    if (attributes.isStruck) format.setFontStrikeOut(true);
    if (attributes.hasCodeBackground) format.setProperty(kCode, true);
    if (attributes.isOblique) {
        format.setProperty(kOblique, color(attributes.color));
        format.setForeground(theme::none());
    }
    if (attributes.isHidden) {
        format.setFontLetterSpacingType(QFont::PercentageSpacing);
        format.setFontLetterSpacing(kNoAdvance);
        format.setForeground(theme::none());
        format.setFontStrikeOut(false);
    }
    return format;
}

}  // namespace velmar
