#include "DiaryKit/AppSources/FlomoSource.h"

#include <gtest/gtest.h>

#include <ctime>
#include <limits>

#include "DiaryKit/AppSources/HTMLParts.h"
#include "DiaryKit/Import/ImportError.h"
#include "tests/kit/import/PeakMemory.h"
#include "tests/kit/import/TemporaryPackage.h"
#include "tests/kit/import/ZipBuilder.h"

namespace diary {
namespace {

using diary::testing::TemporaryPackage;
using diary::testing::ZipBuilder;

class FlomoSourceTest : public ::testing::Test {
protected:
    static QByteArray memo(const QByteArray& inner) {
        return R"(<div class="memo">)" + inner + "</div>\n";
    }
    static QByteArray time(const QByteArray& text) {
        return R"(<div class="time">)" + text + "</div>";
    }
    static QByteArray content(const QByteArray& inner) {
        return R"(<div class="content">)" + inner + "</div>";
    }
    static QByteArray files(const QByteArray& inner) {
        return R"(<div class="files">)" + inner + "</div>";
    }
    static QByteArray dated(const QByteArray& inner) {
        return memo(time("2021-03-04 21:15:02") + inner);
    }

    [[nodiscard]] ImportBatch read() const {
        return FlomoSource::read(ImportPackage(m_files.root()), QStringLiteral("Export"));
    }
    ImportBatch read(const QByteArray& html) {
        m_files.add(QStringLiteral("page.html"), html);
        return read();
    }
    QStringList bodies(const QByteArray& html) {
        QStringList found;
        for (const ImportedEntry& entry : read(html).entries) found << entry.body;
        return found;
    }

