#include <QtWidgets/QApplication>

#include "DiaryApp/Settings/Settings.h"
#include "DiaryApp/Shell/AppDelegate.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Velmar"));
    QApplication::setApplicationName(QStringLiteral("Velmar"));
    QApplication::setApplicationVersion(QStringLiteral(VELMAR_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("org.velmar.Velmar"));
    velmar::AppDelegate delegate(velmar::Settings::shared());
    delegate.start();
    return QApplication::exec();
}
