#include "DiaryKit/Files/DownloadService.h"

#include <sys/stat.h>

#include <QtCore/QFile>
#include <algorithm>
#include <array>
#include <cerrno>

namespace diary {

namespace {

enum class Presence { There, Missing, Unknown };

Presence presence(const QString& path) {
    struct stat status {};
    if (::stat(QFile::encodeName(path).constData(), &status) == 0) return Presence::There;
    return errno == ENOENT || errno == ENOTDIR ? Presence::Missing : Presence::Unknown;
}

// What stands before and behind a file's name in its placeholder's. The hidden form comes with an
// infix that one generation of the service added.
struct Affixes {
    QLatin1String prefix;
    QLatin1String suffix;
};

// The longer suffix goes ahead of the one that it ends in.
constexpr std::array kPlaceholders = {
    Affixes{QLatin1String("."), QLatin1String("-tef.icloud")},
    Affixes{QLatin1String("."), QLatin1String(".icloud")},
    Affixes{QLatin1String(""), QLatin1String(".nextcloud")},
    Affixes{QLatin1String(""), QLatin1String(".owncloud")},
};

bool hasPlaceholder(const QString& path) {
    const qsizetype slash = path.lastIndexOf(QLatin1Char('/')) + 1;
    const QString folder = path.first(slash);
    const QString name = path.sliced(slash);
    return std::ranges::any_of(kPlaceholders, [&](const Affixes& affixes) {
        return presence(folder + affixes.prefix + name + affixes.suffix) == Presence::There;
    });
}

}  // namespace

std::optional<DownloadState> DownloadService::state(const QString& path) const {
    const Presence file = presence(path);
    if (file == Presence::Unknown) return std::nullopt;
    if (hasPlaceholder(path)) {
        return file == Presence::There ? DownloadState::Downloaded : DownloadState::NotDownloaded;
    }
    if (file == Presence::Missing) return std::nullopt;
    return DownloadState::Current;
}

void DownloadService::startDownloading(const QString& path) const {
    if (m_request) m_request(path);
}

std::optional<QString> placeholderTarget(QStringView name) {
    for (const Affixes& affixes : kPlaceholders) {
        const qsizetype length = name.size() - affixes.prefix.size() - affixes.suffix.size();
        if (length > 0 && name.startsWith(affixes.prefix) && name.endsWith(affixes.suffix)) {
            return name.sliced(affixes.prefix.size(), length).toString();
        }
    }
    return std::nullopt;
}

}  // namespace diary
