// demo-vault FOLDER [YYYY-MM-DD]: writes the demo diary of that day, or of today, into a folder
// that is empty or doesn't exist yet.
#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QSaveFile>
#include <QtCore/QTextStream>

#include "DiaryKit/Foundation/Clock.h"
#include "tools/demo/DemoVault.h"

namespace {

int complain(const QString& what) {
    QTextStream(stderr) << QStringLiteral("demo-vault: ") << what << QLatin1Char('\n');
    return 1;
}

bool write(const QString& path, const QString& text) {
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) >= 0 && file.commit();
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 2 || arguments.size() > 3) {
        return complain(QStringLiteral("usage: demo-vault FOLDER [YYYY-MM-DD]"));
    }
    const QDate today = arguments.size() == 3 ? QDate::fromString(arguments.at(2), Qt::ISODate)
                                              : diary::Clock::system().now().date();
    if (!today.isValid()) return complain(QStringLiteral("no date: ") + arguments.at(2));

    const QDir folder(arguments.at(1));
    if (!folder.mkpath(QStringLiteral("."))) {
        return complain(QStringLiteral("can't make ") + folder.path());
    }
    // Somebody's own diary must never be written over.
    if (!folder.isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)) {
        return complain(folder.path() + QStringLiteral(" isn't empty"));
    }
    for (const auto& [name, text] : demo::dayFiles(today)) {
        if (!write(folder.filePath(name), text)) {
            return complain(QStringLiteral("can't write ") + folder.filePath(name));
        }
    }
    return 0;
}
