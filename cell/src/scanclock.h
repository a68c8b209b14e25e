// When scans are due: on a fixed grid, without drift, and once where several were missed.
#pragma once

#include <cstdint>

namespace ostrelcell {

class ScanClock {
public:
    struct Tick {
        double t;   // seconds since the start
        double dt;  // since the tick before, 0 for the first
    };

    // `now_ns` is of a steady clock. The first scan is due at once.
    ScanClock(std::int64_t period_ns, std::int64_t now_ns) : m_period(period_ns), m_next(now_ns), m_last(now_ns) {}

    bool due(std::int64_t now_ns) const { return now_ns >= m_next; }
    std::int64_t next() const { return m_next; }

    // Takes the tick that is due; the next one is the first of the grid behind `now_ns`.
    Tick take(std::int64_t now_ns);

    // Goes on with another period from the last tick.
    void set_period(std::int64_t period_ns);

    double t() const { return m_t; }

private:
    std::int64_t m_period;
    std::int64_t m_next;
    std::int64_t m_last;
    double m_t = 0;
};

}  // namespace ostrelcell
