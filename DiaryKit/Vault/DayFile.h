// One day's file on the disk: where it lies, and coordinated access to it from any thread. The
// writing session goes through DiaryStore, which adds the caches of the main thread.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <functional>
#include <optional>
#include <set>

#include "DiaryKit/Files/FileStamp.h"
#include "DiaryKit/Vault/MonthDay.h"

namespace diary::dayfile {

// The bytes of a day file and what they say.
struct Content {
    QByteArray bytes;
    // With U+FFFD in place of what isn't valid UTF-8.
    QString text;
    bool isValidUtf8 = true;

    bool operator==(const Content&) const = default;
};

// `root` + the day's file name.
[[nodiscard]] QString path(const QString& root, const MonthDay& monthDay);

// "# MM-DD" and LF: what a day reads as that has no file.
[[nodiscard]] QString blankTemplate(const MonthDay& monthDay);

// The days that the folder has a file or a placeholder for. A folder that can't be listed has none.
[[nodiscard]] std::set<MonthDay> dayFiles(const QString& root);

// The file's text, repaired where it isn't valid UTF-8; absent if the file doesn't exist or can't
// be read. A coordinated read: blocks while another writes.
[[nodiscard]] std::optional<QString> existingText(const QString& root, const MonthDay& monthDay);

// What a page is loaded from.
struct Loaded {
    // The file's text, repaired where it isn't valid UTF-8; the blank template without one.
    QString text;
    // The file may hold more than `text` tells: it is there and can't be read.
    bool isUnreadable = false;

    bool operator==(const Loaded&) const = default;
};

// Reads the file for a page; never throws. Blocks while another writes.
[[nodiscard]] Loaded load(const QString& root, const MonthDay& monthDay);

// What becomes of a day's file; `text` is absent if there is none.
using Modification = std::function<void(const QString& path, const std::optional<QString>& text)>;

// Reads the file and runs `body` with its path and its text, absent if there is no file, under one
// exclusive coordination; `body` does the writing. The vault folder is made first. A file that
// isn't valid UTF-8 throws FileError (Decode, EILSEQ), one that can't be read FileError (Read),
// both without running `body`; what `body` throws is passed on. Only if that is a FileError with
// ESTALE, as atomicfile::writeOver throws it, the file is read anew and `body` runs once more, a
// few times at the most.
void modifyingFile(const QString& root, const MonthDay& monthDay, const Modification& body);

// What a rewrite left on the disk.
struct Rewritten {
    QString text;
    // Absent if the day has no file, and got none.
    std::optional<FileStamp> stamp;

    bool operator==(const Rewritten&) const = default;
};

// Reads the file, asks `change` for its new text, and writes that, synced, under one exclusive
// coordination. No file is made for a text that is effectively empty, and nothing is written where
// the bytes stay the same. A program that takes no part in the coordination, such as a sync
// service, may change the file meanwhile: then `change` is asked again, with what stands there now,
// and after some times that ends in ESTALE. Throws FileError where the file exists but can't be
// read, where writing fails, and what `change` throws; the old file stands then.
Rewritten rewrite(const QString& root, const MonthDay& monthDay,
                  const std::function<QString(const std::optional<Content>& existing)>& change);

}  // namespace diary::dayfile
