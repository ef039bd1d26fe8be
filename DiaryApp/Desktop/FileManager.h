// Shows files in the desktop's file manager.
#pragma once

#include <QtCore/QString>
#include <QtDBus/QDBusConnection>

namespace velmar {

class FileManager {
public:
    // Opens the folder that holds this file or folder, with it chosen there; returns at once. Where
    // the desktop has no file manager that can choose, the folder is opened in whatever opens
    // folders: the path itself if it is one. What isn't there is left alone.
    static void reveal(const QString& path,
                       const QDBusConnection& bus = QDBusConnection::sessionBus());
};

}  // namespace velmar
