#include "DiaryKit/AppSources/DayOneSource.h"

#include <gtest/gtest.h>

#include <QtCore/QRegularExpression>
#include <ctime>
#include <random>

#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Import/HTMLToMarkdown.h"
#include "DiaryKit/Import/ImportError.h"
#include "tests/kit/import/PeakMemory.h"
#include "tests/kit/import/TemporaryPackage.h"
#include "tests/kit/import/ZipBuilder.h"

namespace diary {
namespace {

using diary::testing::TemporaryPackage;
using diary::testing::ZipBuilder;

class DayOneSourceTest : public ::testing::Test {
protected:
    static QByteArray journal(const QByteArray& entries) {
        return R"({"metadata": {"version": "1.0"}, "entries": [)" + entries + "]}";
    }
    static QByteArray entry(const QByteArray& members) {
        return R"({"creationDate": "2021-03-04T23:30:00Z", "timeZone": "UTC")" +
               (members.isEmpty() ? members : ", " + members) + "}";
    }

    ImportBatch read(const QByteArray& json) {
        m_files.add(QStringLiteral("Journal.json"), json);
        return DayOneSource::read(ImportPackage(m_files.root()), QStringLiteral("Export"));
    }
    ImportedEntry readEntry(const QByteArray& members) {
        const ImportBatch batch = read(journal(entry(members)));
        EXPECT_EQ(batch.entries.size(), 1U);
        return batch.entries.empty() ? ImportedEntry() : batch.entries.front();
    }

