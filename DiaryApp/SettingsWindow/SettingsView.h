// The content of the settings window: all sections, one below the other.
#pragma once

#include <QtWidgets/QWidget>

#include "DiaryApp/SettingsWindow/SettingsSections.h"

namespace velmar {

class SettingsView : public QWidget {
    Q_OBJECT

public:
    static constexpr int kWidth = 740;
    static constexpr int kHeight = 836;

    explicit SettingsView(QWidget* parent = nullptr);

    // Shows the model with texts in the language of now. Nothing is called back.
    void update(const SettingsModel& model);
    using QWidget::update;

    SettingsActions actions;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    AppearanceSection* m_appearance;
    WritingSection* m_writing;
    PhotosSection* m_photos;
    FolderSection* m_folder;
    InAndOutSection* m_inAndOut;
    LanguageSection* m_language;
    UpdatesSection* m_updates;
};

}  // namespace velmar
