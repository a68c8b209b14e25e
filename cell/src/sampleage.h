// How long ago a value was sampled, whatever somebody does to the clock of the day.
#ifndef OSTREL_CELL_SAMPLEAGE_H
#define OSTREL_CELL_SAMPLEAGE_H

#include <cstdint>
#include <ctime>
#include <optional>

namespace ostrelcell {

// The moment of a look, by the clock of the day, which records carry and people read, and by one that never jumps.
struct Moment {
    timespec day;
    int64_t sinceBoot;  // nanoseconds

    static Moment now();
};

class SampleAge {
public:
    // The age in seconds of a sample with that time in its record. A time that was not there at the last look is of a
    // sample that has come since; at the first look its time of the day counts, unless it lies in the future.
    double seconds(const timespec& sampled, const Moment& now);

private:
    std::optional<timespec> m_seen;
    int64_t m_since = 0;
};

}  // namespace ostrelcell

#endif
