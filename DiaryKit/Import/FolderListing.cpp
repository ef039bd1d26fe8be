// The walk through a picked folder.
#include <dirent.h>
#include <sys/stat.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <algorithm>
#include <array>
#include <memory>
#include <vector>

#include "DiaryKit/Foundation/Utf8.h"
#include "DiaryKit/Import/ImportPackage.h"
#include "DiaryKit/Import/PackagePath.h"

namespace diary {

namespace {

struct DirectoryCloser {
    void operator()(DIR* directory) const { closedir(directory); }
};

enum class Kind { File, Folder, Other };

// Where note applications keep what isn't notes.
bool isPassedOver(QByteArrayView name) {
    constexpr std::array<QByteArrayView, 5> kNames = {"node_modules", "logseq", "Attachments",
                                                      "attachments", "assets"};
    return std::find(kNames.begin(), kNames.end(), name) != kNames.end();
}

bool isDocumentFolder(const QString& name) {
    return package_path::extension(name).compare(u"rtfd", Qt::CaseInsensitive) == 0;
}

// Links to folders aren't followed, since they may lead round in circles. A link to nothing counts
// as a file, so that reading it tells what is wrong.
Kind kindOf(const QByteArray& path) {
    struct stat status = {};
    if (lstat(path.constData(), &status) != 0) return Kind::Other;
    if (S_ISDIR(status.st_mode)) return Kind::Folder;
    const bool isLink = S_ISLNK(status.st_mode);
    if (isLink && stat(path.constData(), &status) != 0) return Kind::File;
    return S_ISREG(status.st_mode) ? Kind::File : Kind::Other;
}

// Names that aren't UTF-8 can't be told from one another once they are text, nor opened again.
bool isListed(QByteArrayView name) {
    return !name.startsWith('.') && utf8::isValid(name);
}

}  // namespace

QStringList ImportPackage::listFolder(const QString& url, qsizetype limit) {
    const QString root = QDir::cleanPath(url);
    QStringList paths;
    // Folders still to be read, relative and with a slash at the end.
    std::vector<QString> folders = {QString()};
    while (!folders.empty() && paths.size() < limit) {
        const QString folder = std::move(folders.back());
        folders.pop_back();
        const QByteArray location = QFile::encodeName(root + u'/' + folder);
        const std::unique_ptr<DIR, DirectoryCloser> directory(opendir(location.constData()));
        if (!directory) continue;
        while (const dirent* const item = readdir(directory.get())) {
            const QByteArray name = item->d_name;
            if (!isListed(name)) continue;
            const QString path = folder + QString::fromUtf8(name);
            const Kind kind = kindOf(location + name);
            if (kind == Kind::File || (kind == Kind::Folder && isDocumentFolder(path))) {
                paths.append(path);
                if (paths.size() >= limit) break;
            } else if (kind == Kind::Folder && !isPassedOver(name)) {
                folders.push_back(path + u'/');
            }
        }
    }
    return package_path::sorted(std::move(paths));
}

}  // namespace diary
