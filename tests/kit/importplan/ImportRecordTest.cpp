#include "DiaryKit/Import/ImportRecord.h"

#include <gmock/gmock.h>

#include <QtCore/QJsonDocument>

#include "DiaryKit/Import/ImportRecordFileJson.h"
#include "tests/support/Printing.h"

namespace diary {
namespace {

using testing::ElementsAre;

ImportRecord fullRecord() {
    ImportRecord::Added added{.year = 2024,
                              .text = QStringLiteral("a/b"),
                              .appended = true,
                              .entryKeys = QStringList{QStringLiteral("k")},
                              .entryTexts = QStringList{QStringLiteral("a/b")}};
    return {.id = QStringLiteral("20250307-081530-dayOne-X"),
            .state = ImportRecord::State::undone,
            .source = ImportSource::dayOne,
            .name = QStringLiteral("日記"),
            .label = QStringLiteral("Other"),
            .at = QDateTime(QDate(2025, 3, 7), QTime(8, 15, 30), Qt::UTC),
            .by = QStringLiteral("Host"),
            .deviceID = QStringLiteral("this"),
            .entries = 1,
            .days = 1,
            .files = {{.day = QStringLiteral("03-07"),
                       .existed = true,
                       .after = QStringLiteral("x"),
                       .added = {added},
                       .before = QStringLiteral("y"),
                       .committed = false}},
            .skipped = {.photos = 1,
                        .videos = 2,
                        .audios = 3,
                        .attachments = 4,
                        .undated = 5,
                        .otherNotes = 6},
            .undoneAt = QDateTime(QDate(2025, 3, 8), QTime(0, 0), Qt::UTC)};
}

// A whole record of the older version, which knew less.
QByteArray olderJson() {
    return R"({"version": 1, "id": "i", "state": "done", "source": "flomo", "name": "n",
               "at": "2023-11-14T23:12:44Z", "by": "Host", "entries": 3, "days": 1,
               "files": [{"day": "01-02", "existed": false,
                          "added": [{"year": 2024, "text": "t", "appended": false}]}],
               "skipped": {"photos": 0, "videos": 0, "audios": 0, "attachments": 0,
                           "undated": 0, "otherNotes": 0}})";
}

TEST(ImportRecord, ReadsWhatItWrites) {
    EXPECT_EQ(ImportRecord::decode(fullRecord().encoded()), fullRecord());
    const ImportRecord plain{.at = QDateTime(QDate(2025, 1, 1), QTime(0, 0), Qt::UTC)};
    EXPECT_EQ(ImportRecord::decode(plain.encoded()), plain);
}

TEST(ImportRecord, IsLaidOutLikeAnyIndentedJson) {
    ImportRecord record = fullRecord();
    record.name = QStringLiteral("\n    \"files\": [\n    ]");
    record.files.push_back(record.files[0]);
    record.files[1].added[0].text = QStringLiteral("a\n\"files\": [\n\n]");
    for (const size_t count : {size_t{2}, size_t{1}, size_t{0}}) {
        record.files.resize(count);
        const QByteArray json = record.encoded();
        EXPECT_EQ(json, QJsonDocument::fromJson(json).toJson(QJsonDocument::Indented));
        EXPECT_EQ(ImportRecord::decode(json), record);
    }
}

TEST(ImportRecord, LeavesAbsentValuesOut) {
    const QByteArray json =
        ImportRecord{.at = QDateTime(QDate(2025, 1, 1), QTime(0, 0), Qt::UTC)}.encoded();
    for (const char* key : {"label", "deviceID", "undoneAt", "null"}) {
        EXPECT_FALSE(json.contains(key)) << key;
    }
}

TEST(ImportRecord, IsWrittenWithSortedKeysAndPlainSlashes) {
    const QByteArray json = fullRecord().encoded();
    EXPECT_TRUE(json.contains("\"a/b\""));
    EXPECT_LT(json.indexOf("\"at\""), json.indexOf("\"by\""));
    EXPECT_LT(json.indexOf("\"source\""), json.indexOf("\"version\""));
    EXPECT_TRUE(json.contains("\"at\": \"2025-03-07T08:15:30Z\""));
}

TEST(ImportRecord, WritesTheSecondThatAMomentLiesIn) {
    ImportRecord record = fullRecord();
    record.at = record.at.addMSecs(999).toOffsetFromUtc(8 * 3600);
    EXPECT_EQ(ImportRecord::decode(record.encoded())->at, fullRecord().at);
}

TEST(ImportRecord, OfAnOlderVersionIsRead) {
    const auto record = ImportRecord::decode(olderJson());
    ASSERT_TRUE(record);
    EXPECT_EQ(record->version, 1);
    EXPECT_EQ(record->source, ImportSource::flomo);
    ASSERT_EQ(record->files.size(), 1U);
    EXPECT_EQ(record->files[0].after, std::nullopt);
    EXPECT_EQ(record->files[0].committed, std::nullopt);
    EXPECT_EQ(record->files[0].added[0].entryKeys, std::nullopt);
    EXPECT_EQ(record->label, std::nullopt);
    EXPECT_EQ(record->deviceID, std::nullopt);
}

