#include "DiaryApp/Desktop/FileManager.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtCore/QUrl>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtGui/QDesktopServices>

namespace velmar {

namespace {

void openFolderOf(const QFileInfo& place) {
    const QString folder = place.isDir() ? place.filePath() : place.path();
    QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
}

}  // namespace

void FileManager::reveal(const QString& path, const QDBusConnection& bus) {
    const QFileInfo place(QFileInfo(path).absoluteFilePath());
    if (!place.exists()) return;
    if (!bus.isConnected()) {
        openFolderOf(place);
        return;
    }
    QDBusMessage show = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    const QString uri = QUrl::fromLocalFile(place.filePath()).toString(QUrl::FullyEncoded);
    // The second argument is a token of the desktop's startup notification, which we have none of.
    show.setArguments({QStringList{uri}, QString()});
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(show), QCoreApplication::instance());
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, place] {
        watcher->deleteLater();
        if (watcher->isError()) openFolderOf(place);
    });
}

}  // namespace velmar
