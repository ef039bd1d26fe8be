// The readers of folders, on files that the case brings along.
#include <QtCore/QDir>
#include <QtCore/QJsonArray>
#include <QtCore/QTemporaryDir>
#include <algorithm>
#include <array>

#include "DiaryKit/FolderSources/MarkdownFolderSource.h"
#include "DiaryKit/FolderSources/VelmarFolderSource.h"
#include "tests/replay/CaseFiles.h"
#include "tests/replay/Replay.h"

namespace diary::replay {

namespace {

using MarkdownFolderSource::Flavor;

constexpr std::array<QLatin1String, 4> kFlavors = {QLatin1String("obsidian"),
                                                   QLatin1String("logseq"), QLatin1String("diarly"),
                                                   QLatin1String("generic")};

QJsonValue json(const std::optional<DiaryDay>& day) {
    if (!day) return QJsonValue::Null;
    return QJsonObject{{QStringLiteral("year"), day->year},
                       {QStringLiteral("month"), day->month},
                       {QStringLiteral("day"), day->day}};
}

QJsonValue markdownDate(const QJsonObject& in) {
    std::optional<NotePathPattern> format;
    QJsonValue compiles = QJsonValue::Null;
    if (in[QLatin1String("format")].isString()) {
        format = MarkdownFolderSource::momentRegex(text(in, "format"), text(in, "folder"));
        compiles = format.has_value();
    }
    return QJsonObject{
        {QStringLiteral("compiles"), compiles},
        {QStringLiteral("day"), json(MarkdownFolderSource::date(text(in, "path"), format))}};
}

QJsonValue splitFrontmatter(const QJsonObject& in) {
    const auto note = MarkdownFolderSource::splitFrontmatter(text(in, "text"));
    return QJsonObject{{QStringLiteral("body"), note.body},
                       {QStringLiteral("tags"), QJsonArray::fromStringList(note.tags)},
                       {QStringLiteral("date"), json(note.date)}};
}

QJsonValue markdownClean(const QJsonObject& in) {
    const auto flavor =
        std::find(kFlavors.begin(), kFlavors.end(), text(in, "flavor")) - kFlavors.begin();
    const auto cleaned = MarkdownFolderSource::clean(text(in, "text"), static_cast<Flavor>(flavor));
    return QJsonObject{{QStringLiteral("text"), cleaned.text},
                       {QStringLiteral("removed"), cleaned.removed}};
}

QJsonValue markdownFolderRead(const QJsonObject& in) {
    const QTemporaryDir folder;
    makeFiles(folder, in);
    const ImportPackage package(folder.filePath(text(in, "picked")));
    QJsonObject out = result([&] { return MarkdownFolderSource::read(package, text(in, "name")); });
    out[QLatin1String("flavor")] =
        kFlavors[static_cast<std::size_t>(MarkdownFolderSource::flavor(package))];
    QJsonArray notes;
    for (const auto& note : MarkdownFolderSource::datedNotes(package)) {
        notes.append(QJsonObject{{QStringLiteral("path"), note.path},
                                 {QStringLiteral("day"), json(note.day)}});
    }
    out[QLatin1String("datedNotes")] = notes;
    return out;
}

QJsonValue orNull(const std::optional<QString>& text) {
    return text ? QJsonValue(*text) : QJsonValue(QJsonValue::Null);
}

QJsonValue velmarFolderRead(const QJsonObject& in) {
    const QTemporaryDir files;
    makeFiles(files, in);
    const auto relative = [&](std::optional<QString> path) {
        if (path) path = QDir(files.path()).relativeFilePath(*path);
        return path;
    };
    const QString picked = files.filePath(text(in, "picked"));
    QJsonObject out = result([&] {
        ImportBatch batch = VelmarFolderSource::read(picked, text(in, "name"),
                                                     in[QLatin1String("currentYear")].toInt());
        batch.reportURL = relative(batch.reportURL);
        return batch;
    });
    out[QLatin1String("dayFolder")] = orNull(relative(VelmarFolderSource::dayFolder(picked)));
    return out;
}

QJsonValue undemotedHeading(const QJsonObject& in) {
    return QJsonObject{
        {QStringLiteral("line"), orNull(VelmarFolderSource::undemotedHeading(text(in, "text")))}};
}

}  // namespace

void addFolderSourceFunctions(Table& table) {
    table[QStringLiteral("markdownDate")] = markdownDate;
    table[QStringLiteral("splitFrontmatter")] = splitFrontmatter;
    table[QStringLiteral("markdownClean")] = markdownClean;
    table[QStringLiteral("dropDateTitle")] = [](const QJsonObject& in) -> QJsonValue {
        return QJsonObject{
            {QStringLiteral("text"), MarkdownFolderSource::dropDateTitle(text(in, "text"))}};
    };
    table[QStringLiteral("markdownFolderRead")] = markdownFolderRead;
    table[QStringLiteral("velmarFolderRead")] = velmarFolderRead;
    table[QStringLiteral("undemotedHeading")] = undemotedHeading;
}

}  // namespace diary::replay
