// A text view whose pixels are looked at.
#pragma once

#include "DiaryApp/Editor/RhythmLayout.h"
#include "tests/app/editor/EditorFixture.h"

namespace velmar {

inline constexpr int kLine = 34;
inline constexpr int kEdge = RhythmLayout::markRoom + RhythmLayout::gutter;

// A line of every block and mark, in several scripts.
inline const QString& everything() {
    static const QString text = QStringLiteral(
        "# Heading 一级标题\n## 2024\n###### six\nplain **bold** *it* ~~s~~ `c` [a](b)\n- bullet\n"
        "  - nested\n- [ ] open\n- [x] checked 済み\n12. ordered\n> quote\n---\n```\ncode\n```\n"
        "\U0001F600 العربية\n\n");
    return text;
}

// What is painted, by the colour that each decoration has.
class PaintingFixture : public EditorFixture {
protected:
    [[nodiscard]] QImage picture() {
        editor.clearFocus();
        editor.setFixedHeight(editor.textHeight());
        return editor.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    // The rectangle that the pixels of exactly this colour fill.
    [[nodiscard]] static QRect extent(const QImage& image, Token token, const QRect& within) {
        const QRgb wanted = theme::color(token).rgb();
        const QRect area = within & image.rect();
        QRect found;
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int at = area.left(); at <= area.right(); ++at) {
                if (image.pixel(at, y) == wanted) found |= QRect(at, y, 1, 1);
            }
        }
        return found;
    }
    [[nodiscard]] static QRect row(int number) { return {0, number * kLine, 660, kLine}; }
};

}  // namespace velmar
