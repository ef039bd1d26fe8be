// Which calls of a long run a test visits: a few in each run of the tests, others for another seed,
// or every one. The README tells the variables.
#pragma once

#include <algorithm>
#include <cstdio>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include <QtCore/QtGlobal>

namespace diary::test {

inline bool visitsEveryCall() {
    return qEnvironmentVariableIsSet("VELMAR_FAULT_EVERY_CALL");
}

// Numbers out of 1 … `calls`, ascending: one from each of `parts` stretches of equal length, or
// all. Prints what it chose, under the name of the run, which has a choice of its own.
inline std::vector<int> chosenCalls(int calls, int parts, const std::string& run) {
    const unsigned seed = std::max(1, qEnvironmentVariableIntValue("VELMAR_FAULT_SEED"));
    const bool isEvery = visitsEveryCall();
    parts = isEvery ? calls : std::min(parts, calls);
    std::mt19937 random(seed ^ static_cast<unsigned>(std::hash<std::string>()(run)));
    std::vector<int> chosen;
    for (int part = 0; part < parts; ++part) {
        const int first = part * calls / parts;
        const int next = (part + 1) * calls / parts;
        chosen.push_back(1 + first + static_cast<int>(random() % (next - first)));
    }
    std::printf("%s: %d of %d calls", run.c_str(), parts, calls);
    if (!isEvery) {
        std::printf(", seed %u:", seed);
        for (const int call : chosen) std::printf(" %d", call);
    }
    std::printf("\n");
    return chosen;
}

}  // namespace diary::test
