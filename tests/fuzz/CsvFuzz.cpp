// Any text as CSV, and as Daylio's.
#include "DiaryKit/AppSources/CSV.h"

#include "DiaryKit/AppSources/DaylioSource.h"
#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Foundation/Utf8.h"
#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Import/LocalTime.h"
#include "tests/fuzz/ImportFuzzing.h"

namespace diary::fuzz {
namespace {

using Rows = std::vector<QStringList>;

QString joined(const Rows& rows) {
    QString text;
    for (const QStringList& row : rows) {
        for (const QString& cell : row) {
            QString doubled = cell;
            doubled.replace(u'"', QLatin1String("\"\""));
            text += u'"' + doubled + QLatin1String("\",");
        }
        text.chop(1);
        text += u'\n';
    }
    return text;
}

// A mark in a cell may join a quotation mark beside it, which then is none.
bool hasPlainQuotes(QStringView text) {
    for (qsizetype at = text.indexOf(u'"'); at >= 0; at = text.indexOf(u'"', at + 1)) {
        if (!text::standsAlone(text, at)) return false;
    }
    return true;
}

void checkCells(const QString& text, const Rows& rows) {
    qsizetype units = 0;
    qsizetype cells = 0;
    for (const QStringList& row : rows) {
        check(!row.isEmpty(), "a row has cells");
        cells += row.size();
        for (const QString& cell : row) units += cell.size();
    }
    check(units <= text.size(), "cells hold no more than the text");
    check(cells <= text.size() + 1, "a cell takes a separator or a line end");
}

void readAsDaylio(const QString& text, const Rows& rows) {
    try {
        const ImportBatch batch = DaylioSource::readCSV(text, QStringLiteral("x"), {});
        check(batch.entries.size() + static_cast<std::size_t>(batch.skipped.undated) + 1 ==
                  rows.size(),
              "each row is an entry or is counted");
        for (const ImportedEntry& entry : batch.entries) {
            check(LocalTime::isValid(entry.day.year, entry.day.month, entry.day.day),
                  "an entry's day is one of the calendar");
            check(!entry.title || !entry.title->isEmpty(), "a title that is there isn't empty");
        }
    } catch (const ImportError& error) {
        check(error.kind() == ImportError::Kind::unrecognized, "no other error is known");
    }
}

}  // namespace
}  // namespace diary::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace diary;
    using namespace diary::fuzz;
    const QString text = utf8::decodedWithRepair(view(data, size));
    const Rows rows = CSV::parse(text);
    checkCells(text, rows);
    const QString again = joined(rows);
    if (hasPlainQuotes(again)) check(CSV::parse(again) == rows, "quoted cells read the same");
    (void)DaylioSource::isCSV(text);
    readAsDaylio(text, rows);
    return 0;
}
