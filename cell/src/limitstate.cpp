#include "limitstate.h"

#include <cstring>

namespace ostrelcell {

namespace {

constexpr unsigned short ageBit = 1U << 12U;
constexpr unsigned short valueBits = 0x003F;

unsigned short bitOf(int limit) {
    return static_cast<unsigned short>(1U << static_cast<unsigned>(limit));
}

bool violates(const Limits& limits, int limit, double value, bool was) {
    const LimitRule& rule = limits.rules[static_cast<size_t>(limit)];
    if (!rule.exists)
        return false;
    const double back = was ? limits.deadband : 0;
    return limit < HIGH_ALARM_LIMIT ? value < rule.value + back : value > rule.value - back;
}

unsigned short withLatches(unsigned now, unsigned before) {
    const unsigned latched = ((now & valueBits) << 6U) | ((now & ageBit) << 1U);
    return static_cast<unsigned short>(now | latched | (before & limitLatches));
}

unsigned ageWord(const Limits& limits, double ageS) {
    const LimitRule& age = limits.rules[VARIABLE_AGE_LIMIT];
    return age.exists && ageS > age.value ? ageBit : 0;
}

}  // namespace

unsigned short wordOf(LIMIT_STATUS status) {
    unsigned short word = 0;
    std::memcpy(&word, &status, sizeof word);
    return word;
}

LIMIT_STATUS statusOf(unsigned short word) {
    LIMIT_STATUS status;
    std::memcpy(&status, &word, sizeof status);
    return status;
}

int alarmLevelOf(unsigned short word) {
    if ((word & (bitOf(LOW_EMERGENCY_LIMIT) | bitOf(HIGH_EMERGENCY_LIMIT))) != 0)
        return 3;
    if ((word & (bitOf(LOW_ABORT_LIMIT) | bitOf(HIGH_ABORT_LIMIT))) != 0)
        return 2;
    return (word & (bitOf(LOW_ALARM_LIMIT) | bitOf(HIGH_ALARM_LIMIT))) != 0 ? 1 : 0;
}

unsigned short judgeValue(const Limits& limits, double value, double ageS, unsigned short before) {
    unsigned now = ageWord(limits, ageS);
    for (int limit = LOW_ALARM_LIMIT; limit <= HIGH_EMERGENCY_LIMIT; ++limit)
        if (violates(limits, limit, value, (before & bitOf(limit)) != 0))
            now |= bitOf(limit);
    return withLatches(now, before);
}

unsigned short judgeLogical(const LogicalStates& states, const Limits& limits, bool value, double ageS,
                            unsigned short before) {
    unsigned now = ageWord(limits, ageS);
    if (states.alarm == TRUE_IS_ALARM && value)
        now |= bitOf(HIGH_ALARM_LIMIT);
    if (states.alarm == FALSE_IS_ALARM && !value)
        now |= bitOf(LOW_ALARM_LIMIT);
    return withLatches(now, before);
}

short statusFor(const Limits& limits, unsigned short word) {
    constexpr LIMIT_ARRAY_INDEXES worstFirst[] = {HIGH_EMERGENCY_LIMIT, LOW_EMERGENCY_LIMIT, HIGH_ABORT_LIMIT,
                                                  LOW_ABORT_LIMIT,      HIGH_ALARM_LIMIT,    LOW_ALARM_LIMIT};
    for (LIMIT_ARRAY_INDEXES limit : worstFirst)
        if ((word & bitOf(limit)) != 0)
            return limits.rules[limit].status;
    return (word & ageBit) != 0 ? limits.rules[VARIABLE_AGE_LIMIT].status : limits.normalStatus;
}

short statusForLogical(const LogicalStates& states, const Limits& limits, bool value, unsigned short word) {
    if (alarmLevelOf(word) != 0)
        return states.alarmStatus;
    if ((word & ageBit) != 0)
        return limits.rules[VARIABLE_AGE_LIMIT].status;
    return value ? states.trueStatus : states.falseStatus;
}

}  // namespace ostrelcell
