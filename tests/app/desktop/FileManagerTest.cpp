#include "DiaryApp/Desktop/FileManager.h"

#include <gtest/gtest.h>

#include <QtCore/QDir>
#include <QtCore/QStandardPaths>
#include <QtCore/QUrl>
#include <QtDBus/QDBusContext>
#include <QtGui/QDesktopServices>
#include <QtTest/QTest>

#include "tests/app/desktop/PrivateBus.h"

namespace velmar {

class FakeFileManager : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    QStringList shown;
    bool isBroken = false;

public Q_SLOTS:
    Q_SCRIPTABLE void ShowItems(const QStringList& uris, const QString& /*startupId*/) {
        shown += uris;
        if (isBroken) sendErrorReply(QDBusError::Failed, QStringLiteral("broken"));
    }
};

// Takes what would go to the desktop's program for folders.
class FolderOpener : public QObject {
    Q_OBJECT

public:
    FolderOpener() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open"); }
    ~FolderOpener() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

    QStringList opened;

public Q_SLOTS:
    void open(const QUrl& url) { opened += url.toLocalFile(); }
};

namespace {

class FileManagerTest : public testing::Test {
protected:
    void SetUp() override {
        if (!bus.isThere()) {
            ASSERT_TRUE(QStandardPaths::findExecutable(QStringLiteral("dbus-daemon")).isEmpty())
                << bus.complaint().toStdString();
            GTEST_SKIP() << "dbus-daemon isn't installed";
        }
        QFile made(file());
        ASSERT_TRUE(made.open(QIODevice::WriteOnly));
    }

    void putOnBus(FakeFileManager& manager) {
        QDBusConnection desktop = bus.connection();
        ASSERT_TRUE(desktop.registerObject(QStringLiteral("/org/freedesktop/FileManager1"),
                                           &manager, QDBusConnection::ExportScriptableSlots));
        ASSERT_TRUE(desktop.registerService(QStringLiteral("org.freedesktop.FileManager1")));
    }

    [[nodiscard]] QString file() const { return folder.filePath(QStringLiteral("11-21 ü#.md")); }

    test::PrivateBus bus;
    FolderOpener opener;
    QTemporaryDir folder;
};

TEST_F(FileManagerTest, ChoosesTheFileByItsEncodedAddress) {
    FakeFileManager manager;
    putOnBus(manager);
    FileManager::reveal(file(), bus.connection());
    EXPECT_TRUE(manager.shown.isEmpty()) << "it doesn't wait for the file manager";
    ASSERT_TRUE(QTest::qWaitFor([&] { return !manager.shown.isEmpty(); }));
    ASSERT_EQ(manager.shown.size(), 1);
    EXPECT_TRUE(manager.shown[0].startsWith(QLatin1String("file:///")));
    EXPECT_TRUE(manager.shown[0].endsWith(QLatin1String("/11-21%20%C3%BC%23.md")))
        << manager.shown[0].toStdString();
    EXPECT_EQ(QUrl(manager.shown[0]).toLocalFile(), file());
    EXPECT_TRUE(opener.opened.isEmpty());
}

TEST_F(FileManagerTest, OpensTheFolderWhereNoFileManagerIsOnTheBus) {
    FileManager::reveal(file(), bus.connection());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !opener.opened.isEmpty(); }));
    EXPECT_EQ(opener.opened, QStringList(folder.path()));
}

TEST_F(FileManagerTest, OpensTheFolderWhenTheFileManagerFails) {
    FakeFileManager manager;
    manager.isBroken = true;
    putOnBus(manager);
    FileManager::reveal(folder.path(), bus.connection());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !opener.opened.isEmpty(); }));
    EXPECT_EQ(manager.shown.size(), 1);
    EXPECT_EQ(opener.opened, QStringList(folder.path()));
}

TEST_F(FileManagerTest, WithoutABusTheFolderIsOpenedAtOnce) {
    FileManager::reveal(file(), QDBusConnection(QStringLiteral("no such connection")));
    EXPECT_EQ(opener.opened, QStringList(folder.path()));
}

TEST_F(FileManagerTest, WhatIsNotThereIsLeftAlone) {
    FileManager::reveal(folder.filePath(QStringLiteral("gone/01-01.md")),
                        QDBusConnection(QStringLiteral("no such connection")));
    EXPECT_TRUE(opener.opened.isEmpty());
}

}  // namespace
}  // namespace velmar

#include "FileManagerTest.moc"
