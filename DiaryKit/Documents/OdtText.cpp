#include "DiaryKit/Documents/OdtText.h"

#include "DiaryKit/Documents/OdtBody.h"
#include "DiaryKit/Documents/OfficePackage.h"
#include "DiaryKit/Import/ImportError.h"

namespace diary::documents {

QString odtText(const QString& path) {
    const OfficePackage package(path);
    const auto content = package.part(QStringLiteral("content.xml"));
    if (!content) throw ImportError(ImportError::Kind::unrecognized);

    HiddenStyles hidden;
    OdtStyles styles(hidden);
    if (const auto part = package.part(QStringLiteral("styles.xml"))) walkXml(*part, styles);
    walkXml(*content, styles);
    OdtBody body(hidden);
    walkXml(*content, body);
    if (!body.hasBody()) throw ImportError(ImportError::Kind::unrecognized);
    return body.text();
}

}  // namespace diary::documents
