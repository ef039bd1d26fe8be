// The look of the editor's text at one font size: fonts, colours and lengths, computed once and
// asked at each line and each paint. Made anew when the size, the font or the palette changes.
#pragma once

#include <QtGui/QColor>
#include <QtGui/QFont>
#include <QtGui/QTextFormat>
#include <array>
#include <functional>
#include <optional>

#include "DiaryKit/Markdown/MarkdownHighlighting.h"

namespace velmar {

// A font with the measures that place it in its line, in whole pixels.
struct FontFace {
    QFont font;
    int ascent = 0;
    int descent = 0;
    // Both together, rounded up.
    int height = 0;

    FontFace() = default;
    explicit FontFace(const QFont& font);
};

// Where the baseline stands below the top of a line of this height: glyphs are centred if there is
// more than one pixel to spare, else they stand on the line's bottom. (34, 18, 6) -> 23
[[nodiscard]] int rhythmBaseline(int lineHeight, int ascent, int descent);

// The families of code: the first that is there of Menlo, IBM Plex Mono and the system's monospaced
// one, and behind it those that stand in for missing letters.
[[nodiscard]] QStringList codeFamilies(const std::function<bool(const QString&)>& isThere);

class RhythmStyle {
public:
    // `body` in pixels, already rounded; `fontSize` as it is set, maybe a half.
    RhythmStyle(const QFont& body, double fontSize, const QColor& textColor);

    // round(fontSize * 2.05), the height of every line.
    [[nodiscard]] int lineHeight() const { return m_lineHeight; }
    [[nodiscard]] const diary::MarkdownBlockMetrics& metrics() const { return m_metrics; }
    [[nodiscard]] const QColor& textColor() const { return m_textColor; }

    // Measured when it is first asked for: a font costs a millisecond, and most pages need few.
    [[nodiscard]] const FontFace& face(diary::MarkdownFont font) const;
    [[nodiscard]] const FontFace& body() const { return face(diary::MarkdownFont::body); }

    // The fonts of what is drawn for markers. Source Serif has no hollow bullet.
    [[nodiscard]] const QFont& bulletFont() const { return m_body; }
    [[nodiscard]] const QFont& hollowBulletFont() const { return m_hollowBullet; }
    [[nodiscard]] const QFont& markFont() const { return m_mark; }
    [[nodiscard]] const QFont& pillFont() const { return m_pill; }

    // What characters of this look need on top of the body's font and colour. It names single
    // properties and no whole font, so that nothing else of the font is touched.
    [[nodiscard]] QTextCharFormat format(const diary::MarkdownAttributes& attributes) const;

    // The layout's own properties of a format.
    enum Property {
        // Made by format(), which tells it from an input method's.
        kOwn = QTextFormat::UserProperty + 1,
        // The MarkdownFont, as an int.
        kFont,
        // The colour of oblique text, which the layout paints by itself.
        kOblique,
        // Code on its ground, in rows of their own.
        kCode,
    };

private:
    [[nodiscard]] QFont font(diary::MarkdownFont font) const;
    [[nodiscard]] QColor color(diary::MarkdownColor color) const;

    int m_lineHeight;
    diary::MarkdownBlockMetrics m_metrics;
    QColor m_textColor;
    QFont m_body;
    double m_fontSize;
    mutable std::array<std::optional<FontFace>, 8> m_faces;
    QFont m_hollowBullet;
    QFont m_mark;
    QFont m_pill;
};

}  // namespace velmar
