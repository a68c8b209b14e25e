// Finds what somebody meant who mistyped a name.
#ifndef OSTREL_CELL_SUGGESTION_H
#define OSTREL_CELL_SUGGESTION_H

#include <string>
#include <vector>

#include "ground/nearestnames.h"

namespace ostrelcell {

// `; did you mean "X"?`, or empty where none of the candidates is near enough to be meant.
inline std::string didYouMean(const std::string& name, const std::vector<std::string>& candidates) {
    const std::vector<std::string> nearest = nearestNames(name, candidates);
    return nearest.empty() ? "" : "; did you mean \"" + nearest.front() + "\"?";
}

}  // namespace ostrelcell

#endif
