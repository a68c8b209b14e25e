// A cell inside the process that uses it, scanned on a thread of its own.
#pragma once

#include <string>

namespace ostrelcell {

// False, with all reasons. The cell ends with the process.
bool embed_cell(const std::string& file, std::string& reasons);

}  // namespace ostrelcell
