#include "nearestname.h"

#include <algorithm>
#include <cctype>
#include <numeric>

namespace ostrelcell {

namespace {

size_t editDistance(const std::string& a, const std::string& b) {
    std::vector<size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), size_t{0});
    for (size_t i = 1; i <= a.size(); ++i) {
        size_t diagonal = row[0];
        row[0] = i;
        for (size_t j = 1; j <= b.size(); ++j) {
            const bool same = std::tolower(static_cast<unsigned char>(a[i - 1])) ==
                              std::tolower(static_cast<unsigned char>(b[j - 1]));
            const size_t replaced = diagonal + (same ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, replaced});
        }
    }
    return row[b.size()];
}

}  // namespace

std::string nearestName(const std::string& name, const std::vector<std::string>& candidates) {
    std::string best;
    size_t bestDistance = name.size() / 3 + 1;
    for (const std::string& candidate : candidates) {
        const size_t longer = std::max(candidate.size(), name.size());
        if (longer - std::min(candidate.size(), name.size()) > bestDistance)
            continue;
        const size_t distance = editDistance(name, candidate);
        if (distance < bestDistance || (distance == bestDistance && best.empty())) {
            best = candidate;
            bestDistance = distance;
        }
    }
    return best;
}

std::string didYouMean(const std::string& name, const std::vector<std::string>& candidates) {
    const std::string nearest = nearestName(name, candidates);
    return nearest.empty() ? "" : "; did you mean \"" + nearest + "\"?";
}

}  // namespace ostrelcell
