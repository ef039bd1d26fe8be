// Batches, options, records and plans in the JSON shapes that cases have.
#pragma once

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtCore/QJsonValue>
#include <array>

#include "DiaryKit/Import/ImportPlan.h"
#include "DiaryKit/Import/ImportRecord.h"

namespace diary::replay {

[[nodiscard]] QString text(const QJsonValue& in, const char* key);
[[nodiscard]] int number(const QJsonValue& in, const char* key);
[[nodiscard]] bool flag(const QJsonValue& in, const char* key);
[[nodiscard]] QJsonArray array(const QJsonValue& in, const char* key);
[[nodiscard]] std::optional<QString> optionalText(const QJsonValue& in, const char* key);
[[nodiscard]] QStringList texts(const QJsonArray& values);
[[nodiscard]] QJsonValue orNull(const std::optional<QString>& value);

// In the order of the enumeration.
inline constexpr std::array<QLatin1String, 5> kTraits = {
    QLatin1String("several"), QLatin1String("appended"), QLatin1String("headings"),
    QLatin1String("longest"), QLatin1String("earliest")};

[[nodiscard]] ImportSource source(const QJsonValue& in);
[[nodiscard]] ImportedEntry entry(const QJsonValue& in);
[[nodiscard]] std::vector<ImportedEntry> entries(const QJsonValue& in);
// The batch that `in` is.
[[nodiscard]] ImportBatch batch(const QJsonValue& in);
// The options that `in` is.
[[nodiscard]] ImportOptions options(const QJsonValue& in);
// Those that decode.
[[nodiscard]] std::vector<ImportRecord> records(const QJsonArray& values);

[[nodiscard]] QJsonObject json(const MonthDay& day);
[[nodiscard]] QJsonArray json(const std::vector<ImportPlan::Sample>& samples);
[[nodiscard]] QJsonObject json(const ImportPlan& plan, ImportSource source);
[[nodiscard]] QJsonObject json(const ImportRecord& record);

}  // namespace diary::replay
