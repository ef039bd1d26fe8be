// Starts a program with the moment of its start in VELMAR_BENCH_START, and becomes it.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>

int main(int, char** argv) {
    timespec moment{};
    ::clock_gettime(CLOCK_MONOTONIC, &moment);
    char text[32];
    std::snprintf(text, sizeof text, "%lld", moment.tv_sec * 1'000'000'000LL + moment.tv_nsec);
    ::setenv("VELMAR_BENCH_START", text, 1);
    ::execv(argv[1], argv + 1);
    return 127;
}
