// Reads the parts of a docx that hold text; DocxText.h puts them together.
#pragma once

#include <QtCore/QHash>
#include <QtCore/QString>
#include <optional>
#include <vector>

#include "DiaryKit/Documents/HiddenStyles.h"
#include "DiaryKit/Documents/PlainTextBuilder.h"
#include "DiaryKit/Documents/XmlWalk.h"

namespace diary::documents {

// Which styles hide text.
class DocxStyles final : public XmlVisitor {
public:
    Enter open(const XmlElement& element) override;
    void close(QStringView name) override;
    void characters(QStringView) override {}

    [[nodiscard]] const HiddenStyles& hidden() const { return m_hidden; }

private:
    HiddenStyles m_hidden;
    QString m_style;
    QString m_parent;
    std::optional<bool> m_hides;
};

// Notes by "footnote" or "endnote" and their number.
using DocxNotes = QHash<QString, QString>;

// The text of the main part, or the notes of the parts that have them.
class DocxBody final : public XmlVisitor {
public:
    // `notes` lose what is told, so that no note is told twice.
    DocxBody(const HiddenStyles& styles, DocxNotes& notes) : m_styles(styles), m_notes(notes) {}

    Enter open(const XmlElement& element) override;
    void close(QStringView name) override;
    void characters(QStringView text) override;

    [[nodiscard]] bool hasBody() const { return m_hasBody; }
    [[nodiscard]] QString text() { return m_builder.take(); }

private:
    struct Paragraph {
        // It is one with the next paragraph.
        bool runsOn = false;
        bool hidesByStyle = false;
        std::optional<bool> runHides = {};
        bool runHidesByStyle = false;
    };
    struct Alternatives {
        qsizetype writtenBefore = 0;
        bool isSettled = false;
    };

    Enter openStructure(const XmlElement& element);
    Enter openProperties(const XmlElement& element);
    Enter openInRun(const XmlElement& element);
    Enter openAlternative(const XmlElement& element);
    void markField(QStringView type);
    void endParagraph();
    void write(QStringView text);
    void tellNote(QStringView kind, QStringView number);
    [[nodiscard]] bool isHidden() const;

    const HiddenStyles& m_styles;
    DocxNotes& m_notes;
    PlainTextBuilder m_builder;
    // The paragraph that is read, and those around it, which it is a text box of.
    std::vector<Paragraph> m_paragraphs{1};
    std::vector<Alternatives> m_alternatives;
    // For each field that is open, whether its result has begun.
    std::vector<bool> m_fields;
    qsizetype m_fieldCodes = 0;
    QString m_note;
    bool m_hasBody = false;
    bool m_inParagraphProperties = false;
    bool m_inRunProperties = false;
    bool m_inText = false;
};

}  // namespace diary::documents
