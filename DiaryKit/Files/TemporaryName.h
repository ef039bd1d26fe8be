// The hidden names of temporaries: `.~03-07.md.<host>.<boot>.<pid>.<start>.<serial>.tmp`. The
// beginning and the end are what sync services skip; the middle says whose it is, so that a
// temporary is removed only when its owner is known to be dead.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>
#include <cstdint>
#include <optional>

namespace diary {

// The process that owns a temporary.
struct ProcessIdentity {
    // The machine's name, of letters, digits and hyphens, with a print of its machine id and of the
    // pid namespace: sandboxes of one machine count their pids apart.
    QString host;
    // The machine's boot, so that a pid of an earlier boot isn't taken for a living one.
    QString boot;
    std::int64_t pid = 0;
    // The process's start in clock ticks since boot, so that a reused pid isn't either.
    std::uint64_t start = 0;

    bool operator==(const ProcessIdentity&) const = default;

    // This process; after a fork the child. The reference stays good. Any thread.
    [[nodiscard]] static const ProcessIdentity& current();
};

// A name for a new temporary beside `fileName`, shortened if the whole would be longer than file
// systems take. No two calls give the same.
[[nodiscard]] QString temporaryName(const QString& fileName, const ProcessIdentity& owner);

// The owner in such a name, or nothing if it is no temporary's name.
[[nodiscard]] std::optional<ProcessIdentity> temporaryOwner(QStringView name);

// Whether the owner is known to be dead: a process of this host that belongs to an earlier boot,
// or whose pid is free, or taken by a process that began at another time.
[[nodiscard]] bool isKnownDead(const ProcessIdentity& owner);

}  // namespace diary
