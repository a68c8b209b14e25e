// Which limits a value violates, the latches, and the colour that comes of it.
#include "limitstate.h"

#include <gtest/gtest.h>

using namespace ostrelcell;

namespace {

Limits sixLimits() {
    Limits limits;
    const double values[] = {20, 10, 0, 80, 90, 100};
    const short status[] = {1536, 1024, 1025, 256, 512, 1793};
    for (size_t index = 0; index < 6; ++index)
        limits.rules[index] = {true, values[index], status[index]};
    return limits;
}

LIMIT_STATUS judged(const Limits& limits, double value, unsigned short before = 0) {
    return statusOf(judgeValue(limits, value, 0, before));
}

TEST(LimitState, IsClearWithin) {
    EXPECT_EQ(judgeValue(sixLimits(), 50, 0, 0), 0);
    EXPECT_EQ(judgeValue(sixLimits(), 80, 0, 0), 0) << "the limit itself is still good";
    EXPECT_EQ(judgeValue(sixLimits(), 20, 0, 0), 0);
}

TEST(LimitState, SetsEachBitAndItsLatch) {
    EXPECT_EQ(judged(sixLimits(), 85).high_alarm, 1);
    EXPECT_EQ(judged(sixLimits(), 85).high_alarm_latch, 1);
    EXPECT_EQ(judged(sixLimits(), 85).high_abort, 0);
    EXPECT_EQ(judged(sixLimits(), 95).high_abort, 1);
    EXPECT_EQ(judged(sixLimits(), 105).high_emergency, 1);
    EXPECT_EQ(judged(sixLimits(), 105).high_emergency_latch, 1);
    EXPECT_EQ(judged(sixLimits(), 15).low_alarm, 1);
    EXPECT_EQ(judged(sixLimits(), 5).low_abort, 1);
    EXPECT_EQ(judged(sixLimits(), -1).low_emergency, 1);
    EXPECT_EQ(judged(sixLimits(), -1).low_emergency_latch, 1);
    EXPECT_EQ(judged(sixLimits(), -1).high_alarm, 0);
}

TEST(LimitState, LatchesStayWhenTheValueIsBack) {
    const unsigned short word = judgeValue(sixLimits(), 50, 0, judgeValue(sixLimits(), 85, 0, 0));
    EXPECT_EQ(statusOf(word).high_alarm, 0);
    EXPECT_EQ(statusOf(word).high_alarm_latch, 1);
    EXPECT_EQ(statusFor(sixLimits(), word), 0);
    EXPECT_EQ(alarmLevelOf(word), 0);
}

TEST(LimitState, ColoursByTheWorst) {
    const auto colour = [](double value) { return statusFor(sixLimits(), judgeValue(sixLimits(), value, 0, 0)); };
    EXPECT_EQ(colour(50), 0);
    EXPECT_EQ(colour(85), 256);
    EXPECT_EQ(colour(95), 512);
    EXPECT_EQ(colour(105), 1793);
    EXPECT_EQ(colour(15), 1536);
    EXPECT_EQ(colour(5), 1024);
    EXPECT_EQ(colour(-5), 1025);
}

TEST(LimitState, TellsTheAlarmLevel) {
    const auto level = [](double value) { return alarmLevelOf(judgeValue(sixLimits(), value, 0, 0)); };
    EXPECT_EQ(level(50), 0);
    EXPECT_EQ(level(85), 1);
    EXPECT_EQ(level(5), 2);
    EXPECT_EQ(level(105), 3);
}

TEST(LimitState, HoldsWithinTheDeadband) {
    Limits limits = sixLimits();
    limits.deadband = 2;
    const unsigned short high = judgeValue(limits, 81, 0, 0);
    EXPECT_EQ(statusOf(judgeValue(limits, 79, 0, high)).high_alarm, 1);
    EXPECT_EQ(statusOf(judgeValue(limits, 79, 0, 0)).high_alarm, 0);
    EXPECT_EQ(statusOf(judgeValue(limits, 77.9, 0, high)).high_alarm, 0);
    const unsigned short low = judgeValue(limits, 19, 0, 0);
    EXPECT_EQ(statusOf(judgeValue(limits, 21, 0, low)).low_alarm, 1);
    EXPECT_EQ(statusOf(judgeValue(limits, 22.1, 0, low)).low_alarm, 0);
}

TEST(LimitState, AgesAndGivesWayToAnAlarm) {
    Limits limits = sixLimits();
    limits.rules[VARIABLE_AGE_LIMIT] = {true, 5, 768};
    const unsigned short old = judgeValue(limits, 50, 5.1, 0);
    EXPECT_EQ(statusOf(old).variable_age, 1);
    EXPECT_EQ(statusOf(old).variable_age_latch, 1);
    EXPECT_EQ(statusFor(limits, old), 768);
    EXPECT_EQ(judgeValue(limits, 50, 5, 0), 0);
    EXPECT_EQ(statusFor(limits, judgeValue(limits, 85, 6, 0)), 256);
}

TEST(LimitState, UsesTheNormalColour) {
    Limits limits = sixLimits();
    limits.normalStatus = 512;
    EXPECT_EQ(statusFor(limits, 0), 512);
}

TEST(LimitState, ALogicalsAlarmShowsThroughItsAge) {
    LogicalStates states;
    states.alarm = TRUE_IS_ALARM;
    states.alarmStatus = 1025;
    states.falseStatus = 256;
    Limits limits;
    limits.rules[VARIABLE_AGE_LIMIT] = {true, 5, 768};
    EXPECT_EQ(statusForLogical(states, limits, true, judgeLogical(states, limits, true, 6, 0)), 1025);
    EXPECT_EQ(statusForLogical(states, limits, false, judgeLogical(states, limits, false, 6, 0)), 768);
    EXPECT_EQ(statusForLogical(states, limits, false, judgeLogical(states, limits, false, 5, 0)), 256);
}

TEST(LimitState, JudgesLogicals) {
    LogicalStates states;
    states.alarmStatus = 1025;
    states.trueStatus = 512;
    const Limits none;
    EXPECT_EQ(judgeLogical(states, none, true, 0, 0), 0);
    EXPECT_EQ(statusForLogical(states, none, true, 0), 512);
    states.alarm = TRUE_IS_ALARM;
    const unsigned short high = judgeLogical(states, none, true, 0, 0);
    EXPECT_EQ(statusOf(high).high_alarm, 1);
    EXPECT_EQ(statusOf(high).high_alarm_latch, 1);
    EXPECT_EQ(statusForLogical(states, none, true, high), 1025);
    EXPECT_EQ(judgeLogical(states, none, false, 0, 0), 0);
    states.alarm = FALSE_IS_ALARM;
    EXPECT_EQ(statusOf(judgeLogical(states, none, false, 0, 0)).low_alarm, 1);
    EXPECT_EQ(judgeLogical(states, none, true, 0, 0), 0);
}

}  // namespace
