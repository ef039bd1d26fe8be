// Prints the entries of what a path holds, as the application imports them: document-entries PATH.
// A line of JSON for each, in their order. For scripts. Ends with 2 where nothing is read, and with
// 3 where a program that reads the document is missing.
#include <QtCore/QCoreApplication>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <cstdio>

#include "DiaryApp/Documents/DocumentReaders.h"
#include "DiaryKit/Documents/DocumentToolError.h"
#include "DiaryKit/ImportReader/ImportReader.h"

namespace {

QByteArray line(const diary::ImportedEntry& entry) {
    QJsonObject object{{QStringLiteral("day"), QStringLiteral("%1-%2-%3")
                                                   .arg(entry.day.year, 4, 10, QLatin1Char('0'))
                                                   .arg(entry.day.month, 2, 10, QLatin1Char('0'))
                                                   .arg(entry.day.day, 2, 10, QLatin1Char('0'))},
                       {QStringLiteral("body"), entry.body}};
    if (entry.time) object[QStringLiteral("time")] = entry.time->text();
    if (entry.title) object[QStringLiteral("title")] = *entry.title;
    if (entry.weather) object[QStringLiteral("weather")] = *entry.weather;
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc != 2) return 1;
    try {
        const diary::ImportBatch batch = diary::ImportReader::read(
            QString::fromLocal8Bit(argv[1]), {}, diary::documents::documentReaders());
        for (const diary::ImportedEntry& entry : batch.entries) {
            std::fputs(line(entry).constData(), stdout);
        }
    } catch (const diary::documents::DocumentToolError& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 3;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 2;
    }
    return 0;
}
