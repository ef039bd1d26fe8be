// Reads the parts of an odt that hold text; OdtText.h puts them together.
#pragma once

#include <QtCore/QString>
#include <vector>

#include "DiaryKit/Documents/HiddenStyles.h"
#include "DiaryKit/Documents/PlainTextBuilder.h"
#include "DiaryKit/Documents/XmlWalk.h"

namespace diary::documents {

// Reads the styles of a part into `hidden`: which hide their text.
class OdtStyles final : public XmlVisitor {
public:
    explicit OdtStyles(HiddenStyles& hidden) : m_hidden(hidden) {}

    Enter open(const XmlElement& element) override;
    void close(QStringView name) override;
    void characters(QStringView) override {}

private:
    HiddenStyles& m_hidden;
    QString m_style;
    QString m_parent;
    std::optional<bool> m_hides;
};

// The text of the part that holds the body.
class OdtBody final : public XmlVisitor {
public:
    explicit OdtBody(const HiddenStyles& styles) : m_styles(styles) {}

    Enter open(const XmlElement& element) override;
    void close(QStringView name) override;
    void characters(QStringView text) override;

    [[nodiscard]] bool hasBody() const { return m_hasBody; }
    [[nodiscard]] QString text() { return m_builder.take(); }

private:
    struct Paragraph {
        bool isHidden = false;
        // White space is collapsed, and there is none at the beginning.
        bool isBehindBlank = true;
        // For each span that is open, whether it hides.
        std::vector<bool> spans = {};
        qsizetype hidingSpans = 0;
    };

    Enter openStructure(const XmlElement& element);
    Enter openInParagraph(const XmlElement& element);
    void openParagraph(const XmlElement& element);
    void closeParagraph();
    void openSpan(const XmlElement& element);
    void closeSpan();
    void writeBlanks(QStringView count);
    void writeMark(QStringView mark);
    [[nodiscard]] bool isHidden() const;

    const HiddenStyles& m_styles;
    PlainTextBuilder m_builder;
    // The paragraph that is read, and those around it, which it is a note or a text box of.
    std::vector<Paragraph> m_paragraphs;
    // Many blanks are a short number in the part. No text of a person has as many.
    qsizetype m_blanksLeft = 1'000'000;
    bool m_hasBody = false;
};

}  // namespace diary::documents
