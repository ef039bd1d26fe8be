#include "DiaryKit/AppSources/JourneySource.h"

#include <gtest/gtest.h>

#include <ctime>

#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Import/LocalTime.h"
#include "tests/kit/import/PeakMemory.h"
#include "tests/kit/import/TemporaryPackage.h"
#include "tests/kit/import/ZipBuilder.h"

namespace diary {
namespace {

using diary::testing::TemporaryPackage;
using diary::testing::ZipBuilder;

class JourneySourceTest : public ::testing::Test {
protected:
    // 4 March 2021, 05:06:07 in UTC.
    static QByteArray entry(const QByteArray& members) {
        return R"({"date_journal": 1614834367000, "timezone": "UTC")" +
               (members.isEmpty() ? members : ", " + members) + "}";
    }
    [[nodiscard]] ImportBatch read() const {
        return JourneySource::read(ImportPackage(m_files.root()), QStringLiteral("Export"));
    }
    ImportBatch read(const QByteArray& json) {
        m_files.add(QStringLiteral("1.json"), json);
        return read();
    }
    ImportedEntry readEntry(const QByteArray& members) {
        const ImportBatch batch = read(entry(members));
        EXPECT_EQ(batch.entries.size(), 1U);
        return batch.entries.empty() ? ImportedEntry() : batch.entries.front();
    }

