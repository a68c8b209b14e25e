#include "statistics.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "studentt.h"

namespace ostrelcell {

namespace {

double median_of(std::vector<double>& values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    if (values.size() % 2 == 1)
        return *middle;
    return (*middle + *std::max_element(values.begin(), middle)) / 2;
}

double ratio(double above, double below) {
    return below != 0 ? above / below : 0;
}

}  // namespace

StatWindow::StatWindow(double interval_s, double period_s, double confidence_percent)
    : m_interval(interval_s), m_period(period_s), m_confidence(confidence_percent) {}

void StatWindow::add(double time_s, double value) {
    const bool good = std::isfinite(value);
    if (m_started && good)
        m_total += value * (time_s - m_last_time);
    m_started = true;
    m_last_time = time_s;
    m_samples.push_back({time_s, value, good});
    // Half a period off the edge, so that rounding of the times does not decide about a sample.
    while (m_samples.front().time <= time_s - m_interval + m_period / 2 && m_samples.size() > 1)
        m_samples.pop_front();
}

void StatWindow::describe_order(StatMembers& members, const std::deque<Sample>& good) const {
    const auto by_value = [](const Sample& a, const Sample& b) { return a.value < b.value; };
    const auto [least, greatest] = std::minmax_element(good.begin(), good.end(), by_value);
    members[MN] = least->value;
    members[MX] = greatest->value;
    members[RN] = greatest->value - least->value;
    members[RA] = ratio(greatest->value, least->value);
    members[TN] = least->time;
    members[TX] = greatest->time;
    members[IV] = good.front().value;
    members[FV] = good.back().value;
    members[DL] = good.back().value - good.front().value;
    members[ST] = good.front().time;
    members[EN] = good.back().time;
    std::vector<double> values;
    for (const Sample& sample : good)
        values.push_back(sample.value);
    members[MEDIAN] = median_of(values);
    for (double& value : values)
        value = std::fabs(value - members[MEDIAN]);
    members[MAD] = median_of(values);
}

void StatWindow::describe_spread(StatMembers& members, const std::deque<Sample>& good) const {
    const auto count = static_cast<double>(good.size());
    double sum = 0;
    double squares = 0;
    double area = 0;
    for (std::size_t index = 0; index < good.size(); ++index) {
        sum += good[index].value;
        squares += good[index].value * good[index].value;
        if (index > 0)
            area += good[index].value * (good[index].time - good[index - 1].time);
    }
    const double mean = sum / count;
    double deviations = 0;
    for (const Sample& sample : good)
        deviations += (sample.value - mean) * (sample.value - mean);
    members[AV] = mean;
    members[RMS] = std::sqrt(squares / count);
    members[SD] = count > 1 ? std::sqrt(deviations / (count - 1)) : 0;
    members[CV] = ratio(members[SD], std::fabs(mean));
    members[INN] = area;
    members[IT] = m_total;
}

void StatWindow::describe_line(StatMembers& members, const std::deque<Sample>& good) {
    m_sums = {};
    for (const Sample& sample : good) {
        const long double x = sample.time - good.front().time;
        const long double y = sample.value;
        m_sums.x += x;
        m_sums.y += y;
        m_sums.xy += x * y;
        m_sums.xx += x * x;
        m_sums.yy += y * y;
    }
    const auto count = static_cast<long double>(good.size());
    const long double spread_x = m_sums.xx - m_sums.x * m_sums.x / count;
    const long double spread_y = m_sums.yy - m_sums.y * m_sums.y / count;
    const long double common = m_sums.xy - m_sums.x * m_sums.y / count;
    if (good.size() < 2 || spread_x <= 0) {
        members[C0] = members[AV];
        return;
    }
    const long double slope = common / spread_x;
    members[C1] = static_cast<double>(slope);
    members[C0] = static_cast<double>((m_sums.y - slope * m_sums.x) / count);
    if (spread_y > 0)
        members[RS] = static_cast<double>(std::clamp(slope * common / spread_y, 0.0L, 1.0L));
    if (good.size() < 3)
        return;
    const long double rest = std::max(0.0L, spread_y - slope * common) / (count - 2);
    members[E0] = static_cast<double>(std::sqrt(rest * m_sums.xx / (count * spread_x)));
    members[E1] = ratio(static_cast<double>(std::sqrt(rest / spread_x)), std::fabs(members[C1]));
}

void StatWindow::describe_confidence(StatMembers& members, double count) {
    members[REQ_CONF] = m_confidence;
    if (count < 2)
        return;
    if (count != m_t_samples) {
        m_t_samples = count;
        m_t = {student_t(m_confidence / 100, count - 1), student_t(0.90, count - 1), student_t(0.95, count - 1),
               student_t(0.99, count - 1)};
    }
    const double error = members[SD] / std::sqrt(count);
    members[STUD_T] = m_t[0];
    members[CONF_INT] = m_t[0] * error;
    members[INT_90] = m_t[1] * error;
    members[INT_95] = m_t[2] * error;
    members[INT_99] = m_t[3] * error;
}

StatMembers StatWindow::compute() {
    StatMembers members{};
    std::deque<Sample> good;
    std::copy_if(m_samples.begin(), m_samples.end(), std::back_inserter(good), [](const Sample& s) { return s.good; });
    const auto count = static_cast<double>(good.size());
    members[NM] = count;
    members[NR] = static_cast<double>(m_samples.size()) - count;
    members[QUAL_F] = std::min(1.0, count * m_period / m_interval);
    members[REQ_CONF] = m_confidence;
    if (good.empty())
        return members;
    describe_spread(members, good);
    describe_order(members, good);
    describe_line(members, good);
    describe_confidence(members, count);
    return members;
}

StatUnits units_of_stat_member(int member) {
    if (member < STAT_TIME_UNITS_START)
        return StatUnits::source;
    return member < STAT_TIME_UNITS_END ? StatUnits::seconds : StatUnits::none;
}

}  // namespace ostrelcell
