#include "scanclock.h"

namespace ostrelcell {

ScanClock::Tick ScanClock::take(std::int64_t now_ns) {
    const std::int64_t missed = (now_ns - m_next) / m_period;
    const std::int64_t tick = m_next + missed * m_period;
    const double dt = static_cast<double>(tick - m_last) * 1e-9;
    m_t += dt;
    m_last = tick;
    m_next = tick + m_period;
    return {m_t, dt};
}

void ScanClock::set_period(std::int64_t period_ns) {
    if (m_next != m_last)
        m_next = m_last + period_ns;
    m_period = period_ns;
}

}  // namespace ostrelcell
