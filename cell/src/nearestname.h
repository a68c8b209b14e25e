// Finds what somebody meant who mistyped a name.
#pragma once

#include <string>
#include <vector>

namespace ostrelcell {

// The candidate nearest to `name`, or empty where none is near enough to be meant.
std::string nearest_name(const std::string& name, const std::vector<std::string>& candidates);

// `; did you mean "X"?`, or empty.
std::string did_you_mean(const std::string& name, const std::vector<std::string>& candidates);

}  // namespace ostrelcell
