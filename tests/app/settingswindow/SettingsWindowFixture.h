// A settings window on settings and surroundings that last for one test.
#pragma once

#include <QtCore/QTimeZone>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QLabel>

#include "DiaryApp/Appearance/Appearance.h"
#include "DiaryApp/Appearance/Motion.h"
#include "DiaryApp/SettingsWindow/SettingsView.h"
#include "DiaryApp/SettingsWindow/SettingsWindow.h"
#include "DiaryApp/SettingsWindow/SettingsWindowController.h"
#include "tests/app/settings/SettingsFixture.h"

namespace velmar::test {

inline QDateTime moment(int hour, int minute) {
    return {QDate(2026, 11, 21), QTime(hour, minute), QTimeZone::utc()};
}

class SettingsWindowFixture : public SettingsFixture {
protected:
    SettingsWindowFixture() {
        QDir().mkpath(home());
        appearance::prepare();
        localization::install(Language::en);
        motion::setReduced(true);
    }
    ~SettingsWindowFixture() override {
        motion::setReduced(false);
        localization::install(Language::en);
    }

    // Opens the window; what the test has set before counts.
    void open() {
        stored = std::make_unique<Settings>(settings());
        controller = std::make_unique<SettingsWindowController>(
            *stored, SettingsWindowController::Surroundings{
                         .fontFamilies = [this] { return families; },
                         .systemIsDark = [this] { return systemIsDark; },
                         .now = [] { return moment(12, 0); },
                         .chooseFolder =
                             [this](QWidget*, const QString& from,
                                    const std::function<void(const QString&)>& chosen) {
                                 choosingBeganAt = from;
                                 if (!choice.isEmpty()) chosen(choice);
                             }});
        const auto note = [this](const char* what) {
            return [this, what] { told += QLatin1String(what); };
        };
        controller->onLanguageChanged = note("language");
        controller->onVaultChanged = note("vault");
        controller->onReadingChanged = note("reading");
        controller->onAppearanceChanged = note("appearance");
        controller->hiddenPhotosStatus = [this] { return hidden; };
        controller->onRestoreAllHiddenPhotos = note("restore");
        controller->onImport = note("import");
        controller->onImportRecords = note("records");
        controller->onExport = note("export");
        controller->onCheckForUpdates = note("check");
        controller->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(controller->window()));
    }

    // The one control of this kind with that accessible name or text.
    template <class Control>
    [[nodiscard]] Control* control(const char* name) const {
        for (auto* each : controller->window()->findChildren<Control*>()) {
            const auto* button = qobject_cast<QAbstractButton*>(static_cast<QWidget*>(each));
            const auto* label = qobject_cast<QLabel*>(static_cast<QWidget*>(each));
            const QString text = button ? button->text() : label ? label->text() : QString();
            const QString wanted = QString::fromUtf8(name);
            if (each->accessibleName() == wanted || text == wanted) return each;
        }
        ADD_FAILURE() << "no control " << name;
        return nullptr;
    }

    QStringList families = {QStringLiteral("Georgia"), QStringLiteral("Charter"),
                            QStringLiteral("IBM Plex Mono")};
    bool systemIsDark = false;
    HiddenPhotosStatus hidden;
    QString choice;
    QString choosingBeganAt;
    // The callbacks that came, in their order.
    QStringList told;
    std::unique_ptr<Settings> stored;
    std::unique_ptr<SettingsWindowController> controller;
};

}  // namespace velmar::test
