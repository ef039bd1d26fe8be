#include "DiaryKit/AppSources/AppleJournalSource.h"

#include <gtest/gtest.h>

#include <ctime>

#include "DiaryKit/AppSources/HTMLParts.h"
#include "DiaryKit/Import/ImportError.h"
#include "tests/kit/import/PeakMemory.h"
#include "tests/kit/import/TemporaryPackage.h"
#include "tests/kit/import/ZipBuilder.h"

namespace diary {
namespace {

using diary::testing::TemporaryPackage;
using diary::testing::ZipBuilder;

class AppleJournalSourceTest : public ::testing::Test {
protected:
    static QByteArray element(const QByteArray& classes, const QByteArray& inner) {
        return "<div class='" + classes + "'>" + inner + "</div>";
    }
    static QByteArray asset(const QByteArray& kind, const QByteArray& inner = {}) {
        return element("gridItem assetType_" + kind, inner);
    }
    static QByteArray header(const QByteArray& text) {
        return element("gridItemOverlayHeader", text);
    }
    static QByteArray footer(const QByteArray& text) {
        return element("gridItemOverlayFooter", text);
    }

    [[nodiscard]] ImportBatch read() const {
        return AppleJournalSource::read(ImportPackage(m_files.root()), QStringLiteral("Export"));
    }
    ImportBatch read(const QString& name, const QByteArray& html) {
        m_files.add(QStringLiteral("Entries/") + name, html);
        return read();
    }
    ImportedEntry readEntry(const QByteArray& html) {
        const ImportBatch batch = read(QStringLiteral("2021-03-04_A.html"), html);
        EXPECT_EQ(batch.entries.size(), 1U);
        return batch.entries.empty() ? ImportedEntry() : batch.entries.front();
    }

