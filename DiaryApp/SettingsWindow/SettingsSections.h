// The sections of the settings, in their order. Each shows its part of the model and calls back
// what the user did; none of them decides or stores anything.
#pragma once

#include <functional>

#include "DiaryApp/SettingsWindow/SettingsModel.h"
#include "DiaryApp/SettingsWindow/SettingsSection.h"

namespace velmar {

class Button;
class CheckBox;
class ComboBox;
class FontSample;
class PathField;
class SegmentedControl;
class Stepper;
class SwatchGroup;
class TextLabel;

// What the user can do in the window. Those that are empty are not called.
struct SettingsActions {
    std::function<void(diary::AppearanceMode)> onMode;
    std::function<void(diary::Palette)> onPalette;
    // An index into the model's fonts.
    std::function<void(int)> onFont;
    std::function<void(double)> onFontSize;
    std::function<void(bool)> onGapYears;
    std::function<void(PhotoStyle)> onPhotoStyle;
    std::function<void(bool)> onShowPhotos;
    std::function<void()> onRestoreAll;
    std::function<void()> onChooseVault;
    std::function<void()> onUseCloud;
    std::function<void()> onUseDefault;
    std::function<void()> onImport;
    std::function<void()> onExport;
    std::function<void()> onImportRecords;
    // An index into the model's languages.
    std::function<void(int)> onLanguage;
    std::function<void(bool)> onAutoUpdate;
    std::function<void()> onCheckNow;
};

class AppearanceSection : public SettingsSection {
    Q_OBJECT

public:
    AppearanceSection(const SettingsActions& actions, QWidget* parent);
    void update(const SettingsModel& model);
    using QWidget::update;

private:
    SegmentedControl* m_mode;
    SwatchGroup* m_light;
    SwatchGroup* m_dark;
};

class WritingSection : public SettingsSection {
    Q_OBJECT

public:
    // The sizes that the stepper reaches, in logical pixels.
    static constexpr double kLeastFontSize = 10;
    static constexpr double kGreatestFontSize = 32;

    WritingSection(const SettingsActions& actions, QWidget* parent);
    void update(const SettingsModel& model);
    using QWidget::update;

private:
    ComboBox* m_font;
    Stepper* m_size;
    FontSample* m_sample;
    CheckBox* m_gapYears;
};

class PhotosSection : public SettingsSection {
    Q_OBJECT

public:
    PhotosSection(const SettingsActions& actions, QWidget* parent);
    void update(const SettingsModel& model);
    using QWidget::update;

private:
    SegmentedControl* m_style;
    CheckBox* m_show;
    TextLabel* m_hidden;
    Button* m_restore;
};

class FolderSection : public SettingsSection {
    Q_OBJECT

public:
    FolderSection(const SettingsActions& actions, QWidget* parent);
    void update(const SettingsModel& model);
    using QWidget::update;

private:
    PathField* m_path;
    Button* m_choose;
    Button* m_cloud;
    Button* m_default;
};

class InAndOutSection : public SettingsSection {
    Q_OBJECT

public:
    InAndOutSection(const SettingsActions& actions, QWidget* parent);
    void update(const SettingsModel& model);
    using QWidget::update;

private:
    Button* m_import;
    Button* m_export;
    Button* m_records;
};

class LanguageSection : public SettingsSection {
    Q_OBJECT

public:
    LanguageSection(const SettingsActions& actions, QWidget* parent);
    void update(const SettingsModel& model);
    using QWidget::update;

private:
    ComboBox* m_language;
    TextLabel* m_effective;
};

class UpdatesSection : public SettingsSection {
    Q_OBJECT

public:
    UpdatesSection(const SettingsActions& actions, QWidget* parent);
    void update(const SettingsModel& model);
    using QWidget::update;

private:
    CheckBox* m_auto;
    Button* m_check;
    TextLabel* m_status;
};

}  // namespace velmar
