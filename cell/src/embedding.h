// A cell inside the process that uses it, scanned on a thread of its own.
#ifndef OSTREL_CELL_EMBEDDING_H
#define OSTREL_CELL_EMBEDDING_H

#include <string>

namespace ostrelcell {

// False, with all reasons. The cell ends with the process.
bool embedCell(const std::string& file, std::string& reasons);

}  // namespace ostrelcell

#endif
