#include "DiaryKit/Search/VaultSearch.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QFile>
#include <atomic>
#include <climits>
#include <map>
#include <thread>

#include "DiaryKit/Files/FileCoordinator.h"
#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Vault/DiaryStore.h"
#include "tests/kit/search/PlainSearch.h"
#include "tests/support/Environment.h"
#include "tests/support/HostileText.h"
#include "tests/support/Printing.h"
#include "tests/support/TemporaryVault.h"

namespace diary {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

using Found = std::vector<std::pair<int, MonthDay>>;

Found found(const SearchResult& result) {
    Found list;
    for (const SearchHit& hit : result.hits) list.emplace_back(hit.year, hit.monthDay);
    return list;
}

bool canLock(const QString& root) {
    try {
        FileCoordinator(root).coordinateReading([] {});
        return true;
    } catch (const FileError&) {
        return false;
    }
}

class VaultSearch : public testing::Test {
protected:
    [[nodiscard]] SearchResult search(QStringView line, int limit = 500) const {
        return searchVault(vault.path(), SearchQuery::parsing(line), limit, downloads);
    }

    test::TemporaryVault vault;
    std::vector<QString> asked;
    DownloadService downloads{[this](const QString& path) { asked.push_back(path); }};
};

TEST_F(VaultSearch, GivesNothingForABlankLine) {
    vault.write(QStringLiteral("03-07.md"), "## 2024\n\nfoo\n");
    vault.write(QStringLiteral(".03-08.md.icloud"), "");
    EXPECT_EQ(search(u""), SearchResult::empty);
    EXPECT_EQ(search(u" \u3000\t"), SearchResult::empty);
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(VaultSearch, GivesTheNewestWritingFirst) {
    vault.write(QStringLiteral("03-07.md"), "## 2023\n\nfoo\n\n## 2024\n\nfoo\n");
    vault.write(QStringLiteral("12-31.md"), "## 2023\n\nfoo\n");
    vault.write(QStringLiteral("01-01.md"), "## 2024\n\nfoo\n");
    vault.write(QStringLiteral("notes.md"), "## 2024\n\nfoo\n");
    EXPECT_THAT(found(search(u"foo")),
                ElementsAre(Pair(2024, MonthDay{3, 7}), Pair(2024, MonthDay{1, 1}),
                            Pair(2023, MonthDay{12, 31}), Pair(2023, MonthDay{3, 7})));
}

TEST_F(VaultSearch, ReadsOnlyTheDaysOfTheQuery) {
    for (const char* name : {"03-07.md", "03-08.md", "04-07.md"}) {
        vault.write(QLatin1String(name), "## 2023\n\nfoo\n\n## 2024\n\nfoo\n");
    }
    EXPECT_THAT(found(search(u"03-07 2024")), ElementsAre(Pair(2024, MonthDay{3, 7})));
    EXPECT_THAT(found(search(u"2024-03")),
                ElementsAre(Pair(2024, MonthDay{3, 8}), Pair(2024, MonthDay{3, 7})));
    EXPECT_THAT(found(search(u"03-07 foo")), SizeIs(2));
    EXPECT_THAT(found(search(u"2024-03 04-07")), IsEmpty());
}

TEST_F(VaultSearch, PutsTheSmallerMonthFirstWhereTwoDaysShareAPlace) {
    vault.write(QStringLiteral("02-31.md"), "## 2024\n\nfoo\n");
    vault.write(QStringLiteral("03-02.md"), "## 2024\n\nfoo\n");
    EXPECT_THAT(found(search(u"foo")),
                ElementsAre(Pair(2024, MonthDay{2, 31}), Pair(2024, MonthDay{3, 2})));
    EXPECT_THAT(found(search(u"foo", 1)), ElementsAre(Pair(2024, MonthDay{2, 31})));
}

TEST_F(VaultSearch, CutsByDayAndThenSorts) {
    vault.write(QStringLiteral("12-31.md"), "## 2022\n\nfoo\n\n## 2023\n\nfoo\n");
    vault.write(QStringLiteral("01-01.md"), "## 2023\n\nfoo\n\n## 2024\n\nfoo\n");
    const SearchResult cut = search(u"foo", 3);
    EXPECT_TRUE(cut.truncated);
    EXPECT_THAT(found(cut), ElementsAre(Pair(2023, MonthDay{12, 31}), Pair(2023, MonthDay{1, 1}),
                                        Pair(2022, MonthDay{12, 31})));
    EXPECT_TRUE(search(u"foo", 4).truncated);
    EXPECT_FALSE(search(u"foo", 5).truncated);
    EXPECT_THAT(search(u"foo", 0).hits, SizeIs(1));
}

TEST_F(VaultSearch, CountsDaysThatAreNotHereAndAsksForThem) {
    vault.write(QStringLiteral("03-07.md"), "## 2024\n\nfoo\n");
    vault.write(QStringLiteral(".03-07.md.icloud"), "");
    vault.write(QStringLiteral(".03-08.md.icloud"), "## 2024\n\nfoo\n");
    const SearchResult result = search(u"foo");
    EXPECT_THAT(found(result), ElementsAre(Pair(2024, MonthDay{3, 7})));
    EXPECT_EQ(result.pendingDownloads, 1);
    EXPECT_THAT(asked, ElementsAre(vault.filePath(QStringLiteral("03-08.md"))));
    EXPECT_EQ(search(u"03-07").pendingDownloads, 0);
}

TEST_F(VaultSearch, CountsNoPendingDayBehindTheCut) {
    vault.write(QStringLiteral(".03-08.md.icloud"), "");
    vault.write(QStringLiteral("03-07.md"), "## 2024\n\nfoo\n");
    vault.write(QStringLiteral(".03-06.md.icloud"), "");
    EXPECT_EQ(search(u"foo", 1).pendingDownloads, 1);
    EXPECT_THAT(asked, ElementsAre(vault.filePath(QStringLiteral("03-08.md"))));
    EXPECT_EQ(search(u"foo", 2).pendingDownloads, 2);
}

TEST_F(VaultSearch, PassesOverWhatItCannotRead) {
    vault.write(QStringLiteral("03-07.md"), "## 2024\n\nfoo\n");
    QDir().mkpath(vault.filePath(QStringLiteral("03-08.md")));
    const QByteArray pipe = QFile::encodeName(vault.filePath(QStringLiteral("03-09.md")));
    ASSERT_EQ(::mkfifo(pipe.constData(), 0600), 0);
    QFile::link(QStringLiteral("/nowhere/at all"), vault.filePath(QStringLiteral("03-10.md")));
    const SearchResult result = search(u"foo");
    EXPECT_THAT(result.hits, SizeIs(1));
    EXPECT_EQ(result.pendingDownloads, 0);
}

TEST_F(VaultSearch, FindsNothingInAFolderThatCannotBeListed) {
    EXPECT_EQ(searchVault(vault.filePath(QStringLiteral("nowhere")), SearchQuery::parsing(u"foo"),
                          500, downloads),
              SearchResult::empty);
}

TEST_F(VaultSearch, FindsNothingWhereNoLockCanBeHad) {
    vault.write(QStringLiteral("03-07.md"), "## 2024\n\nfoo\n");
    // A file stands where the folder for locks would be made.
    const QByteArray blocked = vault.path().toUtf8();
    vault.write(QStringLiteral("velmar-%1").arg(::geteuid()), "");
    const test::Environment runtime("XDG_RUNTIME_DIR", blocked + "/nowhere");
    const test::Environment temporary("TMPDIR", blocked);
    if (canLock(vault.path())) GTEST_SKIP() << "there is a runtime folder of the system's";
    EXPECT_EQ(search(u"foo"), SearchResult::empty);
}

// A vault of every day, some of them away, with words strewn about.
class StrewnVault : public VaultSearch {
protected:
    void SetUp() override {
        test::HostileText hostile(3);
        MonthDay day{1, 1};
        for (int i = 0; i < MonthDay::cycleLength; ++i, day = day.advanced(1)) {
            if (hostile.below(20) == 0) {
                vault.write(u'.' + day.fileName() + QLatin1String(".icloud"), "");
                away.insert(day);
                continue;
            }
            QString text = QStringLiteral("# ") + day.headerTitle();
            for (int year = 2020; year < 2026; ++year) {
                text += QStringLiteral("\n\n## %1\n\n").arg(year) + hostile.text(12);
            }
            vault.write(day.fileName(), text.toUtf8());
        }
    }

    // One file after the other, until the limit is reached.
    [[nodiscard]] SearchResult plain(const SearchQuery& query, int limit) const {
        SearchResult result;
        MonthDay day{12, 31};
        for (int i = 0; i < MonthDay::cycleLength && !result.truncated; ++i) {
            if (away.contains(day)) ++result.pendingDownloads;
            for (SearchHit& hit : test::plainHits(query, day, vault.read(day.fileName()))) {
                result.hits.push_back(std::move(hit));
                result.truncated = std::ssize(result.hits) >= limit;
                if (result.truncated) break;
            }
            day = day.advanced(-1);
        }
        std::ranges::stable_sort(result.hits, std::ranges::greater(), &SearchHit::year);
        return result;
    }

    std::set<MonthDay> away;
};

TEST_F(StrewnVault, IsSearchedOnAllCoresAsOneByOne) {
    for (const QStringView line :
         {u"word", u"WORD tea", u"日記", u"\u0301", u"かな `", u"2024", u"2024 tea", u"nowhere"}) {
        const SearchQuery query = SearchQuery::parsing(line);
        for (const int limit : {1, 2, 3, 17, 100, 366, 500, INT_MAX}) {
            const SearchResult expected = plain(query, limit);
            asked.clear();
            ASSERT_EQ(searchVault(vault.path(), query, limit, downloads), expected)
                << line.toString().toStdString() << ", " << limit;
            ASSERT_THAT(asked, SizeIs(expected.pendingDownloads));
        }
    }
}

TEST_F(VaultSearch, SeesTheOldOrTheNewFileWhileItIsSaved) {
    const QString name = QStringLiteral("03-07.md");
    DiaryStore store(vault.path());
    const auto text = [](int round) {
        return QStringLiteral("## 2024\n\nfoo %1 ").arg(round) + QString(5000, u'x') +
               QStringLiteral(" end\n");
    };
    store.save(text(0), MonthDay{3, 7});
    std::atomic<bool> isDone = false;
    std::thread searcher([&] {
        while (!isDone) {
            const SearchResult result = search(u"foo end");
            EXPECT_THAT(result.hits, SizeIs(1));
        }
    });
    for (int round = 1; round <= 200; ++round) store.save(text(round), MonthDay{3, 7});
    isDone = true;
    searcher.join();
    EXPECT_EQ(search(u"foo").hits.at(0).snippet.first(7), u"foo 200");
}

TEST_F(VaultSearch, OfAStoreNotesWhichDaysAreAwaited) {
    vault.write(QStringLiteral("03-07.md"), "## 2024\n\nfoo\n");
    vault.write(QStringLiteral(".03-08.md.icloud"), "");
    DiaryStore store(vault.path(), downloads);
    EXPECT_EQ(DiaryStore::search(vault.path(), SearchQuery::parsing(u"foo"),
                                 DiaryStore::searchLimit, downloads)
                  .pendingDownloads,
              1);
    EXPECT_THAT(store.awaitingDownload(), IsEmpty());
    EXPECT_EQ(store.search(SearchQuery::parsing(u"foo")), search(u"foo"));
    EXPECT_THAT(store.awaitingDownload(), ElementsAre(MonthDay{3, 8}));
}

TEST_F(VaultSearch, OfAStoreTakesTheFilesThatItKnows) {
    vault.write(QStringLiteral("03-07.md"), "## 2024\n\nfoo\n");
    DiaryStore store(vault.path());
    EXPECT_THAT(store.search(SearchQuery::parsing(u"foo")).hits, SizeIs(1));
    vault.write(QStringLiteral("03-08.md"), "## 2024\n\nfoo\n");
    EXPECT_THAT(store.search(SearchQuery::parsing(u"foo")).hits, SizeIs(1));
    store.invalidateCaches();
    EXPECT_THAT(store.search(SearchQuery::parsing(u"foo")).hits, SizeIs(2));
    EXPECT_EQ(store.search(SearchQuery()), SearchResult::empty);
}

TEST_F(VaultSearch, OfAStoreGivesFiveHundredHitsAtMost) {
    QByteArray text;
    for (int year = 1000; year < 1600; ++year) text += "## " + QByteArray::number(year) + "\nfoo\n";
    vault.write(QStringLiteral("03-07.md"), text);
    const SearchResult result = DiaryStore(vault.path()).search(SearchQuery::parsing(u"foo"));
    EXPECT_THAT(result.hits, SizeIs(500));
    EXPECT_TRUE(result.truncated);
    EXPECT_EQ(result.hits.front().year, 1499);
}

}  // namespace
}  // namespace diary
