// Shows the settings, stores what is changed in them, and tells the application. What has to be
// done elsewhere after a change is the business of the callbacks. Main thread only.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <functional>
#include <memory>

#include "DiaryApp/Settings/Settings.h"
#include "DiaryApp/SettingsWindow/SettingsModel.h"

class QWidget;

namespace velmar {

class SettingsWindow;

class SettingsWindowController : public QObject {
    Q_OBJECT

public:
    // What the window asks the machine for; tests give answers of their own.
    struct Surroundings {
        std::function<QStringList()> fontFamilies;
        std::function<bool()> systemIsDark;
        std::function<QDateTime()> now;
        // Lets the user choose a folder, beginning with this one, and returns at once; the last is
        // called with the choice, and not at all if there is none.
        std::function<void(QWidget* window, const QString& folder,
                           std::function<void(const QString&)> chosen)>
            chooseFolder;
    };
    [[nodiscard]] static Surroundings machine();

    explicit SettingsWindowController(Settings& settings, Surroundings surroundings = machine());
    ~SettingsWindowController() override;

    // After another language was stored; the texts are to be installed then.
    std::function<void()> onLanguageChanged;
    // After another folder was stored, or the stored one forgotten.
    std::function<void()> onVaultChanged;
    // After a change of font, size, gap years, or what is shown of photos.
    std::function<void()> onReadingChanged;
    // After a change of mode or palette; the palette is to be applied then.
    std::function<void()> onAppearanceChanged;
    // How many photos are hidden; none if it is empty.
    std::function<HiddenPhotosStatus()> hiddenPhotosStatus;
    // After the user confirmed it.
    std::function<void()> onRestoreAllHiddenPhotos;
    std::function<void()> onImport;
    std::function<void()> onImportRecords;
    std::function<void()> onExport;
    // The user asks for a check; setUpdateStatus() shows what comes of it.
    std::function<void()> onCheckForUpdates;

    // Makes the window at first use, and brings it to the front.
    void show();
    // Null before the first show().
    [[nodiscard]] SettingsWindow* window() const { return m_window.get(); }

    // Shows everything anew: after a change of language or palette from elsewhere, and whenever the
    // window may be out of date. Scroll position and focus stay. Does nothing before show().
    void rebuildContent();
    // Counts the hidden photos anew.
    void refreshHiddenPhotos();
    // Shown from now on; "unsupported" before the first call.
    void setUpdateStatus(const UpdateStatus& status);

    // What the buttons for the folder do. A folder that can't be the diary's is refused with an
    // alert, and nothing changes.
    void chooseVault();
    void useICloudVault();
    void resetVault();
    void useVault(const QString& folder);

    // Asks first.
    void restoreAllHiddenPhotos();

private:
    [[nodiscard]] SettingsFacts facts() const;
    [[nodiscard]] SettingsModel model() const;
    void makeWindow();
    void wire();
    void wireReading();
    void wireVault();
    void pickPalette(diary::Palette palette);
    void readingChanged();
    // False if the folder was refused.
    bool accepts(const QString& folder);

    Settings& m_settings;
    Surroundings m_surroundings;
    UpdateStatus m_update;
    QTimer m_fontsChanged;
    std::unique_ptr<SettingsWindow> m_window;
};

}  // namespace velmar
