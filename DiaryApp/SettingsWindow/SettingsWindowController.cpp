#include "DiaryApp/SettingsWindow/SettingsWindowController.h"

#include <QtGui/QFontDatabase>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QFileDialog>

#include "DiaryApp/Appearance/Appearance.h"
#include "DiaryApp/Chrome/AlertSheet.h"
#include "DiaryApp/Settings/VaultFolder.h"
#include "DiaryApp/Settings/VaultPlaces.h"
#include "DiaryApp/SettingsWindow/SettingsView.h"
#include "DiaryApp/SettingsWindow/SettingsWindow.h"
#include "DiaryKit/Foundation/Clock.h"

namespace velmar {

namespace {

void tell(const std::function<void()>& callback) {
    if (callback) callback();
}

// The desktop's own window for it, where it has one.
void chooseFolderByDialog(QWidget* window, const QString& folder,
                          std::function<void(const QString&)> chosen) {
    auto* dialog = new QFileDialog(window, qtTrId("Settings.ChooseTitle"), folder);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    QObject::connect(dialog, &QFileDialog::fileSelected, window, std::move(chosen));
    dialog->open();
}

QString sentenceFor(vaultfolder::Problem problem) {
    switch (problem) {
        case vaultfolder::Problem::NotAFolder:
            return qtTrId("Settings.FolderNotAFolder");
        case vaultfolder::Problem::NotWritable:
            return qtTrId("Settings.FolderNotWritable");
        case vaultfolder::Problem::CannotBeMade:
            break;
    }
    return qtTrId("Settings.FolderCannotBeMade");
}

}  // namespace

SettingsWindowController::Surroundings SettingsWindowController::machine() {
    return {.fontFamilies = [] { return QFontDatabase::families(); },
            .systemIsDark = [] { return appearance::systemIsDark(); },
            .now = [] { return diary::Clock::system().now().toLocalTime(); },
            .chooseFolder = chooseFolderByDialog};
}

SettingsWindowController::SettingsWindowController(Settings& settings, Surroundings surroundings)
    : m_settings(settings), m_surroundings(std::move(surroundings)) {}

SettingsWindowController::~SettingsWindowController() = default;

void SettingsWindowController::show() {
    if (!m_window) makeWindow();
    rebuildContent();
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

void SettingsWindowController::makeWindow() {
    m_window = std::make_unique<SettingsWindow>();
    wire();
    wireReading();
    wireVault();
    // Fonts come and go many at a time, and reading their list anew takes long: once for all of
    // them.
    m_fontsChanged.setSingleShot(true);
    m_fontsChanged.setInterval(0);
    connect(&m_fontsChanged, &QTimer::timeout, this, &SettingsWindowController::rebuildContent);
    connect(qGuiApp, &QGuiApplication::fontDatabaseChanged, &m_fontsChanged,
            qOverload<>(&QTimer::start));
}

SettingsFacts SettingsWindowController::facts() const {
    return {.installedFamilies = m_surroundings.fontFamilies(),
            .systemIsDark = m_surroundings.systemIsDark(),
            .effectiveLanguage = localization::effectiveLanguage(m_settings),
            .hiddenPhotos = hiddenPhotosStatus ? hiddenPhotosStatus() : HiddenPhotosStatus(),
            .update = m_update,
            .now = m_surroundings.now()};
}

SettingsModel SettingsWindowController::model() const {
    return settingsModel(m_settings, facts());
}

void SettingsWindowController::rebuildContent() {
    if (!m_window) return;
    m_window->setWindowTitle(qtTrId("Settings.Title"));
    m_window->view()->update(model());
    m_window->update();
}

void SettingsWindowController::refreshHiddenPhotos() {
    rebuildContent();
}

void SettingsWindowController::setUpdateStatus(const UpdateStatus& status) {
    m_update = status;
    rebuildContent();
}

void SettingsWindowController::wire() {
    SettingsActions& actions = m_window->view()->actions;
    actions.onMode = [this](diary::AppearanceMode mode) {
        m_settings.setAppearanceMode(mode);
        tell(onAppearanceChanged);
        rebuildContent();
    };
    actions.onPalette = [this](diary::Palette palette) { pickPalette(palette); };
    actions.onLanguage = [this](int index) {
        m_settings.setLanguageOverride(languageAt(index));
        tell(onLanguageChanged);
        rebuildContent();
    };
    actions.onAutoUpdate = [this](bool on) { m_settings.setAutoUpdate(on); };
    actions.onCheckNow = [this] { tell(onCheckForUpdates); };
    actions.onImport = [this] { tell(onImport); };
    actions.onImportRecords = [this] { tell(onImportRecords); };
    actions.onExport = [this] { tell(onExport); };
}

void SettingsWindowController::wireReading() {
    SettingsActions& actions = m_window->view()->actions;
    actions.onFont = [this](int index) {
        m_settings.setBodyFontFamily(fontAt(model(), index));
        readingChanged();
    };
    actions.onFontSize = [this](double size) {
        m_settings.setEditorFontSize(size);
        readingChanged();
    };
    actions.onGapYears = [this](bool on) {
        m_settings.setShowGapYears(on);
        readingChanged();
    };
    actions.onPhotoStyle = [this](PhotoStyle style) {
        m_settings.setPhotoStyle(style);
        readingChanged();
    };
    actions.onShowPhotos = [this](bool on) {
        m_settings.setShowPhotos(on);
        readingChanged();
    };
    actions.onRestoreAll = [this] { restoreAllHiddenPhotos(); };
}

void SettingsWindowController::wireVault() {
    SettingsActions& actions = m_window->view()->actions;
    actions.onChooseVault = [this] { chooseVault(); };
    actions.onUseCloud = [this] { useICloudVault(); };
    actions.onUseDefault = [this] { resetVault(); };
}

void SettingsWindowController::pickPalette(diary::Palette palette) {
    if (diary::palette::isDark(palette)) {
        m_settings.setDarkPalette(palette);
    } else {
        m_settings.setLightPalette(palette);
    }
    tell(onAppearanceChanged);
    rebuildContent();
}

void SettingsWindowController::readingChanged() {
    tell(onReadingChanged);
    rebuildContent();
}

void SettingsWindowController::chooseVault() {
    m_surroundings.chooseFolder(m_window.get(), VaultPlaces(m_settings).vaultURL(),
                                [this](const QString& folder) { useVault(folder); });
}

void SettingsWindowController::useICloudVault() {
    useVault(VaultPlaces(m_settings).iCloudVaultURL());
}

void SettingsWindowController::useVault(const QString& folder) {
    if (!accepts(folder)) return;
    m_settings.setVaultPath(folder);
    tell(onVaultChanged);
    rebuildContent();
}

void SettingsWindowController::resetVault() {
    if (!accepts(VaultPlaces(m_settings).defaultVaultURL())) return;
    m_settings.setVaultPath(std::nullopt);
    tell(onVaultChanged);
    rebuildContent();
}

bool SettingsWindowController::accepts(const QString& folder) {
    const auto problem = vaultfolder::problem(folder);
    if (!problem) return true;
    if (m_window) {
        AlertSheet::show(
            m_window.get(), qtTrId("Settings.FolderFailedTitle"),
            sentenceFor(*problem).arg(abbreviatedPath(folder, m_settings.homeFolder())));
    }
    return false;
}

void SettingsWindowController::restoreAllHiddenPhotos() {
    const int count = facts().hiddenPhotos.count;
    AlertSheet::ask(
        m_window.get(), qtTrId("Settings.RestoreAllTitle"),
        qtTrId("Settings.RestoreAllInfo", count),
        {.act = qtTrId("Settings.RestoreAllConfirm"), .cancel = qtTrId("Settings.Cancel")}, [this] {
            tell(onRestoreAllHiddenPhotos);
            refreshHiddenPhotos();
        });
}

}  // namespace velmar
