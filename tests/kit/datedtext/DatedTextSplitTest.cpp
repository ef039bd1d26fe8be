#include "DiaryKit/DatedText/DatedTextSplit.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <utility>

#include "tests/kit/import/MemoryOfStep.h"
#include "tests/support/Printing.h"

namespace diary {
namespace {

using DatedTextSplit::Options;
using DatedTextSplit::Placement;
using DatedTextSplit::Rest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

ImportBatch split(const char16_t* text, const Options& options = {}) {
    return DatedTextSplit::split(QString::fromUtf16(text), QStringLiteral("diary.txt"), options);
}

// "2021-03-04 09:30 [title] <weather> body", with the parts that are there.
QString told(const ImportedEntry& entry) {
    QString text = QStringLiteral("%1-%2-%3")
                       .arg(entry.day.year)
                       .arg(entry.day.month, 2, 10, QLatin1Char('0'))
                       .arg(entry.day.day, 2, 10, QLatin1Char('0'));
    if (entry.time) text += u' ' + entry.time->text();
    if (entry.title) text += QStringLiteral(" [%1]").arg(*entry.title);
    if (entry.weather) text += QStringLiteral(" <%1>").arg(*entry.weather);
    if (!entry.body.isEmpty()) text += u' ' + entry.body;
    return text;
}

QStringList entries(const ImportBatch& batch) {
    QStringList all;
    for (const ImportedEntry& entry : batch.entries) all << told(entry);
    return all;
}

QStringList entries(const char16_t* text, const Options& options = {}) {
    return entries(split(text, options));
}

QStringList list(std::initializer_list<const char16_t*> texts) {
    QStringList all;
    for (const char16_t* text : texts) all << QString::fromUtf16(text);
    return all;
}

TEST(DatedTextSplitBatch, OfNothingIsEmpty) {
    const ImportBatch batch = split(u"");
    EXPECT_EQ(batch.source, ImportSource::datedText);
    EXPECT_EQ(batch.name, QStringLiteral("diary.txt"));
    EXPECT_THAT(batch.entries, IsEmpty());
    EXPECT_EQ(batch.skipped, ImportBatch::Skipped());
    DatedTextSplit::Summary expected;
    expected.placement = Placement::anyLine;
    EXPECT_EQ(batch.split, expected);
}

TEST(DatedTextSplitBatch, OfTextWithoutDatesCountsItOnce) {
    EXPECT_EQ(split(u"some\nwriting").skipped.undated, 1);
    EXPECT_THAT(split(u"some\nwriting").entries, IsEmpty());
    EXPECT_EQ(split(u" \n\t\n　").skipped.undated, 0);
}

TEST(DatedTextSplitBatch, CountsTheTextAheadOfTheFirstEntryOnce) {
    const ImportBatch batch = split(u"My diary\n\nfor you\n2021-03-04\nx");
    EXPECT_EQ(batch.skipped.undated, 1);
    EXPECT_EQ(entries(batch), list({u"2021-03-04 x"}));
    EXPECT_EQ(split(u"\n \n2021-03-04\nx").skipped.undated, 0);
}

TEST(DatedTextSplitBatch, TakesLineEndsOfAllKinds) {
    EXPECT_EQ(entries(u"2021-03-04\r\na\r\n\r\nb\r2021-03-05\rc"),
              list({u"2021-03-04 a\n\nb", u"2021-03-05 c"}));
}

// A text handed over is held once, whatever its line ends, beside the entries.
TEST(DatedTextSplitBatch, HoldsAHugeTextOnce) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "freed memory is kept for a while";
#endif
    const QString day = QStringLiteral("2021-03-04\r\n\r\n%1\r\n\r\n").arg(QString(400, u'x'));
    constexpr qint64 kSize = 48 * testing::kMebibyte;
    const qint64 memory = testing::memoryOfStep([&] {
        QString text = day.repeated(kSize / 2 / day.size());
        if (DatedTextSplit::split(std::move(text), QString(), {}).entries.empty()) std::abort();
    });
    EXPECT_LT(memory, kSize * 5 / 2);
}

TEST(DatedTextSplitBatch, KeepsWhatABodyHasInside) {
    EXPECT_EQ(entries(u"2021-03-04\n\n  a  \n\n\n\tb \n\n2021-03-05\n\u2028c\u0085"),
              list({u"2021-03-04 a  \n\n\n\tb", u"2021-03-05 c"}));
}

TEST(DatedTextSplitBatch, ReadsAWholeDateLine) {
    EXPECT_EQ(entries(u"2021年3月4日 星期四 上午9:30 晴 20℃ 去爬山"),
              list({u"2021-03-04 09:30 [去爬山] <晴 20℃>"}));
}

TEST(DatedTextSplitPlacement, IsParagraphsWhereFourOfFiveDatesBeginThem) {
    const ImportBatch batch = split(
        u"2021-01-01\na\n\n2021-01-02\nb\n2021-02-03 inside\n\n2021-01-03\nc\n\n2021-01-04\nd");
    ASSERT_TRUE(batch.split);
    EXPECT_EQ(batch.split->placement, Placement::paragraphStart);
    EXPECT_EQ(batch.split->paragraphStartCount, 4);
    EXPECT_EQ(batch.split->anyLineCount, 5);
    EXPECT_EQ(batch.split->inlineDates, list({u"2021-02-03 inside"}));
    EXPECT_EQ(entries(batch), list({u"2021-01-01 a", u"2021-01-02 b\n2021-02-03 inside",
                                    u"2021-01-03 c", u"2021-01-04 d"}));
}

TEST(DatedTextSplitPlacement, IsAnyLineWhereFewerDo) {
    const ImportBatch batch = split(u"2021-01-01\na\n\n2021-01-02\nb\n2021-01-03\nc");
    ASSERT_TRUE(batch.split);
    EXPECT_EQ(batch.split->placement, Placement::anyLine);
    EXPECT_EQ(batch.split->paragraphStartCount, 2);
    EXPECT_THAT(batch.split->inlineDates, IsEmpty());
    EXPECT_THAT(batch.entries, SizeIs(3));
}

TEST(DatedTextSplitPlacement, OfASingleDateIsAnyLine) {
    EXPECT_EQ(split(u"2021-01-01\na").split->placement, Placement::anyLine);
}

TEST(DatedTextSplitPlacement, IsTakenAsGiven) {
    const char16_t* const text = u"2021-01-01\na\n2021-01-02\nb";
    EXPECT_EQ(entries(text, {.placement = Placement::paragraphStart}),
              list({u"2021-01-01 a\n2021-01-02\nb"}));
    EXPECT_EQ(split(text, {.placement = Placement::paragraphStart}).split->inlineDates,
              list({u"2021-01-02"}));
    const char16_t* const paragraphs = u"2021-01-01\na\n\n2021-01-02\nb";
    EXPECT_EQ(split(paragraphs, {.placement = Placement::anyLine}).split->placement,
              Placement::anyLine);
}

TEST(DatedTextSplitPlacement, CountsALineOfBlanksAsBlank) {
    EXPECT_EQ(split(u"x\n 　\t\n2021-01-02\nb").split->paragraphStartCount, 1);
    EXPECT_EQ(split(u"x\n\u200B\n2021-01-02\nb").split->paragraphStartCount, 0);
}

TEST(DatedTextSplitPlacement, TellsTheFirstLineThatOpensAnEntry) {
    EXPECT_EQ(split(u"a\n\t# 2021-01-02 x \nb").split->sampleLine,
              QStringLiteral("# 2021-01-02 x"));
    const ImportBatch batch =
        split(u"a\n2021-01-01\n\n2021-01-02\nb", {.placement = Placement::paragraphStart});
    EXPECT_EQ(batch.split->sampleLine, QStringLiteral("2021-01-02"));
    EXPECT_EQ(batch.skipped.undated, 1);
}

TEST(DatedTextSplitOrder, IsToldByAnyDateThatOpensAnEntry) {
    const ImportBatch batch = split(u"3/4/2021\na\n13/4/2021\nb");
    EXPECT_EQ(entries(batch), list({u"2021-04-03 a", u"2021-04-13 b"}));
    EXPECT_TRUE(batch.split->dayFirst);
    EXPECT_FALSE(batch.split->orderUnsettled);
    EXPECT_EQ(entries(u"3/4/2021\na\n4/13/2021\nb"), list({u"2021-03-04 a", u"2021-04-13 b"}));
}

TEST(DatedTextSplitOrder, IsMonthFirstAndUnsettledWithoutEvidence) {
    const ImportBatch batch = split(u"3/4/2021\na\n5/6/2021\nb");
    EXPECT_EQ(entries(batch), list({u"2021-03-04 a", u"2021-05-06 b"}));
    EXPECT_FALSE(batch.split->dayFirst);
    EXPECT_TRUE(batch.split->orderUnsettled);
}

TEST(DatedTextSplitOrder, IsTakenAsGiven) {
    const ImportBatch batch = split(u"3/4/2021\na\n4/13/2021\nb", {.dayFirst = true});
    EXPECT_EQ(entries(batch), list({u"2021-04-03 a", u"2021-04-13 b"}));
    EXPECT_TRUE(batch.split->dayFirst);
    EXPECT_FALSE(batch.split->orderUnsettled);
}

TEST(DatedTextSplitOrder, IsNotAskedForWithoutAnAmbiguousDate) {
    const ImportBatch batch = split(u"13/4/2021\na\n4/4/2021\nb");
    EXPECT_FALSE(batch.split->dayFirst);
    EXPECT_FALSE(batch.split->orderUnsettled);
}

TEST(DatedTextSplitOrder, TakesAYearAheadForADay) {
    EXPECT_EQ(entries(u"3/4/2021\na\n2021/03/04\nb"), list({u"2021-04-03 a", u"2021-03-04 b"}));
}

TEST(DatedTextSplitRest, IsWeatherAndTitle) {
    EXPECT_EQ(entries(u"2021-03-04 rain Home\nb"), list({u"2021-03-04 [Home] <rain> b"}));
}

TEST(DatedTextSplitRest, IsTheFirstLineOfTheBody) {
    EXPECT_EQ(entries(u"2021-03-04 rain Home\nb", {.rest = Rest::body}),
              list({u"2021-03-04 rain Home\nb"}));
    EXPECT_EQ(entries(u"2021-03-04 rain\n2021-03-05", {.rest = Rest::body}),
              list({u"2021-03-04 rain"}));
}

TEST(DatedTextSplitRest, OfThirtyCharactersIsDropped) {
    const Options drop{.rest = Rest::drop};
    // A letter with its accent, and a flag, are one character each.
    const QString accents = QStringLiteral("e\u0301").repeated(29) + QStringLiteral("🇨🇳");
    const QString label = QStringLiteral("2021-03-04 ") + accents;
    EXPECT_EQ(entries(QString(label + QStringLiteral("\nb")).toStdU16String().c_str(), drop),
              list({u"2021-03-04 b"}));
    const QString writing = label + u'x';
    EXPECT_EQ(entries(QString(writing + QStringLiteral("\nb")).toStdU16String().c_str(), drop),
              QStringList(QStringLiteral("2021-03-04 ") + accents + QStringLiteral("x\nb")));
}

TEST(DatedTextSplitRest, OfManyMarksIsOneCharacter) {
    const QString marks = u'a' + QString(5000, QChar(0x0301));
    const QString text = QStringLiteral("2021-03-04 ") + marks + QStringLiteral("\nb");
    EXPECT_EQ(entries(text.toStdU16String().c_str(), {.rest = Rest::drop}),
              list({u"2021-03-04 b"}));
}

TEST(DatedTextSplitRest, OfWeatherAloneIsNoEntry) {
    const ImportBatch batch = split(u"2021-03-04 晴 20℃\n\n2021-03-05 晴\nb");
    EXPECT_EQ(entries(batch), list({u"2021-03-05 <晴> b"}));
    EXPECT_EQ(batch.skipped.undated, 0);
}

TEST(DatedTextSplitRest, ADateAloneIsNoEntry) {
    EXPECT_EQ(entries(u"2021-03-04\n2021-03-05\nb"), list({u"2021-03-05 b"}));
}

TEST(DatedTextSplitYear, ThatIsUnknownIsCounted) {
    const ImportBatch batch = split(u"???\?-03-04\na\n???\?-03-05\nb\n2021-03-06\nc");
    EXPECT_EQ(entries(batch), list({u"2021-03-06 c"}));
    EXPECT_EQ(batch.split->unknownYear, 2);
    EXPECT_EQ(batch.skipped.undated, 2);
}

TEST(DatedTextSplitYear, IsAssumedAsGiven) {
    EXPECT_EQ(entries(u"???\?-03-04\na", {.assumedYear = 2019}), list({u"2019-03-04 a"}));
}

TEST(DatedTextSplitYear, WithoutALeapDayDropsIt) {
    const ImportBatch batch = split(u"???\?-02-29\na", {.assumedYear = 2023});
    EXPECT_THAT(batch.entries, IsEmpty());
    EXPECT_EQ(batch.skipped.undated, 0);
    EXPECT_EQ(batch.split->unknownYear, 0);
    EXPECT_EQ(entries(u"???\?-02-29\na", {.assumedYear = 2024}), list({u"2024-02-29 a"}));
}

struct EvidenceRow {
    const char16_t* line;
    std::optional<bool> dayFirst;
};

TEST(SwappedOrderEvidence, IsWhatTwoNumbersTell) {
    const EvidenceRow rows[] = {
        {u"13/4/2021", true},  {u" 13.4.2021 x", true},
        {u"4/13/2021", false}, {u"12/12/2021", {}},
        {u"13/13/2021", {}},   {u"2021/03/04", true},
        {u"2021-03-04", {}},   {u"# 13/4/2021", {}},
        {u"13//4", true},      {u"/13/4", true},
        {u"13", {}},           {u"13/x", {}},
        {u"x/4", {}},          {u"", {}},
        {u"4/131", false},     {u"１３/4", {}},
        {u"+13/4", true},      {u"13/4 x", {}},
        {u"13/4\u0301", {}},   {u"13/12\u0301", {}},
        {u"123456789/4", {}},
    };
    for (const EvidenceRow& row : rows) {
        EXPECT_EQ(DatedTextSplit::swappedOrderEvidence(QStringView(row.line)), row.dayFirst)
            << QString::fromUtf16(row.line).toStdString();
    }
}

TEST(SplitWeather, TakesWordsOfWeatherInAnyCaseAndDegrees) {
    const auto found = DatedTextSplit::splitWeather(u"  Sunny 20℃  a walk 5° くもり, rain");
    EXPECT_EQ(found.weather, QStringLiteral("Sunny 20℃ 5° rain"));
    EXPECT_EQ(found.title, QStringLiteral("a walk くもり,"));
}

TEST(SplitWeather, LeavesAbsentWhatIsntThere) {
    EXPECT_EQ(DatedTextSplit::splitWeather(u""), DatedTextSplit::WeatherAndTitle());
    EXPECT_EQ(DatedTextSplit::splitWeather(u"雨").title, std::nullopt);
    EXPECT_EQ(DatedTextSplit::splitWeather(u"walk").weather, std::nullopt);
    // Only the plain space parts words.
    EXPECT_EQ(DatedTextSplit::splitWeather(u"雨　雪\train").title, QStringLiteral("雨　雪\train"));
}

}  // namespace
}  // namespace diary