struct Spoiling {
    const char* name;
    const char* from;
    const char* to;
    bool isRead;
};

class SpoiledRecord : public testing::TestWithParam<Spoiling> {};

TEST_P(SpoiledRecord, IsReadOnlyIfItIsWhole) {
    QByteArray json = olderJson();
    ASSERT_TRUE(json.contains(GetParam().from));
    json.replace(GetParam().from, GetParam().to);
    EXPECT_EQ(ImportRecord::decode(json).has_value(), GetParam().isRead);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, SpoiledRecord,
    testing::Values(
        Spoiling{"UnknownKey", R"("version": 1)", R"("version": 1, "more": [])", true},
        Spoiling{"NullOptional", R"("version": 1)", R"("version": 1, "label": null)", true},
        Spoiling{"WholeFraction", R"("version": 1)", R"("version": 2.0)", true},
        Spoiling{"Fraction", R"("version": 1)", R"("version": 1.5)", false},
        Spoiling{"TrueForANumber", R"("version": 1)", R"("version": true)", false},
        Spoiling{"NumberForATruth", R"("existed": false)", R"("existed": 0)", false},
        Spoiling{"NumberForAText", R"("id": "i")", R"("id": 1)", false},
        Spoiling{"WrongOptional", R"("version": 1)", R"("version": 1, "label": 1)", false},
        Spoiling{"UnknownState", R"("done")", R"("Done")", false},
        Spoiling{"UnknownSource", R"("flomo")", R"("other")", false},
        Spoiling{"MissingKey", R"("by": "Host",)", "", false},
        Spoiling{"NullRequired", R"("by": "Host")", R"("by": null)", false},
        Spoiling{"MissingCount", R"("audios": 0,)", "", false},
        Spoiling{"MissingAdded", R"("text": "t", )", "", false},
        Spoiling{"MomentWithOffset", "44Z", "44+08:00", false},
        Spoiling{"MomentWithFraction", "44Z", "44.5Z", false},
        Spoiling{"NoSuchDay", "11-14T", "11-31T", false},
        Spoiling{"MomentThatIsNone", "2023-11-14T23:12:44Z", "2023-11-14 23:12:44Z", false},
        Spoiling{"CutShort", R"("otherNotes": 0}})", R"("otherNotes": 0})", false}),
    [](const testing::TestParamInfo<Spoiling>& row) { return row.param.name; });

TEST(ImportRecord, SurvivesAnyBytes) {
    const QByteArray json = fullRecord().encoded();
    for (qsizetype size = 0; size < json.trimmed().size(); ++size) {
        EXPECT_EQ(ImportRecord::decode(json.first(size)), std::nullopt) << size;
    }
    EXPECT_EQ(ImportRecord::decode(QByteArray(1000000, '[')), std::nullopt);
    EXPECT_EQ(ImportRecord::decode("null"), std::nullopt);
}

TEST(ImportRecordFile, IsOneLineOfAJournal) {
    const ImportRecord::File file = fullRecord().files[0];
    const QByteArray line = file.encoded();
    EXPECT_FALSE(line.contains('\n'));
    EXPECT_EQ(ImportRecord::File::decode(line), file);
    EXPECT_EQ(ImportRecord::File::decode(line.chopped(1)), std::nullopt);
}

// The texts of one addition, whose blocks make its text or don't.
ImportRecord::File fileWith(const QString& text, const QStringList& blocks) {
    return {.day = QStringLiteral("01-02"),
            .after = QString(),
            .added = {{.year = -1, .text = text, .entryKeys = blocks, .entryTexts = blocks}, {}},
            .committed = false};
}

TEST(ImportRecordFile, IsTheLibrarysCompactForm) {
    const QString half(QChar(0xD83D));
    const QStringList blocks = {QStringLiteral("a\"b\n"), half, QString(), QStringLiteral("日記/")};
    const QString whole = blocks.join(QLatin1String("\n\n"));
    for (const QString& text : {whole, whole + u'x', whole.chopped(1), QString(), half}) {
        const ImportRecord::File file = fileWith(text, blocks);
        const QByteArray line = file.encoded();
        EXPECT_EQ(line, QJsonDocument::fromJson(line).toJson(QJsonDocument::Compact));
        EXPECT_EQ(ImportRecord::File::decode(line), file);
    }
}

TEST(ImportRecordFile, ChangesOneWordOnceItIsCommitted) {
    ImportRecord::File file =
        fileWith(QStringLiteral("\"committed\":false"), {QStringLiteral("\"committed\":false,")});
    const QByteArray announced = file.encoded();
    file.committed = true;
    EXPECT_EQ(committed(announced), file.encoded());
}

TEST(ImportRecord, TellsTheDaysOfItsFiles) {
    ImportRecord record;
    for (const char* day : {"12-31", "1-2", "02-31", "13-01", "", "12-31"}) {
        record.files.push_back({.day = QString::fromLatin1(day)});
    }
    EXPECT_THAT(record.monthDays(),
                ElementsAre(MonthDay{12, 31}, MonthDay{2, 31}, MonthDay{12, 31}));
}

}  // namespace
}  // namespace diary
