// The JSON of one day of a record. Records are as large as what they imported, twice over, so it is
// written straight from the values and never stands in memory as a tree. Not for use outside
// DiaryKit/Import.
#pragma once

#include <QtCore/QByteArray>

#include "DiaryKit/Import/ImportRecord.h"

namespace diary {

// Appends the day as an object on one line, as QJsonDocument's compact form has it: sorted keys, no
// blanks, absent values left out.
void appendCompact(const ImportRecord::File& file, QByteArray& json);

// The compact form of a day that is announced (`committed` is false), as it is once the day was
// written: no more than one word of it changes.
[[nodiscard]] QByteArray committed(QByteArray announced);

// Appends the day in QJsonDocument's indented form, behind the blanks of an object in a list of the
// record.
void appendIndented(const ImportRecord::File& file, QByteArray& json);

}  // namespace diary
