// What cases of the sources' readers have in common: the files that a case brings along, and the
// batch that reading them gives.
#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QString>
#include <QtCore/QTemporaryDir>
#include <functional>

#include "DiaryKit/Import/ImportBatch.h"

namespace diary::replay {

[[nodiscard]] QString text(const QJsonObject& in, const char* key);

// Writes the case's `files` below the folder.
void makeFiles(const QTemporaryDir& folder, const QJsonObject& in);

// The batch that reading gives, or the name of what it throws.
[[nodiscard]] QJsonObject result(const std::function<ImportBatch()>& reading);

}  // namespace diary::replay
