#include "DiaryKit/FolderSources/MarkdownNote.h"

#include <gtest/gtest.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QRandomGenerator>

#include "tests/kit/foldersources/PatternCleaning.h"
#include "tests/support/Printing.h"

namespace diary {
namespace {

using MarkdownFolderSource::clean;
using MarkdownFolderSource::Cleaned;
using MarkdownFolderSource::dropDateTitle;
using MarkdownFolderSource::Flavor;
using MarkdownFolderSource::Frontmatter;
using MarkdownFolderSource::splitFrontmatter;

QString s(const char* text) {
    return QString::fromUtf8(text);
}

TEST(Frontmatter, GivesTheTagsOfALineAndOfAList) {
    EXPECT_EQ(splitFrontmatter(s("---\ntags: [a, b c]\n---\nx")),
              (Frontmatter{s("x"), {s("a"), s("b"), s("c")}}));
    EXPECT_EQ(splitFrontmatter(s("---\ntags:\n- #x\n- 'y z'\nother: 1\n- n\n---\nx")).tags,
              QStringList({s("x"), s("y z")}));
}

TEST(Frontmatter, WithoutItsEndIsBody) {
    EXPECT_EQ(splitFrontmatter(s("---\ntags: a\nx")), (Frontmatter{s("---\ntags: a\nx")}));
    EXPECT_EQ(splitFrontmatter(s("x\n---\ntags: a\n---\n")),
              (Frontmatter{s("x\n---\ntags: a\n---\n")}));
}

TEST(Frontmatter, GivesTheFirstDateThatIsOne) {
    const auto date = [](const char* block) {
        return splitFrontmatter(s("---\n") + s(block) + s("\n---\nx")).date;
    };
    EXPECT_EQ(date("date: \"\"\ncreated: \"2021-03-04 10:00\"\nday: 2020-01-01"),
              (DiaryDay{2021, 3, 4}));
    EXPECT_EQ(date("Created: 2021-03-04"), (DiaryDay{2021, 3, 4}));
    EXPECT_EQ(date("created: 2023-02-29"), std::nullopt);
    EXPECT_EQ(date("date: ?\?\?\?-03-04"), std::nullopt);
    EXPECT_EQ(date("updated: 2021-03-04"), std::nullopt);
}

TEST(Frontmatter, EndsWithItsClosingLineWhateverThatHolds) {
    EXPECT_EQ(splitFrontmatter(s("---\r\na: b\r\n--- comment\r\nx\r\ny")).body, s("x\ny"));
    EXPECT_EQ(splitFrontmatter(s("---\na: b\n---")).body, QString());
}

TEST(NoteBody, LosesMediaAndCountsThem) {
    EXPECT_EQ(clean(s("a ![[photo.JPG|200]]b"), Flavor::generic), (Cleaned{s("a b"), 1}));
    EXPECT_EQ(clean(s("![a](b.png){width=3}![](c)"), Flavor::generic), (Cleaned{QString(), 2}));
    EXPECT_EQ(clean(s("![[a.pdf#page=2]]"), Flavor::generic), (Cleaned{s("[[a.pdf#page=2]]"), 0}));
}

TEST(NoteBody, KeepsALinkForAnEmbeddedNote) {
    EXPECT_EQ(clean(s("![[Other note]]"), Flavor::obsidian), (Cleaned{s("[[Other note]]"), 0}));
}

TEST(NoteBody, HasTheFlavorsMarksAsMarkdown) {
    EXPECT_EQ(clean(s("::a:: __b__ ~c~ ~~d~~"), Flavor::diarly).text, s("**a** b ~~c~~ ~~d~~"));
    EXPECT_EQ(clean(s("::a:: __b__ ~c~"), Flavor::generic).text, s("::a:: __b__ ~c~"));
    EXPECT_EQ(
        clean(s("- a\n  id:: 1\n- collapsed:: true\nb\ncard-last-score:: 2"), Flavor::logseq).text,
        s("- a\n\nb"));
    EXPECT_EQ(clean(s("- mood:: fine"), Flavor::logseq).text, s("- mood:: fine"));
}

TEST(NoteBody, KeepsAZeroWidthBlankAtItsFront) {
    const QString text = QChar(0xFEFF) + s("x\nheading:: 3");
    EXPECT_EQ(clean(text, Flavor::logseq).text, QChar(0xFEFF) + s("x"));
}

TEST(NoteTitle, GoesIfItOnlyRepeatsTheDate) {
    EXPECT_EQ(dropDateTitle(s("# 2021-03-04\n\nx\n")), s("x"));
    EXPECT_EQ(dropDateTitle(s("# 2021-03-04 Trip\nx\n")), s("# 2021-03-04 Trip\nx\n"));
    EXPECT_EQ(dropDateTitle(s("# March 4, 2021")), QString());
    EXPECT_EQ(dropDateTitle(s("2021-03-04\nx")), s("2021-03-04\nx"));
}

TEST(NoteBody, IsWhatTheRulesAsRegularExpressionsMake) {
    static const QStringList pieces = {s("![["),        s("]]"),     s("!["),
                                       s("]"),          s("("),      s(")"),
                                       s("{"),          s("}"),      s("a"),
                                       s(".png"),       s(".TIFF"),  s(".jpeg"),
                                       s("|"),          s(".ſvg"),   s("::"),
                                       s(":"),          s("__"),     s("_"),
                                       s("~"),          s("~~"),     s("\n"),
                                       s("\n\n"),       s(" "),      s("\t"),
                                       s("- "),         s("-"),      s("id::"),
                                       s("card-"),      s("x"),      s("card-a-b::"),
                                       s("[["),         s("\u2028"), QString(QChar(0xFEFF)),
                                       s("\v"),         s("\r"),     s("collapsed:: true"),
                                       s("\u0085"),     s("é"),      s("😀"),
                                       s("heading:: 2")};
    QRandomGenerator random(20211104);
    for (int round = 0; round < 30'000; ++round) {
        QString text;
        const int length = random.bounded(1, 24);
        for (int piece = 0; piece < length; ++piece) {
            text += pieces[random.bounded(static_cast<int>(pieces.size()))];
        }
        const auto flavor = static_cast<Flavor>(random.bounded(4));
        const Cleaned cleaned = clean(text, flavor);
        ASSERT_EQ(std::optional(cleaned), test::cleanedByPatterns(text, flavor))
            << text.toStdString() << " of flavor " << static_cast<int>(flavor);
    }
}

TEST(NoteBody, OfAMegabyteMadeToHurtTakesNoTime) {
    QElapsedTimer timer;
    timer.start();
    for (const char* piece : {"![[", "![", "![](", "![](){", "::", "::a", "__", "~", "~a", "\n",
                              "- \n", "-\n", "![[a.png", "card-", "\ncard-a", "![[.png|"}) {
        const QString text = s(piece).repeated(1'000'000 / static_cast<int>(qstrlen(piece)));
        for (Flavor flavor : {Flavor::diarly, Flavor::logseq}) {
            EXPECT_GE(clean(text, flavor).removed, 0);
        }
        EXPECT_EQ(splitFrontmatter(s("---\n") + text).date, std::nullopt);
        EXPECT_EQ(dropDateTitle(u'#' + text), u'#' + text);
        EXPECT_LT(timer.elapsed(), 20'000) << piece;
    }
}

}  // namespace
}  // namespace diary
