#include "DiaryApp/Appearance/CapsHead.h"

#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/TextPainter.h"
#include "DiaryApp/Settings/Localization.h"

namespace velmar {

namespace {

constexpr double kLatinSpacing = 1.47;
constexpr double kHanSpacing = 1.05;

}  // namespace

void paintCapsHead(QPainter& painter, const QRectF& rect, const QString& text) {
    const bool isLatin = localization::installedLanguage() == Language::en;
    const QFont font =
        fonts::spaced(fonts::mono(10.5, QFont::Medium), isLatin ? kLatinSpacing : kHanSpacing);
    paintLine(painter, rect, isLatin ? text.toUpper() : text,
              {font, kCapsHeadHeight, Token::SectionHead});
}

}  // namespace velmar