    TemporaryPackage m_files;
};

TEST_F(JourneySourceTest, ReadsAnEntry) {
    const ImportBatch batch = read(entry(
        R"("timezone": "Asia/Tokyo", "text": "<p>Hello <b>you</b></p>", "type": "html",
           "title": " A day\n", "address": "\tGion, Kyoto ", "tags": ["a", "b"], "mood": 3,
           "weather": {"degree_c": 21.5, "description": "Clear", "icon": "01d"},
           "photos": ["1-a.jpg", "1-b.mp4"], "favourite": true)"));
    EXPECT_EQ(batch.source, ImportSource::journey);
    EXPECT_EQ(batch.name, QStringLiteral("Export"));
    EXPECT_EQ(batch.skipped, (ImportBatch::Skipped{.photos = 2}));
    const ImportedEntry expected{.day = {2021, 3, 4},
                                 .time = ImportedEntry::Time{14, 6},
                                 .title = QStringLiteral("A day"),
                                 .body = QStringLiteral("Hello **you**"),
                                 .place = QStringLiteral("Gion, Kyoto"),
                                 .weather = QStringLiteral("22° Clear"),
                                 .tags = {QStringLiteral("a"), QStringLiteral("b")}};
    EXPECT_EQ(batch.entries, std::vector<ImportedEntry>{expected});
    EXPECT_TRUE(batch.journals.empty());
}

TEST_F(JourneySourceTest, CountsUndatedEntriesAndTheirPhotos) {
    for (const char* date : {"0", "-0.0", "-1", "\"1614834367000\"", "true", "null", "[1]"}) {
        const ImportBatch batch =
            read(QByteArray(R"({"photos": [1, [2, 3]], "date_journal": )") + date + "}");
        EXPECT_TRUE(batch.entries.empty()) << date;
        EXPECT_EQ(batch.skipped, (ImportBatch::Skipped{.photos = 2, .undated = 1})) << date;
    }
    EXPECT_EQ(read(R"({"x": "\"date_journal\"", "date_journal_2": 1, "y": {"date_journal": 1}})")
                  .skipped.undated,
              1);
}

TEST_F(JourneySourceTest, TakesTheMomentDownToItsMilliseconds) {
    EXPECT_EQ(read(R"({"date_journal": 0.5, "timezone": "UTC"})").entries[0].day,
              (DiaryDay{1970, 1, 1}));
    EXPECT_EQ(read(R"({"date_journal": 1614815999999, "timezone": "UTC"})").entries[0].time,
              (ImportedEntry::Time{23, 59}));
    // Beyond all calendars the day is the one that stands for none.
    for (const char* date : {"1e300", "1e999", "9223372036854775808"}) {
        const ImportedEntry found =
            read(QByteArray(R"({"date_journal": )") + date + "}").entries.at(0);
        EXPECT_EQ(found.day, (DiaryDay{2000, 1, 1})) << date;
        EXPECT_EQ(found.time, (ImportedEntry::Time{0, 0})) << date;
    }
}

TEST_F(JourneySourceTest, TakesTheMachinesZoneWhereNoneIsNamed) {
    const auto moment = QDateTime::fromSecsSinceEpoch(1614834367, Qt::UTC);
    const LocalTime::DayAndTime here = LocalTime::split(moment, LocalTime::zone({}));
    for (const char* zone : {"\"\"", "\"Nowhere/Land\"", "3", "null"}) {
        const ImportedEntry found = readEntry(QByteArray("\"timezone\": ") + zone);
        EXPECT_EQ(found.day, here.day) << zone;
        EXPECT_EQ(found.time, here.time) << zone;
    }
}

TEST_F(JourneySourceTest, TellsTheWeatherByWhatItHas) {
    const std::pair<const char*, const char*> cases[] = {
        {R"({"degree_c": 21.5})", "22°"},
        {R"({"degree_c": -0.4})", "0°"},
        {R"({"degree_c": -1.5})", "-2°"},
        {R"({"degree_c": 3, "description": " Rain "})", "3° Rain"},
        {R"({"degree_c": 22, "description": "22°"})", "22°"},
        {R"({"degree_c": 1.7976931348623157e308, "description": "Rain"})", "Rain"},
    };
    for (const auto& [weather, expected] : cases) {
        EXPECT_EQ(readEntry(QByteArray(R"("weather": )") + weather).weather,
                  QString::fromUtf8(expected))
            << weather;
    }
    for (const char* weather :
         {R"({"degree_c": 1.7976931348623157e308, "description": ""})", R"({"degree_c": 1e300})",
          R"({"degree_c": 1e999})", R"({"degree_c": "21"})", R"({"degree_c": true})", "{}", "[]"}) {
        EXPECT_EQ(readEntry(QByteArray(R"("weather": )") + weather).weather, std::nullopt)
            << weather;
    }
}

TEST_F(JourneySourceTest, TakesTextForHtmlUnlessItIsMarkdown) {
    EXPECT_EQ(readEntry(R"("text": "<p>hi</p>", "type": "html")").body, QStringLiteral("hi"));
    EXPECT_EQ(readEntry(R"("text": "<p>hi</p>")").body, QStringLiteral("hi"));
    EXPECT_EQ(readEntry(R"("text": "<p>hi</p>", "type": "Markdown")").body, QStringLiteral("hi"));
    EXPECT_EQ(readEntry(R"("text": "<p>hi</p>", "type": 1)").body, QStringLiteral("hi"));
    EXPECT_EQ(readEntry(R"("text": "<p>hi</p> \n\n\n# x\n", "type": "markdown")").body,
              QStringLiteral("<p>hi</p>\n\n# x"));
}

TEST_F(JourneySourceTest, TakesValuesOfTheWrongKindForAbsent) {
    const ImportedEntry found = readEntry(
        R"("text": 3, "tags": ["a", 1], "title": ["x"], "address": {}, "photos": "many")");
    const ImportedEntry expected{.day = {2021, 3, 4}, .time = ImportedEntry::Time{5, 6}};
    EXPECT_EQ(found, expected);
    EXPECT_EQ(readEntry(R"("title": " ", "address": "")").title, std::nullopt);
    EXPECT_EQ(readEntry(R"("title": " ", "address": "")").place, std::nullopt);
    EXPECT_EQ(readEntry(R"("title": "a", "title": "b")").title, QStringLiteral("b"));
}

TEST_F(JourneySourceTest, KnowsAnEntryByItsBeginning) {
    const auto longEntry = [](qsizetype lead) {
        return "{\"x\":\"" + QByteArray(lead, 'x') + R"(","date_journal":1614834367000})";
    };
    constexpr qsizetype kKeyLength = 14;
    const qsizetype last = 1024 - kKeyLength - 8;
    m_files.add(QStringLiteral("near.json"), longEntry(last));
    m_files.add(QStringLiteral("sub/far.JSON"), longEntry(last + 1));
    m_files.add(QStringLiteral("sub/upper.JSON"), entry(""));
    m_files.add(QStringLiteral("note.txt"), entry(""));
    EXPECT_EQ(JourneySource::entryFiles(ImportPackage(m_files.root())),
              (QStringList{QStringLiteral("near.json"), QStringLiteral("sub/upper.JSON")}));
}

TEST_F(JourneySourceTest, RefusesAPackageWithoutEntries) {
    m_files.add(QStringLiteral("1571425138176-lflfuesv9vkzmsu6.json"), "{}");
    try {
        (void)read();
        FAIL();
    } catch (const ImportError& error) {
        EXPECT_EQ(error.kind(), ImportError::Kind::unrecognized);
    }
}

TEST_F(JourneySourceTest, PassesOverWhatIsNoObject) {
    m_files.add(QStringLiteral("a.json"), R"(["date_journal", "\"date_journal\""])");
    m_files.add(QStringLiteral("b.json"), R"({"photos": [1], "date_journal": 1614834367000)");
    m_files.add(QStringLiteral("c.json"), R"({"date_journal": 1614834367000, "text": "a)");
    m_files.add(QStringLiteral("d.json"), entry("") + "x");
    EXPECT_EQ(read().entries, std::vector<ImportedEntry>());
    EXPECT_EQ(read().skipped, ImportBatch::Skipped{});
    m_files.add(QStringLiteral("e.json"), entry(R"("text": "e")"));
    EXPECT_EQ(read().entries.size(), 1U);
}

