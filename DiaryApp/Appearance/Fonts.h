// The fonts of the interface. Sizes are logical pixels and may be halves; Qt takes whole pixels, so
// a half becomes the next whole one. Line heights and other measures stay as they are.
#pragma once

#include <QtGui/QFont>
#include <QtGui/QFontMetricsF>
#include <functional>

#include "DiaryApp/Settings/Localization.h"
#include "DiaryApp/Settings/Settings.h"

namespace velmar::fonts {

// Reads the system's own list of fonts in the background, which takes some milliseconds that load()
// would take otherwise. May come ahead of the QApplication; returns at once. Qt takes the list from
// the same library, which any thread may ask to read it.
void warmUp();

// Registers the fonts that Velmar brings along; a second call does nothing. Takes about 1 ms, once
// the system's own list of fonts is read.
void load();

// Decides which Chinese and Japanese shapes stand in for what the Latin fonts lack.
void setLanguage(Language chosen);

// The body of the diary: the user's choice if that family is there, else the first of the
// preferred Chinese families that is installed, else the serif below.
[[nodiscard]] QFont body(const Settings& settings, double size);
// The body in this family, with the same fonts behind it.
[[nodiscard]] QFont body(const QString& family, double size);

// The family that the body is set in, by the same rule: chosen, "PingFang SC", "Songti SC", and the
// serif that Velmar brings along, which is always there.
[[nodiscard]] QString bodyFamily(const std::optional<QString>& chosen,
                                 const std::function<bool(const QString&)>& isInstalled);

// Titles and dates: Source Serif 4 (400, 600, 700).
[[nodiscard]] QFont serif(double size, QFont::Weight weight = QFont::Normal);
// Controls: Source Sans 3 (400, 500, 600).
[[nodiscard]] QFont sans(double size, QFont::Weight weight = QFont::Normal);
// Facts: IBM Plex Mono (300, 400, 500).
[[nodiscard]] QFont mono(double size, QFont::Weight weight = QFont::Normal);

// The font with this much room between letters, in pixels.
[[nodiscard]] QFont spaced(QFont font, double spacing);

// Whole pixels: 16.5 is 17, 16.4 is 16.
[[nodiscard]] int pixelSize(double size);

// Where the baseline of a line stands below the line's top when its text is centred in it.
[[nodiscard]] double baseline(const QFont& font, double lineHeight);

}  // namespace velmar::fonts
