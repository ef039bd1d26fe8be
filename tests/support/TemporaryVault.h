// A vault folder that lasts for one test. Its path holds a blank and a letter outside ASCII, so
// that code which splits or recodes paths fails early.
#pragma once

#include <gtest/gtest.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

namespace diary::test {

class TemporaryVault {
public:
    TemporaryVault() { QDir().mkpath(path()); }

    [[nodiscard]] QString path() const { return m_folder.filePath(QStringLiteral("my väult")); }
    [[nodiscard]] QString filePath(const QString& name) const {
        return path() + QLatin1Char('/') + name;
    }

    // Writes the file in place, as a foreign program would.
    void write(const QString& name, const QByteArray& bytes) const {
        const QString target = filePath(name);
        QDir().mkpath(target.section(QLatin1Char('/'), 0, -2));
        QFile file(target);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    // The file's bytes; a null array if it can't be read.
    [[nodiscard]] QByteArray read(const QString& name) const {
        QFile file(filePath(name));
        if (!file.open(QIODevice::ReadOnly)) return {};
        const QByteArray bytes = file.readAll();
        return bytes.isNull() ? QByteArray("") : bytes;
    }

    [[nodiscard]] bool exists(const QString& name) const { return QFile::exists(filePath(name)); }

    // All names in the vault, hidden ones too, sorted.
    [[nodiscard]] QStringList names() const {
        return QDir(path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                                      QDir::Name);
    }

private:
    QTemporaryDir m_folder;
};

}  // namespace diary::test