    TemporaryPackage m_files;
};

TEST_F(FlomoSourceTest, ReadsAMemo) {
    const ImportBatch batch =
        read("<html><head><title>flomo</title></head><body><div class=\"memos\">" +
             dated(content("<p>#tag <b>one</b></p><ul><li><p>a</p></li></ul>") +
                   files("<img src=a><div><img src=b></div><audio src=c></audio>")) +
             "</div></body></html>");
    EXPECT_EQ(batch.source, ImportSource::flomo);
    EXPECT_EQ(batch.name, QStringLiteral("Export"));
    EXPECT_EQ(batch.skipped, (ImportBatch::Skipped{.photos = 2, .audios = 1}));
    const ImportedEntry expected{.day = {2021, 3, 4},
                                 .time = ImportedEntry::Time{21, 15},
                                 .body = QStringLiteral("#tag **one**\n\n- a")};
    EXPECT_EQ(batch.entries, std::vector<ImportedEntry>{expected});
    EXPECT_TRUE(batch.journals.empty());
}

TEST_F(FlomoSourceTest, CountsUndatedMemosAndTheMediaOfAll) {
    const QByteArray media = files("<img><p><img></p><audio><img></audio>");
    const ImportBatch batch =
        read(memo(content("a") + media) + memo(time("2023-02-29 10:00:00") + media) +
             memo(time("???\?-03-04 10:00") + media) + memo(time("03-04") + media) +
             memo(time("today") + media) + memo(time("2020-02-29") + media));
    EXPECT_EQ(batch.skipped, (ImportBatch::Skipped{.photos = 18, .audios = 6, .undated = 5}));
    ASSERT_EQ(batch.entries.size(), 1U);
    EXPECT_EQ(batch.entries[0].day, (DiaryDay{2020, 2, 29}));
    EXPECT_EQ(batch.entries[0].time, std::nullopt);
    EXPECT_EQ(batch.entries[0].body, QString());
}

TEST_F(FlomoSourceTest, CountsMediaOnlyAmongAMemosFiles) {
    const ImportBatch batch =
        read(dated(content("<img><audio></audio>") + files("<img>") + files("<img>")) +
             "<img><div class=\"files\"><img></div>" + dated(R"(<img class="files">)"));
    EXPECT_EQ(batch.skipped, (ImportBatch::Skipped{.photos = 1}));
}

TEST_F(FlomoSourceTest, TakesTheFirstPartOfEachKind) {
    const ImportBatch batch =
        read(memo("<p>" + time("2021-03-04<br>21:15") + "</p>" + time("2022-01-01") +
                  "<section><div class='x content y'>one</div></section>" + content("two")));
    ASSERT_EQ(batch.entries.size(), 1U);
    EXPECT_EQ(batch.entries[0].day, (DiaryDay{2021, 3, 4}));
    EXPECT_EQ(batch.entries[0].time, (ImportedEntry::Time{21, 15}));
    EXPECT_EQ(batch.entries[0].body, QStringLiteral("one"));
    EXPECT_EQ(read(memo(time("no date") + time("2022-01-01"))).skipped.undated, 1);
}

TEST_F(FlomoSourceTest, KnowsAPageByItsBeginning) {
    const QByteArray sign = "class=\"memo\"";
    constexpr qsizetype kHead = 200'000;
    m_files.add(QStringLiteral("a/near.HTM"), QByteArray(kHead - sign.size(), ' ') + sign);
    m_files.add(QStringLiteral("far.html"), QByteArray(kHead + 1 - sign.size(), ' ') + sign);
    m_files.add(QStringLiteral("single.html"), "<div class='memo'>");
    m_files.add(QStringLiteral("page.txt"), sign);
    EXPECT_EQ(FlomoSource::memoFiles(ImportPackage(m_files.root())),
              QStringList{QStringLiteral("a/near.HTM")});
}

TEST_F(FlomoSourceTest, RefusesAPackageWithoutMemos) {
    try {
        (void)read("<p>no memos</p>");
        FAIL();
    } catch (const ImportError& error) {
        EXPECT_EQ(error.kind(), ImportError::Kind::unrecognized);
    }
}

TEST_F(FlomoSourceTest, ReadsAllPagesOfAZipInWhicheverEncoding) {
    ZipBuilder zip;
    zip.add(ZipBuilder::packed("b.html", dated(content("b"))));
    zip.add(ZipBuilder::packed("file/a.jpg", "x"));
    // In GB 18030: 日记
    zip.add(ZipBuilder::packed("a.html", dated(content("\xC8\xD5\xBC\xC7"))));
    zip.add(ZipBuilder::packed("about.html", "<p>about</p>"));
    const ImportPackage package(m_files.add(QStringLiteral("Export.zip"), zip.bytes()));
    const ImportBatch batch = FlomoSource::read(package, QString());
    ASSERT_EQ(batch.entries.size(), 2U);
    EXPECT_EQ(batch.entries[0].body, QStringLiteral("日记"));
    EXPECT_EQ(batch.entries[1].body, QStringLiteral("b"));
}

TEST_F(FlomoSourceTest, ReadsMemosWithinMemos) {
    // The outer memo's first parts are those of the inner one, which stand ahead of its own.
    EXPECT_EQ(bodies(memo(dated(content("inner")) + time("2022-01-01") + content("outer"))),
              (QStringList{QStringLiteral("inner"), QStringLiteral("inner")}));
    EXPECT_EQ(bodies(memo(time("2021-01-01") + content("outer" + dated(content("inner"))))),
              (QStringList{QStringLiteral("outer\n\n2021-03-04 21:15:02\n\ninner"),
                           QStringLiteral("inner")}));
}

// A page that never closes its memos nests all of them, and each is read as if they were closed.
TEST_F(FlomoSourceTest, ReadsMemosThatAreNeverClosed) {
    constexpr int kMemos = 100'000;
    QByteArray page;
    for (int i = 0; i < kMemos; ++i) {
        page += "<div class=\"memo\">" + time("2021-03-04 21:15:02") +
                content(QByteArray::number(i)) + files("<img>");
    }
    const std::clock_t start = std::clock();
    const QStringList found = bodies(page);
    EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 10);
    ASSERT_EQ(found.size(), kMemos);
    for (int i = 0; i < kMemos; ++i) ASSERT_EQ(found[i], QString::number(i));
    EXPECT_EQ(read().skipped, (ImportBatch::Skipped{.photos = kMemos}));
}

// Contents that are never closed hold all the memos behind them. Told for each memo, that would be
// the square of the page; told for the first ones, no word is missing.
TEST_F(FlomoSourceTest, TellsContentsWithinOneAnotherForTheFirstOfThem) {
    constexpr int kMemos = 20'000;
    QByteArray page;
    for (int i = 0; i < kMemos; ++i) {
        page += "<div class=\"memo\">" + time("2021-03-04") + "<div class=\"content\">word" +
                QByteArray::number(i) + " ";
    }
    const std::clock_t start = std::clock();
    const ImportBatch batch = read(page);
    EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 10);
    ASSERT_EQ(batch.entries.size(), NestingBound::kMost);
    EXPECT_EQ(
        batch.skipped,
        (ImportBatch::Skipped{.otherNotes = kMemos - static_cast<int>(batch.entries.size())}));
    for (std::size_t i = 0; i < batch.entries.size(); ++i) {
        const QString& body = batch.entries[i].body;
        EXPECT_TRUE(body.startsWith(QStringLiteral("word%1\n").arg(i)));
        EXPECT_TRUE(body.endsWith(QStringLiteral("word%1").arg(kMemos - 1)));
    }
}

TEST_F(FlomoSourceTest, SurvivesPagesThatWereMadeToHurt) {
    constexpr int kTimes = 100'000;
    const std::clock_t start = std::clock();
    // Memos that look for a part in vain, all of them in the same elements.
    QByteArray page = QByteArray("<div class=\"memo\">").repeated(kTimes);
    EXPECT_EQ(read(page).skipped.undated, kTimes);
    // Memos that share what they find.
    page += files("<img>") + time("2021-03-04") + content(QByteArray(kTimes, 'x'));
    const ImportBatch shared = read(page);
    EXPECT_EQ(shared.entries.size(), static_cast<std::size_t>(kTimes));
    EXPECT_EQ(shared.skipped.photos, kTimes);
    // More photos than an int can count.
    EXPECT_EQ(read(QByteArray("<div class=\"memo\">").repeated(kTimes) +
                   files(QByteArray("<img>").repeated(kTimes)))
                  .skipped.photos,
              std::numeric_limits<int>::max());
    // Times within one another.
    const QByteArray nested =
        QByteArray(R"(<div class="memo"><div class="time">2021-03-04 )").repeated(kTimes);
    EXPECT_EQ(read(nested).entries.size(), static_cast<std::size_t>(kTimes));
    EXPECT_EQ(read(QByteArray(R"(<div class="memo"><div class="time">)").repeated(kTimes))
                  .skipped.undated,
              kTimes);
    EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 20);
    EXPECT_LT(diary::testing::peakMemory(), diary::testing::kMostMemory);
}

}  // namespace
}  // namespace diary
