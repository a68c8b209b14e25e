#include "scanclock.h"

namespace ostrelcell {

ScanClock::Tick ScanClock::take(int64_t nowNs) {
    const int64_t missed = (nowNs - m_next) / m_period;
    const int64_t tick = m_next + missed * m_period;
    const double dt = static_cast<double>(tick - m_last) * 1e-9;
    m_t += dt;
    m_last = tick;
    m_next = tick + m_period;
    return {m_t, dt};
}

void ScanClock::setPeriod(int64_t periodNs) {
    if (m_next != m_last)
        m_next = m_last + periodNs;
    m_period = periodNs;
}

}  // namespace ostrelcell
