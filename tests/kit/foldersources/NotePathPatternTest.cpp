#include "DiaryKit/FolderSources/NotePathPattern.h"

#include <gtest/gtest.h>

#include <QtCore/QElapsedTimer>

#include "DiaryKit/FolderSources/MarkdownFolderSource.h"

namespace diary {
namespace {

using MarkdownFolderSource::momentRegex;

std::optional<DiaryDay> byFormat(const char* format, const char* path, const char* folder = "") {
    const auto pattern = momentRegex(QString::fromUtf8(format), QString::fromUtf8(folder));
    EXPECT_TRUE(pattern) << format;
    return pattern ? pattern->date(QString::fromUtf8(path)) : std::nullopt;
}

std::optional<DiaryDay> byPath(const char* path) {
    return MarkdownFolderSource::date(QString::fromUtf8(path), std::nullopt);
}

constexpr DiaryDay kDay{2021, 3, 4};

TEST(NotePathPattern, TakesEachPartOfARepeatedDateOnce) {
    EXPECT_EQ(byFormat("YYYY/MM/YYYY-MM-DD-dddd", "2021/03/2021-03-04-Thursday.md"), kDay);
    // What the second year says is not looked at.
    EXPECT_EQ(byFormat("YYYY/MM/YYYY-MM-DD-dddd", "2021/03/2020-01-04-Thursday.md"), kDay);
}

TEST(NotePathPattern, TakesWhatStandsInBracketsLiterally) {
    EXPECT_EQ(byFormat("[Journal] YYYY-MM-DD", "Journal 2021-03-04.md"), kDay);
    EXPECT_EQ(byFormat("[Journal] YYYY-MM-DD", "Diary 2021-03-04.md"), std::nullopt);
    EXPECT_EQ(byFormat("YYYY-MM-DD [", "2021-03-04 [.md"), kDay);
    EXPECT_EQ(byFormat("[(Y.*)] YYYY-MM-DD", "(Y.*) 2021-03-04.md"), kDay);
}

TEST(NotePathPattern, KnowsEnglishMonthsOnly) {
    EXPECT_EQ(byFormat("MMMM D, YYYY", "March 3, 2021.md"), (DiaryDay{2021, 3, 3}));
    EXPECT_EQ(byFormat("Do MMM YYYY", "4th Mar 2021.md"), kDay);
    EXPECT_EQ(byFormat("D MMMM YYYY", "4 mars 2021.md"), std::nullopt);
    // The common patterns are tried where Obsidian's finds no date.
    const auto format = momentRegex(QStringLiteral("D MMMM YYYY"), QString());
    EXPECT_EQ(MarkdownFolderSource::date(QStringLiteral("2021-03-04.md"), format), kDay);
}

TEST(NotePathPattern, IsBoundToItsFolder) {
    EXPECT_EQ(byFormat("YYYY-MM-DD", "daily (old)/2021-03-04.md", "daily (old)"), kDay);
    EXPECT_EQ(byFormat("YYYY-MM-DD", "other/2021-03-04.md", "daily (old)"), std::nullopt);
    EXPECT_EQ(byFormat("YYYY-MM-DD", "any/where/2021-03-04.markdown"), kDay);
    EXPECT_EQ(byFormat("YYYY-MM-DD", "2021-03-04.txt"), std::nullopt);
}

TEST(NotePathPattern, OfAFormatWithoutAYearDatesNothing) {
    EXPECT_EQ(byFormat("MM-DD", "03-04.md"), std::nullopt);
    EXPECT_EQ(byFormat("YY-MM-DD", "21-03-04.md"), std::nullopt);
}

// A format of many names can divide a long name in more ways than there is time for.
TEST(NotePathPattern, GivesUpOnAFormatThatIsMadeToHurt) {
    const QString format = QStringLiteral("dddd").repeated(40) + QStringLiteral("YYYY");
    const auto pattern = momentRegex(format, QString());
    ASSERT_TRUE(pattern);
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(pattern->date(QString(4000, QLatin1Char('a'))), std::nullopt);
    EXPECT_LT(timer.elapsed(), 5000);
}

TEST(NoteDate, StandsAnywhereInTheName) {
    EXPECT_EQ(byPath("2021-03-04.md"), kDay);
    EXPECT_EQ(byPath("Notes/Trip 2021_03.04 home.txt"), kDay);
    EXPECT_EQ(byPath("2021-03-04"), kDay);
    // A folder's date dates none of its files.
    EXPECT_EQ(byPath("2021-03-04/x.md"), std::nullopt);
    EXPECT_EQ(byPath("2021-03-041.md"), std::nullopt);
}

TEST(NoteDate, HasTheYearAsAFolderOrEightDigits) {
    EXPECT_EQ(byPath("2021/03-04.md"), kDay);
    EXPECT_EQ(byPath("Data/2021/03-04.md"), kDay);
    EXPECT_EQ(byPath("20210304.md"), kDay);
    EXPECT_EQ(byPath("x/20210304"), kDay);
    EXPECT_EQ(byPath("x20210304.md"), std::nullopt);
}

TEST(NoteDate, IsADayThatTheCalendarHas) {
    EXPECT_EQ(byPath("2021-13-40 note.md"), std::nullopt);
    EXPECT_EQ(byPath("2023-02-29.md"), std::nullopt);
    EXPECT_EQ(byPath("2024-02-29.md"), (DiaryDay{2024, 2, 29}));
    EXPECT_EQ(byPath("1899-05-01.md"), std::nullopt);
    EXPECT_EQ(byPath("1900-05-01.md"), (DiaryDay{1900, 5, 1}));
    EXPECT_EQ(byPath("2100-05-01.md"), (DiaryDay{2100, 5, 1}));
    EXPECT_EQ(byPath("2101-05-01.md"), std::nullopt);
    // Digits that are no ASCII make no number.
    EXPECT_EQ(byPath("２０２１-03-04.md"), std::nullopt);
}

// Each pattern looks at its first match only, and a date that fails leaves it to the next pattern.
TEST(NoteDate, FailsItsOwnPatternOnly) {
    EXPECT_EQ(byPath("2021/03-04.2021-13-40"), std::nullopt);
    EXPECT_EQ(byPath("2021-13-40 2021-03-04.md"), std::nullopt);
    const auto format = momentRegex(QStringLiteral("YYYY-DD-MM"), QString());
    EXPECT_EQ(MarkdownFolderSource::date(QStringLiteral("2021-03-31.md"), format),
              (DiaryDay{2021, 3, 31}));
}

}  // namespace
}  // namespace diary
