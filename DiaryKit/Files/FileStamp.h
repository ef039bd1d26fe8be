// What tells one state of a file from another without reading it.
#pragma once

#include <QtCore/QString>
#include <compare>
#include <cstdint>
#include <optional>

struct stat;

namespace diary {

// The modification moment, with inode and size for two writes within one tick of the file
// system's clock. Stamps are compared for equality; `modified` alone says which is later.
struct FileStamp {
    // Nanoseconds since 1970-01-01T00:00:00Z. The distant past is 0 of everything.
    std::int64_t modified = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;

    bool operator==(const FileStamp&) const = default;
};

// The stamp of the file, links followed; absent if it can't be examined. Any thread.
[[nodiscard]] std::optional<FileStamp> fileStamp(const QString& path);

// The stamp in what stat(2) gave.
[[nodiscard]] FileStamp fileStamp(const struct stat& status);

}  // namespace diary
