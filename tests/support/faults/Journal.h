// What a program has done to files and what of it would survive a power cut. Uses the kernel's
// calls directly, so that it never meets the interceptors of its own library.
#pragma once

#include <sys/stat.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace faults {

// What survives although it wasn't synced.
enum class Keep { Nothing, Names, Data };

using FileId = std::pair<dev_t, ino_t>;

// What stood under a name, to put it back there.
struct Remains {
    mode_t mode = 0;
    // A file's bytes as they are and as of its last sync, or where a link leads.
    std::string bytes;
    std::string durableBytes;
};

class Journal {
public:
    // Ahead of a change of the file's bytes.
    void touch(int descriptor);
    void touch(const std::string& path);

    // After the file, or the folder, was synced.
    void synced(int descriptor);
    void syncedAll();

    // What stands under the name, ahead of its replacement or removal; absent if nothing does.
    [[nodiscard]] std::optional<Remains> remains(const std::string& path) const;

    // After the change of a name. Paths are absolute, without links ahead of the last component.
    void made(const std::string& path);
    void removed(const std::string& path, const Remains& what);
    void renamed(const std::string& from, const std::string& to,
                 const std::optional<Remains>& replaced);
    void exchanged(const std::string& a, const std::string& b);

    // Drops what wouldn't survive.
    void cutPower(Keep keep);

private:
    struct Dirty {
        // Opened by us, to put the bytes back wherever the file is by then.
        int descriptor = -1;
        std::string durableBytes;
    };
    struct NameChange {
        // The folders that haven't been synced since.
        std::vector<FileId> pending;
        std::function<void(Keep)> undo;
    };

    void note(const std::vector<std::string>& paths, std::function<void(Keep)> undo);

    std::map<FileId, Dirty> m_dirty;
    std::vector<NameChange> m_changes;
};

}  // namespace faults
