#include "sampleage.h"

#include <algorithm>

#include "ground/monotonic.h"

namespace ostrelcell {

namespace {

int64_t nanoseconds(const timespec& time) {
    return time.tv_sec * nanosecondsPerSecond + time.tv_nsec;
}

bool isSame(const timespec& one, const timespec& other) {
    return one.tv_sec == other.tv_sec && one.tv_nsec == other.tv_nsec;
}

}  // namespace

Moment Moment::now() {
    Moment moment{};
    timespec boot{};
    clock_gettime(CLOCK_REALTIME, &moment.day);
    clock_gettime(CLOCK_BOOTTIME, &boot);
    moment.sinceBoot = nanoseconds(boot);
    return moment;
}

double SampleAge::seconds(const timespec& sampled, const Moment& now) {
    if (!m_seen)
        m_since = now.sinceBoot - std::max<int64_t>(0, nanoseconds(now.day) - nanoseconds(sampled));
    else if (!isSame(*m_seen, sampled))
        m_since = now.sinceBoot;
    m_seen = sampled;
    return static_cast<double>(now.sinceBoot - m_since) * 1e-9;
}

}  // namespace ostrelcell
