#include "DiaryKit/Documents/OdtBody.h"

#include <algorithm>
#include <array>

namespace diary::documents {

namespace {

// Tracked deletions lie in a store of their own; the rest is about the text, or stands in its
// margin.
bool isLeftOut(const XmlElement& element) {
    static constexpr std::array<QStringView, 14> kLeftOut{
        u"tracked-changes", u"annotation",          u"note-citation",
        u"ruby-text",       u"hidden-text",         u"script",
        u"forms",           u"event-listeners",     u"sequence-decls",
        u"variable-decls",  u"user-field-decls",    u"automatic-styles",
        u"font-face-decls", u"dde-connection-decls"};
    // A picture's own title, while a text's title is a field.
    static constexpr std::array<QStringView, 2> kOfPictures{u"title", u"desc"};
    const QStringView name = element.name();
    if (isOneOf(name, kLeftOut)) return true;
    if (isOneOf(name, kOfPictures)) return element.nameSpace().contains(u"svg");
    // The templates that a table of contents is made by.
    return name.endsWith(u"-source");
}

bool isHiddenSection(const XmlElement& element) {
    return element.name() == u"section" &&
           (element.attribute(u"display") == u"none" || element.attribute(u"is-hidden") == u"true");
}

// Notes, and shapes that may hold text.
bool isAside(QStringView name) {
    static constexpr std::array<QStringView, 8> kAsides{u"note-body", u"text-box", u"custom-shape",
                                                        u"rect",      u"circle",   u"ellipse",
                                                        u"polygon",   u"path"};
    return isOneOf(name, kAsides);
}

bool isXmlBlank(QChar character) {
    return character == u' ' || character == u'\t' || character == u'\n' || character == u'\r';
}

}  // namespace

Enter OdtStyles::open(const XmlElement& element) {
    if (element.name() == u"body") return Enter::No;
    if (element.name() == u"style") {
        m_style = element.attribute(u"name").toString();
        m_parent = element.attribute(u"parent-style-name").toString();
        m_hides.reset();
    } else if (element.name() == u"text-properties") {
        const QStringView display = element.attribute(u"display");
        if (!display.isEmpty()) m_hides = display == u"none";
    }
    return Enter::Yes;
}

void OdtStyles::close(QStringView name) {
    if (name == u"style") m_hidden.add(m_style, m_parent, m_hides);
}

Enter OdtBody::open(const XmlElement& element) {
    const QStringView name = element.name();
    if (name == u"text" && !m_hasBody) {
        m_hasBody = true;
        return Enter::Yes;
    }
    if (isLeftOut(element) || isHiddenSection(element)) return Enter::No;
    return openStructure(element);
}

Enter OdtBody::openStructure(const XmlElement& element) {
    const QStringView name = element.name();
    if (name == u"p" || name == u"h") {
        openParagraph(element);
    } else if (name == u"table-row") {
        m_builder.startRow();
    } else if (isAside(name)) {
        m_builder.beginAside();
    } else if (!m_paragraphs.empty()) {
        return openInParagraph(element);
    }
    return Enter::Yes;
}

Enter OdtBody::openInParagraph(const XmlElement& element) {
    const QStringView name = element.name();
    if (name == u"span") {
        openSpan(element);
    } else if (name == u"s") {
        writeBlanks(element.attribute(u"c"));
    } else if (name == u"tab") {
        writeMark(u"\t");
    } else if (name == u"line-break") {
        writeMark(u"\n");
    } else if (name == u"hidden-paragraph") {
        if (element.attribute(u"is-hidden") == u"true") m_paragraphs.back().isHidden = true;
        return Enter::No;
    } else if (element.attribute(u"display") == u"none") {
        // A variable that is set where it isn't seen.
        return Enter::No;
    }
    return Enter::Yes;
}

void OdtBody::openParagraph(const XmlElement& element) {
    m_paragraphs.emplace_back();
    m_paragraphs.back().isHidden = m_styles.hides(element.attribute(u"style-name"));
}

void OdtBody::closeParagraph() {
    m_paragraphs.pop_back();
    m_builder.endParagraph();
}

void OdtBody::openSpan(const XmlElement& element) {
    Paragraph& paragraph = m_paragraphs.back();
    const bool hides = m_styles.hides(element.attribute(u"style-name"));
    paragraph.spans.push_back(hides);
    if (hides) ++paragraph.hidingSpans;
}

void OdtBody::closeSpan() {
    if (m_paragraphs.empty() || m_paragraphs.back().spans.empty()) return;
    Paragraph& paragraph = m_paragraphs.back();
    if (paragraph.spans.back()) --paragraph.hidingSpans;
    paragraph.spans.pop_back();
}

void OdtBody::close(QStringView name) {
    if (name == u"p" || name == u"h") {
        closeParagraph();
    } else if (name == u"span") {
        closeSpan();
    } else if (name == u"table-cell") {
        m_builder.endCell();
    } else if (name == u"table-row") {
        m_builder.endRow();
    } else if (isAside(name)) {
        m_builder.endAside();
    }
}

void OdtBody::characters(QStringView text) {
    if (m_paragraphs.empty() || isHidden()) return;
    bool& isBehindBlank = m_paragraphs.back().isBehindBlank;
    QString collapsed;
    collapsed.reserve(text.size());
    for (const QChar character : text) {
        const bool isBlank = isXmlBlank(character);
        if (!isBlank) collapsed += character;
        if (isBlank && !isBehindBlank) collapsed += u' ';
        isBehindBlank = isBlank;
    }
    m_builder.append(collapsed);
}

void OdtBody::writeBlanks(QStringView count) {
    if (isHidden()) return;
    bool isNumber = false;
    const qsizetype asked = count.toLongLong(&isNumber);
    const qsizetype blanks = std::clamp<qsizetype>(isNumber ? asked : 1, 0, m_blanksLeft);
    m_blanksLeft -= blanks;
    m_builder.append(QString(blanks, u' '));
    m_paragraphs.back().isBehindBlank = false;
}

void OdtBody::writeMark(QStringView mark) {
    if (isHidden()) return;
    m_builder.append(mark);
    m_paragraphs.back().isBehindBlank = false;
}

bool OdtBody::isHidden() const {
    const Paragraph& paragraph = m_paragraphs.back();
    return paragraph.isHidden || paragraph.hidingSpans > 0;
}

}  // namespace diary::documents
