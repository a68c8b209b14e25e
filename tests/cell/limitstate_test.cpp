// Which limits a value violates, the latches, and the colour that comes of it.
#include "limitstate.h"

#include <gtest/gtest.h>

using namespace ostrelcell;

namespace {

Limits six_limits() {
    Limits limits;
    const double values[] = {20, 10, 0, 80, 90, 100};
    const short status[] = {1536, 1024, 1025, 256, 512, 1793};
    for (std::size_t index = 0; index < 6; ++index)
        limits.rules[index] = {true, values[index], status[index]};
    return limits;
}

LIMIT_STATUS judged(const Limits& limits, double value, unsigned short before = 0) {
    return status_of(judge_value(limits, value, 0, before));
}

TEST(LimitState, IsClearWithin) {
    EXPECT_EQ(judge_value(six_limits(), 50, 0, 0), 0);
    EXPECT_EQ(judge_value(six_limits(), 80, 0, 0), 0) << "the limit itself is still good";
    EXPECT_EQ(judge_value(six_limits(), 20, 0, 0), 0);
}

TEST(LimitState, SetsEachBitAndItsLatch) {
    EXPECT_EQ(judged(six_limits(), 85).high_alarm, 1);
    EXPECT_EQ(judged(six_limits(), 85).high_alarm_latch, 1);
    EXPECT_EQ(judged(six_limits(), 85).high_abort, 0);
    EXPECT_EQ(judged(six_limits(), 95).high_abort, 1);
    EXPECT_EQ(judged(six_limits(), 105).high_emergency, 1);
    EXPECT_EQ(judged(six_limits(), 105).high_emergency_latch, 1);
    EXPECT_EQ(judged(six_limits(), 15).low_alarm, 1);
    EXPECT_EQ(judged(six_limits(), 5).low_abort, 1);
    EXPECT_EQ(judged(six_limits(), -1).low_emergency, 1);
    EXPECT_EQ(judged(six_limits(), -1).low_emergency_latch, 1);
    EXPECT_EQ(judged(six_limits(), -1).high_alarm, 0);
}

TEST(LimitState, LatchesStayWhenTheValueIsBack) {
    const unsigned short word = judge_value(six_limits(), 50, 0, judge_value(six_limits(), 85, 0, 0));
    EXPECT_EQ(status_of(word).high_alarm, 0);
    EXPECT_EQ(status_of(word).high_alarm_latch, 1);
    EXPECT_EQ(status_for(six_limits(), word), 0);
    EXPECT_EQ(alarm_level_of(word), 0);
}

TEST(LimitState, ColoursByTheWorst) {
    const auto colour = [](double value) { return status_for(six_limits(), judge_value(six_limits(), value, 0, 0)); };
    EXPECT_EQ(colour(50), 0);
    EXPECT_EQ(colour(85), 256);
    EXPECT_EQ(colour(95), 512);
    EXPECT_EQ(colour(105), 1793);
    EXPECT_EQ(colour(15), 1536);
    EXPECT_EQ(colour(5), 1024);
    EXPECT_EQ(colour(-5), 1025);
}

TEST(LimitState, TellsTheAlarmLevel) {
    const auto level = [](double value) { return alarm_level_of(judge_value(six_limits(), value, 0, 0)); };
    EXPECT_EQ(level(50), 0);
    EXPECT_EQ(level(85), 1);
    EXPECT_EQ(level(5), 2);
    EXPECT_EQ(level(105), 3);
}

TEST(LimitState, HoldsWithinTheDeadband) {
    Limits limits = six_limits();
    limits.deadband = 2;
    const unsigned short high = judge_value(limits, 81, 0, 0);
    EXPECT_EQ(status_of(judge_value(limits, 79, 0, high)).high_alarm, 1);
    EXPECT_EQ(status_of(judge_value(limits, 79, 0, 0)).high_alarm, 0);
    EXPECT_EQ(status_of(judge_value(limits, 77.9, 0, high)).high_alarm, 0);
    const unsigned short low = judge_value(limits, 19, 0, 0);
    EXPECT_EQ(status_of(judge_value(limits, 21, 0, low)).low_alarm, 1);
    EXPECT_EQ(status_of(judge_value(limits, 22.1, 0, low)).low_alarm, 0);
}

TEST(LimitState, AgesAndGivesWayToAnAlarm) {
    Limits limits = six_limits();
    limits.rules[VARIABLE_AGE_LIMIT] = {true, 5, 768};
    const unsigned short old = judge_value(limits, 50, 5.1, 0);
    EXPECT_EQ(status_of(old).variable_age, 1);
    EXPECT_EQ(status_of(old).variable_age_latch, 1);
    EXPECT_EQ(status_for(limits, old), 768);
    EXPECT_EQ(judge_value(limits, 50, 5, 0), 0);
    EXPECT_EQ(status_for(limits, judge_value(limits, 85, 6, 0)), 256);
}

TEST(LimitState, UsesTheNormalColour) {
    Limits limits = six_limits();
    limits.normal_status = 512;
    EXPECT_EQ(status_for(limits, 0), 512);
}

TEST(LimitState, JudgesLogicals) {
    LogicalStates states;
    states.alarm_status = 1025;
    states.true_status = 512;
    const Limits none;
    EXPECT_EQ(judge_logical(states, none, true, 0, 0), 0);
    EXPECT_EQ(status_for_logical(states, none, true, 0), 512);
    states.alarm = TRUE_IS_ALARM;
    const unsigned short high = judge_logical(states, none, true, 0, 0);
    EXPECT_EQ(status_of(high).high_alarm, 1);
    EXPECT_EQ(status_of(high).high_alarm_latch, 1);
    EXPECT_EQ(status_for_logical(states, none, true, high), 1025);
    EXPECT_EQ(judge_logical(states, none, false, 0, 0), 0);
    states.alarm = FALSE_IS_ALARM;
    EXPECT_EQ(status_of(judge_logical(states, none, false, 0, 0)).low_alarm, 1);
    EXPECT_EQ(judge_logical(states, none, true, 0, 0), 0);
}

}  // namespace
