#include <QtWidgets/QApplication>

#include "DiaryApp/Settings/Settings.h"
#include "DiaryApp/Shell/AppDelegate.h"

int main(int argc, char** argv) {
    // Connecting to the display takes long enough for this to be done by then.
    const auto firstScan = velmar::AppDelegate::warmUp(velmar::Settings::shared());
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Velmar"));
    QApplication::setApplicationName(QStringLiteral("Velmar"));
    QApplication::setApplicationVersion(QStringLiteral(VELMAR_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("org.velmar.Velmar"));
    velmar::AppDelegate delegate(velmar::Settings::shared(), firstScan);
    delegate.start();
    return QApplication::exec();
}
