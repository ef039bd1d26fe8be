#include "DiaryKit/Documents/DocxText.h"

#include "DiaryKit/Documents/DocxBody.h"
#include "DiaryKit/Documents/OfficePackage.h"
#include "DiaryKit/Import/ImportError.h"

namespace diary::documents {

namespace {

// The part that the main part has in that role, walked where there is one.
void walkRelated(const OfficePackage& package, const QString& main, QStringView role,
                 XmlVisitor& visitor) {
    const QString name = package.related(main, role);
    if (const auto part = package.part(name)) walkXml(*part, visitor);
}

}  // namespace

QString docxText(const QString& path) {
    const OfficePackage package(path);
    QString main = package.related({}, u"officeDocument");
    if (!package.has(main)) main = QStringLiteral("word/document.xml");
    const auto part = package.part(main);
    if (!part) throw ImportError(ImportError::Kind::unrecognized);

    DocxStyles styles;
    walkRelated(package, main, u"styles", styles);
    DocxNotes notes;
    for (QStringView role : {u"footnotes", u"endnotes"}) {
        DocxBody body(styles.hidden(), notes);
        walkRelated(package, main, role, body);
    }
    DocxBody body(styles.hidden(), notes);
    walkXml(*part, body);
    if (!body.hasBody()) throw ImportError(ImportError::Kind::unrecognized);
    return body.text();
}

}  // namespace diary::documents
