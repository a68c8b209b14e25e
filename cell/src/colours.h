// The colours that the status word of a variable can ask for.
#pragma once

#include <optional>
#include <string>

namespace ostrelcell {

constexpr short blink_bit = 1;
constexpr short colour_none = 0;
constexpr short colour_cyan = 768;
constexpr short colour_red = 1024;
constexpr short colour_yellow = 1536;

std::optional<short> colour_code(const std::string& name);

// All names, for a message.
const std::string& colour_list();

}  // namespace ostrelcell
