// Statistics of a value over the last seconds.
//
// The members, with n samples x at the times s, counted in seconds from the start of the cell:
//   AV mean                 MN least               MX greatest            RN MX - MN
//   SD standard deviation of the sample (n - 1)    RMS root mean square   MEDIAN and MAD, the median of |x - MEDIAN|
//   IV first value          FV last value          DL FV - IV
//   C0 and C1: the straight line through the samples by least squares is C0 + C1 (s - ST); E0 and E1 the standard
//   errors of the two, E1 divided by |C1|          RS its coefficient of determination
//   ST time of IV, EN of FV, TN of MN, TX of MX
//   INN integral over the window, in units times seconds;  IT the same since the start of the cell
//   CV SD / |AV|            RA MX / MN             NM n                   NR samples that were no numbers
//   REQ_CONF confidence asked for, in percent;  STUD_T Student's t for it with n - 1 degrees of freedom
//   CONF_INT half width of the confidence interval of AV;  INT_90, INT_95, INT_99 the same for fixed confidences
//   QUAL_F part of the window that is filled with good samples, 0 to 1
// A member that its samples do not define is 0.
#ifndef OSTREL_CELL_STATISTICS_H
#define OSTREL_CELL_STATISTICS_H

#include <ostrel/records.h>

#include <array>
#include <deque>

namespace ostrelcell {

using StatMembers = std::array<double, NUM_MEMBER_TYPES>;

class StatWindow {
public:
    // `periodS` is the distance of two samples.
    StatWindow(double intervalS, double periodS, double confidencePercent);

    void add(double timeS, double value);

    // The members over the samples of the last interval.
    StatMembers compute();

    // Sums over the window, for the fields of the record that keep them.
    struct Sums {
        long double x = 0;
        long double y = 0;
        long double xy = 0;
        long double xx = 0;
        long double yy = 0;
    };
    const Sums& sums() const { return m_sums; }

private:
    struct Sample {
        double time;
        double value;
        bool good;
    };

    double m_interval;
    double m_period;
    double m_confidence;
    std::deque<Sample> m_samples;
    Sums m_sums;
    double m_total = 0;  // integral since the start
    double m_lastTime = 0;
    bool m_started = false;
    // Student's t changes with the number of samples alone, which soon stays the same.
    double m_tSamples = 0;
    std::array<double, 4> m_t{};

    void describeOrder(StatMembers& members, const std::deque<Sample>& good) const;
    void describeSpread(StatMembers& members, const std::deque<Sample>& good) const;
    void describeLine(StatMembers& members, const std::deque<Sample>& good);
    void describeConfidence(StatMembers& members, double count);
};

// The units that a member has: those of the source, seconds, or none.
enum class StatUnits { source, seconds, none };
StatUnits unitsOfStatMember(int member);

}  // namespace ostrelcell

#endif
