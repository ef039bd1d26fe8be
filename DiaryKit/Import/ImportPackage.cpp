#include "DiaryKit/Import/ImportPackage.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QUuid>
#include <algorithm>
#include <cerrno>
#include <exception>

#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Import/PackagePath.h"
#include "DiaryKit/Import/TextDecoding.h"

namespace diary {

namespace {

// Documents to the user, although they are folders or zips inside.
bool isDocument(QStringView path) {
    const QString extension = package_path::extension(path).toString().toLower();
    return extension == QLatin1String("rtfd") || extension == QLatin1String("docx") ||
           extension == QLatin1String("odt");
}

QByteArray headOfFile(const QString& path, qsizetype length) {
    QFile file(path);
    // Opening a pipe would wait for somebody to write into it.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) return {};
    return file.read(length);
}

// What a copy of the entry is called: the last component, whichever separator the archive's maker
// used, since a document's extension tells how it is read.
QString nameForCopy(const QString& path) {
    const qsizetype separator = std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\'));
    QString name = path.sliced(separator + 1);
    if (name.isEmpty() || name == QLatin1String(".") || name == QLatin1String("..") ||
        name.contains(QChar(u'\0'))) {
        throw ImportError(ImportError::Kind::badArchive);
    }
    return name;
}

}  // namespace

ImportPackage::ImportPackage(const QString& url) : m_url(QDir::cleanPath(url)) {
    open();
}

void ImportPackage::open() {
    const bool isDirectory = QFileInfo(m_url).isDir();
    if (isDirectory && !isDocument(m_url)) {
        m_storage = Folder{m_url};
        m_paths = listFolder(m_url);
    } else if (isDirectory || isDocument(m_url) || !ZipArchive::looksLikeZip(m_url)) {
        m_storage = File{m_url};
        m_paths = {package_path::lastComponent(m_url).toString()};
    } else {
        openZip();
    }
}

void ImportPackage::openZip() {
    Zip zip{std::make_unique<const ZipArchive>(m_url), {}};
    for (const ZipArchive::Entry& entry : zip.archive->entries()) {
        if (!entry.isDirectory() && !isJunk(entry.path)) zip.entries.insert(entry.path, entry);
    }
    m_paths = package_path::sorted(zip.entries.keys());
    m_storage = std::move(zip);
}

QStringList ImportPackage::pathsWithExtensions(const std::set<QString>& extensions) const {
    return package_path::withExtensions(m_paths, extensions);
}

const ZipArchive::Entry& ImportPackage::entry(const Zip& zip, const QString& path) const {
    const auto found = zip.entries.constFind(path);
    if (found == zip.entries.constEnd()) throw FileError(FileOperation::Read, path, ENOENT);
    return *found;
}

QString ImportPackage::head(const QString& path, qsizetype bytes) const {
    try {
        if (const auto* const zip = std::get_if<Zip>(&m_storage)) {
            return TextDecoding::decode(zip->archive->prefix(entry(*zip, path), bytes));
        }
        return TextDecoding::decode(headOfFile(pathOnDisk(path), bytes));
    } catch (const std::exception&) {
        return {};
    }
}

QByteArray ImportPackage::data(const QString& path) const {
    if (const auto* const zip = std::get_if<Zip>(&m_storage)) {
        return zip->archive->contents(entry(*zip, path));
    }
    return atomicfile::read(pathOnDisk(path));
}

QString ImportPackage::text(const QString& path) const {
    return TextDecoding::decode(data(path));
}

std::optional<QString> ImportPackage::fileURL(const QString& path) const {
    if (isZip()) return std::nullopt;
    return pathOnDisk(path);
}

QString ImportPackage::pathOnDisk(const QString& path) const {
    const auto* const folder = std::get_if<Folder>(&m_storage);
    return folder == nullptr ? m_url : folder->path + u'/' + path;
}

ImportPackage::LentFile ImportPackage::lend(const QString& path) const {
    const auto* const zip = std::get_if<Zip>(&m_storage);
    if (zip == nullptr) return LentFile(pathOnDisk(path));
    const QString name = nameForCopy(path);
    const QByteArray bytes = zip->archive->contents(entry(*zip, path));
    const QString folder = QDir::tempPath() + QStringLiteral("/VelmarImport-") +
                           QUuid::createUuid().toString(QUuid::WithoutBraces);
    return LentFile(folder, name, bytes);
}

ImportPackage::LentFile::LentFile(QString folder, const QString& name, const QByteArray& bytes)
    : m_folder(std::move(folder)), m_path(m_folder + u'/' + name) {
    atomicfile::makePrivateFolder(m_folder);
    QFile file(m_path);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush()) {
        return;
    }
    const int code = errno;
    QDir(m_folder).removeRecursively();
    throw FileError(FileOperation::Write, m_path, code);
}

ImportPackage::LentFile::~LentFile() {
    if (!m_folder.isEmpty()) QDir(m_folder).removeRecursively();
}

bool ImportPackage::isJunk(QStringView path) {
    const auto components = path.split(u'/', Qt::SkipEmptyParts);
    return std::any_of(components.begin(), components.end(), [](QStringView component) {
        return component == u"__MACOSX" || component.startsWith(u'.');
    });
}

}  // namespace diary
