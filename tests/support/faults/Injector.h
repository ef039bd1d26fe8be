// Decides what becomes of each intercepted call, by the variables that README.md lists.
#pragma once

#include <mutex>
#include <set>
#include <string>

#include "tests/support/faults/Journal.h"

namespace faults {

class Injector {
public:
    // The one of this process; made at the first call and never destroyed, since the program may
    // write until its very end.
    static Injector& shared();

    // Whether a path lies below one of the roots.
    [[nodiscard]] bool concerns(const std::string& path) const;

    // Counts a call, and carries out what is due ahead of it. Gives 0 if the call shall go on, or
    // the errno value that it shall fail with.
    int enter(const char* name, const std::string& path);
    // Whether the call that was entered last shall be cut in half.
    [[nodiscard]] bool isTorn() const;
    // Carries out what is due behind the call that was entered last.
    void leave();
    void atExit();

    // The journal, if a power cut is to come.
    [[nodiscard]] Journal* journal() { return m_cutAt == kNever ? nullptr : &m_journal; }

    [[noreturn]] static void die();

    std::recursive_mutex mutex;

private:
    static constexpr long kNever = 0;
    static constexpr long kAtExit = -1;

    Injector();
    void log(const char* name, const std::string& path) const;

    std::string m_roots[2];
    std::set<std::string> m_only;
    std::string m_countFile;
    long m_killAt = kNever;
    std::string m_killWhen;
    long m_failAt = kNever;
    int m_failCode = 0;
    bool m_isFailingForever = false;
    long m_cutAt = kNever;
    Keep m_keep = Keep::Nothing;
    long m_count = 0;
    // Whether the call that was entered last is one that counts.
    bool m_isCounted = false;
    Journal m_journal;
};

// The path that a call means: absolute, without links ahead of its last component.
std::string resolved(int folder, const char* path);
// The same with the last component's links followed.
std::string followed(int folder, const char* path);
// The path of an open file, as the kernel tells it.
std::string pathOf(int descriptor);

}  // namespace faults
