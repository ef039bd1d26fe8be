#include "DiaryApp/Settings/Settings.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <array>
#include <cmath>

namespace velmar {

using diary::AppearanceMode;
using diary::Palette;

namespace {

namespace key {
constexpr QLatin1String kVaultPath("vaultPath");
constexpr QLatin1String kHasOnboarded("hasOnboarded");
constexpr QLatin1String kAppearanceMode("appearanceMode");
constexpr QLatin1String kLightPalette("lightPalette");
constexpr QLatin1String kDarkPalette("darkPalette");
constexpr QLatin1String kBodyFontFamily("bodyFontFamily");
constexpr QLatin1String kEditorFontSize("editorFontSize");
constexpr QLatin1String kShowGapYears("showGapYears");
constexpr QLatin1String kShowPhotos("showPhotos");
constexpr QLatin1String kPhotoStyle("photoStyle");
constexpr QLatin1String kAutoUpdate("autoUpdate");
constexpr QLatin1String kLastUpdateCheck("lastUpdateCheck");
constexpr QLatin1String kLastLaunchedVersion("lastLaunchedVersion");
constexpr QLatin1String kLanguageOverride("languageOverride");
constexpr QLatin1String kRecentSearches("recentSearches");
}  // namespace key

constexpr double kDefaultEditorFontSize = 16.5;
constexpr qsizetype kRecentSearchLimit = 5;

constexpr std::array<std::pair<PhotoStyle, QLatin1String>, 3> kPhotoStyles = {
    {{PhotoStyle::mosaic, QLatin1String("mosaic")},
     {PhotoStyle::strip, QLatin1String("strip")},
     {PhotoStyle::timeline, QLatin1String("timeline")}}};

PhotoStyle photoStyleOr(PhotoStyle fallback, const QString& raw) {
    for (const auto& [style, name] : kPhotoStyles) {
        if (name == raw) return style;
    }
    return fallback;
}

std::unique_ptr<QSettings> sharedStore(const QProcessEnvironment& environment) {
    const bool isScripted = environment.contains(QStringLiteral("DIARY_SCREENSHOT"));
    if (!isScripted) {
        return std::make_unique<QSettings>(QStringLiteral("Velmar"), QStringLiteral("Velmar"));
    }
    static const QTemporaryDir folder;
    return std::make_unique<QSettings>(folder.filePath(QStringLiteral("settings.ini")),
                                       QSettings::IniFormat);
}

}  // namespace

Settings& Settings::shared() {
    static const QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    static Settings settings(sharedStore(environment), QDir::homePath(), environment);
    return settings;
}

Settings::Settings(std::unique_ptr<QSettings> store, QString homeFolder,
                   const QProcessEnvironment& environment)
    : m_store(std::move(store)), m_homeFolder(std::move(homeFolder)), m_environment(environment) {}

std::optional<QString> Settings::vaultPath() const {
    return text(key::kVaultPath);
}

bool Settings::hasOnboarded() const {
    return flag(key::kHasOnboarded, false);
}

AppearanceMode Settings::appearanceMode() const {
    return diary::appearance_mode::parse(text(key::kAppearanceMode).value_or(QString()))
        .value_or(AppearanceMode::light);
}

Palette Settings::lightPalette() const {
    const auto stored = diary::palette::parse(text(key::kLightPalette).value_or(QString()));
    return stored && !diary::palette::isDark(*stored) ? *stored : Palette::paper;
}

Palette Settings::darkPalette() const {
    const auto stored = diary::palette::parse(text(key::kDarkPalette).value_or(QString()));
    return stored && diary::palette::isDark(*stored) ? *stored : Palette::ink;
}

std::optional<QString> Settings::bodyFontFamily() const {
    return text(key::kBodyFontFamily);
}

double Settings::editorFontSize() const {
    bool isNumber = false;
    const double size = m_store->value(key::kEditorFontSize).toDouble(&isNumber);
    return isNumber && std::isfinite(size) && size > 0 ? size : kDefaultEditorFontSize;
}

bool Settings::showGapYears() const {
    return flag(key::kShowGapYears, true);
}

bool Settings::showPhotos() const {
    return flag(key::kShowPhotos, true);
}

PhotoStyle Settings::photoStyle() const {
    if (const auto forced = environment(QStringLiteral("DIARY_PHOTO_STYLE"))) {
        return photoStyleOr(PhotoStyle::mosaic, *forced);
    }
    return photoStyleOr(PhotoStyle::mosaic, text(key::kPhotoStyle).value_or(QString()));
}

bool Settings::autoUpdate() const {
    return flag(key::kAutoUpdate, true);
}

std::optional<QDateTime> Settings::lastUpdateCheck() const {
    const QDateTime moment = m_store->value(key::kLastUpdateCheck).toDateTime();
    return moment.isValid() ? std::optional(moment) : std::nullopt;
}

std::optional<QString> Settings::lastLaunchedVersion() const {
    return text(key::kLastLaunchedVersion);
}

std::optional<QString> Settings::languageOverride() const {
    return text(key::kLanguageOverride);
}

QStringList Settings::recentSearches() const {
    return m_store->value(key::kRecentSearches).toStringList();
}

QByteArray Settings::windowFrame(QLatin1String name) const {
    return m_store->value(QLatin1String("windowFrame/") + name).toByteArray();
}

void Settings::setWindowFrame(QLatin1String name, const QByteArray& frame) {
    m_store->setValue(QLatin1String("windowFrame/") + name, frame);
}

bool Settings::ranBefore() const {
    return hasOnboarded() || vaultPath() || m_store->contains(key::kLastUpdateCheck);
}

void Settings::setVaultPath(const std::optional<QString>& path) {
    setText(key::kVaultPath, path);
}

void Settings::setHasOnboarded(bool done) {
    m_store->setValue(key::kHasOnboarded, done);
}

void Settings::setAppearanceMode(AppearanceMode mode) {
    setText(key::kAppearanceMode, diary::appearance_mode::rawValue(mode));
}

void Settings::setLightPalette(Palette palette) {
    setText(key::kLightPalette, diary::palette::rawValue(palette));
}

void Settings::setDarkPalette(Palette palette) {
    setText(key::kDarkPalette, diary::palette::rawValue(palette));
}

void Settings::setBodyFontFamily(const std::optional<QString>& family) {
    setText(key::kBodyFontFamily, family);
}

void Settings::setEditorFontSize(double size) {
    m_store->setValue(key::kEditorFontSize, size);
}

void Settings::setShowGapYears(bool shown) {
    m_store->setValue(key::kShowGapYears, shown);
}

void Settings::setShowPhotos(bool shown) {
    m_store->setValue(key::kShowPhotos, shown);
}

void Settings::setPhotoStyle(PhotoStyle style) {
    setText(key::kPhotoStyle, QString(kPhotoStyles[static_cast<std::size_t>(style)].second));
}

void Settings::setAutoUpdate(bool on) {
    m_store->setValue(key::kAutoUpdate, on);
}

void Settings::setLastUpdateCheck(const QDateTime& moment) {
    m_store->setValue(key::kLastUpdateCheck, moment);
}

void Settings::setLastLaunchedVersion(const QString& version) {
    setText(key::kLastLaunchedVersion, version);
}

void Settings::setLanguageOverride(const std::optional<QString>& language) {
    setText(key::kLanguageOverride, language);
}

void Settings::rememberSearch(const QString& query) {
    const QString trimmed = query.trimmed();
    if (trimmed.isEmpty()) return;
    QStringList searches = recentSearches();
    searches.removeAll(trimmed);
    searches.prepend(trimmed);
    m_store->setValue(key::kRecentSearches,
                      searches.first(qMin(searches.size(), kRecentSearchLimit)));
}

QStringList Settings::availableBodyFonts(const QStringList& installedFamilies) {
    QStringList fonts = {QStringLiteral("Songti SC"),
                         QStringLiteral("Noto Serif SC"),
                         QStringLiteral("Source Han Serif SC"),
                         QStringLiteral("Kaiti SC"),
                         QStringLiteral("STKaiti"),
                         QStringLiteral("LXGW WenKai"),
                         QStringLiteral("PingFang SC"),
                         QStringLiteral("Hiragino Sans GB"),
                         QStringLiteral("New York"),
                         QStringLiteral("Charter"),
                         QStringLiteral("Iowan Old Style"),
                         QStringLiteral("Georgia"),
                         QStringLiteral("Palatino")};
    fonts.removeIf([&](const QString& family) { return !installedFamilies.contains(family); });
    return fonts;
}

std::optional<QString> Settings::environment(const QString& name) const {
    if (!m_environment.contains(name)) return std::nullopt;
    return m_environment.value(name);
}

std::optional<QString> Settings::text(QLatin1String key) const {
    const QVariant value = m_store->value(key);
    return value.isValid() ? std::optional(value.toString()) : std::nullopt;
}

bool Settings::flag(QLatin1String key, bool fallback) const {
    return m_store->value(key, fallback).toBool();
}

void Settings::setText(QLatin1String key, const std::optional<QString>& value) {
    if (value) {
        m_store->setValue(key, *value);
    } else {
        m_store->remove(key);
    }
}

}  // namespace velmar