    TemporaryPackage m_files;
};

TEST_F(DayOneSourceTest, ReadsAnEntry) {
    const ImportBatch batch = read(journal(entry(
        R"("timeZone": "Asia/Tokyo", "text": "# Title \n\nBody", "tags": ["a", "b"],
           "location": {"localityName": "Kyoto", "placeName": "Gion", "country": "Japan"},
           "weather": {"conditionsDescription": "Clear", "temperatureCelsius": 21.5},
           "photos": [{}, {"a": [1, {"b": 2}]}], "videos": [1], "audios": [], "richText": "{}")")));
    EXPECT_EQ(batch.source, ImportSource::dayOne);
    EXPECT_EQ(batch.name, QStringLiteral("Export"));
    EXPECT_EQ(batch.journals, (std::vector<ImportBatch::Journal>{{QStringLiteral("Journal"), 1}}));
    EXPECT_EQ(batch.skipped, (ImportBatch::Skipped{.photos = 2, .videos = 1}));
    const ImportedEntry expected{.day = {2021, 3, 5},
                                 .time = ImportedEntry::Time{8, 30},
                                 .title = QStringLiteral("Title"),
                                 .body = QStringLiteral("Body"),
                                 .place = QStringLiteral("Kyoto · Gion"),
                                 .weather = QStringLiteral("Clear 22°"),
                                 .tags = {QStringLiteral("a"), QStringLiteral("b")},
                                 .journal = QStringLiteral("Journal")};
    ASSERT_EQ(batch.entries.size(), 1U);
    EXPECT_EQ(batch.entries.front(), expected);
}

TEST_F(DayOneSourceTest, LeavesTheTimeOutOfAWholeDayButTakesTheDayInItsZone) {
    const ImportedEntry found = readEntry(R"("timeZone": "Asia/Tokyo", "isAllDay": true)");
    EXPECT_EQ(found.day, (DiaryDay{2021, 3, 5}));
    EXPECT_EQ(found.time, std::nullopt);
    EXPECT_TRUE(readEntry(R"("isAllDay": 1)").time) << "1 is no boolean.";
    EXPECT_TRUE(readEntry(R"("isAllDay": "true")").time);
}

TEST_F(DayOneSourceTest, TakesValuesOfTheWrongKindForAbsent) {
    const ImportedEntry found = readEntry(
        R"("text": 3, "tags": ["a", 1], "timeZone": null, "location": ["x"], "weather": "x",
           "photos": "many")");
    EXPECT_EQ(found.body, QString());
    EXPECT_TRUE(found.tags.isEmpty());
    EXPECT_EQ(found.place, std::nullopt);
    EXPECT_EQ(found.weather, std::nullopt);
    EXPECT_EQ(readEntry(R"("weather": {"temperatureCelsius": true})").weather, std::nullopt);
    EXPECT_EQ(readEntry(R"("weather": {"temperatureCelsius": "21"})").weather, std::nullopt);
}

TEST_F(DayOneSourceTest, RoundsTheTemperatureHalfAwayFromZero) {
    const std::pair<const char*, const char*> cases[] = {
        {"21.5", "22°"}, {"-0.5", "-1°"}, {"-0.4", "0°"},  {"20.5", "21°"},
        {"3", "3°"},     {"3.0", "3°"},   {"-1.5", "-2°"}, {"1e1", "10°"}};
    for (const auto& [number, expected] : cases) {
        const ImportedEntry found =
            readEntry(QByteArray(R"("weather": {"temperatureCelsius": )") + number + "}");
        EXPECT_EQ(found.weather, QString::fromUtf8(expected)) << number;
    }
    EXPECT_EQ(readEntry(R"("weather": {"temperatureCelsius": 1e999})").weather, std::nullopt);
}

TEST_F(DayOneSourceTest, NamesThePlaceByWhatIsNear) {
    EXPECT_EQ(readEntry(R"("location": {"localityName": "Paris", "placeName": "Paris"})").place,
              QStringLiteral("Paris"));
    EXPECT_EQ(readEntry(R"("location": {"placeName": " ", "administrativeArea": "Île-de-France",
                            "country": "France"})")
                  .place,
              QStringLiteral("Île-de-France · France"));
    EXPECT_EQ(readEntry(R"("location": {"latitude": 1})").place, std::nullopt);
}

TEST_F(DayOneSourceTest, MakesTheTitleOfAFirstLineThatIsOne) {
    ImportedEntry found = readEntry(R"("text": "# Title")");
    EXPECT_EQ(found.title, QStringLiteral("Title"));
    EXPECT_EQ(found.body, QString());
    found = readEntry(R"("text": "# \u3000\nbody")");
    EXPECT_EQ(found.title, std::nullopt);
    EXPECT_EQ(found.body, QStringLiteral("body"));
    found = readEntry(R"("text": "## Second level\nbody")");
    EXPECT_EQ(found.title, std::nullopt);
    EXPECT_EQ(found.body, QStringLiteral("## Second level\nbody"));
}

TEST_F(DayOneSourceTest, CountsUndatedEntriesAndTheMediaOfAll) {
    const ImportBatch batch = read(journal(
        R"({"photos": [1, 2], "pdfAttachments": [1]}, {"creationDate": 3, "audios": [1]},
           {"creationDate": "2021-02-30T00:00:00Z"}, {"creationDate": "2021-03-04T05:06:07"},
           {"creationDate": "2021-03-04T05:06:07.999+09:00", "timeZone": "UTC"})"));
    EXPECT_EQ(batch.skipped,
              (ImportBatch::Skipped{.photos = 2, .audios = 1, .attachments = 1, .undated = 4}));
    ASSERT_EQ(batch.entries.size(), 1U);
    EXPECT_EQ(batch.entries[0].day, (DiaryDay{2021, 3, 3}));
    EXPECT_EQ(batch.entries[0].time, (ImportedEntry::Time{20, 6}));
}

TEST_F(DayOneSourceTest, ListsAJournalWithoutEntries) {
    const ImportBatch batch = read(journal(""));
    EXPECT_EQ(batch.journals, (std::vector<ImportBatch::Journal>{{QStringLiteral("Journal"), 0}}));
}

TEST_F(DayOneSourceTest, PassesOverJsonOfAnotherShape) {
    m_files.add(QStringLiteral("a.json"), R"({"metadata": {}, "entries": {"a": 1}})");
    m_files.add(QStringLiteral("b.json"), journal("1"));
    m_files.add(QStringLiteral("c.json"), R"(["metadata", "entries", "\"metadata\"\"entries\""])");
    m_files.add(QStringLiteral("d.json"), "not JSON at all");
    EXPECT_EQ(DayOneSource::journalFiles(ImportPackage(m_files.root())).size(), 3);
    try {
        (void)DayOneSource::read(ImportPackage(m_files.root()), QString());
        FAIL();
    } catch (const ImportError& error) {
        EXPECT_EQ(error.kind(), ImportError::Kind::unrecognized);
    }
    m_files.add(QStringLiteral("sub/e.v2.json"), journal(entry("")));
    const ImportBatch batch = DayOneSource::read(ImportPackage(m_files.root()), QString());
    EXPECT_EQ(batch.journals, (std::vector<ImportBatch::Journal>{{QStringLiteral("e.v2"), 1}}));
    EXPECT_EQ(batch.skipped, ImportBatch::Skipped{});
}

TEST_F(DayOneSourceTest, FailsWholeOnAFileThatIsNoJson) {
    m_files.add(QStringLiteral("good.json"), journal(entry("")));
    const QByteArray whole = journal(entry(R"("text": "é \u00e9")"));
    for (qsizetype length = 50; length < whole.size(); ++length) {
        m_files.add(QStringLiteral("cut.json"), whole.first(length));
        EXPECT_THROW((void)DayOneSource::read(ImportPackage(m_files.root()), QString()), FileError)
            << length;
    }
    m_files.add(QStringLiteral("cut.json"), whole);
    EXPECT_EQ(DayOneSource::read(ImportPackage(m_files.root()), QString()).entries.size(), 2U);
}

TEST_F(DayOneSourceTest, ReadsEveryEncodingThatJsonMayHave) {
    const QByteArray plain = journal(entry(R"("text": "日記")"));
    EXPECT_EQ(read("\xEF\xBB\xBF" + plain).entries[0].body, QStringLiteral("日記"));
    const QString text = QString::fromUtf8(plain);
    const QByteArray units(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
    EXPECT_EQ(read("\xFF\xFE" + units).entries[0].body, QStringLiteral("日記"));
}

TEST_F(DayOneSourceTest, ReadsAZipOfManyJournals) {
    ZipBuilder zip;
    zip.add(ZipBuilder::packed("Work.json", journal(entry("") + "," + entry(""))));
    zip.add(ZipBuilder::packed("photos/a.jpeg", "x"));
    zip.add(ZipBuilder::packed("Home.json", journal(entry(""))));
    const ImportPackage package(m_files.add(QStringLiteral("Export.zip"), zip.bytes()));
    const ImportBatch batch = DayOneSource::read(package, QStringLiteral("Export.zip"));
    EXPECT_EQ(batch.journals, (std::vector<ImportBatch::Journal>{{QStringLiteral("Home"), 1},
                                                                 {QStringLiteral("Work"), 2}}));
    EXPECT_EQ(batch.entries.size(), 3U);
    EXPECT_EQ(batch.entries[0].journal, QStringLiteral("Home"));
}

TEST_F(DayOneSourceTest, SurvivesJsonThatWasMadeToHurt) {
    const std::clock_t start = std::clock();
    // Deeper than any stack.
    EXPECT_THROW((void)read(journal(QByteArray(400'000, '['))), FileError);
    EXPECT_THROW((void)read(R"({"entries": [], "metadata": )" + QByteArray(900'000, '{')),
                 FileError);
    // Wide: a tree of it would be many times its size.
    QByteArray wide;
    for (int i = 0; i < 300'000; ++i) wide += "[],";
    EXPECT_EQ(read(journal(entry(R"("photos": [)" + wide + "1]"))).skipped.photos, 300'001);
    // Each bracket may begin a link.
    const QByteArray brackets(900'000, '[');
    EXPECT_EQ(readEntry(R"("text": ")" + brackets + "\"").body.size(), brackets.size());
    QByteArray links;
    for (int i = 0; i < 50'000; ++i) links += "[a](dayone://";
    EXPECT_EQ(readEntry(R"("text": ")" + links + "\"").body.size(), links.size());
    EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 10);
}

QByteArray archiveOfMillionsOfValues(const QByteArray& head, const QByteArray& tail) {
    constexpr qsizetype kEach = 18'000'000;
    const QByteArray entry = R"({"creationDate":"2020-01-01T00:00:00Z")";
    ZipBuilder zip;
    zip.add(ZipBuilder::packed(
        "a.json", head + (entry + "},").repeated(kEach / entry.size()) + entry + "}" + tail));
    zip.add(ZipBuilder::packed(
        "b.json",
        head + entry + R"(,"tags":[)" + QByteArray("\"\",").repeated(kEach / 3) + "\"\"]}" + tail));
    // The larger the archive, the more it gives out.
    zip.add(ZipBuilder::stored("padding", QByteArray(850'000, 'x')));
    return zip.bytes();
}

// A small archive that unpacks to as much as it may: what is made of it stays bounded too.
TEST_F(DayOneSourceTest, SurvivesArchivesThatUnpackToMillionsOfValues) {
    const QByteArray bytes = archiveOfMillionsOfValues(R"({"metadata":{},"entries":[)", "]}");
    ASSERT_LT(bytes.size(), 1'000'000);
    const QString path = m_files.add(QStringLiteral("Export.zip"), bytes);
    // The processor's time, since others may be at work on the machine.
    const std::clock_t start = std::clock();
    const ImportBatch batch = DayOneSource::read(ImportPackage(path), QString());
    EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 10);
    EXPECT_GT(batch.entries.size(), 400'000U);
    EXPECT_GT(batch.entries.back().tags.size(), 5'000'000);
    EXPECT_LT(diary::testing::peakMemory(), diary::testing::kMostMemory);
}

TEST(DayOneText, LosesTheEscapesThatMarkdownDoesNotNeed) {
    const std::pair<QStringView, QStringView> cases[] = {
        {u"1\\. Apples", u"1\\. Apples"},
        {u"Version 1\\.2", u"Version 1.2"},
        {u"  12\\. y", u"  12\\. y"},
        {u"1\\.2\\.", u"1\\.2."},
        {u"\U0001D7D8\\. x", u"\U0001D7D8\\. x"},
        {u"\\- not a list", u"\\- not a list"},
        {u" \\+ x", u" \\+ x"},
        {u"a \\- b", u"a - b"},
        {u"\\(a\\)\\!\\{\\}\\=\\~\\|\\,\\:\\?\\'\\\"", u"(a)!{}=~|,:?'\""},
        {u"\\\\\\. \\#\\*\\_", u"\\\\. \\#\\*\\_"},
        {u"x\\", u"x\\"},
        {u"a\r\nb", u"a\nb"},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(DayOneSource::cleanText(text), expected.toString())
            << text.toUtf8().toStdString();
    }
}

TEST(DayOneText, LosesLinksToItsOwnMediaAndEntries) {
    const std::pair<QStringView, QStringView> cases[] = {
        {u"a![](dayone-moment://ABC)b", u"ab"},
        {u"a[x\ny](dayone-moment:)b", u"ab"},
        {u"[see](dayone://view?entryId=1)", u"see"},
        {u"[see](dayone2://x)", u"see"},
        {u"[see](dayone3://x)", u"[see](dayone3://x)"},
        {u"[](dayone://x)", u"[](dayone://x)"},
        {u"[[](dayone://x)", u"["},
        {u"a [b [c](dayone://x) d", u"a b [c d"},
        {u"[a] [b](dayone://x)", u"[a] b"},
        {u"[a](dayone://x", u"[a](dayone://x"},
        {u"[a](http://b)", u"[a](http://b)"},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(DayOneSource::cleanText(text), expected.toString())
            << text.toUtf8().toStdString();
    }
}

// What the links are, as the expressions that say it best.
QString withoutLinksByExpression(QString text) {
    static const QRegularExpression media(
        QStringLiteral("!?\\[[^\\]]*\\]\\(dayone-moment:[^)]*\\)"));
    static const QRegularExpression entry(QStringLiteral("\\[([^\\]]+)\\]\\(dayone2?://[^)]*\\)"));
    return text.replace(media, QString()).replace(entry, QStringLiteral("\\1"));
}

TEST(DayOneText, FindsTheLinksThatTheExpressionsFind) {
    const QStringList pieces = {QStringLiteral("["),
                                QStringLiteral("]"),
                                QStringLiteral("("),
                                QStringLiteral(")"),
                                QStringLiteral("!"),
                                QStringLiteral("]("),
                                QStringLiteral("a"),
                                QStringLiteral("\n"),
                                QStringLiteral("](dayone://"),
                                QStringLiteral("[]"),
                                QStringLiteral("](dayone2://"),
                                QStringLiteral("](dayone-moment:")};
    std::mt19937 random(20261121);  // NOLINT: the same texts in every run.
    for (int round = 0; round < 50'000; ++round) {
        QString text;
        const unsigned length = random() % 24;
        for (unsigned i = 0; i < length; ++i) {
            text += pieces[static_cast<qsizetype>(random() % 12)];
        }
        ASSERT_EQ(DayOneSource::cleanText(text),
                  HTMLToMarkdown::tidy(withoutLinksByExpression(text)))
            << text.toStdString();
    }
}

}  // namespace
}  // namespace diary
