// "Did you mean": the names that are closest to a mistyped one.
#ifndef OSTREL_GROUND_NEARESTNAMES_H
#define OSTREL_GROUND_NEARESTNAMES_H

#include <string>
#include <vector>

// At most three of `names`, the nearest first; none where nothing is similar. Case does not count.
std::vector<std::string> nearestNames(const std::string& mistyped, const std::vector<std::string>& names);

#endif
