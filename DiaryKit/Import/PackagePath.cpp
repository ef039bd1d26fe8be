#include "DiaryKit/Import/PackagePath.h"

#include <QtCore/QByteArray>
#include <algorithm>
#include <utility>
#include <vector>

namespace diary::package_path {

QStringView lastComponent(QStringView path) {
    return path.sliced(path.lastIndexOf(u'/') + 1);
}

QStringView extension(QStringView path) {
    const QStringView name = lastComponent(path);
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot < 1 ? QStringView() : name.sliced(dot + 1);
}

QStringView stem(QStringView path) {
    const QStringView name = lastComponent(path);
    const QStringView ending = extension(path);
    return ending.isEmpty() ? name : name.chopped(ending.size() + 1);
}

QStringList withExtensions(const QStringList& paths, const std::set<QString>& extensions) {
    QStringList matching;
    for (const QString& path : paths) {
        const QString ending = extension(path).toString().toLower();
        if (!ending.isEmpty() && extensions.contains(ending)) matching.append(path);
    }
    return matching;
}

QStringList sorted(QStringList paths) {
    // The order of UTF-8 bytes is that of code points.
    std::vector<std::pair<QByteArray, QString>> keyed;
    keyed.reserve(static_cast<std::size_t>(paths.size()));
    for (QString& path : paths) {
        QByteArray key = path.normalized(QString::NormalizationForm_C).toUtf8();
        keyed.emplace_back(std::move(key), std::move(path));
    }
    std::sort(keyed.begin(), keyed.end());
    for (std::size_t i = 0; i < keyed.size(); ++i) {
        paths[static_cast<qsizetype>(i)] = std::move(keyed[i].second);
    }
    return paths;
}

}  // namespace diary::package_path
