// The readers of other applications' exports, on files that the case brings along.
#include <QtCore/QJsonArray>
#include <QtCore/QTemporaryDir>

#include "DiaryKit/AppSources/DayOneSource.h"
#include "tests/replay/CaseFiles.h"
#include "tests/replay/Replay.h"

namespace diary::replay {

namespace {

QJsonValue dayOneRead(const QJsonObject& in) {
    const QTemporaryDir folder;
    makeFiles(folder, in);
    const ImportPackage package(folder.filePath(text(in, "picked")));
    QJsonObject out = result([&] { return DayOneSource::read(package, text(in, "name")); });
    out[QLatin1String("files")] = QJsonArray::fromStringList(DayOneSource::journalFiles(package));
    return out;
}

}  // namespace

void addImportSourceFunctions(Table& table) {
    table[QStringLiteral("dayOneRead")] = dayOneRead;
    table[QStringLiteral("dayOneCleanText")] = [](const QJsonObject& in) -> QJsonValue {
        return QJsonObject{{QStringLiteral("text"), DayOneSource::cleanText(text(in, "text"))}};
    };
}

}  // namespace diary::replay
