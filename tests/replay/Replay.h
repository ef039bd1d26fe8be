// The table of functions that cases can name, from JSON to JSON.
#pragma once

#include <QtCore/QHash>
#include <QtCore/QJsonObject>
#include <QtCore/QJsonValue>
#include <QtCore/QString>
#include <functional>

namespace diary::replay {

using Function = std::function<QJsonValue(const QJsonObject& in)>;
using Table = QHash<QString, Function>;

void addVaultFunctions(Table& table);
void addAppearanceFunctions(Table& table);
void addMarkdownFunctions(Table& table);
void addSearchFunctions(Table& table);
void addImportFunctions(Table& table);
void addImportSourceFunctions(Table& table);
void addAgentWorkspaceFunctions(Table& table);
void addFolderSourceFunctions(Table& table);
void addHtmlFunctions(Table& table);
void addPlanFunctions(Table& table);
void addLogFunctions(Table& table);
void addDatedTextFunctions(Table& table);
void addDaylioFunctions(Table& table);
void addFolderSourceFunctions(Table& table);

// All functions of the kit that cases can name.
[[nodiscard]] const Table& functions();

// The answer to one line: {"out": …}, or {"unsupported": true} for a function that isn't known.
[[nodiscard]] QByteArray answer(const QByteArray& line);

}  // namespace diary::replay
