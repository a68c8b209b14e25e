// Finds what somebody meant who mistyped a name.
#ifndef OSTREL_CELL_NEARESTNAME_H
#define OSTREL_CELL_NEARESTNAME_H

#include <string>
#include <vector>

namespace ostrelcell {

// The candidate nearest to `name`, or empty where none is near enough to be meant.
std::string nearestName(const std::string& name, const std::vector<std::string>& candidates);

// `; did you mean "X"?`, or empty.
std::string didYouMean(const std::string& name, const std::vector<std::string>& candidates);

}  // namespace ostrelcell

#endif
