#include "limitstate.h"

#include <cstring>

namespace ostrelcell {

namespace {

constexpr unsigned short age_bit = 1U << 12U;
constexpr unsigned short value_bits = 0x003F;

unsigned short bit_of(int limit) {
    return static_cast<unsigned short>(1U << static_cast<unsigned>(limit));
}

bool violates(const Limits& limits, int limit, double value, bool was) {
    const LimitRule& rule = limits.rules[static_cast<std::size_t>(limit)];
    if (!rule.exists)
        return false;
    const double back = was ? limits.deadband : 0;
    return limit < HIGH_ALARM_LIMIT ? value < rule.value + back : value > rule.value - back;
}

unsigned short with_latches(unsigned now, unsigned before) {
    const unsigned latched = ((now & value_bits) << 6U) | ((now & age_bit) << 1U);
    return static_cast<unsigned short>(now | latched | (before & limit_latches));
}

unsigned age_word(const Limits& limits, double age_s) {
    const LimitRule& age = limits.rules[VARIABLE_AGE_LIMIT];
    return age.exists && age_s > age.value ? age_bit : 0;
}

}  // namespace

unsigned short word_of(LIMIT_STATUS status) {
    unsigned short word = 0;
    std::memcpy(&word, &status, sizeof word);
    return word;
}

LIMIT_STATUS status_of(unsigned short word) {
    LIMIT_STATUS status;
    std::memcpy(&status, &word, sizeof status);
    return status;
}

int alarm_level_of(unsigned short word) {
    if ((word & (bit_of(LOW_EMERGENCY_LIMIT) | bit_of(HIGH_EMERGENCY_LIMIT))) != 0)
        return 3;
    if ((word & (bit_of(LOW_ABORT_LIMIT) | bit_of(HIGH_ABORT_LIMIT))) != 0)
        return 2;
    return (word & (bit_of(LOW_ALARM_LIMIT) | bit_of(HIGH_ALARM_LIMIT))) != 0 ? 1 : 0;
}

unsigned short judge_value(const Limits& limits, double value, double age_s, unsigned short before) {
    unsigned now = age_word(limits, age_s);
    for (int limit = LOW_ALARM_LIMIT; limit <= HIGH_EMERGENCY_LIMIT; ++limit)
        if (violates(limits, limit, value, (before & bit_of(limit)) != 0))
            now |= bit_of(limit);
    return with_latches(now, before);
}

unsigned short judge_logical(const LogicalStates& states, const Limits& limits, bool value, double age_s,
                             unsigned short before) {
    unsigned now = age_word(limits, age_s);
    if (states.alarm == TRUE_IS_ALARM && value)
        now |= bit_of(HIGH_ALARM_LIMIT);
    if (states.alarm == FALSE_IS_ALARM && !value)
        now |= bit_of(LOW_ALARM_LIMIT);
    return with_latches(now, before);
}

short status_for(const Limits& limits, unsigned short word) {
    constexpr LIMIT_ARRAY_INDEXES worst_first[] = {HIGH_EMERGENCY_LIMIT, LOW_EMERGENCY_LIMIT, HIGH_ABORT_LIMIT,
                                                   LOW_ABORT_LIMIT,      HIGH_ALARM_LIMIT,    LOW_ALARM_LIMIT};
    for (LIMIT_ARRAY_INDEXES limit : worst_first)
        if ((word & bit_of(limit)) != 0)
            return limits.rules[limit].status;
    return (word & age_bit) != 0 ? limits.rules[VARIABLE_AGE_LIMIT].status : limits.normal_status;
}

short status_for_logical(const LogicalStates& states, const Limits& limits, bool value, unsigned short word) {
    if (alarm_level_of(word) != 0)
        return states.alarm_status;
    if ((word & age_bit) != 0)
        return limits.rules[VARIABLE_AGE_LIMIT].status;
    return value ? states.true_status : states.false_status;
}

}  // namespace ostrelcell
