// Reads a cell file.
#pragma once

#include <string>

#include "cellmodel.h"
#include "diagnostics.h"
#include "simulation.h"

namespace ostrelcell {

// Reads the file into `model` and compiles its expressions into `simulation`. Every mistake goes into `diagnostics`;
// with one, neither must be served.
void read_cell_file(const std::string& file, CellModel& model, Simulation& simulation, Diagnostics& diagnostics);

// The same for a text that stands in no file; `model.file` is left to the caller.
void read_cell_text(const std::string& text, CellModel& model, Simulation& simulation, Diagnostics& diagnostics);

}  // namespace ostrelcell
