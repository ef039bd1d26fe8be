// Writes files in one of several ways, careful and careless ones, for the fault library's tests:
// velmar_faults_writer way folder. Gives 0 if every step went well. Where a way says "saved" it
// promises that the bytes last.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QFile>
#include <cstdio>
#include <cstring>
#include <map>
#include <string>

#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Foundation/FileError.h"

namespace {

bool sync(const char* path) {
    const int file = ::open(path, O_RDONLY);
    const bool isSynced = ::fsync(file) == 0;
    ::close(file);
    return isSynced;
}

bool put(const char* path, const char* bytes, int flags) {
    const int file = ::open(path, O_WRONLY | O_CREAT | flags, 0644);
    if (file < 0) return false;
    const auto length = static_cast<ssize_t>(std::strlen(bytes));
    const bool isWritten = ::write(file, bytes, std::strlen(bytes)) == length;
    ::close(file);
    return isWritten;
}

void say(const char* word) {
    std::fputs(word, stdout);
    std::fflush(stdout);
}

bool inPlace() {
    return put("a", "new text", O_TRUNC);
}
bool append() {
    return put("a", " and more", O_APPEND);
}

bool renameWithoutSync() {
    return put("t", "new text", O_EXCL) && ::rename("t", "a") == 0 && sync(".");
}

bool renameWithoutFolderSync() {
    return put("t", "new text", O_EXCL) && sync("t") && ::rename("t", "a") == 0;
}

bool renameWithSync() {
    return renameWithoutFolderSync() && sync(".");
}

bool removeFile() {
    return ::unlink("a") == 0;
}
bool makeFolder() {
    return ::mkdir("made", 0755) == 0 && put("made/x", "x", 0) && sync("made/x");
}
bool removeFolder() {
    return ::rmdir("empty") == 0;
}
bool makeLinks() {
    return ::symlink("a", "soft") == 0 && ::link("a", "hard") == 0;
}
bool shorten() {
    return ::truncate("a", 1) == 0;
}

bool moveBetweenFolders() {
    return ::rename("a", "empty/a") == 0 && sync("empty");
}

bool byQt() {
    QFile file(QStringLiteral("t"));
    return file.open(QIODevice::WriteOnly) && file.write("new text") == 8 && file.flush() &&
           (file.close(), QFile::remove(QStringLiteral("a"))) && file.rename(QStringLiteral("a"));
}

bool byAtomicFile() {
    using diary::atomicfile::write;
    try {
        write(QStringLiteral("a"), "new text");
        say("saved");
        // So that there are calls behind the promise, at which it can be broken.
        write(QStringLiteral("b"), "another");
    } catch (const diary::FileError& error) {
        std::fprintf(stderr, "%s", error.what());
        return false;
    }
    return true;
}

}  // namespace

int main(int count, char** arguments) {
    const std::map<std::string, bool (*)()> ways = {
        {"in-place", inPlace},
        {"append", append},
        {"rename-without-sync", renameWithoutSync},
        {"rename-without-folder-sync", renameWithoutFolderSync},
        {"rename-with-sync", renameWithSync},
        {"remove-file", removeFile},
        {"make-folder", makeFolder},
        {"remove-folder", removeFolder},
        {"make-links", makeLinks},
        {"shorten", shorten},
        {"move-between-folders", moveBetweenFolders},
        {"qt", byQt},
        {"atomic-file", byAtomicFile},
    };
    constexpr int kUsageError = 2;
    if (count != 3 || ways.count(arguments[1]) == 0) return kUsageError;
    if (::chdir(arguments[2]) != 0) return kUsageError;
    return ways.at(arguments[1])() ? 0 : 1;
}
