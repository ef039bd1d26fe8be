#include "DiaryKit/AppSources/DaylioSource.h"

#include <gtest/gtest.h>

#include <ctime>

#include "DiaryKit/Import/ImportError.h"
#include "tests/kit/import/MemoryOfStep.h"

namespace diary {
namespace {

using DaylioSource::Moods;

ImportBatch read(QStringView text, const Moods& moods = {}) {
    return DaylioSource::readCSV(text, QStringLiteral("export.csv"), moods);
}

// The only entry of a text.
ImportedEntry entryOf(QStringView text, const Moods& moods = {}) {
    const ImportBatch batch = read(text, moods);
    EXPECT_EQ(batch.entries.size(), 1U) << text.toUtf8().toStdString();
    EXPECT_EQ(batch.skipped, ImportBatch::Skipped());
    return batch.entries.empty() ? ImportedEntry() : batch.entries.front();
}

bool isRecognised(QStringView text) {
    try {
        (void)read(text);
        return true;
    } catch (const ImportError& error) {
        EXPECT_EQ(error.kind(), ImportError::Kind::unrecognized);
        return false;
    }
}

TEST(DaylioCSV, ReadsARow) {
    const ImportBatch batch = read(
        u"full_date,date,weekday,time,mood,activities,note_title,note\n"
        u"2022-10-26,October 26,Wednesday,8:30 pm,Rad,\"tea |  | a walk\",A title,\"One,\r\n"
        u"two\"\n",
        {{QStringLiteral("rad"), QStringLiteral("Great")}});
    EXPECT_EQ(batch.source, ImportSource::daylio);
    EXPECT_EQ(batch.name, QStringLiteral("export.csv"));
    const ImportedEntry expected{
        .day = {2022, 10, 26},
        .time = ImportedEntry::Time{20, 30},
        .title = QStringLiteral("A title"),
        .body = QStringLiteral("**Great** · tea · a walk\n\nOne,\ntwo"),
    };
    EXPECT_EQ(batch.entries, std::vector<ImportedEntry>{expected});
}

TEST(DaylioCSV, IsDatedByYearAndDateInEitherOrder) {
    EXPECT_EQ(entryOf(u"year,date,mood\n2021,March 4,good").day, (DiaryDay{2021, 3, 4}));
    EXPECT_EQ(entryOf(u"year,date,mood\n2021,4 March,good").day, (DiaryDay{2021, 3, 4}));
    EXPECT_EQ(entryOf(u"date,year,mood\n\"March 4,\",2021,good").day, (DiaryDay{2021, 3, 4}));
    // Also where a full date is there, and is none.
    EXPECT_EQ(entryOf(u"full_date,date,year,mood\nx,Mar 4,2021,good").day, (DiaryDay{2021, 3, 4}));
    EXPECT_EQ(entryOf(u"full_date,date,year,mood\n\?\?\?\?-05-06,Mar 4,2021,good").day,
              (DiaryDay{2021, 3, 4}));
}

TEST(DaylioCSV, ReadsTheTimeAndKeepsARowWithout) {
    const auto timeOf = [](const QString& clock) {
        return entryOf(QStringLiteral("full_date,time,mood\n2021-03-04,%1,good").arg(clock)).time;
    };
    EXPECT_EQ(timeOf(QStringLiteral("8:30 pm")), (ImportedEntry::Time{20, 30}));
    EXPECT_EQ(timeOf(QStringLiteral("12:05 AM")), (ImportedEntry::Time{0, 5}));
    EXPECT_EQ(timeOf(QStringLiteral("9:15\u202FPM")), (ImportedEntry::Time{21, 15}));
    EXPECT_EQ(timeOf(QStringLiteral(" 21:15 ")), (ImportedEntry::Time{21, 15}));
    EXPECT_EQ(timeOf(QStringLiteral("noonish")), std::nullopt);
    EXPECT_EQ(timeOf(QStringLiteral("25:00")), std::nullopt);
    EXPECT_EQ(timeOf(QString()), std::nullopt);
}

TEST(DaylioCSV, ShowsAMoodUnderTheUsersName) {
    const Moods moods = {{QStringLiteral("rad"), QStringLiteral("Great")},
                         {QStringLiteral("meh"), QString()}};
    EXPECT_EQ(entryOf(u"full_date,mood\n2021-03-04,Rad", moods).body, QStringLiteral("**Great**"));
    EXPECT_EQ(entryOf(u"full_date,mood\n2021-03-04,Bad", moods).body, QStringLiteral("**Bad**"));
    EXPECT_EQ(entryOf(u"full_date,mood\n2021-03-04,meh", moods).body, QString());
}

TEST(DaylioCSV, TellsWhatThereIs) {
    const auto bodyOf = [](const QString& cells) {
        return entryOf(QStringLiteral("full_date,mood,activities,note\n2021-03-04,") + cells).body;
    };
    EXPECT_EQ(bodyOf(QStringLiteral("good,,")), QStringLiteral("**good**"));
    EXPECT_EQ(bodyOf(QStringLiteral(",tea,")), QStringLiteral("tea"));
    EXPECT_EQ(bodyOf(QStringLiteral(",,x")), QStringLiteral("x"));
    EXPECT_EQ(bodyOf(QStringLiteral("good,,x")), QStringLiteral("**good**\n\nx"));
    EXPECT_EQ(bodyOf(QStringLiteral(",,")), QString());
    EXPECT_EQ(bodyOf(QStringLiteral("good")), QStringLiteral("**good**"));
    EXPECT_EQ(bodyOf(QStringLiteral("good,a|b | | c,")), QStringLiteral("**good** · a|b · | c"));
}

TEST(DaylioCSV, FindsColumnsByTheirNames) {
    EXPECT_EQ(entryOf(u"x, MOOD ,\"Full_Date\"\n1, good ,2021-03-04,beyond").body,
              QStringLiteral("**good**"));
    EXPECT_EQ(entryOf(u"full_date,mood,mood\n2021-03-04,first,second").body,
              QStringLiteral("**first**"));
    EXPECT_FALSE(isRecognised(u"full_date,feeling\n2021-03-04,good"));
    EXPECT_FALSE(isRecognised(u"full_date;mood\n2021-03-04;good"));
    EXPECT_FALSE(isRecognised(u"\nfull_date,mood\n2021-03-04,good"));
    EXPECT_FALSE(isRecognised(u""));
    EXPECT_TRUE(isRecognised(u"mood"));
}

TEST(DaylioCSV, CountsRowsWithoutADate) {
    const ImportBatch batch = read(
        u"full_date,date,year,mood\n,,,good\n\n2021-02-29,x,,good\nx,March 4,,good\n"
        u"2021-03-04,,,good\n");
    EXPECT_EQ(batch.skipped, ImportBatch::Skipped{.undated = 4});
    EXPECT_EQ(batch.entries.size(), 1U);
}

TEST(DaylioCSV, IsRecognisedByItsFirstLine) {
    EXPECT_TRUE(DaylioSource::isCSV(u"\r\n\nFull_Date,x,\"Mood\"\n1"));
    EXPECT_TRUE(DaylioSource::isCSV(u"year,date,weekday,mood"));
    EXPECT_FALSE(DaylioSource::isCSV(u"date,mood\nweekday"));
    EXPECT_FALSE(DaylioSource::isCSV(u"date,mood\rweekday"));
    EXPECT_FALSE(DaylioSource::isCSV(u" \nfull_date,mood"));
    EXPECT_FALSE(DaylioSource::isCSV(u"full_date,weekday"));
    EXPECT_FALSE(DaylioSource::isCSV(u"\n"));
    EXPECT_FALSE(DaylioSource::isCSV(u""));
}

TEST(DaylioCSV, GivesANoteTheMemoryThatItNeeds) {
    const QString note = QStringLiteral("a\r\nb ").repeated(100'000);
    const QString table = QStringLiteral("full_date,mood,note\n2021-03-04,good,\"%1\"");
    const QString body = entryOf(table.arg(note)).body;
    EXPECT_LT(body.capacity(), body.size() * 5 / 4);
}

TEST(DaylioCSV, ReadsALongRowWithoutHoldingIt) {
    const QString text = QStringLiteral("full_date,mood\n2021-03-04,good") +
                         QStringLiteral(",x").repeated(10'000'000) +
                         QLatin1String("\n2021-03-05,bad");
    const std::clock_t start = std::clock();
    EXPECT_EQ(read(text).entries.size(), 2U);
    EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 10);
    EXPECT_LT(diary::testing::memoryOfStep([&] { (void)read(text); }),
              4 * diary::testing::kMebibyte);
}

}  // namespace
}  // namespace diary
