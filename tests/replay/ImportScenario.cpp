// Whole stories of a vault: files come and go, imports are made, kept and undone.
#include <QtCore/QDir>
#include <QtCore/QJsonArray>
#include <QtCore/QTemporaryDir>

#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Import/ImportApply.h"
#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Import/ImportLog.h"
#include "DiaryKit/Import/ImportPlanner.h"
#include "tests/replay/ImportShapes.h"
#include "tests/replay/LogShapes.h"
#include "tests/replay/PlanShapes.h"

namespace diary::replay {

namespace {

QJsonObject withoutId(const ImportRecord& record) {
    QJsonObject object = json(record);
    object.remove(QStringLiteral("id"));
    return object;
}

class Scenario {
public:
    explicit Scenario(QString path) : m_vault(std::move(path)) {}

    QJsonValue played(const QJsonObject& in) {
        m_vault.write(in[QLatin1String("files")].toObject());
        QJsonArray steps;
        for (const auto& step : array(in, "steps")) steps.append(performed(step));
        QJsonArray befores;
        QJsonArray journals;
        for (const QString& id : m_imports) {
            const QString folder = QStringLiteral(".velmar/imports/") + id;
            befores.append(id.isEmpty()
                               ? QJsonValue(QJsonValue::Null)
                               : QJsonValue(m_vault.dayFiles(folder + QLatin1String("/before"))));
            journals.append(!id.isEmpty() && m_vault.has(folder + QLatin1String("/journal.jsonl")));
        }
        QJsonArray listed;
        for (const ImportRecord& record : ImportLog::records(m_vault.path(), m_latest)) {
            listed.append(withoutId(record));
        }
        return QJsonObject{{QStringLiteral("steps"), steps},
                           {QStringLiteral("files"), m_vault.dayFiles()},
                           {QStringLiteral("before"), befores},
                           {QStringLiteral("records"), listed},
                           {QStringLiteral("journals"), journals}};
    }

private:
    QJsonValue performed(const QJsonValue& step) {
        if (step.toObject().contains(QLatin1String("now"))) {
            m_now = moment(step, "now");
            m_latest = std::max(m_latest, m_now);
        }
        const QString op = text(step, "op");
        if (op == u"import") return imported(step);
        if (op == u"undo") return undone(step);
        if (op == u"keep") return kept(step);
        if (op == u"delete") {
            m_vault.remove(text(step, "name"));
        } else {
            m_vault.write({{text(step, "name"), step[QLatin1String("content")]}});
        }
        return QJsonValue::Null;
    }

    QJsonValue imported(const QJsonValue& step) {
        const ImportBatch given = batch(step[QLatin1String("batch")]);
        const ImportPlan plan =
            ImportPlanner::plan(given, options(step[QLatin1String("options")]),
                                ImportLog::records(m_vault.path(), m_now), m_vault.path());
        for (const auto& one : array(step, "between")) performed(one);
        QJsonArray told;
        QJsonObject out{{QStringLiteral("plan"), json(plan, given.source)},
                        {QStringLiteral("error"), QJsonValue::Null},
                        {QStringLiteral("record"), QJsonValue::Null}};
        const QStringList before = recordNames();
        try {
            out[QLatin1String("record")] = withoutId(
                ImportLog::apply(plan, given, options(step[QLatin1String("applyOptions")]),
                                 {.vault = m_vault.path(),
                                  .device = text(step, "device"),
                                  .deviceID = text(step, "deviceID"),
                                  .label = optionalText(step, "label"),
                                  .now = m_now,
                                  .progress = [&](const auto& one) { told.append(shape(one)); }}));
        } catch (const ImportError& error) {
            out[QLatin1String("error")] = errorName(error);
        } catch (const FileError& error) {
            const bool isDecoding = error.operation() == FileOperation::Decode;
            out[QLatin1String("error")] = QLatin1String(isDecoding ? "encoding" : "file");
        }
        out[QLatin1String("progress")] = told;
        QStringList made = recordNames();
        for (const QString& name : before) made.removeAll(name);
        m_imports.append(made.isEmpty() ? QString() : made.first().chopped(5));
        return out;
    }

    static QJsonArray shape(const ImportLog::Progress& progress) {
        const QJsonValue current =
            progress.current ? QJsonValue(json(*progress.current)) : QJsonValue(QJsonValue::Null);
        return {progress.done, progress.total, current};
    }

    [[nodiscard]] QStringList recordNames() const {
        return QDir(ImportLog::directory(m_vault.path()))
            .entryList({QStringLiteral("*.json")}, QDir::Files);
    }

    // The record of the import that the step names, if it is still listed.
    [[nodiscard]] std::optional<ImportRecord> recordOf(const QJsonValue& step) const {
        const QString id = m_imports.value(number(step, "import"));
        for (const ImportRecord& record : ImportLog::records(m_vault.path(), m_now)) {
            if (record.id == id) return record;
        }
        return std::nullopt;
    }

    [[nodiscard]] QJsonObject undone(const QJsonValue& step) const {
        const std::optional<ImportRecord> record = recordOf(step);
        if (!record) return {{QStringLiteral("error"), QStringLiteral("absent")}};
        return undoneIn(m_vault, *record, m_now);
    }

    [[nodiscard]] QJsonObject kept(const QJsonValue& step) const {
        const std::optional<ImportRecord> record = recordOf(step);
        if (!record) return {{QStringLiteral("error"), QStringLiteral("absent")}};
        ImportLog::markDone(*record, m_vault.path());
        return {{QStringLiteral("error"), QJsonValue::Null}};
    }

    ScenarioFolder m_vault;
    QDateTime m_now;
    QDateTime m_latest = QDateTime::fromSecsSinceEpoch(0, Qt::UTC);
    // The identifier of each import's record; empty where none was made.
    QStringList m_imports;
};

}  // namespace

QJsonValue playedScenario(const QJsonObject& in) {
    const QTemporaryDir folder;
    return Scenario(folder.path()).played(in);
}

}  // namespace diary::replay
