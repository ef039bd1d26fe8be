// Documents of word processors made for a test: only the parts and the elements that matter to it.
#pragma once

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <functional>
#include <optional>
#include <utility>

#include "DiaryKit/Documents/DocxText.h"
#include "DiaryKit/Documents/OdtText.h"
#include "DiaryKit/Import/ImportError.h"
#include "tests/kit/import/TemporaryPackage.h"
#include "tests/kit/import/ZipBuilder.h"

namespace diary::testing {

// What a call throws of the import's errors; nothing if it doesn't throw.
inline std::optional<ImportError::Kind> importError(const std::function<void()>& call) {
    try {
        call();
    } catch (const ImportError& error) {
        return error.kind();
    }
    return std::nullopt;
}

class Docx {
public:
    // The content of the body.
    explicit Docx(const QByteArray& body) {
        part("_rels/.rels", relationships({{"officeDocument", "word/document.xml"}}));
        part("word/_rels/document.xml.rels", relationships({{"styles", "styles.xml"},
                                                            {"footnotes", "footnotes.xml"},
                                                            {"endnotes", "/word/endnotes.xml"}}));
        part("word/document.xml", root("document", "<w:body>" + body + "</w:body>"));
    }

    static QByteArray paragraph(const QByteArray& text) {
        return "<w:p><w:r><w:t>" + text + "</w:t></w:r></w:p>";
    }
    static QByteArray run(const QByteArray& text) { return "<w:r><w:t>" + text + "</w:t></w:r>"; }

    Docx& styles(const QByteArray& content) {
        return part("word/styles.xml", root("styles", content));
    }
    Docx& footnotes(const QByteArray& content) {
        return part("word/footnotes.xml", root("footnotes", content));
    }
    Docx& endnotes(const QByteArray& content) {
        return part("word/endnotes.xml", root("endnotes", content));
    }

    [[nodiscard]] QString text() const {
        const TemporaryPackage folder;
        return documents::docxText(folder.add(QStringLiteral("diary.docx"), m_zip.bytes()));
    }
    [[nodiscard]] QByteArray bytes() const { return m_zip.bytes(); }

private:
    using Relationships = std::vector<std::pair<QByteArray, QByteArray>>;

    static QByteArray root(const QByteArray& name, const QByteArray& content) {
        return "<?xml version=\"1.0\"?><w:" + name +
               " xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\""
               " xmlns:mc=\"http://schemas.openxmlformats.org/markup-compatibility/2006\">" +
               content + "</w:" + name + ">";
    }
    static QByteArray relationships(const Relationships& targets) {
        QByteArray xml = "<Relationships>";
        for (const auto& [type, target] : targets) {
            xml += "<Relationship Type=\"http://example.org/" + type + "\" Target=\"" + target +
                   "\"/>";
        }
        return xml + "</Relationships>";
    }
    Docx& part(const QByteArray& name, const QByteArray& bytes) {
        m_zip.add(ZipBuilder::packed(name, bytes));
        return *this;
    }

    ZipBuilder m_zip;
};

class Odt {
public:
    // The content of the text, and of its styles.
    explicit Odt(const QByteArray& text, const QByteArray& styles = {}) {
        m_zip.add(ZipBuilder::packed("content.xml", content(text, styles)));
    }

    static QByteArray content(const QByteArray& text, const QByteArray& styles = {}) {
        return "<?xml version=\"1.0\"?><office:document-content"
               " xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\""
               " xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\""
               " xmlns:table=\"urn:oasis:names:tc:opendocument:xmlns:table:1.0\""
               " xmlns:draw=\"urn:oasis:names:tc:opendocument:xmlns:drawing:1.0\""
               " xmlns:svg=\"urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0\""
               " xmlns:style=\"urn:oasis:names:tc:opendocument:xmlns:style:1.0\">"
               "<office:automatic-styles>" +
               styles + "</office:automatic-styles><office:body><office:text>" + text +
               "</office:text></office:body></office:document-content>";
    }

    [[nodiscard]] QString text() const {
        const TemporaryPackage folder;
        return documents::odtText(folder.add(QStringLiteral("diary.odt"), m_zip.bytes()));
    }
    [[nodiscard]] QByteArray bytes() const { return m_zip.bytes(); }

private:
    ZipBuilder m_zip;
};

}  // namespace diary::testing
