// When scans are due: on a fixed grid, without drift, and once where several were missed.
#ifndef OSTREL_CELL_SCANCLOCK_H
#define OSTREL_CELL_SCANCLOCK_H

#include <cstdint>

namespace ostrelcell {

class ScanClock {
public:
    struct Tick {
        double t;   // seconds since the start
        double dt;  // since the tick before, 0 for the first
    };

    // `nowNs` is of a steady clock. The first scan is due at once.
    ScanClock(int64_t periodNs, int64_t nowNs) : m_period(periodNs), m_next(nowNs), m_last(nowNs) {}

    bool due(int64_t nowNs) const { return nowNs >= m_next; }
    int64_t next() const { return m_next; }

    // Takes the tick that is due; the next one is the first of the grid behind `nowNs`.
    Tick take(int64_t nowNs);

    // Goes on with another period from the last tick.
    void setPeriod(int64_t periodNs);

    double t() const { return m_t; }

private:
    int64_t m_period;
    int64_t m_next;
    int64_t m_last;
    double m_t = 0;
};

}  // namespace ostrelcell

#endif
