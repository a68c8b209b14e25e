// Which limits a value violates, and what it then looks like.
#ifndef OSTREL_CELL_LIMITSTATE_H
#define OSTREL_CELL_LIMITSTATE_H

#include <ostrel/records.h>

#include "cellmodel.h"

namespace ostrelcell {

// LIMIT_STATUS as a word: bit 0 to 5 are the limits in the order of LIMIT_ARRAY_INDEXES, 6 to 11 their latches, 12 the
// age and 13 its latch.
unsigned short wordOf(LIMIT_STATUS status);
LIMIT_STATUS statusOf(unsigned short word);

constexpr unsigned short limitLatches = 0x2FC0;

// 0 none, 1 alarm, 2 abort, 3 emergency.
int alarmLevelOf(unsigned short word);

// The limit word of a value: what it violates now, with the latches of `before` and those that are new.
unsigned short judgeValue(const Limits& limits, double value, double ageS, unsigned short before);

// The same for a logical, whose alarm is a low limit where false is the alarm and a high one where true is.
unsigned short judgeLogical(const LogicalStates& states, const Limits& limits, bool value, double ageS,
                            unsigned short before);

// Colour and blinking that the worst violated limit asks for.
short statusFor(const Limits& limits, unsigned short word);
short statusForLogical(const LogicalStates& states, const Limits& limits, bool value, unsigned short word);

}  // namespace ostrelcell

#endif
