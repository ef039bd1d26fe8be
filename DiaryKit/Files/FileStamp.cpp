#include "DiaryKit/Files/FileStamp.h"

#include <sys/stat.h>

#include <QtCore/QFile>

namespace diary {

std::optional<FileStamp> fileStamp(const QString& path) {
    struct stat status {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0) return std::nullopt;
    constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
    return FileStamp{
        .modified = status.st_mtim.tv_sec * kNanosecondsPerSecond + status.st_mtim.tv_nsec,
        .inode = status.st_ino,
        .size = status.st_size};
}

}  // namespace diary
