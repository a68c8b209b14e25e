// Reads the keys of a variable's limits and colours.
#ifndef OSTREL_CELL_LIMITKEYS_H
#define OSTREL_CELL_LIMITKEYS_H

#include "cellmodel.h"
#include "tablereader.h"

namespace ostrelcell {

// The six limits of a number. They must stand in the order in which they get worse.
void readValueLimits(TableReader& reader, Limits& limits);

// The age in seconds after which a value is stale.
void readAgeLimit(TableReader& reader, Limits& limits);

// true_state, false_state, which of them is an alarm, and their colours.
void readLogicalStates(TableReader& reader, LogicalStates& states);

}  // namespace ostrelcell

#endif
