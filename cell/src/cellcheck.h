// What can be checked only when the whole of a cell file has been read.
#pragma once

#include "cellmodel.h"
#include "diagnostics.h"

namespace ostrelcell {

// Names that stand twice, references to nothing, cycles of aliases, more variables than a section has room for.
void check_cell(const CellModel& model, Diagnostics& diagnostics);

}  // namespace ostrelcell
