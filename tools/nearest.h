// "Did you mean": the names that are closest to a mistyped one.
#ifndef OSTREL_TOOLS_NEAREST_H
#define OSTREL_TOOLS_NEAREST_H

#include <string>
#include <vector>

// At most three of `names`, the nearest first; none where nothing is similar. Case does not count.
std::vector<std::string> nearest(const std::string& mistyped, const std::vector<std::string>& names);

// "; did you mean A, B or C?" for them, or `otherwise` where nothing is similar.
std::string didYouMean(const std::string& mistyped, const std::vector<std::string>& names,
                       const std::string& otherwise);

#endif
