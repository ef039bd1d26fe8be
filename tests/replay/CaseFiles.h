// What the readers' cases share: files that a case brings along, and the answer of a reading.
#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QTemporaryDir>
#include <functional>

#include "DiaryKit/DatedText/DatedTextSplit.h"
#include "DiaryKit/Import/ImportBatch.h"

namespace diary::replay {

// The case's text under a key; empty without one.
[[nodiscard]] QString text(const QJsonObject& in, const char* key);

// Writes the case's "files" into the folder: a text, bytes, an empty folder, or a link to nothing.
void makeFiles(const QTemporaryDir& folder, const QJsonObject& in);

// {"batch": …} of what reading gives, or {"error": …} with the name of what it throws.
[[nodiscard]] QJsonObject result(const std::function<ImportBatch()>& reading);

// How a case wants dated text to be divided; what it leaves out is found out.
[[nodiscard]] DatedTextSplit::Options splitOptions(const QJsonObject& in);

}  // namespace diary::replay
