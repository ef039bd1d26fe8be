// A bound on the memory that a test has taken.
#pragma once

#include <sys/resource.h>

#include <QtCore/QtGlobal>

namespace diary::testing {

inline constexpr qint64 kMebibyte = qint64{1024} * 1024;

// The address sanitizer keeps shadows of memory, and freed memory for a while.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr qint64 kMostMemory = 2048 * kMebibyte;
#else
inline constexpr qint64 kMostMemory = 512 * kMebibyte;
#endif

// The peak of the resident memory so far, in bytes. It only grows, so a bound on it holds for all
// that came before.
inline qint64 peakMemory() {
    struct rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss * qint64{1024};
}

}  // namespace diary::testing
