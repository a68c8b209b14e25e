// The colours that the status word of a variable can ask for.
#ifndef OSTREL_CELL_COLOURS_H
#define OSTREL_CELL_COLOURS_H

#include <optional>
#include <string>

namespace ostrelcell {

constexpr short blinkBit = 1;
constexpr short colourNone = 0;
constexpr short colourCyan = 768;
constexpr short colourRed = 1024;
constexpr short colourYellow = 1536;

std::optional<short> colourCode(const std::string& name);

// All names, for a message.
const std::string& colourList();

}  // namespace ostrelcell

#endif
