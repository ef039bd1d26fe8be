// Texts that people and programs wrote, beside the source folder where they are there. The counts
// are those of a count of the files' lines by other means.
#include <gtest/gtest.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include "DiaryKit/DatedText/DateLine.h"
#include "DiaryKit/DatedText/DatedTextSplit.h"
#include "DiaryKit/FolderSources/DatedTextSource.h"
#include "tests/support/Printing.h"

namespace diary {
namespace {

QString sample(const char* name) {
    return QStringLiteral(VELMAR_SOURCE_DIR "/../shared/samples/") + QString::fromUtf8(name);
}

// The entry's day, time, title and weather, and the start of its body.
QString told(const ImportedEntry& entry) {
    constexpr qsizetype kStart = 12;
    const QStringList parts = {
        QStringLiteral("%1-%2-%3").arg(entry.day.year).arg(entry.day.month).arg(entry.day.day),
        entry.time ? entry.time->text() : QStringLiteral("-"), entry.title.value_or(QString()),
        entry.weather.value_or(QString()), entry.body.left(kStart)};
    return parts.join(u'|');
}

struct Row {
    const char* file;
    std::size_t entries;
    int undated;
    const char16_t* first;
    const char16_t* last;
};

void PrintTo(const Row& row, std::ostream* stream) {
    *stream << row.file;
}

class Samples : public testing::TestWithParam<Row> {};

TEST_P(Samples, AreReadAsTheyAre) {
    const QString path = sample(GetParam().file);
    if (!QFileInfo::exists(path)) GTEST_SKIP() << path.toStdString() << " isn't there";
    const ImportBatch batch =
        DatedTextSplit::split(DatedTextSource::text(path, {}), QStringLiteral("x"), {});
    ASSERT_EQ(batch.entries.size(), GetParam().entries);
    EXPECT_EQ(batch.skipped.undated, GetParam().undated);
    if (batch.entries.empty()) return;
    EXPECT_EQ(told(batch.entries.front()), QString::fromUtf16(GetParam().first));
    EXPECT_EQ(told(batch.entries.back()), QString::fromUtf16(GetParam().last));
}

constexpr const char16_t* kFirstOf1912 = u"1912-5-5|-|||上午十一时舟抵天津。下午";
constexpr const char16_t* kLastOf1912 = u"1912-9-3|-||晴|阴。上午至交民巷日本邮局";

constexpr Row kRows[] = {
    {"text/luxun-1912/dates-arabic.utf8.txt", 120, 0, kFirstOf1912, kLastOf1912},
    {"text/luxun-1912/dates-arabic.gb18030.txt", 120, 0, kFirstOf1912, kLastOf1912},
    {"text/luxun-1912/dates-arabic.utf16le-bom.txt", 120, 0, kFirstOf1912, kLastOf1912},
    // One broken character makes the whole text another code page's.
    {"text/luxun-1912/dates-arabic.one-bad-byte.utf8.txt", 0, 1, u"", u""},
    {"text/luxun-1912/dates-arabic.cut-in-character.utf8.txt", 0, 1, u"", u""},
    // Dates in Chinese numerals, and days below a heading of their month, are no date lines.
    {"text/luxun-1912/dates-han-numerals.utf8.txt", 0, 1, u"", u""},
    {"text/luxun-1912/original-layout-month-headings.utf8.txt", 0, 1, u"", u""},
    {"text/pepys/standardebooks-chapter-1.html", 0, 1, u"", u""},
    {"text/1diary/一本日记.txt", 2, 0, u"2025-2-8|-|· · 斜塘|晴 4℃|今天去了公园。",
     u"2025-2-9|-|· · 苏州工业园区|多云 6℃|#散步 走了一万步。"},
    // Radicals instead of characters.
    {"text/1diary/pdf-extraction.txt", 0, 1, u"", u""},
    {"dayone-txt/mini-diarium/dayone-sample.txt", 0, 1, u"", u""},
    {"jrnl/jrnl-org/basic_onefile.journal", 3, 0, u"2020-8-29|11:11|Entry the first.||Lorem @ipsum",
     u"2020-9-24|09:14|||The third en"},
    {"jrnl/jrnl-org/simple_jrnl-1-9-5.journal", 3, 0, u"2010-6-10|15:00|||A life witho",
     u"2019-8-3|12:55|Some chat log or something||Suspendisse "},
    {"jrnl/jrnl-org/deletion_filters.journal", 5, 0, u"2019-10-1|08:00|||It's just an",
     u"2020-5-2|12:10|Writing tests.||@springtime "},
    {"jrnl/jrnl-org/deletion.journal", 3, 0, u"2019-10-29|11:11|First entry.||",
     u"2019-10-29|11:13|Third entry.||"},
    {"jrnl/jrnl-org/tags.journal", 2, 0, u"2013-4-9|15:39|I have an @idea||(1) write a ",
     u"2013-6-10|15:40|I met with @dan.||As alway's h"},
    {"jrnl/jrnl-org/mostlyreadabledates.journal", 2, 0,
     u"2019-7-18|14:23|The first entry||Time machine",
     u"2019-7-19|14:23|The second entry||I'm going to"},
    {"jrnl/jrnl-org/brackets.journal", 1, 0, u"2019-7-8|05:42|Entry subject||[1] line sta",
     u"2019-7-8|05:42|Entry subject||[1] line sta"},
    // Days ahead of months in brackets are no date lines.
    {"jrnl/jrnl-org/little_endian_dates.journal", 0, 1, u"", u""},
};

INSTANTIATE_TEST_SUITE_P(Files, Samples, testing::ValuesIn(kRows));

QString told(const std::optional<DateLine::Match>& match) {
    if (!match) return QStringLiteral("none");
    const QString time =
        match->time ? QStringLiteral("(%1, %2)").arg(match->time->hour).arg(match->time->minute)
                    : QStringLiteral("None");
    return QStringLiteral("%1-%2-%3 time=%4 rest='%5' amb=%6")
        .arg(match->year.value_or(0))
        .arg(match->month)
        .arg(match->day)
        .arg(time, match->rest,
             match->isAmbiguousOrder ? QStringLiteral("True") : QStringLiteral("False"));
}

// A list of lines from other applications with what another program tells of them. It reads digits
// of any script as numbers.
TEST(SampleLines, TellTheirDate) {
    QFile file(sample("text/dateline/dateline-cases.tsv"));
    if (!file.open(QIODevice::ReadOnly)) GTEST_SKIP() << "the lines aren't there";
    const QStringList rows = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    QStringList otherDigits;
    for (const QString& row : rows.mid(1)) {
        const QStringList columns = row.split(u'\t');
        const QString answer = told(DateLine::match(columns.first()));
        if (answer != columns.last() && answer == u"none") {
            otherDigits << columns.first();
            continue;
        }
        EXPECT_EQ(answer, columns.last()) << row.toStdString();
    }
    EXPECT_EQ(otherDigits,
              (QStringList{QStringLiteral("2021年３月４日（木）"),
                           QStringLiteral("１２/１２/２０２１"), QStringLiteral("٢٠٢١-٠٣-٠٤")}));
    EXPECT_GT(rows.size(), 60);
}

}  // namespace
}  // namespace diary
