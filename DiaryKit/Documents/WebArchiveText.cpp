#include "DiaryKit/Documents/WebArchiveText.h"

#include <optional>

#include "DiaryKit/Documents/BinaryPropertyList.h"
#include "DiaryKit/Documents/CodePages.h"
#include "DiaryKit/Documents/XmlWalk.h"
#include "DiaryKit/Import/HTMLToMarkdown.h"
#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Import/TextDecoding.h"

namespace diary::documents {

namespace {

constexpr QStringView kMainResource = u"WebMainResource";
constexpr QStringView kData = u"WebResourceData";
constexpr QStringView kEncoding = u"WebResourceTextEncodingName";
constexpr QStringView kType = u"WebResourceMIMEType";

struct Resource {
    QByteArray data;
    QString encoding;
    QString type;
};

std::optional<Resource> inBinary(const QByteArray& bytes) {
    const BinaryPropertyList list(bytes);
    const auto top = list.top();
    const auto main = top ? list.value(*top, kMainResource) : std::nullopt;
    const auto content = main ? list.value(*main, kData) : std::nullopt;
    const auto data = content ? list.data(*content) : std::nullopt;
    if (!data) return std::nullopt;
    const auto text = [&](QStringView key) {
        const auto value = list.value(*main, key);
        return value ? list.text(*value).value_or(QString()) : QString();
    };
    return Resource{data->toByteArray(), text(kEncoding), text(kType)};
}

// Reads the dictionary of the main resource, and passes over all others.
class PropertyListPage final : public XmlVisitor {
public:
    Enter open(const XmlElement& element) override {
        const QStringView name = element.name();
        m_value.clear();
        if (name == u"array") return Enter::No;
        if (name != u"dict") return Enter::Yes;
        const bool isWanted = m_depth == 0 || (m_depth == 1 && m_key == kMainResource);
        if (isWanted) ++m_depth;
        return isWanted ? Enter::Yes : Enter::No;
    }

    void close(QStringView name) override {
        if (name == u"key") {
            m_key = m_value;
        } else if (name == u"dict") {
            --m_depth;
        } else if (m_depth == 2) {
            takeValue(name);
        }
        m_value.clear();
    }

    void characters(QStringView text) override { m_value += text; }

    [[nodiscard]] std::optional<Resource> resource() const {
        return m_hasData ? std::optional(m_resource) : std::nullopt;
    }

private:
    void takeValue(QStringView kind) {
        if (kind == u"data" && m_key == kData) {
            m_resource.data = QByteArray::fromBase64(m_value.toLatin1());
            m_hasData = true;
        } else if (kind == u"string" && m_key == kEncoding) {
            m_resource.encoding = m_value;
        } else if (kind == u"string" && m_key == kType) {
            m_resource.type = m_value;
        }
    }

    int m_depth = 0;
    QString m_key;
    QString m_value;
    Resource m_resource;
    bool m_hasData = false;
};

std::optional<Resource> inXml(const QByteArray& bytes) {
    PropertyListPage page;
    walkXml(bytes, page);
    return page.resource();
}

QString decoded(QByteArrayView bytes, const QString& encoding) {
    if (auto text = decodedAs(bytes, encoding.toLatin1())) return *text;
    return TextDecoding::decode(bytes);
}

}  // namespace

bool looksLikePropertyList(QByteArrayView bytes) {
    if (BinaryPropertyList::looksLike(bytes)) return true;
    const QByteArrayView head = bytes.first(std::min<qsizetype>(bytes.size(), 1024));
    return head.trimmed().startsWith("<?xml") && head.contains("<plist");
}

QString htmlText(QByteArrayView bytes, const QString& encoding) {
    return HTMLToMarkdown::markdown(decoded(bytes, encoding));
}

QString webArchiveText(const QByteArray& bytes) {
    const auto page = BinaryPropertyList::looksLike(bytes) ? inBinary(bytes) : inXml(bytes);
    if (!page) throw ImportError(ImportError::Kind::unrecognized);
    if (page->type == u"text/plain") return decoded(page->data, page->encoding);
    return htmlText(page->data, page->encoding);
}

}  // namespace diary::documents
