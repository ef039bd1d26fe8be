// The readers of other applications' exports, on files that the case brings along.
#include <QtCore/QDir>
#include <QtCore/QJsonArray>
#include <QtCore/QTemporaryDir>

#include "DiaryKit/AppSources/AppleJournalSource.h"
#include "DiaryKit/AppSources/DayOneSource.h"
#include "DiaryKit/AppSources/FlomoSource.h"
#include "DiaryKit/AppSources/JourneySource.h"
#include "DiaryKit/Import/MiniHTML.h"
#include "DiaryKit/ImportReader/ImportReader.h"
#include "tests/replay/CaseFiles.h"
#include "tests/replay/Replay.h"

namespace diary::replay {

namespace {

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

ImportReader::Options readerOptions(const QJsonObject& in) {
    ImportReader::Options options;
    const QJsonObject moods = in[QLatin1String("moodLabels")].toObject();
    for (auto mood = moods.begin(); mood != moods.end(); ++mood) {
        options.moodLabels[mood.key()] = mood.value().toString();
    }
    const QJsonValue split = in[QLatin1String("split")];
    if (split.isObject()) options.split = splitOptions(split.toObject());
    options.currentYear = in[QLatin1String("currentYear")].toInt();
    return options;
}

QJsonValue importRead(const QJsonObject& in) {
    const QTemporaryDir folder;
    makeFiles(folder, in);
    return result([&] {
        ImportBatch batch =
            ImportReader::read(folder.filePath(text(in, "picked")),
                               readerOptions(in[QLatin1String("options")].toObject()), {});
        if (batch.reportURL)
            batch.reportURL = QDir(folder.path()).relativeFilePath(*batch.reportURL);
        return batch;
    });
}

}  // namespace

void addImportSourceFunctions(Table& table) {
    table[QStringLiteral("importRead")] = importRead;
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
