// A walk over an XML part of a document, in its order and without building a tree. Parts come from
// anywhere: what would make a reader of XML slow or large (entities of their own, elements within
// one another without end, attributes without number) is refused, as no writer makes it.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringView>
#include <QtCore/QXmlStreamAttributes>
#include <algorithm>
#include <array>

namespace diary::documents {

enum class Enter : bool { No, Yes };

// Names and attributes are without their namespace, which differs between the editions of a format.
class XmlElement {
public:
    XmlElement(QStringView name, QStringView nameSpace, const QXmlStreamAttributes& attributes)
        : m_name(name), m_nameSpace(nameSpace), m_attributes(&attributes) {}

    [[nodiscard]] QStringView name() const { return m_name; }
    [[nodiscard]] QStringView nameSpace() const { return m_nameSpace; }
    // Empty where there is none.
    [[nodiscard]] QStringView attribute(QStringView name) const;

private:
    QStringView m_name;
    QStringView m_nameSpace;
    const QXmlStreamAttributes* m_attributes;
};

// Whether the name is among those.
template <std::size_t count>
[[nodiscard]] bool isOneOf(QStringView name, const std::array<QStringView, count>& names) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

// What is called on the way.
class XmlVisitor {
public:
    XmlVisitor() = default;
    XmlVisitor(const XmlVisitor&) = delete;
    XmlVisitor& operator=(const XmlVisitor&) = delete;
    virtual ~XmlVisitor() = default;

    // Without entering, neither what is in the element nor its end is told.
    [[nodiscard]] virtual Enter open(const XmlElement& element) = 0;
    virtual void close(QStringView name) = 0;
    // A text may come in several pieces.
    virtual void characters(QStringView text) = 0;
};

// Walks the whole part. Throws ImportError (unrecognized) where it isn't well formed, or refused.
void walkXml(const QByteArray& part, XmlVisitor& visitor);

}  // namespace diary::documents
