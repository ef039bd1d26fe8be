#include "DiaryKit/Vault/DayFile.h"

#include <dirent.h>

#include <QtCore/QFile>
#include <cerrno>

#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Files/DownloadService.h"
#include "DiaryKit/Files/FileCoordinator.h"
#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Foundation/Utf8.h"
#include "DiaryKit/Vault/YearSectionParser.h"

namespace diary::dayfile {

namespace {

Content contentOf(QByteArray bytes) {
    Content content;
    content.bytes = std::move(bytes);
    content.isValidUtf8 = utf8::isValid(content.bytes);
    content.text = utf8::decodedWithRepair(content.bytes);
    return content;
}

// The day that a file or a placeholder of this name stands for. Most names of a large vault are
// plain keys, so those are read without a detour.
std::optional<MonthDay> dayOfName(QByteArrayView name) {
    constexpr qsizetype kKeyLength = 8;
    if (name.size() == kKeyLength) return MonthDay::parse(QString::fromLatin1(name));
    if (name.size() < kKeyLength || (name[0] != '.' && !name.endsWith("cloud"))) {
        return std::nullopt;
    }
    const std::optional<QString> target = placeholderTarget(QFile::decodeName(name.toByteArray()));
    return target ? MonthDay::parse(*target) : std::nullopt;
}

// Absent if there is no such file; every other failure is thrown.
std::optional<Content> existingContent(const QString& path) {
    try {
        return contentOf(atomicfile::read(path));
    } catch (const FileError& error) {
        if (error.code() == ENOENT || error.code() == ENOTDIR) return std::nullopt;
        throw;
    }
}

Rewritten replaced(const QString& root, const MonthDay& monthDay,
                   const std::optional<Content>& existing, QString text) {
    const QString path = dayfile::path(root, monthDay);
    const QByteArray bytes = text.toUtf8();
    const bool isBlank =
        !existing && YearSectionParser::isEffectivelyEmpty(text, monthDay.headerTitle());
    if (isBlank || (existing && existing->bytes == bytes)) {
        return {std::move(text), fileStamp(path)};
    }
    atomicfile::makeFolder(root);
    const FileStamp stamp = atomicfile::writeOver(
        path, existing ? std::optional(existing->bytes) : std::nullopt, bytes);
    return {std::move(text), stamp};
}

// Again from the start where a program that takes no part in the coordination, such as a sync
// service, has changed the file since it was read.
void untilNobodyInterferes(const std::function<void()>& attempt) {
    // Nothing writes a day's file so often; whatever does won't end.
    constexpr int kMostAttempts = 5;
    for (int count = 1;; ++count) {
        try {
            return attempt();
        } catch (const FileError& error) {
            if (error.code() != ESTALE || count == kMostAttempts) throw;
        }
    }
}

void modifyOnce(const QString& file, const Modification& body) {
    std::optional<Content> existing = existingContent(file);
    if (existing && !existing->isValidUtf8) throw FileError(FileOperation::Decode, file, EILSEQ);
    body(file, existing ? std::optional(std::move(existing->text)) : std::nullopt);
}

}  // namespace

QString path(const QString& root, const MonthDay& monthDay) {
    return root + u'/' + monthDay.fileName();
}

QString blankTemplate(const MonthDay& monthDay) {
    return QLatin1String("# ") + monthDay.headerTitle() + u'\n';
}

std::set<MonthDay> dayFiles(const QString& root) {
    std::set<MonthDay> days;
    DIR* folder = ::opendir(QFile::encodeName(root).constData());
    if (!folder) return days;
    while (const dirent* entry = ::readdir(folder)) {
        const std::optional<MonthDay> day = dayOfName(QByteArrayView(entry->d_name));
        if (day) days.insert(*day);
    }
    ::closedir(folder);
    return days;
}

std::optional<QString> existingText(const QString& root, const MonthDay& monthDay) {
    std::optional<QString> text;
    try {
        FileCoordinator(root).coordinateReading([&] {
            const auto bytes = atomicfile::tryRead(path(root, monthDay));
            if (bytes) text = utf8::decodedWithRepair(*bytes);
        });
    } catch (const FileError&) {
        return std::nullopt;  // A lock that can't be had is a file that can't be read.
    }
    return text;
}

Loaded load(const QString& root, const MonthDay& monthDay) {
    std::optional<Content> content;
    try {
        FileCoordinator(root).coordinateReading(
            [&] { content = existingContent(path(root, monthDay)); });
    } catch (const FileError&) {
        return {blankTemplate(monthDay), true};
    }
    return {content ? std::move(content->text) : blankTemplate(monthDay), false};
}

void modifyingFile(const QString& root, const MonthDay& monthDay, const Modification& body) {
    atomicfile::makeFolder(root);
    FileCoordinator(root).coordinateWriting(
        [&] { untilNobodyInterferes([&] { modifyOnce(path(root, monthDay), body); }); });
}

Rewritten rewrite(const QString& root, const MonthDay& monthDay,
                  const std::function<QString(const std::optional<Content>& existing)>& change) {
    Rewritten result;
    const auto attempt = [&] {
        const std::optional<Content> existing = existingContent(path(root, monthDay));
        result = replaced(root, monthDay, existing, change(existing));
    };
    FileCoordinator(root).coordinateWriting([&] { untilNobodyInterferes(attempt); });
    return result;
}

}  // namespace diary::dayfile
