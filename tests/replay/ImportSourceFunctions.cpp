// The readers of other applications' exports, on files that the case brings along.
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QTemporaryDir>

#include "DiaryKit/AppSources/AppleJournalSource.h"
#include "DiaryKit/AppSources/DayOneSource.h"
#include "DiaryKit/AppSources/FlomoSource.h"
#include "DiaryKit/AppSources/JourneySource.h"
#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Import/MiniHTML.h"
#include "tests/replay/ImportShapes.h"
#include "tests/replay/Replay.h"

namespace diary::replay {

namespace {

QString text(const QJsonObject& in, const char* key) {
    return in[QLatin1String(key)].toString();
}

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

void makeFiles(const QTemporaryDir& folder, const QJsonObject& in) {
    const QJsonObject files = in[QLatin1String("files")].toObject();
    for (auto file = files.begin(); file != files.end(); ++file) {
        makeFile(folder.filePath(file.key()), file.value());
    }
}

// The batch that reading gives, or the name of what it throws.
QJsonObject result(const std::function<ImportBatch()>& reading) {
    try {
        return {{QStringLiteral("batch"), json(reading())}};
    } catch (const ImportError& error) {
        return {{QStringLiteral("error"), errorName(error)}};
    } catch (const std::exception&) {
        return {{QStringLiteral("error"), QStringLiteral("file")}};
    }
}

// A source's reader: the batch or the failure, and the files that its test lists.
template <typename List, typename Read>
Function reader(List list, Read read) {
    return [=](const QJsonObject& in) -> QJsonValue {
        const QTemporaryDir folder;
        makeFiles(folder, in);
        const ImportPackage package(folder.filePath(text(in, "picked")));
        QJsonObject out = result([&] { return read(package, text(in, "name")); });
        out[QLatin1String("files")] = QJsonArray::fromStringList(list(package));
        return out;
    };
}

QJsonValue overlayText(const QJsonObject& in) {
    const HTMLDocument document = MiniHTML::parse(text(in, "html"));
    const HTMLNode* const first =
        document.root().first([](const HTMLNode& node) { return !node.isText(); });
    const QStringList texts = first ? AppleJournalSource::overlayText(*first) : QStringList();
    return QJsonObject{{QStringLiteral("texts"), QJsonArray::fromStringList(texts)}};
}

}  // namespace

void addImportSourceFunctions(Table& table) {
    table[QStringLiteral("dayOneRead")] = reader(DayOneSource::journalFiles, DayOneSource::read);
    table[QStringLiteral("journeyRead")] = reader(JourneySource::entryFiles, JourneySource::read);
    table[QStringLiteral("appleJournalRead")] =
        reader(AppleJournalSource::entryFiles, AppleJournalSource::read);
    table[QStringLiteral("flomoRead")] = reader(FlomoSource::memoFiles, FlomoSource::read);
    table[QStringLiteral("unwrapCocoa")] = [](const QJsonObject& in) -> QJsonValue {
        return QJsonObject{
            {QStringLiteral("html"), AppleJournalSource::unwrapCocoa(text(in, "html"))}};
    };
    table[QStringLiteral("overlayText")] = overlayText;
    table[QStringLiteral("dayOneCleanText")] = [](const QJsonObject& in) -> QJsonValue {
        return QJsonObject{{QStringLiteral("text"), DayOneSource::cleanText(text(in, "text"))}};
    };
}

}  // namespace diary::replay
