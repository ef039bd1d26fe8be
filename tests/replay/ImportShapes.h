// The values of an import in the JSON shapes that cases have.
#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QString>

#include "DiaryKit/Import/ImportBatch.h"
#include "DiaryKit/Import/ImportError.h"

namespace diary::replay {

[[nodiscard]] QJsonObject json(const ImportedEntry& entry);
[[nodiscard]] QJsonObject json(const ImportBatch& batch);

// "badArchive"
[[nodiscard]] QString errorName(const ImportError& error);

}  // namespace diary::replay
