#include "DiaryKit/Documents/WebArchiveText.h"

#include "tests/kit/documents/Documents.h"
#include "tests/kit/documents/PropertyLists.h"

namespace diary {
namespace {

using documents::webArchiveText;
using testing::BinaryListBuilder;

QByteArray binary(const QByteArray& page, const QByteArray& encoding,
                  const QByteArray& type = "text/html") {
    BinaryListBuilder list;
    const int main =
        list.dictionary({{list.text("WebResourceData"), list.data(page)},
                         {list.text("WebResourceTextEncodingName"), list.text(encoding)},
                         {list.text("WebResourceMIMEType"), list.text(type)}});
    const int other = list.text("WebSubresources");
    return list.bytes(list.dictionary({{other, other}, {list.text("WebMainResource"), main}}));
}

QByteArray xml(const QByteArray& page, const QByteArray& encoding) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist PUBLIC \"-//Apple//DTD "
           "PLIST 1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n<plist><dict>"
           "<key>WebSubresources</key><array><dict><key>WebResourceData</key><data>eA==</data>"
           "</dict></array><key>WebMainResource</key><dict><key>WebResourceData</key><data>\n" +
           page.toBase64() + "\n</data><key>WebResourceTextEncodingName</key><string>" + encoding +
           "</string></dict><key>WebSubframeArchives</key><array><dict><key>WebMainResource</key>"
           "<dict><key>WebResourceData</key><data>eQ==</data></dict></dict></array></dict></plist>";
}

std::optional<ImportError::Kind> refusal(const QByteArray& bytes) {
    return testing::importError([&] { (void)webArchiveText(bytes); });
}

const QByteArray kPage = "<html><head><title>x</title></head><body><h1>2024-03-05</h1><p>caf\xE9";
const QString kText = QStringLiteral("# 2024-03-05\n\ncafé");

TEST(WebArchiveText, aBinaryListsPageIsReadInTheEncodingThatIsTold) {
    EXPECT_EQ(webArchiveText(binary(kPage, "windows-1252")), kText);
    EXPECT_EQ(webArchiveText(binary("<p>\xC8\xD5", "GB2312")), QStringLiteral("日"));
}

TEST(WebArchiveText, anXmlListsPageIsTheMainOne) {
    EXPECT_EQ(webArchiveText(xml(kPage, "iso-8859-1")), kText);
}

TEST(WebArchiveText, withoutAKnownEncodingTheBytesTell) {
    EXPECT_EQ(webArchiveText(xml("<p>日本", "x-nothing")), QStringLiteral("日本"));
    EXPECT_EQ(webArchiveText(binary("<p>日本", "")), QStringLiteral("日本"));
}

TEST(WebArchiveText, aPlainPageIsItsText) {
    EXPECT_EQ(webArchiveText(binary("a < b\n c", "UTF-8", "text/plain")),
              QStringLiteral("a < b\n c"));
}

TEST(WebArchiveText, keysMayBeWide) {
    BinaryListBuilder list;
    const int main =
        list.dictionary({{list.wideText(QStringLiteral("WebResourceData")), list.data("<p>a")}});
    EXPECT_EQ(webArchiveText(list.bytes(list.dictionary({{list.text("WebMainResource"), main}}))),
              QStringLiteral("a"));
}

TEST(WebArchiveText, otherListsAreRefused) {
    BinaryListBuilder list;
    const int text = list.text("WebMainResource");
    EXPECT_EQ(refusal(list.bytes(text)), ImportError::Kind::unrecognized);
    EXPECT_EQ(refusal(list.bytes(list.dictionary({{text, text}}))),
              ImportError::Kind::unrecognized);
    EXPECT_EQ(refusal("<?xml version=\"1.0\"?><plist><dict/></plist>"),
              ImportError::Kind::unrecognized);
    EXPECT_EQ(refusal("<?xml version=\"1.0\"?><plist><dict>"), ImportError::Kind::unrecognized);
    EXPECT_EQ(refusal("bplist00"), ImportError::Kind::unrecognized);
    EXPECT_EQ(refusal("bplist15whatever"), ImportError::Kind::unrecognized);
}

TEST(WebArchiveText, aListThatIsCutAnywhereIsRefused) {
    const QByteArray whole = binary(kPage, "windows-1252");
    for (qsizetype length = 0; length < whole.size(); ++length) {
        EXPECT_EQ(refusal(whole.first(length)), ImportError::Kind::unrecognized) << length;
    }
}

TEST(WebArchiveText, aDamagedByteDoesNoHarm) {
    const QByteArray whole = binary(kPage, "windows-1252");
    for (qsizetype at = 0; at < whole.size(); ++at) {
        for (const char byte : {'\0', '\x7F', '\xFF'}) {
            QByteArray damaged = whole;
            damaged[at] = byte;
            const auto kind = refusal(damaged);
            EXPECT_TRUE(!kind || kind == ImportError::Kind::unrecognized) << at;
        }
    }
}

TEST(WebArchiveText, aListThatRefersToItselfEnds) {
    BinaryListBuilder list;
    const int key = list.text("WebMainResource");
    const int data = list.text("WebResourceData");
    // The dictionary is object 2, and its own value.
    EXPECT_EQ(refusal(list.bytes(list.dictionary({{key, 2}, {data, 2}}))),
              ImportError::Kind::unrecognized);
}

}  // namespace
}  // namespace diary
