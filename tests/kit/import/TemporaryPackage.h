// Files of a test in a folder of their own, with a space and an umlaut in its path.
#pragma once

#include <gtest/gtest.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>

namespace diary::testing {

class TemporaryPackage {
public:
    TemporaryPackage() { QDir().mkpath(root()); }

    [[nodiscard]] QString root() const { return m_folder.filePath(QStringLiteral("a päck")); }
    [[nodiscard]] QString path(const QString& name) const { return root() + u'/' + name; }

    // Writes a file, with the folders that it needs, and gives its path.
    QString add(const QString& name, const QByteArray& bytes = "x") const {
        QString target = path(name);
        QDir().mkpath(QFileInfo(target).path());
        QFile file(target);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << target.toStdString();
        EXPECT_EQ(file.write(bytes), bytes.size());
        return target;
    }

private:
    QTemporaryDir m_folder;
};

}  // namespace diary::testing
