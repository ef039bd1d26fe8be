// What an undo of an import may take from a day, told line by line. Shared by the fuzz target of
// journals and the test of random imports.
#pragma once

#include <map>
#include <set>

#include "DiaryKit/Import/ImportRecord.h"
#include "tests/fuzz/Fuzzing.h"

namespace diary::fuzz {

// How often each line stands in a text.
using Lines = std::map<QString, int>;

// The lines that aren't blank, without white space around them, year headers in their usual form.
inline Lines linesOf(QStringView text) {
    Lines lines;
    for (const QStringView line : text.tokenize(u'\n')) {
        QString trimmed = text::trimmed(line).toString();
        const int year = yearheader::year(trimmed.utf16(), trimmed.size());
        if (year >= 0) trimmed = QStringLiteral("## %1").arg(year);
        if (!trimmed.isEmpty()) ++lines[trimmed];
    }
    return lines;
}

// The lines of what was added to a day, each addition with its rules and its year's header; of a
// file that the import made the title too.
inline Lines linesOfImport(const ImportRecord& record, const QString& fileName) {
    Lines lines;
    for (const ImportRecord::File& file : record.files) {
        if (file.day != fileName.chopped(3)) continue;
        if (!file.existed) ++lines[QLatin1String("# ") + file.day];
        for (const ImportRecord::Added& added : file.added) {
            for (const auto& [line, count] : linesOf(added.text)) lines[line] += count;
            lines[QStringLiteral("---")] += 2;
            ++lines[QStringLiteral("## %1").arg(added.year)];
        }
    }
    return lines;
}

inline std::set<int> yearsOfImport(const ImportRecord& record, const QString& fileName) {
    std::set<int> years;
    for (const ImportRecord::File& file : record.files) {
        if (file.day != fileName.chopped(3)) continue;
        for (const ImportRecord::Added& added : file.added) years.insert(added.year);
    }
    return years;
}

// The lines that went from a day more often than the import had brought them.
inline Lines linesLost(QStringView before, QStringView after, const ImportRecord& record,
                       const QString& fileName) {
    Lines lost = linesOf(before);
    for (const Lines& lines : {linesOf(after), linesOfImport(record, fileName)}) {
        for (const auto& [line, count] : lines) {
            const auto found = lost.find(line);
            if (found == lost.end()) continue;
            found->second -= count;
            if (found->second <= 0) lost.erase(found);
        }
    }
    return lost;
}

}  // namespace diary::fuzz
