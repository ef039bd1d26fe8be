// Documents that were made to take time or memory, or that are damaged.
#include <QtCore/QElapsedTimer>

#include "DiaryKit/Documents/RtfText.h"
#include "DiaryKit/Documents/WebArchiveText.h"
#include "DiaryKit/Documents/XmlWalk.h"
#include "tests/kit/documents/Documents.h"
#include "tests/kit/import/PeakMemory.h"

namespace diary {
namespace {

using testing::Docx;
using testing::importError;
using testing::Odt;

constexpr int kMany = 1'000'000;

// Generous: what isn't linear takes minutes.
class HostileDocuments : public ::testing::Test {
protected:
    void SetUp() override { m_timer.start(); }
    void TearDown() override {
        EXPECT_LT(m_timer.elapsed(), 20'000);
        EXPECT_LT(testing::peakMemory(), testing::kMostMemory);
    }

private:
    QElapsedTimer m_timer;
};

class NothingVisited final : public documents::XmlVisitor {
public:
    documents::Enter open(const documents::XmlElement&) override { return documents::Enter::Yes; }
    void close(QStringView) override {}
    void characters(QStringView) override {}
};

std::optional<ImportError::Kind> refusal(const QByteArray& xml) {
    return importError([&] {
        NothingVisited visitor;
        documents::walkXml(xml, visitor);
    });
}

TEST_F(HostileDocuments, entitiesOfTheirOwnAreRefused) {
    EXPECT_EQ(refusal("<!DOCTYPE a [<!ENTITY b \"c\">]><a>&b;</a>"),
              ImportError::Kind::unrecognized);
    EXPECT_EQ(refusal("<!DOCTYPE a [<!ENTITY b SYSTEM \"file:///etc/passwd\">]><a/>"),
              ImportError::Kind::unrecognized);
    EXPECT_EQ(refusal("<!DOCTYPE a PUBLIC \"b\" \"c\"><a/>"), std::nullopt);
}

TEST_F(HostileDocuments, elementsWithinEachOtherAreBounded) {
    EXPECT_EQ(refusal(QByteArray("<a>").repeated(kMany)), ImportError::Kind::unrecognized);
    EXPECT_EQ(refusal(QByteArray("<a>").repeated(500) + QByteArray("</a>").repeated(500)),
              std::nullopt);
}

TEST_F(HostileDocuments, attributesWithoutNumberAreRefused) {
    QByteArray crowded = "<a";
    for (int i = 0; i < kMany / 4; ++i) crowded += " b" + QByteArray::number(i) + "='>'";
    EXPECT_EQ(refusal(crowded + "/>"), ImportError::Kind::unrecognized);
    const QString wide = QStringLiteral("<?xml version='1.0' encoding='UTF-16'?>") +
                         QString::fromLatin1(crowded) + QStringLiteral("/>");
    QByteArray bytes = "\xFF\xFE";
    bytes.append(reinterpret_cast<const char*>(wide.utf16()), wide.size() * 2);
    EXPECT_EQ(refusal(bytes), ImportError::Kind::unrecognized);
}

TEST_F(HostileDocuments, quotationMarksInTextAreNoAttributes) {
    EXPECT_EQ(refusal("<a>" + QByteArray("it's \"so\" ").repeated(1000) + "<!-- don't -->" +
                      "<![CDATA[" + QByteArray("'").repeated(999) + "]]></a>"),
              std::nullopt);
}

TEST_F(HostileDocuments, anotherEncodingIsNotBelieved) {
    EXPECT_EQ(refusal("<?xml version='1.0' encoding='UTF-7'?><a>+ADw-b</a>"), std::nullopt);
    EXPECT_EQ(refusal("<?xml version='1.0' encoding='UTF-8'<a/>"), ImportError::Kind::unrecognized);
}

TEST_F(HostileDocuments, aDocxOfManyRunsIsReadInTime) {
    const QByteArray body = "<w:p>" + Docx::run("a").repeated(100'000) + "</w:p>" +
                            Docx::paragraph("b").repeated(100'000);
    EXPECT_EQ(Docx(body).text().size(), 100'000 + 200'000);
}

TEST_F(HostileDocuments, aDocxOfFieldsThatNeverEndIsReadInTime) {
    const QByteArray field = "<w:p><w:r><w:fldChar w:fldCharType=\"begin\"/></w:r></w:p>";
    EXPECT_EQ(Docx(field.repeated(50'000) + Docx::paragraph("a")).text().trimmed(),
              QStringLiteral("a"));
}

TEST_F(HostileDocuments, textBoxesWithinEachOtherAreReadInTime) {
    const QByteArray open = "<w:p><w:r><w:t>0123456789</w:t><w:txbxContent>";
    const QByteArray close = "</w:txbxContent></w:r></w:p>";
    const QString text = Docx(open.repeated(400) + close.repeated(400)).text();
    EXPECT_EQ(text.count(QStringLiteral("0123456789")), 400);
}

TEST_F(HostileDocuments, damagedPartsAreRefused) {
    for (const QByteArray& body : {QByteArray("<w:p>"), QByteArray("</w:p>"), QByteArray("&x;"),
                                   QByteArray("\xFF\xFE\x01"), QByteArray("<w:p><w:r></w:p>")}) {
        EXPECT_EQ(importError([&] { (void)Docx(body).text(); }), ImportError::Kind::unrecognized)
            << body.toStdString();
        EXPECT_EQ(importError([&] { (void)Odt(body).text(); }), ImportError::Kind::unrecognized);
    }
}

TEST_F(HostileDocuments, aPartLargerThanItsArchiveAllowsIsRefused) {
    testing::ZipBuilder zip;
    zip.add({.name = "content.xml",
             .packed = testing::deflated(QByteArray(64'000'000, ' ')),
             .method = 8,
             .size = 64'000'000});
    const testing::TemporaryPackage folder;
    const QString path = folder.add(QStringLiteral("a.odt"), zip.bytes());
    EXPECT_EQ(importError([&] { (void)documents::odtText(path); }), ImportError::Kind::badArchive);
}

TEST_F(HostileDocuments, groupsOfRichTextWithinEachOther) {
    const QByteArray open = QByteArray("{").repeated(kMany);
    EXPECT_EQ(documents::rtfText("{\\rtf1 " + open + "a" + QByteArray("}").repeated(kMany) + "b}"),
              QStringLiteral("ab"));
}

TEST_F(HostileDocuments, notesOfRichTextWithinEachOther) {
    const QByteArray open = QByteArray("{\\footnote 0123456789").repeated(kMany / 20);
    const QString text = documents::rtfText("{\\rtf1 " + open);
    EXPECT_EQ(text.count(QStringLiteral("0123456789")), kMany / 20);
}

TEST_F(HostileDocuments, richTextOfManyTurns) {
    const QByteArray rtf = "{\\rtf1{\\fonttbl{\\f1\\fcharset128 a;}}" +
                           QByteArray("{\\f1\\'83\\'7a}\\u24180?\\'e9\\*\\'\\'").repeated(100'000);
    EXPECT_EQ(documents::rtfText(rtf).size(), 300'000);
}

TEST_F(HostileDocuments, richTextOfManyFontsAndCodePages) {
    QByteArray rtf = "{\\rtf1{\\fonttbl";
    for (int i = 0; i < 50'000; ++i) {
        const QByteArray number = QByteArray::number(i);
        rtf += "{\\f" + number + "\\cpg" + number + " a;}";
    }
    rtf += "}";
    for (int i = 0; i < 50'000; ++i) rtf += "\\f" + QByteArray::number(i) + "a";
    EXPECT_EQ(documents::rtfText(rtf).size(), 50'000);
}

TEST_F(HostileDocuments, aWebArchiveWithinItself) {
    const QByteArray deep = "<?xml version=\"1.0\"?><plist>" + QByteArray("<dict>").repeated(kMany);
    EXPECT_EQ(importError([&] { (void)documents::webArchiveText(deep); }),
              ImportError::Kind::unrecognized);
}

}  // namespace
}  // namespace diary