TEST_F(JourneySourceTest, CountsFilesNamedLikeEntriesThatItCannotRead) {
    const QByteArray whole = entry(R"("text": "a")");
    m_files.add(QStringLiteral("1571425138176-lflfuesv9vkzmsu6.json"), whole);
    m_files.add(QStringLiteral("1571425138177-3FE2.json"), whole.chopped(1));
    m_files.add(QStringLiteral("1571425138178-3fe2.json"), "[]");
    m_files.add(QStringLiteral("sub/1571425138179-3fe2.json"),
                "{\"text\": \"" + QByteArray(2000, 'x') + R"(", "date_journal": 1614834367000})");
    m_files.add(QStringLiteral("1571425138180-0.json"), R"({"date_journal": 0})");
    for (const char* other : {"settings.json", "1571425138176-a_b.json", "15-3fe2.json",
                              "1571425138176-.json", "1571425138181-3fe2.jpg"}) {
        m_files.add(QString::fromLatin1(other), "{}");
    }
    EXPECT_EQ(read().entries.size(), 1U);
    EXPECT_EQ(read().skipped, (ImportBatch::Skipped{.undated = 1, .otherNotes = 3}));
}

TEST_F(JourneySourceTest, ReadsEveryEncodingThatJsonMayHave) {
    const QByteArray plain = entry(R"("text": "日記")");
    EXPECT_EQ(read("\xEF\xBB\xBF" + plain).entries.at(0).body, QStringLiteral("日記"));
    const QString text = QString::fromUtf8(plain);
    const QByteArray units(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
    EXPECT_EQ(read("\xFF\xFE" + units).entries.at(0).body, QStringLiteral("日記"));
}

TEST_F(JourneySourceTest, ReadsASingleFile) {
    const QString path = m_files.add(QStringLiteral("one.json"), entry(R"("text": "one")"));
    EXPECT_EQ(JourneySource::read(ImportPackage(path), QString()).entries.at(0).body,
              QStringLiteral("one"));
}

// As many entries as a life gives, in an archive, one file after the other.
TEST_F(JourneySourceTest, ReadsAHundredThousandFiles) {
    constexpr int kFiles = 100'000;
    ZipBuilder zip;
    for (int i = 0; i < kFiles; ++i) {
        zip.add(ZipBuilder::stored(QByteArray::number(1'571'425'138'176 + i) + "-a.json",
                                   entry(R"("text": "<p>)" + QByteArray::number(i) + "</p>\"")));
    }
    const ImportPackage package(m_files.add(QStringLiteral("Export.zip"), zip.zip64Bytes()));
    const std::clock_t start = std::clock();
    const ImportBatch batch = JourneySource::read(package, QString());
    EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 20);
    ASSERT_EQ(batch.entries.size(), static_cast<std::size_t>(kFiles));
    EXPECT_EQ(batch.entries.back().body, QStringLiteral("99999"));
    EXPECT_LT(diary::testing::peakMemory(), diary::testing::kMostMemory);
}

TEST_F(JourneySourceTest, SurvivesFilesThatWereMadeToHurt) {
    const std::clock_t start = std::clock();
    EXPECT_TRUE(read(R"({"date_journal": 1, "x": )" + QByteArray(900'000, '[')).entries.empty());
    QByteArray wide;
    for (int i = 0; i < 300'000; ++i) wide += "[],";
    EXPECT_EQ(read(entry(R"("photos": [)" + wide + "1]")).skipped.photos, 300'001);
    EXPECT_EQ(readEntry(R"("text": ")" + QByteArray("<b>").repeated(100'000) + "last\"")
                  .body.count(QStringLiteral("last")),
              1);
    EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 10);
}

}  // namespace
}  // namespace diary
