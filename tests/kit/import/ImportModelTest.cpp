#include <gtest/gtest.h>

#include "DiaryKit/Import/ImportBatch.h"
#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Import/ImportOptions.h"

namespace diary {
namespace {

TEST(ImportSource, IsFoundByItsSpellingOnly) {
    for (const ImportSource source : import_source::all) {
        EXPECT_EQ(import_source::parse(import_source::spelling(source)), source);
    }
    EXPECT_EQ(import_source::parse(u"velmarFolder"), ImportSource::velmarFolder);
    for (const QStringView other : {u"", u"DayOne", u"dayone", u"Day One", u"dayOne "}) {
        EXPECT_FALSE(import_source::parse(other)) << other.toUtf8().constData();
    }
}

TEST(ImportSource, HasABrandNameWhereNothingIsToTranslate) {
    EXPECT_EQ(import_source::brandName(ImportSource::dayOne), QStringLiteral("Day One"));
    EXPECT_EQ(import_source::brandName(ImportSource::daylio), QStringLiteral("Daylio"));
    EXPECT_FALSE(import_source::brandName(ImportSource::appleJournal));
    EXPECT_FALSE(import_source::brandName(ImportSource::datedText));
}

TEST(ImportIssue, SpellsItsKindsAsTheyAreNamed) {
    EXPECT_EQ(import_issue::spelling(ImportIssue::Kind::ignoredFile),
              QStringLiteral("ignoredFile"));
    EXPECT_EQ(import_issue::spelling(ImportIssue::Kind::unreadable), QStringLiteral("unreadable"));
    for (int index = 0; index < 8; ++index) {
        const auto kind = static_cast<ImportIssue::Kind>(index);
        EXPECT_EQ(import_issue::parse(import_issue::spelling(kind)), kind);
    }
    EXPECT_FALSE(import_issue::parse(u"other"));
}

TEST(ImportIssue, IsFixedWhereNothingIsLeftBehind) {
    QStringList fixed;
    for (int index = 0; index < 8; ++index) {
        const ImportIssue issue{static_cast<ImportIssue::Kind>(index)};
        if (issue.isFixedByVelmar()) fixed.append(import_issue::spelling(issue.kind));
    }
    EXPECT_EQ(fixed.join(u' '),
              QStringLiteral("titleMismatch duplicateYear undemotedHeading unclosedFence"));
}

TEST(ImportedEntry, WritesAndOrdersTimesByHourThenMinute) {
    EXPECT_EQ((ImportedEntry::Time{7, 5}).text(), QStringLiteral("07:05"));
    EXPECT_EQ((ImportedEntry::Time{23, 59}).text(), QStringLiteral("23:59"));
    EXPECT_LT((ImportedEntry::Time{7, 59}), (ImportedEntry::Time{8, 0}));
    EXPECT_LT((ImportedEntry::Time{8, 0}), (ImportedEntry::Time{8, 1}));
}

TEST(ImportedEntry, IsComparedFieldByField) {
    const ImportedEntry plain{.day = {2024, 2, 29}, .body = QStringLiteral("x")};
    ImportedEntry other = plain;
    EXPECT_EQ(other, plain);
    other.weather = QString();
    EXPECT_NE(other, plain) << "An empty text is present.";
}

TEST(ImportBatch, StartsWithNothingBehindItsEntries) {
    const ImportBatch batch{
        .source = ImportSource::flomo, .name = QStringLiteral("x"), .entries = {}};
    EXPECT_EQ(batch.skipped, ImportBatch::Skipped{});
    EXPECT_TRUE(batch.journals.empty());
    EXPECT_TRUE(batch.issues.empty());
    EXPECT_FALSE(batch.split);
    EXPECT_FALSE(batch.reportURL);
    EXPECT_FALSE(batch.years());
}

TEST(ImportBatch, SpansTheYearsOfItsEntries) {
    ImportBatch batch;
    for (const int year : {2021, 1987, 2024}) batch.entries.push_back({.day = {year, 5, 1}});
    EXPECT_EQ(batch.years(), (YearRange{1987, 2024}));
}

TEST(ImportBatch, CountsNoAttachmentsAsMedia) {
    const ImportBatch::Skipped skipped{.photos = 1, .videos = 2, .audios = 3, .attachments = 4};
    EXPECT_EQ(skipped.media(), 6);
}

TEST(ImportOptions, LeaveOutOnlyTheWeatherAtFirst) {
    const ImportOptions options;
    EXPECT_EQ(options.conflict, ImportOptions::Conflict::append);
    EXPECT_TRUE(options.place && options.mood && options.tags);
    EXPECT_FALSE(options.weather || options.timeForSingle);
    EXPECT_TRUE(options.excludedJournals.empty());
    ImportOptions other = options;
    other.excludedJournals.insert(QStringLiteral("Work"));
    EXPECT_NE(other, options);
}

TEST(ImportError, CarriesItsKind) {
    try {
        throw ImportError(ImportError::Kind::badArchive);
    } catch (const std::exception& error) {
        const auto* const import = dynamic_cast<const ImportError*>(&error);
        ASSERT_NE(import, nullptr);
        EXPECT_EQ(import->kind(), ImportError::Kind::badArchive);
        EXPECT_STREQ(error.what(), "import: bad archive");
    }
}

}  // namespace
}  // namespace diary
