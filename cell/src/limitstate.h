// Which limits a value violates, and what it then looks like.
#pragma once

#include <ostrel/records.h>

#include "cellmodel.h"

namespace ostrelcell {

// LIMIT_STATUS as a word: bit 0 to 5 are the limits in the order of LIMIT_ARRAY_INDEXES, 6 to 11 their latches, 12 the
// age and 13 its latch.
unsigned short word_of(LIMIT_STATUS status);
LIMIT_STATUS status_of(unsigned short word);

constexpr unsigned short limit_latches = 0x2FC0;

// 0 none, 1 alarm, 2 abort, 3 emergency.
int alarm_level_of(unsigned short word);

// The limit word of a value: what it violates now, with the latches of `before` and those that are new.
unsigned short judge_value(const Limits& limits, double value, double age_s, unsigned short before);

// The same for a logical, whose alarm is a low limit where false is the alarm and a high one where true is.
unsigned short judge_logical(const LogicalStates& states, const Limits& limits, bool value, double age_s,
                             unsigned short before);

// Colour and blinking that the worst violated limit asks for.
short status_for(const Limits& limits, unsigned short word);
short status_for_logical(const LogicalStates& states, const Limits& limits, bool value, unsigned short word);

}  // namespace ostrelcell
