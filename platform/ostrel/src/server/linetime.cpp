#include "server/linetime.h"

#include <algorithm>
#include <cstdio>

std::string lineTime(const timespec& time) {
    tm local{};
    localtime_r(&time.tv_sec, &local);
    char day[40] = "";
    char zone[8] = "";
    strftime(day, sizeof day, "%Y-%m-%dT%H:%M:%S", &local);
    strftime(zone, sizeof zone, "%z", &local);
    char text[64] = "";
    std::snprintf(text, sizeof text, "%s.%03ld%s", day, std::clamp(time.tv_nsec, 0L, 999999999L) / 1000000, zone);
    return text;
}

std::string missingLines(uint64_t count, const std::string& what) {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return "# " + lineTime(now) + " " + std::to_string(count) + " " + what +
           (count == 1 ? " is missing here\n" : "s are missing here\n");
}
