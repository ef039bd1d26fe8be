#include "tests/replay/LogShapes.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <cerrno>

#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Foundation/Utf8.h"
#include "DiaryKit/Import/ImportUndo.h"

namespace diary::replay {

namespace {

QByteArray content(const QJsonValue& value) {
    if (value.isString()) return value.toString().toUtf8();
    return QByteArray::fromBase64(value[QLatin1String("base64")].toString().toLatin1());
}

QString errorName(const FileError& error) {
    if (error.operation() == FileOperation::Decode) return QStringLiteral("encoding");
    return error.code() == EBADMSG ? QStringLiteral("corrupt") : QStringLiteral("read");
}

}  // namespace

void ScenarioFolder::write(const QString& name, const QByteArray& bytes) const {
    const QString target = m_path + u'/' + name;
    QDir().mkpath(target.section(u'/', 0, -2));
    QFile file(target);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        qFatal("can't write %s", qPrintable(target));
    }
}

void ScenarioFolder::write(const QJsonObject& files) const {
    for (const QString& name : files.keys()) write(name, content(files[name]));
}

void ScenarioFolder::remove(const QString& name) const {
    QFile::remove(m_path + u'/' + name);
}

bool ScenarioFolder::has(const QString& name) const {
    return QFile::exists(m_path + u'/' + name);
}

QByteArray ScenarioFolder::read(const QString& name) const {
    QFile file(m_path + u'/' + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QJsonObject ScenarioFolder::dayFiles(const QString& name) const {
    const QDir folder(m_path + u'/' + name);
    QJsonObject files;
    for (const QString& one : folder.entryList({QStringLiteral("*.md")}, QDir::Files)) {
        const QByteArray bytes = read(name.isEmpty() ? one : name + u'/' + one);
        const auto text = utf8::decodedStrictly(bytes);
        files[one] =
            text ? QJsonValue(*text)
                 : QJsonObject{{QStringLiteral("base64"), QString::fromLatin1(bytes.toBase64())}};
    }
    return files;
}

QDateTime moment(const QJsonValue& in, const char* key) {
    return QDateTime::fromString(in[QLatin1String(key)].toString(), Qt::ISODate);
}

QJsonObject undoneIn(const ScenarioFolder& vault, const ImportRecord& record,
                     const QDateTime& now) {
    try {
        const ImportLog::UndoResult result = ImportLog::undo(record, vault.path(), now);
        return {
            {QStringLiteral("error"), QJsonValue::Null},
            {QStringLiteral("result"), QJsonObject{{QStringLiteral("restored"), result.restored},
                                                   {QStringLiteral("edited"), result.edited},
                                                   {QStringLiteral("notFound"), result.notFound}}}};
    } catch (const FileError& error) {
        return {{QStringLiteral("error"), errorName(error)},
                {QStringLiteral("result"), QJsonValue::Null}};
    }
}

}  // namespace diary::replay
