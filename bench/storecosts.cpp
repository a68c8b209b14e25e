// What no loop can measure: how exactly timers come, beside a thread that sleeps to absolute times, in the same half
// minute; and how much memory an empty and a full store take, beside the bytes of their records.
#include <ostrel/events.h>
#include <ostrel/store.h>
#include <pthread.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "ground/monotonic.h"
#include "servedstore.h"

namespace {

constexpr int periodMs = 10;
constexpr int seconds = 30;
constexpr int ticks = seconds * 1000 / periodMs;

double nowMs() {
    return static_cast<double>(monotonicNow()) / nanosecondsPerMs;
}

std::vector<double> ticksOfTimer() {
    char name[] = "bench-10";
    int period = periodMs;
    int eid = 0;
    event_create_timer(name, 10, 0, 1, 0, &period, &eid);
    std::vector<double> times;
    if (event_attach(name, 10, &eid) != 0)
        return times;
    while (times.size() < ticks) {
        int came = 0;
        if (event_wait(nullptr, 0, &came) == 0)
            times.push_back(nowMs());
    }
    event_detach(eid);
    return times;
}

std::vector<double> ticksOfSleep() {
    std::vector<double> times;
    timespec next{};
    clock_gettime(CLOCK_MONOTONIC, &next);
    while (times.size() < ticks) {
        next.tv_nsec += periodMs * 1000000;
        next.tv_sec += next.tv_nsec / 1000000000;
        next.tv_nsec %= 1000000000;
        clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &next, nullptr);
        times.push_back(nowMs());
    }
    return times;
}

struct Jitter {
    double median;
    double p99;
};

// How far, in microseconds, from one tick to the next differs from the period.
Jitter jitterOf(const std::vector<double>& times) {
    std::vector<double> off;
    for (size_t i = 1; i < times.size(); ++i)
        off.push_back(std::abs(times[i] - times[i - 1] - periodMs) * 1e3);
    std::sort(off.begin(), off.end());
    if (off.empty())
        return {};
    return {off[off.size() / 2], off[off.size() * 99 / 100]};
}

void printRow(const char* name, double cost, double floor, const char* unit) {
    std::printf("%-10s %-30s %12.1f %12.1f %s %8.2f\n", "storecosts", name, cost, floor, unit, cost / floor);
}

bool measureJitter() {
    std::vector<double> slept;
    std::thread floor([&] { slept = ticksOfSleep(); });
    const std::vector<double> ticked = ticksOfTimer();
    floor.join();
    if (ticked.empty())
        return false;
    const Jitter timer = jitterOf(ticked);
    const Jitter sleep = jitterOf(slept);
    printRow("timer_10ms/median", timer.median, sleep.median, "us");
    printRow("timer_10ms/p99", timer.p99, sleep.p99, "us");
    return true;
}

// Memory that the system has given to the objects of the store, in KiB.
double memoryOf(const std::string& store) {
    double blocks = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/dev/shm")) {
        struct stat status {};
        if (entry.path().filename().string().starts_with("ostrel-" + store) && stat(entry.path().c_str(), &status) == 0)
            blocks += static_cast<double>(status.st_blocks);
    }
    return blocks / 2;
}

}  // namespace

int main() {
    ServedStore store;
    const std::string name = std::getenv("OSTREL_STORE");
    std::printf("%-10s %-30s %12s %12s %s %8s\n", "program", "what", "cost", "floor", "  ", "ratio");
    printRow("memory/1", memoryOf(name), sizeof(REAL_VARIABLE) / 1024.0, "KiB");
    if (!measureJitter()) {
        std::fprintf(stderr, "storecosts: the timer cannot be attached to\n");
        return 1;
    }
    constexpr size_t full = 80000;
    store.serve(full);
    constexpr double perFour =
        sizeof(REAL_VARIABLE) + sizeof(INTEGER_VARIABLE) + sizeof(LOGICAL_VARIABLE) + sizeof(STRING_VARIABLE);
    printRow("memory/80000", memoryOf(name), perFour * full / 4 / 1024, "KiB");
    return 0;
}
