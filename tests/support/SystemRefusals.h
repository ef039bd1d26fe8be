// Makes the system itself refuse writes, for this process alone and for good: to be called in a
// forked step. Both need the superuser.
#pragma once

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <QtCore/QByteArray>

namespace diary::test {

inline constexpr uid_t kNobody = 65534;

// From here on this process has a table of mounts of its own. False without the right to it.
inline bool leaveMountsOfOthersAlone() {
    return ::unshare(CLONE_NEWNS) == 0 &&
           ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

// A file system of 64 KiB over the folder. False without the right to mount.
inline bool mountSmallDisk(const QByteArray& folder) {
    return leaveMountsOfOthersAlone() &&
           ::mount("tmpfs", folder.constData(), "tmpfs", 0, "size=64k") == 0;
}

// Goes on as an ordinary user, to whom nothing of the test's folders belongs.
inline bool becomeOrdinaryUser() {
    return ::setgid(kNobody) == 0 && ::setuid(kNobody) == 0 && ::geteuid() == kNobody;
}

}  // namespace diary::test
