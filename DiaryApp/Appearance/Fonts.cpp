#include "DiaryApp/Appearance/Fonts.h"

#include <fontconfig/fontconfig.h>

#include <QtCore/QDir>
#include <QtCore/QResource>
#include <QtGui/QFontDatabase>
#include <cmath>
#include <utility>

#include "DiaryKit/Foundation/Background.h"

namespace velmar::fonts {

namespace {

Language& language() {
    static Language current = Language::en;
    return current;
}

// The ids of the fonts that are registered now.
QList<int>& loadedFonts() {
    static QList<int> ids;
    return ids;
}

QString serifFamily() {
    return QStringLiteral("Source Serif 4");
}

QString cjk(const QString& kind) {
    const QLatin1String region(language() == Language::ja ? "JP" : "SC");
    return QStringLiteral("Noto %1 CJK %2").arg(kind, region);
}

QFont make(const QString& family, const QString& behind, double size, QFont::Weight weight) {
    QFont font;
    font.setFamilies({family, behind});
    font.setPixelSize(pixelSize(size));
    font.setWeight(weight);
    // Hinting would make small Chinese and Japanese text a good deal darker than the Latin beside
    // it.
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

// Where it lies in the program, which lives as long as the fonts do. From a file Qt would copy each
// font twice.
QByteArray bundled(const QString& path) {
    const QResource font(path);
    return QByteArray::fromRawData(reinterpret_cast<const char*>(font.data()), font.size());
}

}  // namespace

void warmUp() {
    diary::background::start(diary::background::Urgency::UserWaits, [] { FcInit(); });
}

void load() {
    if (!loadedFonts().isEmpty()) return;
    const QDir folder(QStringLiteral(":/fonts"));
    for (const QString& name : folder.entryList()) {
        const QByteArray font = bundled(folder.filePath(name));
        loadedFonts().append(QFontDatabase::addApplicationFontFromData(font));
    }
}

void setLanguage(Language chosen) {
    if (std::exchange(language(), chosen) == chosen || loadedFonts().isEmpty()) return;
    // Qt keeps what it found for a family's missing shapes until the list of fonts changes.
    for (const int id : std::exchange(loadedFonts(), {})) QFontDatabase::removeApplicationFont(id);
    load();
}

QFont body(const Settings& settings, double size) {
    const QString family = bodyFamily(settings.bodyFontFamily(), [](const QString& name) {
        return QFontDatabase::hasFamily(name);
    });
    return body(family, size);
}

QFont body(const QString& family, double size) {
    return make(family, cjk(QStringLiteral("Serif")), size, QFont::Normal);
}

QString bodyFamily(const std::optional<QString>& chosen,
                   const std::function<bool(const QString&)>& isInstalled) {
    const QStringList preferred = {chosen.value_or(QString()), QStringLiteral("PingFang SC"),
                                   QStringLiteral("Songti SC")};
    for (const QString& family : preferred) {
        if (!family.isEmpty() && isInstalled(family)) return family;
    }
    return serifFamily();
}

QFont serif(double size, QFont::Weight weight) {
    return make(serifFamily(), cjk(QStringLiteral("Serif")), size, weight);
}

QFont sans(double size, QFont::Weight weight) {
    return make(QStringLiteral("Source Sans 3"), cjk(QStringLiteral("Sans")), size, weight);
}

QFont mono(double size, QFont::Weight weight) {
    return make(QStringLiteral("IBM Plex Mono"), cjk(QStringLiteral("Sans")), size, weight);
}

QFont spaced(QFont font, double spacing) {
    font.setLetterSpacing(QFont::AbsoluteSpacing, spacing);
    return font;
}

int pixelSize(double size) {
    return qMax(1, static_cast<int>(std::floor(size + 0.5)));
}

double baseline(const QFont& font, double lineHeight) {
    // Whole pixels, so that lines of one height are alike and glyphs stand sharp.
    const QFontMetricsF metrics(font);
    const double ascent = std::round(metrics.ascent());
    const double descent = std::round(metrics.descent());
    return std::floor((lineHeight - ascent - descent) / 2) + ascent;
}

}  // namespace velmar::fonts
