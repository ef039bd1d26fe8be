#include "DiaryKit/ImportReader/ImportReader.h"

#include <gtest/gtest.h>

#include <QtCore/QFile>

#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Import/ImportError.h"
#include "tests/kit/import/ZipBuilder.h"
#include "tests/support/Printing.h"
#include "tests/support/TemporaryVault.h"

namespace diary {
namespace {

using diary::testing::ZipBuilder;

constexpr char kDayOne[] =
    R"({"metadata":{"version":"1.0"},"entries":[{"creationDate":"2021-03-04T10:00:00Z","timeZone":"UTC","text":"one"}]})";
constexpr char kJourney[] =
    R"({"date_journal":1614852000000,"timezone":"UTC","text":"two","type":"markdown"})";
constexpr char kFlomo[] =
    R"(<div class="memo"><div class="time">2021-03-04 10:00:00</div><div class="content"><p>three</p></div></div>)";
constexpr char kDaylioTable[] =
    "full_date,date,weekday,time,mood,activities,note_title,note\n"
    "2021-03-04,March 4,Thursday,10:00,good,,\"\",\"four\"\n";
constexpr char kAppleJournal[] =
    R"(<div class="pageHeader">March 4, 2021</div><div class="bodyText"><p>five</p></div>)";
constexpr char kDayFile[] = "# 03-04\n\n## 2021\n\nsix\n";
constexpr char kDatedText[] = "2021-03-04\nseven\n\n2021-03-05\neight\n";

class Recognition : public ::testing::Test {
protected:
    [[nodiscard]] ImportBatch read(const QString& name = {}) const {
        return ImportReader::read(name.isEmpty() ? files.path() : files.filePath(name), options,
                                  readers);
    }
    // What it was taken for; nothing where no reader knows it.
    [[nodiscard]] std::optional<ImportSource> source(const QString& name = {}) const {
        try {
            return read(name).source;
        } catch (const ImportError& error) {
            EXPECT_EQ(error.kind(), ImportError::Kind::unrecognized);
            return std::nullopt;
        }
    }
    void zip(const QString& name,
             const std::vector<std::pair<const char*, QByteArray>>& items) const {
        ZipBuilder archive;
        for (const auto& [path, bytes] : items) archive.add(ZipBuilder::packed(path, bytes));
        files.write(name, archive.bytes());
    }

