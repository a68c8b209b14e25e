// Reads the table of one variable, by its kind.
#ifndef OSTREL_CELL_VARIABLEKEYS_H
#define OSTREL_CELL_VARIABLEKEYS_H

#include "cellmodel.h"
#include "tablereader.h"

namespace ostrelcell {

// Fills `variable`, whose kind, name and line are set. What does not fit is reported and keeps its default, so that
// whoever refers to the variable is not blamed too.
void readVariable(TableReader& reader, Variable& variable);

// The parts for the kinds with members and for the arrays.
void readStat(TableReader& reader, Variable& variable);
void readMembers(TableReader& reader, Variable& variable);
void readArray(TableReader& reader, Variable& variable);

// The keys that scalars and arrays share.
void readFormat(TableReader& reader, Variable& variable);
void readRange(TableReader& reader, Variable& variable);

// What clients may write, and whether the value outlives the cell. After the value has been read.
void readWriteRule(TableReader& reader, Variable& variable);

}  // namespace ostrelcell

#endif
