// The records of imports, undoing, and whole imports on real folders, in their JSON shapes.
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QTemporaryDir>
#include <algorithm>

#include "DiaryKit/Import/ImportLog.h"
#include "DiaryKit/Import/ImportUndo.h"
#include "tests/replay/LogShapes.h"
#include "tests/replay/PlanShapes.h"
#include "tests/replay/Replay.h"

namespace diary::replay {

namespace {

QJsonValue idStem(const QJsonObject& in) {
    const qint64 seconds = in[QLatin1String("epochSeconds")].toInteger();
    return ImportLog::idStem(QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC),
                             QTimeZone(text(in, "zone").toLatin1()), source(in));
}

QJsonValue interrupted(const QJsonObject& in) {
    const std::vector<ImportRecord> all = records(array(in, "records"));
    QJsonArray ids;
    for (const ImportRecord& record : ImportLog::interrupted(all, text(in, "deviceID"))) {
        ids.append(record.id);
    }
    return ids;
}

QJsonValue mergingJournal(const QJsonObject& in) {
    const QTemporaryDir folder;
    const std::vector<ImportRecord> given = records({in[QLatin1String("record")]});
    if (given.empty()) return QJsonValue::Null;
    if (const auto journal = optionalText(in, "journalBase64")) {
        const ScenarioFolder files(folder.path());
        files.write(given[0].id + QLatin1String("/journal.jsonl"),
                    QByteArray::fromBase64(journal->toLatin1()));
    }
    return json(ImportLog::mergingJournal(given[0], folder.path()));
}

QJsonValue listedRecords(const QJsonObject& in) {
    const QTemporaryDir folder;
    const ScenarioFolder vault(folder.path());
    vault.write(in[QLatin1String("files")].toObject());
    QJsonArray out;
    for (const ImportRecord& record : ImportLog::records(vault.path(), moment(in, "now"))) {
        out.append(json(record));
    }
    return out;
}

// What the record's own file says by now.
QJsonObject recordState(const ScenarioFolder& vault, const ImportRecord& record) {
    const QString folder = QStringLiteral(".velmar/imports/") + record.id;
    const auto now = ImportRecord::decode(vault.read(folder + QLatin1String(".json")));
    const QJsonObject object = now ? json(*now) : QJsonObject();
    const QJsonValue undoneAt = object[QLatin1String("undoneAt")];
    return {{QStringLiteral("state"), object[QLatin1String("state")]},
            {QStringLiteral("undoneAt"), undoneAt.isString() ? undoneAt : QJsonValue::Null},
            {QStringLiteral("journal"), vault.has(folder + QLatin1String("/journal.jsonl"))}};
}

QJsonValue undo(const QJsonObject& in) {
    const QTemporaryDir folder;
    const ScenarioFolder vault(folder.path());
    vault.write(in[QLatin1String("files")].toObject());
    const std::vector<ImportRecord> given = records({in[QLatin1String("record")]});
    if (given.empty()) return QJsonValue::Null;
    QJsonObject out = undoneIn(vault, given[0], moment(in, "now"));
    out[QLatin1String("files")] = vault.dayFiles();
    out[QLatin1String("record")] = recordState(vault, given[0]);
    return out;
}

}  // namespace

void addLogFunctions(Table& table) {
    table[QStringLiteral("ImportLog.idStem")] = idStem;
    table[QStringLiteral("ImportLog.interrupted")] = interrupted;
    table[QStringLiteral("ImportLog.mergingJournal")] = mergingJournal;
    table[QStringLiteral("ImportLog.records")] = listedRecords;
    table[QStringLiteral("ImportLog.undo")] = undo;
    table[QStringLiteral("importScenario")] = playedScenario;
}

}  // namespace diary::replay
