// How much memory one step takes.
#pragma once

#include <cstdlib>
#include <functional>
#include <limits>
#include <string>

#include "tests/kit/import/PeakMemory.h"
#include "tests/support/ForkedStep.h"

namespace diary::testing {

// How far the peak of the resident memory rises while the step runs, in bytes. A process of its own
// runs it, since a peak never falls again. A step that throws takes the most there is.
inline qint64 memoryOfStep(const std::function<void()>& step) {
    const std::string words = test::wordsOfFork([&] {
        const qint64 before = peakMemory();
        step();
        return std::to_string(peakMemory() - before);
    });
    char* end = nullptr;
    const qint64 bytes = std::strtoll(words.c_str(), &end, 10);
    const bool isNumber = !words.empty() && *end == '\0';
    return isNumber ? bytes : std::numeric_limits<qint64>::max();
}

}  // namespace diary::testing
