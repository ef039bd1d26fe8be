#include "DiaryKit/Documents/DocxBody.h"

#include <array>

#include "DiaryKit/Foundation/TextSets.h"

namespace diary::documents {

namespace {

// A property that is on where it says nothing else.
bool isOn(const XmlElement& element) {
    const QStringView value = element.attribute(u"val");
    return value != u"0" && value != u"false" && value != u"off" && value != u"none";
}

// Deletions and what was moved away, the readings of ruby text, what controls ask to be filled
// with.
bool isLeftOut(QStringView name) {
    static constexpr std::array<QStringView, 8> kLeftOut{
        u"del", u"moveFrom", u"rt", u"sdtPr", u"sdtEndPr", u"tblPr", u"tblGrid", u"sectPr"};
    return isOneOf(name, kLeftOut);
}

// What stands for a character in a run.
QStringView standIn(QStringView name) {
    if (name == u"tab" || name == u"ptab") return u"\t";
    if (name == u"br" || name == u"cr") return u"\n";
    if (name == u"noBreakHyphen") return u"\u2011";
    if (name == u"softHyphen") return u"\u00AD";
    return {};
}

QString noteKey(QStringView kind, QStringView number) {
    return kind.toString() + number.toString();
}

}  // namespace

Enter DocxStyles::open(const XmlElement& element) {
    if (element.name().endsWith(u"Change")) return Enter::No;
    if (element.name() == u"style") {
        m_style = element.attribute(u"styleId").toString();
        m_parent.clear();
        m_hides.reset();
    } else if (element.name() == u"basedOn") {
        m_parent = element.attribute(u"val").toString();
    } else if (element.name() == u"vanish") {
        m_hides = isOn(element);
    } else if (element.name() == u"tblStylePr" || element.name() == u"docDefaults") {
        return Enter::No;
    }
    return Enter::Yes;
}

void DocxStyles::close(QStringView name) {
    if (name == u"style") m_hidden.add(m_style, m_parent, m_hides);
}

Enter DocxBody::open(const XmlElement& element) {
    const QStringView name = element.name();
    // What formatting was before a tracked change, and what a tracked change took away.
    if (name.endsWith(u"Change")) return Enter::No;
    if (m_inParagraphProperties || m_inRunProperties) return openProperties(element);
    if (isLeftOut(name)) return Enter::No;
    if (name == u"AlternateContent" || name == u"Choice" || name == u"Fallback") {
        return openAlternative(element);
    }
    return openStructure(element);
}

Enter DocxBody::openStructure(const XmlElement& element) {
    const QStringView name = element.name();
    Paragraph& paragraph = m_paragraphs.back();
    if (name == u"body") {
        m_hasBody = true;
    } else if (name == u"p") {
        paragraph = {};
    } else if (name == u"r") {
        paragraph.runHides.reset();
        paragraph.runHidesByStyle = false;
    } else if (name == u"pPr") {
        m_inParagraphProperties = true;
    } else if (name == u"rPr") {
        m_inRunProperties = true;
    } else if (name == u"tr") {
        m_builder.startRow();
    } else if (name == u"txbxContent") {
        m_builder.beginAside();
        m_paragraphs.emplace_back();
    } else if (name == u"footnote" || name == u"endnote") {
        if (element.attribute(u"type").endsWith(u"eparator", Qt::CaseInsensitive)) return Enter::No;
        m_note = noteKey(name, element.attribute(u"id"));
    } else {
        return openInRun(element);
    }
    return Enter::Yes;
}

Enter DocxBody::openInRun(const XmlElement& element) {
    const QStringView name = element.name();
    if (name == u"t") {
        m_inText = true;
    } else if (name == u"fldChar") {
        markField(element.attribute(u"fldCharType"));
        return Enter::No;
    } else if (name == u"footnoteReference" || name == u"endnoteReference") {
        tellNote(name.chopped(9), element.attribute(u"id"));
    } else if (name == u"sym") {
        const uint character = element.attribute(u"char").toUInt(nullptr, 16);
        if (character >= 0x20 && character <= 0xFFFF) write(QString(QChar(character)));
    } else if (const QStringView text = standIn(name); !text.isEmpty()) {
        write(text);
    }
    return Enter::Yes;
}

Enter DocxBody::openProperties(const XmlElement& element) {
    const QStringView name = element.name();
    Paragraph& paragraph = m_paragraphs.back();
    if (m_inRunProperties && name == u"vanish") {
        if (m_inParagraphProperties) return Enter::No;
        paragraph.runHides = isOn(element);
    } else if (m_inRunProperties && name == u"rStyle") {
        paragraph.runHidesByStyle = m_styles.hides(element.attribute(u"val"));
    } else if (m_inRunProperties && (name == u"del" || name == u"moveFrom")) {
        // In the properties of a paragraph's mark: the mark isn't there any more.
        paragraph.runsOn = m_inParagraphProperties;
    } else if (name == u"framePr") {
        // A large initial is a paragraph of its own.
        const QStringView initial = element.attribute(u"dropCap");
        if (!initial.isEmpty() && initial != u"none") paragraph.runsOn = true;
    } else if (name == u"pStyle") {
        paragraph.hidesByStyle = m_styles.hides(element.attribute(u"val"));
    } else if (name == u"rPr" && m_inParagraphProperties) {
        m_inRunProperties = true;
        return Enter::Yes;
    }
    return Enter::No;
}

// Of several forms of the same content the first one that has text is told.
Enter DocxBody::openAlternative(const XmlElement& element) {
    if (element.name() == u"AlternateContent") {
        m_alternatives.emplace_back();
        return Enter::Yes;
    }
    if (m_alternatives.empty()) return Enter::Yes;
    if (m_alternatives.back().isSettled) return Enter::No;
    m_alternatives.back().writtenBefore = m_builder.written();
    return Enter::Yes;
}

void DocxBody::close(QStringView name) {
    if (name == u"p") {
        endParagraph();
    } else if (name == u"t") {
        m_inText = false;
    } else if (name == u"rPr") {
        m_inRunProperties = false;
    } else if (name == u"pPr") {
        m_inParagraphProperties = false;
    } else if (name == u"tc") {
        m_builder.endCell();
    } else if (name == u"tr") {
        m_builder.endRow();
    } else if (name == u"txbxContent") {
        m_builder.endAside();
        m_paragraphs.pop_back();
    } else if (name == u"AlternateContent") {
        m_alternatives.pop_back();
    } else if ((name == u"Choice" || name == u"Fallback") && !m_alternatives.empty()) {
        Alternatives& last = m_alternatives.back();
        last.isSettled = last.isSettled || m_builder.written() > last.writtenBefore;
    } else if (name == u"footnote" || name == u"endnote") {
        m_notes.insert(m_note, text::trimmed(m_builder.take()).toString());
    }
}

void DocxBody::characters(QStringView text) {
    if (m_inText) write(text);
}

void DocxBody::markField(QStringView type) {
    if (type == u"begin") {
        m_fields.push_back(false);
        ++m_fieldCodes;
    } else if (!m_fields.empty() && !m_fields.back()) {
        m_fields.back() = true;
        --m_fieldCodes;
    }
    if (type == u"end" && !m_fields.empty()) m_fields.pop_back();
}

void DocxBody::endParagraph() {
    if (!m_paragraphs.back().runsOn) m_builder.endParagraph();
    // A code ends in its paragraph. Where it doesn't, the field is damaged, and what follows would
    // be lost.
    if (m_fieldCodes > 0) m_fields.clear();
    m_fieldCodes = 0;
}

void DocxBody::write(QStringView text) {
    if (m_fieldCodes == 0 && !isHidden()) m_builder.append(text);
}

void DocxBody::tellNote(QStringView kind, QStringView number) {
    if (!isHidden()) m_builder.appendAside(m_notes.take(noteKey(kind, number)));
}

bool DocxBody::isHidden() const {
    const Paragraph& paragraph = m_paragraphs.back();
    return paragraph.runHides.value_or(paragraph.runHidesByStyle || paragraph.hidesByStyle);
}

}  // namespace diary::documents
