#include "DiaryKit/Documents/DocumentText.h"

#include <QtCore/QFileInfo>
#include <algorithm>

#include "DiaryKit/Documents/DocxText.h"
#include "DiaryKit/Documents/LegacyWordText.h"
#include "DiaryKit/Documents/OdtText.h"
#include "DiaryKit/Documents/OfficePackage.h"
#include "DiaryKit/Documents/RtfText.h"
#include "DiaryKit/Documents/WebArchiveText.h"
#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Import/PackagePath.h"
#include "DiaryKit/Import/TextDecoding.h"

namespace diary::documents {

namespace {

// An OpenDocument text has its content under this name, encrypted or not.
QString officeText(const QString& path) {
    const bool isOpenDocument = OfficePackage(path).has(QStringLiteral("content.xml"));
    return isOpenDocument ? odtText(path) : docxText(path);
}

bool looksLikeHtml(QByteArrayView bytes) {
    const QByteArray head =
        bytes.first(std::min<qsizetype>(bytes.size(), 1024)).trimmed().toByteArray().toLower();
    return head.startsWith("<!doctype html") || head.contains("<html");
}

// The plain text that some programs write under such a name.
QString plainText(QByteArrayView bytes, QStringView extension) {
    const bool mayBePlain = extension == u"rtf" || extension == u"doc";
    if (!mayBePlain || (!TextDecoding::hasUtf16Mark(bytes) && bytes.contains('\0'))) {
        throw ImportError(ImportError::Kind::unrecognized);
    }
    return TextDecoding::decode(bytes);
}

}  // namespace

QString documentText(const QString& path) {
    if (QFileInfo(path).isDir())
        return rtfText(atomicfile::read(path + QStringLiteral("/TXT.rtf")));
    if (ZipArchive::looksLikeZip(path)) return officeText(path);
    const QByteArray bytes = atomicfile::read(path);
    if (looksLikeRtf(bytes)) return rtfText(bytes);
    if (looksLikeLegacyWord(bytes)) return legacyWordText(path);
    if (looksLikePropertyList(bytes)) return webArchiveText(bytes);
    if (looksLikeHtml(bytes)) return htmlText(bytes);
    return plainText(bytes, package_path::extension(path).toString().toLower());
}

}  // namespace diary::documents
