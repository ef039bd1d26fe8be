// The batch that the program import_writer writes, told again to its tests.
#pragma once

#include "DiaryKit/Import/ImportBatch.h"

namespace diary::test {

// One entry for each day from 1 January 2024 on: "<text> of 01-02".
inline ImportBatch writtenBatch(const QString& source, int days, const QString& text) {
    ImportBatch batch{.source = import_source::parse(source).value_or(ImportSource::datedText),
                      .name = QStringLiteral("Export")};
    MonthDay day{1, 1};
    for (int i = 0; i < days; ++i) {
        const QString body = text + QLatin1String(" of ") + day.headerTitle();
        batch.entries.push_back({.day = {2024, day.month, day.day}, .body = body});
        day = day.advanced(1);
    }
    return batch;
}

}  // namespace diary::test
