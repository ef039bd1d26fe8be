// The main window put together over a throw-away vault, settings and home.
#pragma once

#include <gtest/gtest.h>

#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include "DiaryApp/Appearance/Appearance.h"
#include "DiaryApp/Editor/GrowingTextView.h"
#include "DiaryApp/Entry/EntryView.h"
#include "DiaryApp/Navigation/YearRailView.h"
#include "DiaryApp/Settings/Localization.h"
#include "DiaryApp/Shell/MainWindow.h"
#include "DiaryApp/Shell/MainWindowController.h"
#include "DiaryKit/Vault/DiaryDay.h"
#include "DiaryKit/Vault/YearSectionParser.h"
#include "tests/support/Printing.h"
#include "tests/support/TemporaryVault.h"

namespace velmar::test {

class ShellFixture : public testing::Test {
protected:
    ShellFixture()
        : settings(std::make_unique<QSettings>(home.filePath(QStringLiteral("settings.ini")),
                                               QSettings::IniFormat),
                   home.path(), QProcessEnvironment()) {
        appearance::prepare();
        localization::install(Language::en);
        appearance::apply(settings);
    }
    ~ShellFixture() override { localization::install(Language::en); }

    std::unique_ptr<MainWindowController> makeController() {
        auto made = std::make_unique<MainWindowController>(
            settings, std::make_unique<diary::DiaryStore>(vault.path()));
        made->onClosed = [this] { ++closed; };
        made->onApplicationCommand = [this](Action action) { commands.push_back(action); };
        made->show();
        // The columns come after the first paint.
        EXPECT_TRUE(waitUntil([&] { return made->window()->rail()->isVisible(); }));
        return made;
    }

    void write(const QString& day, int year, const QString& text) {
        vault.write(day + QLatin1String(".md"),
                    QStringLiteral("# %1\n\n## %2\n\n%3\n").arg(day).arg(year).arg(text).toUtf8());
    }
    [[nodiscard]] QString onDisk(const QString& day, int year) const {
        return diary::YearSectionParser::body(
            year, QString::fromUtf8(vault.read(day + QLatin1String(".md"))));
    }

    [[nodiscard]] MainWindow* window() const { return controller->window(); }
    [[nodiscard]] GrowingTextView* editor() const { return window()->entryView()->editor(); }

    // Runs the event loop until the condition holds; false if it doesn't within ten seconds.
    static bool waitUntil(const std::function<bool()>& condition) {
        return QTest::qWaitFor(condition, 10000);
    }

    QTemporaryDir home;
    diary::test::TemporaryVault vault;
    Settings settings;
    diary::DiaryDay today = diary::DiaryDay::today();
    int closed = 0;
    std::vector<Action> commands;
    std::unique_ptr<MainWindowController> controller;
};

}  // namespace velmar::test