    TemporaryPackage m_files;
};

TEST_F(AppleJournalSourceTest, ReadsAnEntry) {
    const ImportBatch batch = read(
        QStringLiteral("2021-03-04_A walk.html"),
        element("pageHeader", "Friday, March 5, 2021") +
            element("assetGrid", asset("photo") + asset("stateOfMind", header("Calm")) +
                                     asset("genericMap", header("Hafen") + footer("Hamburg"))) +
            element("title", "A walk") + element("reflectionPrompt", "What made you smile?") +
            element("bodyText", "<p>One <b>two</b></p><p>three</p>"));
    EXPECT_EQ(batch.source, ImportSource::appleJournal);
    EXPECT_EQ(batch.name, QStringLiteral("Export"));
    EXPECT_EQ(batch.skipped, (ImportBatch::Skipped{.photos = 1}));
    const ImportedEntry expected{
        .day = {2021, 3, 4},
        .title = QStringLiteral("A walk"),
        .body = QStringLiteral("> What made you smile?\n\nOne **two**\n\nthree"),
        .place = QStringLiteral("Hafen · Hamburg"),
        .mood = QStringLiteral("Calm")};
    EXPECT_EQ(batch.entries, std::vector<ImportedEntry>{expected});
    EXPECT_TRUE(batch.journals.empty());
}

TEST_F(AppleJournalSourceTest, DatesAnEntryByItsNameOrElseByItsHeader) {
    struct Case {
        const char* name;
        const char* header;
        std::optional<DiaryDay> day;
    };
    const Case cases[] = {
        {"2024-02-29_ABC.html", "March 4, 2021", DiaryDay{2024, 2, 29}},
        {"2024-02-30_ABC.html", "Thursday, March 4, 2021", DiaryDay{2021, 3, 4}},
        {"2024-13-01.html", "2021年3月4日 星期四", DiaryDay{2021, 3, 4}},
        {"Untitled.html", "Sunday, 12 April 2026", DiaryDay{2026, 4, 12}},
        {"x2024-02-29.html", "March 4", std::nullopt},
        {"20240229.html", "???\?-03-04", std::nullopt},
        {"2024-2-29.html", "", std::nullopt},
        {"٢٠٢٤-٠٢-٢٩.html", "giovedì 11 giugno 2026", std::nullopt},
        {"no date.html", "\nMarch 4, 2021\n", std::nullopt},
    };
    for (const Case& one : cases) {
        TemporaryPackage files;
        files.add(QStringLiteral("Entries/") + QString::fromUtf8(one.name),
                  element("pageHeader", one.header) + element("pageHeader", "2001-01-01"));
        const ImportBatch batch = AppleJournalSource::read(ImportPackage(files.root()), QString());
        EXPECT_EQ(batch.skipped.undated, one.day ? 0 : 1) << one.name;
        ASSERT_EQ(batch.entries.size(), one.day ? 1U : 0U) << one.name;
        if (!one.day) continue;
        EXPECT_EQ(batch.entries[0].day, *one.day) << one.name;
    }
}

TEST_F(AppleJournalSourceTest, CountsMediaAlsoOfAnEntryWithoutADate) {
    const QByteArray media = asset("photo") + asset("livePhoto") + asset("VIDEO") +
                             asset("audio", asset("audio")) + asset("music") + asset("photos") +
                             element("assetType_photo assetType_video", "");
    EXPECT_EQ(read(QStringLiteral("a.html"), media).skipped,
              (ImportBatch::Skipped{.photos = 3, .videos = 1, .audios = 2, .undated = 1}));
    EXPECT_EQ(read(QStringLiteral("2021-03-04.html"), media).skipped,
              (ImportBatch::Skipped{.photos = 6, .videos = 2, .audios = 4, .undated = 1}));
}

TEST_F(AppleJournalSourceTest, ReadsMoodsAndPlacesFromCaptions) {
    EXPECT_EQ(readEntry(asset("stateOfMind", footer("Content"))).mood, QStringLiteral("Content"));
    EXPECT_EQ(readEntry(asset("stateOfMind", header("Calm")) +
                        asset("stateofmind", "<p>" + footer(" Content") + header("Calm") + "</p>"))
                  .mood,
              QStringLiteral("Calm、Content"));
    const ImportedEntry found = readEntry(
        asset("multiPinMap", header("3 Places")) + asset("location", footer("Paris")) +
        asset("genericMap", header("Paris") + element("gridItemOverlayText", "Louvre")) +
        asset("contact", header("Anna")) + element("assetType_location gridItemOverlayText", "x"));
    EXPECT_EQ(found.place, QStringLiteral("3 Places · Paris · Louvre · x"));
    EXPECT_EQ(found.mood, std::nullopt);
    EXPECT_EQ(readEntry(asset("stateOfMind") + asset("location", footer(" "))).place, std::nullopt);
}

TEST_F(AppleJournalSourceTest, TellsThePromptAsAQuote) {
    EXPECT_EQ(readEntry(element("reflectionPrompt", "Why?")).body, QStringLiteral("> Why?"));
    EXPECT_EQ(readEntry(element("reflectionPrompt", "Why?") + element("bodyText", " ")).body,
              QStringLiteral("> Why?"));
    EXPECT_EQ(readEntry(element("reflectionPrompt", "") + element("bodyText", "so")).body,
              QStringLiteral("so"));
    EXPECT_EQ(readEntry(element("bodyText", "one") + element("bodyText", "two")).body,
              QStringLiteral("one"));
    EXPECT_EQ(readEntry("<p>elsewhere</p>").body, QString());
}

TEST_F(AppleJournalSourceTest, LeavesAnEmptyTitleOut) {
    EXPECT_EQ(readEntry(element("title", "")).title, std::nullopt);
    EXPECT_EQ(readEntry(element("title", "<span>T</span>")).title, QStringLiteral("T"));
    EXPECT_EQ(readEntry("<title>page</title>").title, std::nullopt);
}

TEST_F(AppleJournalSourceTest, KnowsEntriesByTheirFolder) {
    for (const char* name :
         {"index.html", "entries/a.html", "Entries/b.HTM", "Export/Entries/sub/c.html",
          "Entries/d.txt", "Entries.html", "My Entries/e.html"}) {
        m_files.add(QString::fromLatin1(name));
    }
    EXPECT_EQ(AppleJournalSource::entryFiles(ImportPackage(m_files.root())),
              (QStringList{QStringLiteral("Entries/b.HTM"),
                           QStringLiteral("Export/Entries/sub/c.html")}));
}

TEST_F(AppleJournalSourceTest, RefusesAPackageWithoutEntries) {
    m_files.add(QStringLiteral("2021-03-04.html"));
    try {
        (void)read();
        FAIL();
    } catch (const ImportError& error) {
        EXPECT_EQ(error.kind(), ImportError::Kind::unrecognized);
    }
}

TEST_F(AppleJournalSourceTest, FailsWholeOnAFileThatItCannotRead) {
    ZipBuilder zip;
    zip.add(ZipBuilder::packed("Entries/2021-03-04.html", "x"));
    ZipBuilder::Item encrypted = ZipBuilder::packed("Entries/2021-03-05.html", "x");
    encrypted.flags = 1;
    zip.add(encrypted);
    const ImportPackage package(m_files.add(QStringLiteral("Export.zip"), zip.bytes()));
    try {
        (void)AppleJournalSource::read(package, QString());
        FAIL();
    } catch (const ImportError& error) {
        EXPECT_EQ(error.kind(), ImportError::Kind::badArchive);
    }
}

TEST_F(AppleJournalSourceTest, ReadsLinesOfARichTextPage) {
    const QByteArray page =
        "<html><head><meta name=\"Generator\" content=\"Cocoa HTML Writer\"></head><body>\n"
        "<p class=\"p1\"><span class=\"s1\"><div class='pageContainer'>"
        "<div class=\"pageHeader\">Friday, May 10, 2024</div>"
        "<div class='bodyText'></span></p>\n"
        "<p class=\"p2\"><span class=\"s2\">DAY 1</span></p>\n"
        "<p class=\"p3\"><span class=\"s3\"></span><br></p>\n"
        "<P class=\"p2\"><SPAN>The tea was </SPAN><span class=\"s4\">terrible</span>.</P>\n"
        "<p class=\"p1\"><span class=\"s1\"></div></div></span></p>\n</body></html>";
    const ImportedEntry found = readEntry(page);
    EXPECT_EQ(found.body, QStringLiteral("DAY 1\n\nThe tea was terrible."));
}

TEST(UnwrapCocoa, TakesParagraphsForLines) {
    const QString sign = QStringLiteral("Cocoa HTML Writer");
    const std::pair<const char*, const char*> cases[] = {
        {"<p class=p1><span class=s1>a</span></p>", "a<br>"},
        {"<p>a<br/>\n </P><p\n>b</p>", "a<br>b<br>"},
        {"<P>a<BR  /></p>", "a<br>"},
        {"<br>x</p>", "<br>x<br>"},
        {"<pre>a</pre><spanner></spans>", "<pre>a</pre><spanner></spans>"},
        {"<span", "<span"},
        {"<p>a<p b", "a<p b"},
        {"<span x='>'>a", "'>a"},
        {"<p-x>a</p>", "a<br>"},
        {"<p<span>>a", "a"},
        {"<br\u2028/>\u0085</p>", "<br>"},
    };
    for (const auto& [html, expected] : cases) {
        const QString text = QString::fromUtf8(html);
        EXPECT_EQ(AppleJournalSource::unwrapCocoa(text), text);
        EXPECT_EQ(AppleJournalSource::unwrapCocoa(sign + text), sign + QString::fromUtf8(expected))
            << html;
    }
}

TEST(UnwrapCocoa, IsLinear) {
    const QString sign = QStringLiteral("Cocoa HTML Writer");
    const std::clock_t start = std::clock();
    for (const char* piece :
         {"<span ", "<p ", "<br ", "<br>\n", "<br> <span>", "<", "</p", "<p>"}) {
        const QString text = sign + QString::fromLatin1(piece).repeated(300'000);
        EXPECT_TRUE(AppleJournalSource::unwrapCocoa(text).startsWith(sign)) << piece;
    }
    const QString blanks = sign + QStringLiteral("<br>") + QString(2'000'000, u' ');
    EXPECT_EQ(AppleJournalSource::unwrapCocoa(blanks), blanks);
    EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 10);
}

TEST(OverlayText, ReadsHeaderFooterAndText) {
    const std::pair<const char*, QStringList> cases[] = {
        {"<div></div>", {}},
        {"<div><p class=gridItemOverlayText>t</p><p class=gridItemOverlayFooter>f</p>"
         "<p class=gridItemOverlayHeader>h</p></div>",
         {QStringLiteral("h"), QStringLiteral("f"), QStringLiteral("t")}},
        {"<div><p class=gridItemOverlayText></p><p class=gridItemOverlayText>t</p></div>", {}},
        {"<div><p><p><i><b class='x gridItemOverlayText'> t<br></b></i></div>",
         {QStringLiteral(" t\n")}},
        {"<div class=gridItemOverlayText>a<p class=gridItemOverlayText>b</p></div>",
         {QStringLiteral("ab")}},
    };
    for (const auto& [html, expected] : cases) {
        const HTMLDocument document = MiniHTML::parse(QString::fromLatin1(html));
        EXPECT_EQ(AppleJournalSource::overlayText(*document.root().firstChild()), expected) << html;
    }
}

TEST_F(AppleJournalSourceTest, SurvivesPagesThatWereMadeToHurt) {
    constexpr int kTimes = 100'000;
    const std::clock_t start = std::clock();
    // Assets that look for a caption in vain, all of them in the same elements.
    QByteArray page = QByteArray("<div class=assetType_location>").repeated(kTimes);
    EXPECT_EQ(readEntry(page).place, std::nullopt);
    page += header("found");
    EXPECT_EQ(readEntry(page).place, QStringLiteral("found"));
    // Captions within one another, and as many as a page can hold.
    const QByteArray nested = "<div class='assetType_location gridItemOverlayText'>a ";
    const ImportedEntry found = readEntry(nested.repeated(kTimes));
    ASSERT_TRUE(found.place);
    EXPECT_EQ(found.place->count(u'a'), kTimes * static_cast<qsizetype>(NestingBound::kMost) - 28);
    QByteArray wide;
    for (int i = 0; i < kTimes; ++i) wide += asset("location", header(QByteArray::number(i)));
    EXPECT_EQ(readEntry(wide).place->count(u'·'), kTimes - 1);
    EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 20);
    EXPECT_LT(diary::testing::peakMemory(), diary::testing::kMostMemory);
}

// Reading a page finds the captions that its assets have each by itself.
TEST_F(AppleJournalSourceTest, ReadsTheCaptionsThatEachAssetHas) {
    const QByteArray page = asset("location", header("a") + asset("location", footer("b"))) +
                            asset("location", asset("location", header("c")) + header("d"));
    const HTMLDocument document = MiniHTML::parse(QString::fromUtf8(page));
    QStringList expected;
    for (const HTMLNode* node : document.root().allOfClass(u"assetType_location")) {
        expected += AppleJournalSource::overlayText(*node);
    }
    expected.removeDuplicates();
    EXPECT_EQ(readEntry(page).place, expected.join(QStringLiteral(" · ")));
}

}  // namespace
}  // namespace diary
