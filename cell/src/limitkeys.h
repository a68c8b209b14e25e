// Reads the keys of a variable's limits and colours.
#pragma once

#include "cellmodel.h"
#include "tablereader.h"

namespace ostrelcell {

// The six limits of a number. They must stand in the order in which they get worse.
void read_value_limits(TableReader& reader, Limits& limits);

// The age in seconds after which a value is stale.
void read_age_limit(TableReader& reader, Limits& limits);

// true_state, false_state, which of them is an alarm, and their colours.
void read_logical_states(TableReader& reader, LogicalStates& states);

}  // namespace ostrelcell
