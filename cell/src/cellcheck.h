// What can be checked only when the whole of a cell file has been read.
#ifndef OSTREL_CELL_CELLCHECK_H
#define OSTREL_CELL_CELLCHECK_H

#include "cellmodel.h"
#include "diagnostics.h"

namespace ostrelcell {

// Names that stand twice, references to nothing, cycles of aliases, more variables than a section has room for.
void checkCell(const CellModel& model, Diagnostics& diagnostics);

}  // namespace ostrelcell

#endif
