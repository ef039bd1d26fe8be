// Settings in a folder that lasts for one test, with a home and an environment of their own.
#pragma once

#include <gtest/gtest.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include "DiaryApp/Settings/Settings.h"

namespace velmar::test {

class SettingsFixture : public testing::Test {
protected:
    [[nodiscard]] QString home() const { return m_folder.filePath(QStringLiteral("my höme")); }

    void set(const QString& variable, const QString& value) {
        m_environment.insert(variable, value);
    }

    // A value as an older or foreign program may have left it.
    void store(const QString& key, const QVariant& value) const {
        QSettings(file(), QSettings::IniFormat).setValue(key, value);
    }

    [[nodiscard]] Settings settings() const {
        return {std::make_unique<QSettings>(file(), QSettings::IniFormat), home(), m_environment};
    }

    void touch(const QString& path) const {
        QDir().mkpath(QFileInfo(path).path());
        QFile made(path);
        ASSERT_TRUE(made.open(QIODevice::WriteOnly));
    }

private:
    [[nodiscard]] QString file() const { return m_folder.filePath(QStringLiteral("prefs.ini")); }

    QTemporaryDir m_folder;
    QProcessEnvironment m_environment;
};

}  // namespace velmar::test
