// Workspaces for a coding agent, in English as all cases are.
#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QTimeZone>

#include "DiaryKit/AgentWorkspace/AgentWorkspace.h"
#include "DiaryKit/AgentWorkspace/AgentWorkspaceTexts.h"
#include "tests/replay/CaseFiles.h"
#include "tests/replay/Replay.h"

namespace diary::replay {

namespace {

using AgentWorkspace::Language;
using AgentWorkspace::Target;

Target target(const QJsonObject& in) {
    const QString name = text(in, "target");
    if (name == QLatin1String("dayOne")) return Target::dayOne;
    return name == QLatin1String("word") ? Target::word : Target::obsidian;
}

QTimeZone zone(const QJsonObject& in) {
    return QTimeZone(text(in, "timeZone").toLatin1());
}

QString workspaceText(const QJsonObject& in) {
    const QString which = text(in, "text");
    const QString app = text(in, "appName");
    const Language english = Language::english;
    if (which == QLatin1String("importSpec")) {
        return AgentWorkspace::importSpec(app, zone(in), english);
    }
    if (which == QLatin1String("importPrompt")) return AgentWorkspace::importPrompt(app, english);
    if (which == QLatin1String("exportSpec")) {
        return AgentWorkspace::exportSpec(target(in), zone(in), english);
    }
    if (which == QLatin1String("exportPrompt")) {
        return AgentWorkspace::exportPrompt(target(in), english);
    }
    return AgentWorkspace::texts(english).pointer;
}

QString languageName(const QJsonObject& in) {
    switch (AgentWorkspace::language(text(in, "code"))) {
        case Language::chinese:
            return QStringLiteral("chinese");
        case Language::english:
            return QStringLiteral("english");
        case Language::japanese:
            break;
    }
    return QStringLiteral("japanese");
}

QString fixPrompt(const QJsonObject& in) {
    std::vector<ImportIssue> issues;
    for (const QJsonValue& value : in[QLatin1String("issues")].toArray()) {
        const QJsonObject issue = value.toObject();
        ImportIssue& read = issues.emplace_back();
        read.kind = import_issue::parse(text(issue, "kind")).value();
        read.file = text(issue, "file");
        if (issue[QLatin1String("detail")].isString()) read.detail = text(issue, "detail");
    }
    return AgentWorkspace::fixPrompt(issues, Language::english);
}

// The workspace's name and all that it holds.
QJsonObject contents(const QString& path) {
    QJsonObject files;
    const QDir workspace(path);
    QDirIterator item(path, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (item.hasNext()) {
        item.next();
        const QString name = workspace.relativeFilePath(item.filePath());
        if (!item.fileInfo().isDir()) {
            QFile file(item.filePath());
            if (file.open(QIODevice::ReadOnly)) files[name] = QString::fromUtf8(file.readAll());
        } else if (QDir(item.filePath()).isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot)) {
            files[name] = QJsonValue::Null;
        }
    }
    return {{QStringLiteral("folder"), workspace.dirName()}, {QStringLiteral("files"), files}};
}

// Runs `making` with the case's files, the parent of the workspace, and the moment of its making.
QJsonValue workspace(const QJsonObject& in,
                     const std::function<QString(const QTemporaryDir& files, const QString& parent,
                                                 const QDateTime& date)>& making) {
    const QTemporaryDir files;
    makeFiles(files, in);
    const QTemporaryDir parent;
    for (const QJsonValue& name : in[QLatin1String("existing")].toArray()) {
        QDir(parent.path()).mkdir(name.toString());
    }
    const QDate day = QDate::fromString(text(in, "date"), Qt::ISODate);
    return contents(making(files, parent.path(), QDateTime(day, QTime(12, 0))));
}

QJsonValue createImport(const QJsonObject& in) {
    return workspace(in, [&](const QTemporaryDir& files, const QString& parent,
                             const QDateTime& date) {
        return AgentWorkspace::createImport(files.filePath(text(in, "source")), text(in, "appName"),
                                            parent, Language::english, zone(in), date);
    });
}

QJsonValue createExport(const QJsonObject& in) {
    return workspace(
        in, [&](const QTemporaryDir& files, const QString& parent, const QDateTime& date) {
            return AgentWorkspace::createExport(files.filePath(text(in, "vault")), target(in),
                                                parent, Language::english, zone(in), date);
        });
}

Function textOf(QString (*function)(const QJsonObject&), const char* key) {
    return [function, key](const QJsonObject& in) -> QJsonValue {
        return QJsonObject{{QLatin1String(key), function(in)}};
    };
}

}  // namespace

void addAgentWorkspaceFunctions(Table& table) {
    table[QStringLiteral("workspaceText")] = textOf(workspaceText, "text");
    table[QStringLiteral("workspaceLanguage")] = textOf(languageName, "language");
    table[QStringLiteral("fixPrompt")] = textOf(fixPrompt, "text");
    table[QStringLiteral("createImport")] = createImport;
    table[QStringLiteral("createExport")] = createExport;
}

}  // namespace diary::replay
