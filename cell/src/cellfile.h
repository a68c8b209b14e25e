// Reads a cell file.
#pragma once

#include <string>

#include "cellmodel.h"
#include "diagnostics.h"

namespace ostrelcell {

// Reads the file into `model`. Every mistake goes into `diagnostics`; with one, `model` must not be served.
void read_cell_file(const std::string& file, CellModel& model, Diagnostics& diagnostics);

// The same for a text that stands in no file; `model.file` is left to the caller.
void read_cell_text(const std::string& text, CellModel& model, Diagnostics& diagnostics);

}  // namespace ostrelcell
