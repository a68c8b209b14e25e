// Fills the records of a variable with what the cell file says about it.
#ifndef OSTREL_CELL_RECORDFILL_H
#define OSTREL_CELL_RECORDFILL_H

#include "cellmodel.h"
#include "storefill.h"

namespace ostrelcell {

// A record that was there before keeps its value, converted where the file now gives other units, and its limits are
// judged anew by the next scan. Any other starts with the value of the file.
void fillRecord(const CellModel& model, const Variable& variable, const Placed& placed);

}  // namespace ostrelcell

#endif
