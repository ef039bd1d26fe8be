#include "DiaryKit/Files/UserFolders.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <optional>

namespace diary {

namespace {

// As many links as the kernel follows in one path.
constexpr int kMostLinks = 40;

bool isOwnFolder(const QByteArray& path, struct stat& status) {
    return ::lstat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == ::geteuid();
}

// Whether the folder is there for this user alone once the call returns; makes it if it is missing.
// A link in its place, or another user's folder, is refused: both could lead anywhere.
bool ensureOwnFolder(const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    if (::mkdir(name.constData(), 0700) != 0 && errno != EEXIST) return false;
    struct stat status {};
    if (!isOwnFolder(name, status)) return false;
    return (status.st_mode & 0077) == 0 || ::chmod(name.constData(), 0700) == 0;
}

// The folder of that name within a runtime folder of this user, or an empty text.
QString runtimeFolderIn(const QString& base) {
    struct stat status {};
    if (!QDir::isAbsolutePath(base) || !isOwnFolder(QFile::encodeName(base), status)) return {};
    QString path = base + QStringLiteral("/velmar");
    return ensureOwnFolder(path) ? path : QString();
}

std::optional<QByteArray> realPath(const QByteArray& path) {
    char resolved[PATH_MAX];
    if (::realpath(path.constData(), resolved) == nullptr) return std::nullopt;
    return QByteArray(resolved);
}

// Where the link at `path` leads, or nothing if there is none.
std::optional<QByteArray> linkTarget(const QByteArray& path) {
    char target[PATH_MAX];
    const ssize_t length = ::readlink(path.constData(), target, sizeof target);
    if (length < 0) return std::nullopt;
    return QByteArray(target, length);
}

}  // namespace

QString userRuntimeFolder() {
    QString given = runtimeFolderIn(qEnvironmentVariable("XDG_RUNTIME_DIR"));
    if (!given.isEmpty()) return given;
    QString usual = runtimeFolderIn(QStringLiteral("/run/user/%1").arg(::geteuid()));
    return usual.isEmpty() ? userTemporaryFolder() : usual;
}

QString userTemporaryFolder() {
    QString path = QStringLiteral("%1/velmar-%2").arg(QDir::tempPath()).arg(::geteuid());
    return ensureOwnFolder(path) ? path : QString();
}

QString userStateFolder() {
    const QString given = qEnvironmentVariable("XDG_STATE_HOME");
    const QString base =
        QDir::isAbsolutePath(given) ? given : QDir::homePath() + QStringLiteral("/.local/state");
    return base + QStringLiteral("/velmar");
}

QString resolvedPath(const QString& path) {
    QByteArray existing = QFile::encodeName(
        QDir::isAbsolutePath(path) ? path : QDir::currentPath() + QLatin1Char('/') + path);
    QByteArray missing;
    int links = 0;
    for (;;) {
        if (const std::optional<QByteArray> resolved = realPath(existing)) {
            return QDir::cleanPath(QFile::decodeName(*resolved + missing));
        }
        while (existing.size() > 1 && existing.endsWith('/')) existing.chop(1);
        const qsizetype slash = existing.lastIndexOf('/');
        // A link whose target is yet to come has the same key before and after that.
        const std::optional<QByteArray> target = linkTarget(existing);
        if (target && ++links <= kMostLinks) {
            existing = target->startsWith('/') ? *target : existing.first(slash + 1) + *target;
        } else {
            missing.prepend(existing.sliced(slash));
            existing.truncate(qMax<qsizetype>(slash, 1));
        }
    }
}

}  // namespace diary
