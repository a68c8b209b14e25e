// "Did you mean": the names that are closest to a mistyped one, as the end of a message.
#ifndef OSTREL_TOOLS_SUGGESTION_H
#define OSTREL_TOOLS_SUGGESTION_H

#include <string>
#include <vector>

// "; did you mean A, B or C?" for at most three of them, or `otherwise` where nothing is similar.
std::string didYouMean(const std::string& mistyped, const std::vector<std::string>& names,
                       const std::string& otherwise);

#endif
