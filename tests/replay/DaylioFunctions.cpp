// Daylio's exports, and CSV.
#include <QtCore/QJsonArray>

#include "DiaryKit/AppSources/CSV.h"
#include "DiaryKit/AppSources/DaylioSource.h"
#include "tests/replay/CaseFiles.h"
#include "tests/replay/Replay.h"

namespace diary::replay {

namespace {

DaylioSource::Moods moods(const QJsonObject& in) {
    DaylioSource::Moods labels;
    const QJsonObject given = in[QLatin1String("moods")].toObject();
    for (auto mood = given.begin(); mood != given.end(); ++mood) {
        labels.insert(mood.key(), mood.value().toString());
    }
    return labels;
}

QJsonValue csvParse(const QJsonObject& in) {
    QJsonArray rows;
    for (const QStringList& row : CSV::parse(text(in, "text"))) {
        rows.append(QJsonArray::fromStringList(row));
    }
    return QJsonObject{{QStringLiteral("rows"), rows}};
}

QJsonValue isCSV(const QJsonObject& in) {
    return QJsonObject{{QStringLiteral("isCSV"), DaylioSource::isCSV(text(in, "text"))}};
}

QJsonValue readCSV(const QJsonObject& in) {
    return result(
        [&] { return DaylioSource::readCSV(text(in, "text"), text(in, "name"), moods(in)); });
}

QJsonValue readBackup(const QJsonObject& in) {
    const QTemporaryDir folder;
    makeFiles(folder, in);
    const ImportPackage package(folder.filePath(text(in, "picked")));
    return result([&] { return DaylioSource::readBackup(package, text(in, "name"), moods(in)); });
}

}  // namespace

void addDaylioFunctions(Table& table) {
    table[QStringLiteral("csvParse")] = csvParse;
    table[QStringLiteral("daylioIsCSV")] = isCSV;
    table[QStringLiteral("daylioReadCSV")] = readCSV;
    table[QStringLiteral("daylioReadBackup")] = readBackup;
}

}  // namespace diary::replay
