// Any texts as the day files of a folder: up to two, between NULs.
#include <QtCore/QFileInfo>
#include <algorithm>

#include "DiaryKit/FolderSources/VelmarFolderSource.h"
#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Foundation/Utf8.h"
#include "DiaryKit/Vault/YearSectionParser.h"
#include "tests/fuzz/ImportFuzzing.h"

namespace diary::fuzz {
namespace {

using Kind = ImportIssue::Kind;

constexpr int kThisYear = 2026;

bool isIn(const ImportBatch& batch, const DiaryDay& day) {
    return std::any_of(batch.entries.begin(), batch.entries.end(),
                       [&](const ImportedEntry& entry) { return entry.day == day; });
}

bool isReported(const ImportBatch& batch, Kind kind, const QString& file, int year) {
    const QString detail = QString::number(year);
    return std::any_of(batch.issues.begin(), batch.issues.end(), [&](const ImportIssue& issue) {
        return issue.kind == kind && issue.file == file && issue.detail == detail;
    });
}

void checkSection(const ImportedEntry& entry) {
    check(entry.isVelmarSection && !entry.time && !entry.title, "a section is taken verbatim");
    check(entry.day.year >= 1900 && entry.day.year <= kThisYear, "a year can be");
    check(text::hasContent(entry.body), "an entry has a text");
    check(!YearSectionParser::leavesFenceOpen(entry.body), "no body swallows what follows it");
}

// Each body of the file is in an entry, or its year is reported.
void checkFile(const ImportBatch& batch, const MonthDay& monthDay, QByteArrayView bytes) {
    const std::optional<QString> text = utf8::decodedStrictly(bytes);
    if (!text) return;
    for (const auto& [year, body] : YearSectionParser::sectionBodies(*text)) {
        const QString file = monthDay.fileName();
        const DiaryDay day{year, monthDay.month, monthDay.day};
        check(body.isEmpty() || isIn(batch, day) ||
                  isReported(batch, Kind::yearOutOfRange, file, year) ||
                  isReported(batch, Kind::invalidDate, file, year),
              "a section is an entry or an issue");
        for (const ImportedEntry& entry : batch.entries) {
            check(entry.day != day || entry.body.contains(body), "an entry holds all its bodies");
        }
    }
}

}  // namespace
}  // namespace diary::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace diary;
    using namespace diary::fuzz;
    const QByteArrayView bytes = view(data, size);
    const qsizetype end = bytes.indexOf('\0');
    const QByteArrayView first = end < 0 ? bytes : bytes.first(end);
    const QByteArrayView second = end < 0 ? QByteArrayView() : bytes.sliced(end + 1);
    const QString folder = QFileInfo(asFile(first, QStringLiteral("02-29.md"))).path();
    (void)asFile(second, QStringLiteral("11-21.md"));
    const ImportBatch batch = VelmarFolderSource::read(folder, QStringLiteral("x"), kThisYear);
    for (const ImportedEntry& entry : batch.entries) checkSection(entry);
    checkFile(batch, {2, 29}, first);
    checkFile(batch, {11, 21}, second);
    return 0;
}