    const test::TemporaryVault files;
    ImportReader::Options options{.currentYear = 2026};
    DatedTextSource::DocumentReaders readers;
};

TEST_F(Recognition, OfAFolderOfDayFilesWithSectionsIsAVault) {
    files.write(QStringLiteral("03-04.md"), kDayFile);
    files.write(QStringLiteral("2021-03-05.md"), "a dated note as well");
    const ImportBatch batch = read();
    EXPECT_EQ(batch.source, ImportSource::velmarFolder);
    EXPECT_EQ(batch.name, QStringLiteral("my väult"));
    ASSERT_EQ(batch.entries.size(), 1U);
    EXPECT_TRUE(batch.entries[0].isVelmarSection);
}

TEST_F(Recognition, OfAFolderOfDayFilesWithoutSectionsGoesOn) {
    files.write(QStringLiteral("03-04.md"), "no section");
    files.write(QStringLiteral("2021-03-05.md"), "x");
    EXPECT_EQ(source(), ImportSource::markdownFolder);
}

// The first files of a vault may be damaged or empty.
TEST_F(Recognition, OfAVaultLooksAtTwentyFiles) {
    for (int day = 1; day <= 19; ++day) {
        files.write(QStringLiteral("01-%1.md").arg(day, 2, 10, QLatin1Char('0')), "\xff");
    }
    files.write(QStringLiteral("01-20.md"), kDayFile);
    EXPECT_EQ(source(), ImportSource::velmarFolder);
    QFile::remove(files.filePath(QStringLiteral("01-20.md")));
    files.write(QStringLiteral("01-20.md"), "");
    files.write(QStringLiteral("01-21.md"), kDayFile);
    EXPECT_NE(source(), ImportSource::velmarFolder);
}

TEST_F(Recognition, OfAZipOfAVaultIsNoVault) {
    zip(QStringLiteral("vault.zip"), {{"03-04.md", kDayFile}, {"03-05.md", kDayFile}});
    EXPECT_EQ(source(QStringLiteral("vault.zip")), std::nullopt);
}

TEST_F(Recognition, OfAWorkspaceIsThatOfItsOutput) {
    files.write(QStringLiteral("source/export.txt"), kDatedText);
    files.write(QStringLiteral("出力/03-04.md"), kDayFile);
    EXPECT_EQ(source(), ImportSource::velmarFolder);
}

TEST_F(Recognition, OfADayOneExportStandsAboveATableInIt) {
    zip(QStringLiteral("export.zip"), {{"Journal.json", kDayOne}, {"daylio.csv", kDaylioTable}});
    EXPECT_EQ(source(QStringLiteral("export.zip")), ImportSource::dayOne);
    files.write(QStringLiteral("Journal.json"), kDayOne);
    EXPECT_EQ(source(QStringLiteral("Journal.json")), ImportSource::dayOne);
}

TEST_F(Recognition, OfTheOtherApplicationsIsByWhatTheyWrite) {
    zip(QStringLiteral("journey.zip"), {{"1.json", kJourney}, {"1.csv", kDaylioTable}});
    EXPECT_EQ(source(QStringLiteral("journey.zip")), ImportSource::journey);
    zip(QStringLiteral("apple.zip"), {{"Export/Entries/2021-03-04.html", kAppleJournal}});
    EXPECT_EQ(source(QStringLiteral("apple.zip")), ImportSource::appleJournal);
    zip(QStringLiteral("flomo.zip"), {{"flomo/index.html", kFlomo}});
    EXPECT_EQ(source(QStringLiteral("flomo.zip")), ImportSource::flomo);
    zip(QStringLiteral("table.zip"), {{"x.csv", kDaylioTable}, {"2021-03-04.md", "x"}});
    EXPECT_EQ(source(QStringLiteral("table.zip")), ImportSource::daylio);
    files.write(QStringLiteral("one.json"), kJourney);
    EXPECT_EQ(source(QStringLiteral("one.json")), ImportSource::journey);
    files.write(QStringLiteral("one.html"), kFlomo);
    EXPECT_EQ(source(QStringLiteral("one.html")), ImportSource::flomo);
}

TEST_F(Recognition, OfADaylioBackupIsByItsName) {
    const QByteArray content =
        QByteArray(R"({"dayEntries":[{"datetime":1614852000000,"note":"x","mood":1}]})").toBase64();
    files.write(QStringLiteral("2021.Daylio"), content);
    EXPECT_EQ(source(QStringLiteral("2021.Daylio")), ImportSource::daylio);
    zip(QStringLiteral("backup.zip"), {{"backup.daylio", content}, {"Journal.json", kDayOne}});
    EXPECT_EQ(source(QStringLiteral("backup.zip")), ImportSource::daylio);
}

TEST_F(Recognition, OfJsonThatNobodyKnowsFails) {
    files.write(QStringLiteral("x.json"), R"({"2021-03-04": "text"})");
    EXPECT_EQ(source(QStringLiteral("x.json")), std::nullopt);
}

TEST_F(Recognition, OfAPageOrATableOfSomethingElseIsDatedText) {
    files.write(QStringLiteral("x.html"), "<p>2021-03-04</p><p>seven</p>");
    EXPECT_EQ(read(QStringLiteral("x.html")).entries.size(), 1U);
    EXPECT_EQ(source(QStringLiteral("x.html")), ImportSource::datedText);
    files.write(QStringLiteral("x.csv"), "2021-03-04\nseven, eight\n");
    EXPECT_EQ(source(QStringLiteral("x.csv")), ImportSource::datedText);
}

TEST_F(Recognition, OfOneTextInAFolderOrZipIsThatOfTheText) {
    files.write(QStringLiteral("diary.TXT"), kDatedText);
    EXPECT_EQ(read().entries.size(), 2U);
    EXPECT_EQ(read().name, QStringLiteral("my väult"));
    EXPECT_EQ(read(QStringLiteral("diary.TXT")).name, QStringLiteral("diary.TXT"));
    files.write(QStringLiteral("more.txt"), kDatedText);
    EXPECT_EQ(source(), std::nullopt);
    zip(QStringLiteral("one.zip"), {{"a/diary.txt", kDatedText}, {"a/x.png", "x"}});
    EXPECT_EQ(read(QStringLiteral("one.zip")).entries.size(), 2U);
}

TEST_F(Recognition, OfAZipIsByItsContentAndNotByItsName) {
    zip(QStringLiteral("diary.bin"), {{"diary.txt", kDatedText}});
    EXPECT_EQ(source(QStringLiteral("diary.bin")), ImportSource::datedText);
    files.write(QStringLiteral("text.bin"), kDatedText);
    EXPECT_EQ(source(QStringLiteral("text.bin")), std::nullopt);
}

TEST_F(Recognition, HandsDocumentsToTheirReaders) {
    files.write(QStringLiteral("diary.odt"), "PK");
    EXPECT_EQ(source(QStringLiteral("diary.odt")), std::nullopt);
    readers.documentText = [](const QString& path) {
        EXPECT_TRUE(path.endsWith(QLatin1String("diary.odt")));
        return QString::fromLatin1(kDatedText);
    };
    EXPECT_EQ(read(QStringLiteral("diary.odt")).entries.size(), 2U);
    zip(QStringLiteral("one.zip"), {{"diary.odt", "PK"}});
    EXPECT_EQ(read(QStringLiteral("one.zip")).entries.size(), 2U);
}

TEST_F(Recognition, GivesASourceWithoutEntriesAsItIs) {
    files.write(QStringLiteral("empty.txt"), "");
    EXPECT_TRUE(read(QStringLiteral("empty.txt")).entries.empty());
    files.write(QStringLiteral("Journal.json"), R"({"metadata":{},"entries":[]})");
    EXPECT_TRUE(read(QStringLiteral("Journal.json")).entries.empty());
}

TEST_F(Recognition, PassesOnWhatGoesWrong) {
    EXPECT_THROW(read(QStringLiteral("gone.txt")), FileError);
    files.write(QStringLiteral("torn.zip"), QByteArray("PK\3\4 torn", 9));
    try {
        const ImportBatch batch = read(QStringLiteral("torn.zip"));
        FAIL() << batch.entries.size();
    } catch (const ImportError& error) {
        EXPECT_EQ(error.kind(), ImportError::Kind::badArchive);
    }
}

TEST_F(Recognition, ObeysItsOptions) {
    files.write(QStringLiteral("03-04.md"), "# 03-04\n\n## 2026\n\nnow\n\n## 2027\n\nlater\n");
    EXPECT_EQ(read().entries.size(), 1U);
    options.split.assumedYear = 2020;
    const QString text = QStringLiteral("?\?\?\?-03-04\nx\n");
    EXPECT_EQ(ImportReader::read(text, QStringLiteral("n"), options).entries.size(), 1U);
    EXPECT_EQ(ImportReader::read(text, QStringLiteral("n"), {}).entries.size(), 0U);
    files.write(QStringLiteral("moods.csv"), kDaylioTable);
    options.moodLabels = {{QStringLiteral("good"), QStringLiteral("好")}};
    EXPECT_TRUE(
        read(QStringLiteral("moods.csv")).entries.at(0).body.startsWith(QStringLiteral("**好**")));
}

}  // namespace
}  // namespace diary
