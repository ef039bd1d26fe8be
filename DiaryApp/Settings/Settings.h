// The typed front of the preferences. Nothing else in the application reads a preference key. Every
// value is read from the store at each use, so a change is seen at once. Main thread only.
#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QProcessEnvironment>
#include <QtCore/QSettings>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <memory>
#include <optional>

#include "DiaryKit/Appearance/AppearanceMode.h"

namespace velmar {

// How the photos of a day are laid out. Raw values are stored.
enum class PhotoStyle { mosaic, strip, timeline };

class Settings {
public:
    // The user's own preferences. A scripted run (DIARY_SCREENSHOT) gets an empty store that lasts
    // for the process, and never touches the user's.
    [[nodiscard]] static Settings& shared();

    // Another store, home folder and environment, for tests.
    Settings(std::unique_ptr<QSettings> store, QString homeFolder,
             const QProcessEnvironment& environment);

    // Absent until a folder was chosen.
    [[nodiscard]] std::optional<QString> vaultPath() const;
    [[nodiscard]] bool hasOnboarded() const;
    [[nodiscard]] diary::AppearanceMode appearanceMode() const;
    // Always a light palette, whatever is stored.
    [[nodiscard]] diary::Palette lightPalette() const;
    // Always a dark palette, whatever is stored.
    [[nodiscard]] diary::Palette darkPalette() const;
    // Absent: the fonts that Velmar brings along.
    [[nodiscard]] std::optional<QString> bodyFontFamily() const;
    // Logical pixels; above 0.
    [[nodiscard]] double editorFontSize() const;
    [[nodiscard]] bool showGapYears() const;
    [[nodiscard]] bool showPhotos() const;
    // DIARY_PHOTO_STYLE goes before the stored value, also when it names no style.
    [[nodiscard]] PhotoStyle photoStyle() const;
    [[nodiscard]] bool autoUpdate() const;
    [[nodiscard]] std::optional<QDateTime> lastUpdateCheck() const;
    [[nodiscard]] std::optional<QString> lastLaunchedVersion() const;
    // Absent: the system's language.
    [[nodiscard]] std::optional<QString> languageOverride() const;
    // Newest first, at most five.
    [[nodiscard]] QStringList recentSearches() const;

    // Place and size of the window of that name, as QWidget::saveGeometry() gave them.
    // Empty if they were never set.
    [[nodiscard]] QByteArray windowFrame(QLatin1String name) const;
    void setWindowFrame(QLatin1String name, const QByteArray& frame);

    // Whether Velmar was used here before: the test for an existing user.
    [[nodiscard]] bool ranBefore() const;

    void setVaultPath(const std::optional<QString>& path);
    void setHasOnboarded(bool done);
    void setAppearanceMode(diary::AppearanceMode mode);
    void setLightPalette(diary::Palette palette);
    void setDarkPalette(diary::Palette palette);
    void setBodyFontFamily(const std::optional<QString>& family);
    void setEditorFontSize(double size);
    void setShowGapYears(bool shown);
    void setShowPhotos(bool shown);
    void setPhotoStyle(PhotoStyle style);
    void setAutoUpdate(bool on);
    void setLastUpdateCheck(const QDateTime& moment);
    void setLastLaunchedVersion(const QString& version);
    void setLanguageOverride(const std::optional<QString>& language);
    // Puts the trimmed query in front and drops an equal older one; a blank query is ignored.
    void rememberSearch(const QString& query);

    // The family names of the font menu that are installed, in the menu's order.
    [[nodiscard]] static QStringList availableBodyFonts(const QStringList& installedFamilies);

    [[nodiscard]] const QString& homeFolder() const { return m_homeFolder; }
    // The value of a DIARY_… variable; absent if it isn't set.
    [[nodiscard]] std::optional<QString> environment(const QString& name) const;

private:
    [[nodiscard]] std::optional<QString> text(QLatin1String key) const;
    [[nodiscard]] bool flag(QLatin1String key, bool fallback) const;
    void setText(QLatin1String key, const std::optional<QString>& value);

    std::unique_ptr<QSettings> m_store;
    QString m_homeFolder;
    QProcessEnvironment m_environment;
};

}  // namespace velmar
