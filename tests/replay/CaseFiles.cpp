#include "tests/replay/CaseFiles.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <iterator>

#include "tests/replay/ImportShapes.h"

namespace diary::replay {

QString text(const QJsonObject& in, const char* key) {
    return in[QLatin1String(key)].toString();
}

namespace {

// Writes what the case has at that path: a text, bytes, an empty folder, or a link to nothing.
void makeFile(const QString& path, const QJsonValue& content) {
    QDir().mkpath(QFileInfo(path).path());
    const QJsonObject special = content.toObject();
    if (special.contains(QLatin1String("dir"))) {
        QDir().mkpath(path);
        return;
    }
    if (special.contains(QLatin1String("link"))) {
        QFile::link(text(special, "link"), path);
        return;
    }
    const QByteArray bytes = content.isString()
                                 ? content.toString().toUtf8()
                                 : QByteArray::fromBase64(text(special, "base64").toLatin1());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) file.write(bytes);
}

}  // namespace

void makeFiles(const QTemporaryDir& folder, const QJsonObject& in) {
    const QJsonObject files = in[QLatin1String("files")].toObject();
    for (auto file = files.begin(); file != files.end(); ++file) {
        // Some cases name a path both as a file and as the folder of others: it is a folder. Keys
        // are sorted, so what lies below it follows.
        const auto next = std::next(file);
        if (next != files.end() && next.key().startsWith(file.key() + QLatin1Char('/'))) continue;
        makeFile(folder.filePath(file.key()), file.value());
    }
}

QJsonObject result(const std::function<ImportBatch()>& reading) {
    try {
        return {{QStringLiteral("batch"), json(reading())}};
    } catch (const ImportError& error) {
        return {{QStringLiteral("error"), errorName(error)}};
    } catch (const std::exception&) {
        return {{QStringLiteral("error"), QStringLiteral("file")}};
    }
}

DatedTextSplit::Options splitOptions(const QJsonObject& in) {
    DatedTextSplit::Options options;
    const QString placement = text(in, "placement");
    if (placement == u"paragraphStart") {
        options.placement = DatedTextSplit::Placement::paragraphStart;
    } else if (placement == u"anyLine") {
        options.placement = DatedTextSplit::Placement::anyLine;
    }
    const QString rest = text(in, "rest");
    if (rest == u"body") options.rest = DatedTextSplit::Rest::body;
    if (rest == u"drop") options.rest = DatedTextSplit::Rest::drop;
    const QJsonValue dayFirst = in[QLatin1String("dayFirst")];
    if (dayFirst.isBool()) options.dayFirst = dayFirst.toBool();
    const QJsonValue assumedYear = in[QLatin1String("assumedYear")];
    if (assumedYear.isDouble()) options.assumedYear = assumedYear.toInt();
    return options;
}

}  // namespace diary::replay
