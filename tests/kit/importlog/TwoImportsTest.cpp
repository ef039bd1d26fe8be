// Imports of several processes at once lose nothing of each other and double nothing.
#include <gtest/gtest.h>

#include <QtCore/QProcess>
#include <memory>

#include "DiaryKit/Vault/YearSectionParser.h"
#include "tests/kit/importlog/Imports.h"
#include "tests/kit/importlog/WrittenBatch.h"
#include "tests/support/Printing.h"

namespace diary::test {
namespace {

constexpr int kDays = 60;
constexpr int kDeadline = 60'000;

std::unique_ptr<QProcess> startImport(const QString& vault, const QString& source,
                                      const QString& text) {
    auto process = std::make_unique<QProcess>();
    process->start(QStringLiteral(VELMAR_IMPORT_WRITER),
                   {vault, QStringLiteral("apply"), source, QString::number(kDays), text});
    return process;
}

void expectEnd(QProcess& process) {
    ASSERT_TRUE(process.waitForFinished(kDeadline));
    EXPECT_EQ(process.exitCode(), 0);
    EXPECT_TRUE(process.readAll().endsWith("done\n"));
}

TEST(TwoImports, OfDifferentEntriesBothStandInEachDay) {
    const TemporaryVault vault;
    const auto one = startImport(vault.path(), QStringLiteral("dayOne"), QStringLiteral("one"));
    const auto two = startImport(vault.path(), QStringLiteral("flomo"), QStringLiteral("two"));
    expectEnd(*one);
    expectEnd(*two);
    const DayFiles files = dayFilesOf(vault);
    EXPECT_EQ(files.size(), size_t{kDays});
    for (const auto& [name, bytes] : files) {
        const QString body = YearSectionParser::body(2024, QString::fromUtf8(bytes));
        EXPECT_EQ(body.count(QLatin1String("one of ") + name.chopped(3)), 1) << name.toStdString();
        EXPECT_EQ(body.count(QLatin1String("two of ") + name.chopped(3)), 1) << name.toStdString();
    }
    for (const ImportRecord& record : ImportLog::records(vault.path(), moment())) {
        EXPECT_EQ(record.entries, kDays);
        EXPECT_EQ(ImportLog::undo(record, vault.path(), moment(90)).notFound, 0);
    }
    // Of a day that both wrote the later one found a file, so its header may stay.
    for (const auto& [name, bytes] : dayFilesOf(vault)) {
        EXPECT_TRUE(
            YearSectionParser::isEffectivelyEmpty(QString::fromUtf8(bytes), name.chopped(3)));
    }
}

TEST(TwoImports, OfTheSameEntriesAddThemOnce) {
    const TemporaryVault vault;
    const auto one = startImport(vault.path(), QStringLiteral("dayOne"), QStringLiteral("same"));
    const auto two = startImport(vault.path(), QStringLiteral("dayOne"), QStringLiteral("same"));
    expectEnd(*one);
    expectEnd(*two);
    int entries = 0;
    for (const ImportRecord& record : ImportLog::records(vault.path(), moment())) {
        EXPECT_EQ(record.state, ImportRecord::State::done);
        entries += record.entries;
    }
    EXPECT_EQ(entries, kDays);
    for (const auto& [name, bytes] : dayFilesOf(vault)) {
        EXPECT_EQ(bytes.count("same of "), 1) << name.toStdString();
    }
}

// The other machine's record and journal arrive in pieces, at any of their bytes.
TEST(TwoImports, SurviveTheHalfWrittenRecordOfTheOther) {
    const TemporaryVault other;
    const ImportBatch batch = writtenBatch(QStringLiteral("dayOne"), 2, QStringLiteral("same"));
    const ImportRecord record = importInto(other.path(), batch);
    const QByteArray whole = record.encoded();
    for (qsizetype size = 0; size < whole.size(); size += 97) {
        const TemporaryVault vault;
        vault.write(importsPath(record, QStringLiteral(".json")), whole.first(size));
        EXPECT_EQ(importInto(vault.path(), batch, 60).entries, 2) << size;
        EXPECT_EQ(dayFilesOf(vault), dayFilesOf(other)) << size;
    }
}

}  // namespace
}  // namespace diary::test
