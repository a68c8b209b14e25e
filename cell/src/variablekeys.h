// Reads the table of one variable, by its kind.
#pragma once

#include "cellmodel.h"
#include "tablereader.h"

namespace ostrelcell {

// Fills `variable`, whose kind, name and line are set. What does not fit is reported and keeps its default, so that
// whoever refers to the variable is not blamed too.
void read_variable(TableReader& reader, Variable& variable);

// The parts for the kinds with members and for the arrays.
void read_stat(TableReader& reader, Variable& variable);
void read_members(TableReader& reader, Variable& variable);
void read_array(TableReader& reader, Variable& variable);

// The keys that scalars and arrays share.
void read_format(TableReader& reader, Variable& variable);
void read_range(TableReader& reader, Variable& variable);

// What clients may write, and whether the value outlives the cell. After the value has been read.
void read_write_rule(TableReader& reader, Variable& variable);

}  // namespace ostrelcell
