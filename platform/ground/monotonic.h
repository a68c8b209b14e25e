// The clock of everything that waits or beats: it never jumps.
#ifndef OSTREL_GROUND_MONOTONIC_H
#define OSTREL_GROUND_MONOTONIC_H

#include <time.h>

#include <cstdint>

constexpr int64_t nanosecondsPerMs = 1'000'000;
constexpr int64_t nanosecondsPerSecond = 1'000'000'000;

// Nanoseconds of CLOCK_MONOTONIC.
inline int64_t monotonicNow() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec * nanosecondsPerSecond + now.tv_nsec;
}

#endif
