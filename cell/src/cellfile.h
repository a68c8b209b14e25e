// Reads a cell file.
#ifndef OSTREL_CELL_CELLFILE_H
#define OSTREL_CELL_CELLFILE_H

#include <string>

#include "cellmodel.h"
#include "diagnostics.h"
#include "simulation.h"

namespace ostrelcell {

// Reads the file into `model` and compiles its expressions into `simulation`. Every mistake goes into `diagnostics`;
// with one, neither must be served.
void readCellFile(const std::string& file, CellModel& model, Simulation& simulation, Diagnostics& diagnostics);

// The same for a text that stands in no file; `model.file` is left to the caller.
void readCellText(const std::string& text, CellModel& model, Simulation& simulation, Diagnostics& diagnostics);

}  // namespace ostrelcell

#endif
