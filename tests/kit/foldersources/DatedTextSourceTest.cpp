#include "DiaryKit/FolderSources/DatedTextSource.h"

#include <gmock/gmock.h>

#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Import/ImportError.h"
#include "tests/kit/import/TemporaryPackage.h"
#include "tests/support/Printing.h"

namespace diary {
namespace {

using DatedTextSource::DocumentReaders;

QString pdfText(std::initializer_list<const char*> pages) {
    QStringList texts;
    for (const char* page : pages) texts << QString::fromUtf8(page);
    return DatedTextSource::pdfText(texts);
}

QString textOf(const QString& path, const DocumentReaders& readers = {}) {
    return DatedTextSource::text(path, readers);
}

ImportError::Kind errorOf(const QString& path, const DocumentReaders& readers = {}) {
    try {
        (void)textOf(path, readers);
    } catch (const ImportError& error) {
        return error.kind();
    }
    ADD_FAILURE() << "nothing was thrown";
    return ImportError::Kind::empty;
}

TEST(PdfPages, LoseALineThatMoreThanHalfOfThemHaveAtTheirEdges) {
    EXPECT_EQ(pdfText({"a\nfoot", "b\nfoot", "c\nd"}), QStringLiteral("a\nb\nc\nd"));
    EXPECT_EQ(pdfText({"a\nfoot", "b\nfoot", "c\nx", "d\ny"}),
              QStringLiteral("a\nfoot\nb\nfoot\nc\nx\nd\ny"));
}

TEST(PdfPages, KeepRepetitionsWhereThereAreOnlyTwo) {
    EXPECT_EQ(pdfText({"head\na\n1", "head\nb\n2"}), QStringLiteral("head\na\nhead\nb"));
}

TEST(PdfPages, LoseARepeatedLineAtAnyPlace) {
    EXPECT_EQ(pdfText({"head\na\nb\nc\nd", "head\na\nb\nc\nd", "w\nx\nhead\ny\nz"}),
              QStringLiteral("b\nb\nw\nx\ny\nz"));
}

TEST(PdfPages, CountALineOncePerPage) {
    EXPECT_EQ(pdfText({"x\nx", "a\nb", "c\nd"}), QStringLiteral("x\nx\na\nb\nc\nd"));
}

TEST(PdfPages, KeepBlankLinesAndTrimTheOthers) {
    EXPECT_EQ(pdfText({" \na \n\n\xE3\x80\x80"
                       "b",
                       "\nc\n\nd", "\ne\n\nf"}),
              QStringLiteral("\na\n\nb\n\nc\n\nd\n\ne\n\nf"));
}

TEST(PdfPages, MayBeNoneOrEmpty) {
    EXPECT_EQ(pdfText({}), QString());
    EXPECT_EQ(pdfText({"", ""}), QStringLiteral("\n"));
    EXPECT_EQ(pdfText({"1"}), QString());
}

TEST(PdfPageNumbers, AreNumbersWithOrWithoutATotalAndDashes) {
    for (const char* line : {"1", "12", "1234", "- 12 -", "-12-", "- 12", "12 -", "3 / 40", "3/40",
                             "- 3 / 40 -", "１２", "12\r"}) {
        EXPECT_EQ(pdfText({line}), QString()) << line;
    }
    for (const char* line : {"12345", "1.", "1/2/3", "- -", "--1", "1 2", "a", "- 1 / -", "1/12345",
                             "p. 1", "12\r\r"}) {
        EXPECT_EQ(pdfText({line}), QString::fromUtf8(line)) << line;
    }
}

TEST(DatedTextFiles, HaveThirteenExtensions) {
    EXPECT_EQ(DatedTextSource::fileExtensions().size(), 13U);
    for (const char16_t* extension : {u"txt", u"htm", u"webarchive", u"pdf", u"rtfd"}) {
        EXPECT_EQ(DatedTextSource::fileExtensions().count(QString::fromUtf16(extension)), 1U);
    }
}

TEST(DatedTextFiles, AreDecodedWhateverTheirEncoding) {
    const testing::TemporaryPackage files;
    EXPECT_EQ(textOf(files.add(QStringLiteral("a.txt"), "\xEF\xBB\xBF\xC3\xA9")),
              QStringLiteral("é"));
    EXPECT_EQ(textOf(files.add(QStringLiteral("a.MD"), "\xC8\xD5\xBC\xC7")),
              QStringLiteral("日记"));
    EXPECT_EQ(textOf(files.add(QStringLiteral("none"), "<p>a</p>")), QStringLiteral("<p>a</p>"));
}

TEST(DatedTextFiles, OfHtmlAreReadAsMarkdown) {
    const testing::TemporaryPackage files;
    const QByteArray html = "<h2>2021-03-04</h2><p>a <b>b</b></p>\n\n<p>c</p>";
    EXPECT_EQ(textOf(files.add(QStringLiteral("a.html"), html)),
              QStringLiteral("## 2021-03-04\n\na **b**\n\nc"));
    EXPECT_EQ(textOf(files.add(QStringLiteral("a.HTM"), html)),
              QStringLiteral("## 2021-03-04\n\na **b**\n\nc"));
}

TEST(DatedTextFiles, ThatCantBeReadThrow) {
    const testing::TemporaryPackage files;
    EXPECT_THROW((void)textOf(files.path(QStringLiteral("missing.txt"))), FileError);
    EXPECT_THROW((void)textOf(files.root()), FileError);
}

TEST(DatedTextDocuments, AreReadByWhoeverIsHandedIn) {
    QStringList asked;
    DocumentReaders readers;
    readers.documentText = [&](const QString& path) {
        asked << path;
        return QStringLiteral("text");
    };
    for (const char* extension : {"rtf", "RTFD", "doc", "docx", "odt", "webarchive"}) {
        const QString path = QStringLiteral("/nowhere/a.") + QLatin1String(extension);
        EXPECT_EQ(textOf(path, readers), QStringLiteral("text"));
        EXPECT_EQ(asked.takeLast(), path);
    }
    readers.pdfPages = [](const QString&) {
        return QStringList{QStringLiteral("a\n- 1 -"), QStringLiteral("b")};
    };
    EXPECT_EQ(textOf(QStringLiteral("/nowhere/a.Pdf"), readers), QStringLiteral("a\nb"));
}

TEST(DatedTextDocuments, ThatNobodyReadsAreUnrecognized) {
    EXPECT_EQ(errorOf(QStringLiteral("a.docx")), ImportError::Kind::unrecognized);
    EXPECT_EQ(errorOf(QStringLiteral("a.pdf")), ImportError::Kind::unrecognized);
    const DocumentReaders readers{.pdfPages = [](const QString&) { return std::nullopt; }};
    EXPECT_EQ(errorOf(QStringLiteral("a.pdf"), readers), ImportError::Kind::unrecognized);
}

}  // namespace
}  // namespace diary
