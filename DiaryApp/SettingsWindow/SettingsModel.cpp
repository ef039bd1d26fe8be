#include "DiaryApp/SettingsWindow/SettingsModel.h"

#include <QtCore/QTimeZone>
#include <array>

#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Settings/Formatters.h"
#include "DiaryApp/Settings/VaultPlaces.h"

namespace velmar {

namespace {

// In the order of the box, behind the system's.
constexpr std::array kLanguages = {Language::en, Language::zhHans, Language::ja};

// Each in its own writing, so that whoever can't read the interface finds theirs.
QString ownName(Language language) {
    switch (language) {
        case Language::en:
            return QStringLiteral("English");
        case Language::zhHans:
            return QStringLiteral("简体中文");
        case Language::ja:
            break;
    }
    return QStringLiteral("日本語");
}

std::vector<SettingsModel::Swatch> swatches(const Settings& settings, bool systemIsDark) {
    const diary::Palette light = settings.lightPalette();
    const diary::Palette dark = settings.darkPalette();
    const diary::Palette inForce =
        diary::appearance_mode::palette(settings.appearanceMode(), light, dark, systemIsDark);
    std::vector<SettingsModel::Swatch> all;
    for (const diary::Palette each : diary::palette::all()) {
        all.push_back(
            {.palette = each,
             .isChosen = each == light || each == dark,
             .isInForce = diary::palette::isDark(each) == diary::palette::isDark(inForce)});
    }
    return all;
}

void addFonts(SettingsModel& model, const Settings& settings, const QStringList& installed) {
    const auto isInstalled = [&](const QString& family) { return installed.contains(family); };
    const QString byDefault = fonts::bodyFamily(std::nullopt, isInstalled);
    model.bodyFamily = fonts::bodyFamily(settings.bodyFontFamily(), isInstalled);
    model.fonts = Settings::availableBodyFonts(installed);
    const QString stored = settings.bodyFontFamily().value_or(QString());
    // What was stored by other means shows as long as it is in use.
    if (!model.fonts.contains(stored) && isInstalled(stored)) model.fonts.append(stored);
    model.fonts.prepend(qtTrId("Settings.DefaultFont").arg(byDefault));
    model.font = static_cast<int>(qMax(qsizetype(0), model.fonts.indexOf(stored, 1)));
}

QString hiddenPhotosText(const HiddenPhotosStatus& status) {
    if (status.count <= 0) return qtTrId("Settings.NoHiddenPhotos");
    return status.isSynced ? qtTrId("Settings.HiddenPhotosSynced", status.count)
                           : qtTrId("Settings.HiddenPhotos", status.count);
}

void addLanguages(SettingsModel& model, const Settings& settings, Language effective) {
    model.languages = {qtTrId("Settings.SystemLanguage")};
    const auto stored = localization::parse(settings.languageOverride().value_or(QString()));
    for (const Language each : kLanguages) {
        model.languages.append(ownName(each));
        if (stored == each) model.language = static_cast<int>(model.languages.size()) - 1;
    }
    model.effectiveLanguage = ownName(effective);
}

struct Moment {
    QString day;
    QString time;
};

std::optional<Moment> lastCheck(const Settings& settings, const QDateTime& now) {
    const auto checked = settings.lastUpdateCheck();
    if (!checked || !now.isValid()) return std::nullopt;
    const QDateTime local = checked->toTimeZone(now.timeZone());
    return Moment{Formatters::relativeDay(local.date(), now.date()),
                  local.time().toString(QStringLiteral("HH:mm"))};
}

QString updateText(const UpdateStatus& update, const std::optional<Moment>& checked) {
    switch (update.state) {
        case UpdateStatus::State::Unsupported:
            return qtTrId("Settings.UpdateUnsupported");
        case UpdateStatus::State::Idle:
            if (!checked) return qtTrId("Settings.NeverChecked");
            return qtTrId("Settings.LastChecked").arg(checked->day, checked->time);
        case UpdateStatus::State::Checking:
            return qtTrId("Settings.Checking");
        case UpdateStatus::State::UpToDate:
            if (!checked) return qtTrId("Settings.UpToDate").arg(update.version);
            return qtTrId("Settings.UpToDateChecked")
                .arg(update.version, checked->day, checked->time);
        case UpdateStatus::State::Downloading:
            return qtTrId("Settings.Downloading").arg(update.version);
        case UpdateStatus::State::Ready:
            return qtTrId("Settings.UpdateReady").arg(update.version);
        case UpdateStatus::State::Failed:
            break;
    }
    return qtTrId("Settings.UpdateFailed");
}

}  // namespace

SettingsModel settingsModel(const Settings& settings, const SettingsFacts& facts) {
    SettingsModel model;
    model.mode = settings.appearanceMode();
    model.swatches = swatches(settings, facts.systemIsDark);
    addFonts(model, settings, facts.installedFamilies);
    model.fontSize = settings.editorFontSize();
    model.showGapYears = settings.showGapYears();
    model.photoStyle = settings.photoStyle();
    model.showPhotos = settings.showPhotos();
    model.hiddenPhotos = hiddenPhotosText(facts.hiddenPhotos);
    model.hiddenPhotoCount = qMax(0, facts.hiddenPhotos.count);
    const VaultPlaces places(settings);
    model.vaultPath = places.vaultURL();
    model.shownVaultPath = abbreviatedPath(model.vaultPath, settings.homeFolder());
    model.hasCloudPlace = places.hasCloudPlace();
    model.hasChosenVault = settings.vaultPath().has_value();
    addLanguages(model, settings, facts.effectiveLanguage);
    model.autoUpdate = settings.autoUpdate();
    model.canUpdate = facts.update.state != UpdateStatus::State::Unsupported;
    model.isUpdating = facts.update.state == UpdateStatus::State::Checking ||
                       facts.update.state == UpdateStatus::State::Downloading;
    model.updateStatus = updateText(facts.update, lastCheck(settings, facts.now));
    return model;
}

std::optional<QString> fontAt(const SettingsModel& model, int index) {
    if (index <= 0 || index >= model.fonts.size()) return std::nullopt;
    return model.fonts[index];
}

std::optional<QString> languageAt(int index) {
    if (index <= 0 || index > static_cast<int>(kLanguages.size())) return std::nullopt;
    return localization::code(kLanguages[static_cast<std::size_t>(index - 1)]);
}

QString abbreviatedPath(const QString& path, const QString& homeFolder) {
    if (homeFolder.isEmpty()) return path;
    if (path == homeFolder) return QStringLiteral("~");
    if (!path.startsWith(homeFolder + QLatin1Char('/'))) return path;
    return QLatin1Char('~') + path.mid(homeFolder.size());
}

}  // namespace velmar
