// Vaults on the disk, and what is done to them, in the JSON shapes that cases have.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QJsonObject>
#include <QtCore/QString>

#include "DiaryKit/Import/ImportRecord.h"

namespace diary::replay {

// A folder that a case plays in.
class ScenarioFolder {
public:
    explicit ScenarioFolder(QString path) : m_path(std::move(path)) {}

    [[nodiscard]] const QString& path() const { return m_path; }
    void write(const QString& name, const QByteArray& bytes) const;
    // Texts, or objects with "base64", by their names.
    void write(const QJsonObject& files) const;
    void remove(const QString& name) const;
    [[nodiscard]] bool has(const QString& name) const;
    [[nodiscard]] QByteArray read(const QString& name) const;
    // The Markdown files of the folder `name` below it, in the shape that `write` takes.
    [[nodiscard]] QJsonObject dayFiles(const QString& name = {}) const;

private:
    QString m_path;
};

// The moment "2025-03-07T08:15:30Z" under the key.
[[nodiscard]] QDateTime moment(const QJsonValue& in, const char* key);

// Undoes the import: {"error": …, "result": …}.
[[nodiscard]] QJsonObject undoneIn(const ScenarioFolder& vault, const ImportRecord& record,
                                   const QDateTime& now);

// Plays the steps of a case in a folder of its own.
[[nodiscard]] QJsonValue playedScenario(const QJsonObject& in);

}  // namespace diary::replay
