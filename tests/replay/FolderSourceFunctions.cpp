// The readers of folders.
#include <QtCore/QDir>

#include "DiaryKit/FolderSources/VelmarFolderSource.h"
#include "tests/replay/CaseFiles.h"
#include "tests/replay/Replay.h"

namespace diary::replay {

namespace {

QJsonValue orNull(const std::optional<QString>& text) {
    return text ? QJsonValue(*text) : QJsonValue(QJsonValue::Null);
}

QJsonValue velmarFolderRead(const QJsonObject& in) {
    const QTemporaryDir files;
    makeFiles(files, in);
    const auto relative = [&](std::optional<QString> path) {
        if (path) path = QDir(files.path()).relativeFilePath(*path);
        return path;
    };
    const QString picked = files.filePath(text(in, "picked"));
    QJsonObject out = result([&] {
        ImportBatch batch = VelmarFolderSource::read(picked, text(in, "name"),
                                                     in[QLatin1String("currentYear")].toInt());
        batch.reportURL = relative(batch.reportURL);
        return batch;
    });
    out[QLatin1String("dayFolder")] = orNull(relative(VelmarFolderSource::dayFolder(picked)));
    return out;
}

QJsonValue undemotedHeading(const QJsonObject& in) {
    return QJsonObject{
        {QStringLiteral("line"), orNull(VelmarFolderSource::undemotedHeading(text(in, "text")))}};
}

}  // namespace

void addFolderSourceFunctions(Table& table) {
    table[QStringLiteral("velmarFolderRead")] = velmarFolderRead;
    table[QStringLiteral("undemotedHeading")] = undemotedHeading;
}

}  // namespace diary::replay
