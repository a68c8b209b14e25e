#include "suggestion.h"

#include "ground/nearestnames.h"

std::string didYouMean(const std::string& mistyped, const std::vector<std::string>& names,
                       const std::string& otherwise) {
    const auto similar = nearestNames(mistyped, names);
    if (similar.empty())
        return otherwise;
    std::string text = "; did you mean " + similar[0];
    for (size_t i = 1; i < similar.size(); ++i)
        text += (i + 1 == similar.size() ? " or " : ", ") + similar[i];
    return text + "?";
}
