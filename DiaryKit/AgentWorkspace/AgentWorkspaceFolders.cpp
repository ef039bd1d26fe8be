// A workspace on the disk.
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <cerrno>
#include <filesystem>

#include "DiaryKit/AgentWorkspace/AgentWorkspace.h"
#include "DiaryKit/AgentWorkspace/AgentWorkspaceTexts.h"
#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Vault/DayFile.h"

namespace diary::AgentWorkspace {

using namespace Qt::StringLiterals;

namespace fs = std::filesystem;

namespace {

fs::path native(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

QString portable(const fs::path& path) {
    return QFile::decodeName(QByteArray::fromStdString(path.string()));
}

// A free name in the parent, as a folder of its own. A name that another process takes between the
// look and the making is not free either.
QString makeFolder(const QString& name, const QString& parent, const QDateTime& date) {
    const QString day = QLocale::c().toString(date.toLocalTime().date(), u"yyyy-MM-dd"_s);
    const QString base = QDir(parent).filePath(name + u' ' + day);
    std::error_code failure;
    fs::create_directories(native(parent), failure);
    if (failure) throw FileError(FileOperation::MakeFolder, parent, failure.value());
    QString path = base;
    for (int number = 2;; ++number) {
        if (fs::create_directory(native(path), failure)) return path;
        if (failure && failure.value() != EEXIST) {
            throw FileError(FileOperation::MakeFolder, path, failure.value());
        }
        path = base + u' ' + QString::number(number);
    }
}

QString makeSubfolder(const QString& folder, const QString& name) {
    QString path = QDir(folder).filePath(name);
    atomicfile::makeFolder(path);
    return path;
}

// Copies what stands at `from`, whatever its size, without reading it into memory. Links inside a
// folder stay links, so that none can lead the copy in circles; pipes and devices hold no text and
// stay behind. Folders get this user's usual mode: into a copy of a read-only folder nothing could
// be written. `except`, the workspace itself, is left out where it is made inside the very folder
// that is copied.
void copyTree(const QString& from, const QString& to, const QString& except) {
    fs::path failed = native(from);
    try {
        const fs::path source = fs::canonical(failed);
        const fs::path target = native(to);
        if (!fs::is_directory(source)) {
            fs::copy_file(source, target);
            return;
        }
        const fs::path workspace = fs::canonical(native(except));
        fs::create_directory(target);
        for (fs::recursive_directory_iterator item(source), end; item != end; ++item) {
            failed = item->path();
            const fs::path place = target / failed.lexically_relative(source);
            if (item->is_symlink()) {
                fs::copy_symlink(failed, place);
            } else if (item->is_regular_file()) {
                fs::copy_file(failed, place);
            } else if (failed == workspace) {
                item.disable_recursion_pending();
            } else if (item->is_directory()) {
                fs::create_directory(place);
            }
        }
    } catch (const fs::filesystem_error& error) {
        throw FileError(FileOperation::Write, portable(failed), error.code().value());
    }
}

// Agents look for a file of their own name; both point to the task.
void writeGuides(const QString& spec, const QString& folder, Language language) {
    const QDir workspace(folder);
    const QByteArray pointer = texts(language).pointer.toUtf8();
    atomicfile::write(workspace.filePath(u"VELMAR.md"_s), spec.toUtf8());
    atomicfile::write(workspace.filePath(u"AGENTS.md"_s), pointer);
    atomicfile::write(workspace.filePath(u"CLAUDE.md"_s), pointer);
}

}  // namespace

QString createImport(const QString& source, const QString& appName, const QString& parent,
                     Language language, const QTimeZone& timeZone, const QDateTime& date) {
    const Names& inner = names(language);
    QString folder = makeFolder(inner.importFolder, parent, date);
    const QString copies = makeSubfolder(folder, inner.source);
    makeSubfolder(folder, inner.output);
    const QString name = QFileInfo(QDir::cleanPath(source)).fileName();
    copyTree(source, QDir(copies).filePath(name), folder);
    writeGuides(importSpec(appName, timeZone, language), folder, language);
    return folder;
}

QString createExport(const QString& vault, Target target, const QString& parent, Language language,
                     const QTimeZone& timeZone, const QDateTime& date) {
    const Names& inner = names(language);
    QString folder = makeFolder(inner.exportFolder, parent, date);
    const QString copies = makeSubfolder(folder, inner.diary);
    makeSubfolder(folder, inner.output);
    for (const MonthDay& day : dayfile::dayFiles(vault)) {
        const std::optional<QString> text = dayfile::existingText(vault, day);
        // A copy that the vault still holds needn't outlive a power failure.
        if (text) {
            atomicfile::write(dayfile::path(copies, day), text->toUtf8(),
                              atomicfile::Durability::Unsynced);
        }
    }
    writeGuides(exportSpec(target, timeZone, language), folder, language);
    return folder;
}

}  // namespace diary::AgentWorkspace
