#include "DiaryKit/Documents/XmlWalk.h"

#include <QtCore/QBuffer>
#include <QtCore/QStringDecoder>
#include <QtCore/QXmlStreamReader>
#include <array>
#include <utility>

#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Import/TextDecoding.h"

namespace diary::documents {

namespace {

// Word processors nest some dozens.
constexpr int kMaxDepth = 2000;
// A tag of a word processor has its namespaces, some forty, or some dozen attributes. The reader
// compares each attribute of a tag with all the others.
constexpr int kMaxAttributes = 256;

[[noreturn]] void fail() {
    throw ImportError(ImportError::Kind::unrecognized);
}

// The part in UTF-8. Writers use UTF-8, and UTF-16 behind its mark.
QByteArray inUtf8(const QByteArray& part) {
    if (!TextDecoding::hasUtf16Mark(part)) return part;
    QStringDecoder decoder(QStringConverter::Utf16);
    return QString(decoder.decode(part)).toUtf8();
}

// The part without its declaration, which might name an encoding that the check of tags can't read.
QByteArrayView withoutDeclaration(QByteArrayView bytes) {
    if (bytes.startsWith("\xEF\xBB\xBF")) bytes = bytes.sliced(3);
    if (bytes.startsWith("<?xml") && bytes.size() > 5 && bytes[5] != '-') {
        const qsizetype end = bytes.indexOf("?>");
        if (end < 0) fail();
        bytes = bytes.sliced(end + 2);
    }
    return bytes;
}

// Where a comment, CDATA section or instruction that begins at `from` ends; `from` if none does.
qsizetype endOfVerbatim(QByteArrayView part, qsizetype from) {
    constexpr std::array<std::pair<const char*, const char*>, 3> kVerbatim{
        {{"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}}};
    for (const auto& [begin, end] : kVerbatim) {
        if (!part.sliced(from).startsWith(begin)) continue;
        const qsizetype found = part.indexOf(end, from);
        return found < 0 ? part.size() : found;
    }
    return from;
}

// Where the tag at `from` ends. Fails if it holds too many attributes.
qsizetype endOfTag(QByteArrayView part, qsizetype from) {
    int attributes = 0;
    for (qsizetype i = from; i < part.size(); ++i) {
        if (part[i] == '>') return i;
        if (part[i] != '"' && part[i] != '\'') continue;
        if (++attributes > kMaxAttributes) fail();
        i = part.indexOf(part[i], i + 1);
        if (i < 0) return part.size();
    }
    return part.size();
}

void refuseCrowdedTags(QByteArrayView part) {
    for (qsizetype at = part.indexOf('<'); at >= 0; at = part.indexOf('<', at + 1)) {
        const qsizetype verbatim = endOfVerbatim(part, at);
        at = verbatim > at ? verbatim : endOfTag(part, at);
        if (at >= part.size()) return;
    }
}

class Walk {
public:
    Walk(QIODevice& part, XmlVisitor& visitor) : m_reader(&part), m_visitor(visitor) {}

    void run() {
        while (!m_reader.atEnd()) step(m_reader.readNext());
        if (m_reader.hasError()) fail();
    }

private:
    void step(QXmlStreamReader::TokenType token) {
        switch (token) {
            case QXmlStreamReader::DTD:
                if (!m_reader.entityDeclarations().isEmpty()) fail();
                break;
            case QXmlStreamReader::StartElement:
                open();
                break;
            case QXmlStreamReader::EndElement:
                --m_depth;
                if (m_skipped > 0) {
                    --m_skipped;
                } else {
                    m_visitor.close(m_reader.name());
                }
                break;
            case QXmlStreamReader::Characters:
                if (m_skipped == 0) m_visitor.characters(m_reader.text());
                break;
            default:
                break;
        }
    }

    void open() {
        if (++m_depth > kMaxDepth) fail();
        if (m_skipped > 0) {
            ++m_skipped;
            return;
        }
        const QXmlStreamAttributes attributes = m_reader.attributes();
        if (m_visitor.open({m_reader.name(), m_reader.namespaceUri(), attributes}) == Enter::No)
            m_skipped = 1;
    }

    QXmlStreamReader m_reader;
    XmlVisitor& m_visitor;
    int m_depth = 0;
    int m_skipped = 0;
};

}  // namespace

QStringView XmlElement::attribute(QStringView name) const {
    for (const QXmlStreamAttribute& attribute : *m_attributes) {
        if (attribute.name() == name) return attribute.value();
    }
    return {};
}

void walkXml(const QByteArray& part, XmlVisitor& visitor) {
    const QByteArray utf8 = inUtf8(part);
    const QByteArrayView content = withoutDeclaration(utf8);
    refuseCrowdedTags(content);
    // A part may be large, so it isn't copied.
    QByteArray bytes = QByteArray::fromRawData(content.data(), content.size());
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    Walk(buffer, visitor).run();
}

}  // namespace diary::documents
