#include "statistics.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "studentt.h"

namespace ostrelcell {

namespace {

double medianOf(std::vector<double>& values) {
    const auto middle = values.begin() + static_cast<ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    if (values.size() % 2 == 1)
        return *middle;
    return (*middle + *std::max_element(values.begin(), middle)) / 2;
}

double ratio(double above, double below) {
    return below != 0 ? above / below : 0;
}

}  // namespace

StatWindow::StatWindow(double intervalS, double periodS, double confidencePercent)
    : m_interval(intervalS), m_period(periodS), m_confidence(confidencePercent) {}

void StatWindow::add(double timeS, double value) {
    const bool good = std::isfinite(value);
    if (m_started && good)
        m_total += value * (timeS - m_lastTime);
    m_started = true;
    m_lastTime = timeS;
    m_samples.push_back({timeS, value, good});
    // Half a period off the edge, so that rounding of the times does not decide about a sample.
    while (m_samples.front().time <= timeS - m_interval + m_period / 2 && m_samples.size() > 1)
        m_samples.pop_front();
}

void StatWindow::describeOrder(StatMembers& members, const std::deque<Sample>& good) const {
    const auto byValue = [](const Sample& a, const Sample& b) { return a.value < b.value; };
    const auto [least, greatest] = std::minmax_element(good.begin(), good.end(), byValue);
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
    values.reserve(good.size());
    for (const Sample& sample : good)
        values.push_back(sample.value);
    members[MEDIAN] = medianOf(values);
    for (double& value : values)
        value = std::fabs(value - members[MEDIAN]);
    members[MAD] = medianOf(values);
}

void StatWindow::describeSpread(StatMembers& members, const std::deque<Sample>& good) const {
    const auto count = static_cast<double>(good.size());
    double sum = 0;
    double squares = 0;
    double area = 0;
    for (size_t index = 0; index < good.size(); ++index) {
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

void StatWindow::describeLine(StatMembers& members, const std::deque<Sample>& good) {
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
    const long double spreadX = m_sums.xx - m_sums.x * m_sums.x / count;
    const long double spreadY = m_sums.yy - m_sums.y * m_sums.y / count;
    const long double common = m_sums.xy - m_sums.x * m_sums.y / count;
    if (good.size() < 2 || spreadX <= 0) {
        members[C0] = members[AV];
        return;
    }
    const long double slope = common / spreadX;
    members[C1] = static_cast<double>(slope);
    members[C0] = static_cast<double>((m_sums.y - slope * m_sums.x) / count);
    if (spreadY > 0)
        members[RS] = static_cast<double>(std::clamp(slope * common / spreadY, 0.0L, 1.0L));
    if (good.size() < 3)
        return;
    const long double rest = std::max(0.0L, spreadY - slope * common) / (count - 2);
    members[E0] = static_cast<double>(std::sqrt(rest * m_sums.xx / (count * spreadX)));
    members[E1] = ratio(static_cast<double>(std::sqrt(rest / spreadX)), std::fabs(members[C1]));
}

void StatWindow::describeConfidence(StatMembers& members, double count) {
    members[REQ_CONF] = m_confidence;
    if (count < 2)
        return;
    if (count != m_tSamples) {
        m_tSamples = count;
        m_t = {studentT(m_confidence / 100, count - 1), studentT(0.90, count - 1), studentT(0.95, count - 1),
               studentT(0.99, count - 1)};
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
    describeSpread(members, good);
    describeOrder(members, good);
    describeLine(members, good);
    describeConfidence(members, count);
    return members;
}

StatUnits unitsOfStatMember(int member) {
    if (member < STAT_TIME_UNITS_START)
        return StatUnits::source;
    return member < STAT_TIME_UNITS_END ? StatUnits::seconds : StatUnits::none;
}

}  // namespace ostrelcell
