#include "nearestname.h"

#include <algorithm>
#include <cctype>
#include <numeric>

namespace ostrelcell {

namespace {

std::size_t edit_distance(const std::string& a, const std::string& b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const bool same = std::tolower(static_cast<unsigned char>(a[i - 1])) ==
                              std::tolower(static_cast<unsigned char>(b[j - 1]));
            const std::size_t replaced = diagonal + (same ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, replaced});
        }
    }
    return row[b.size()];
}

}  // namespace

std::string nearest_name(const std::string& name, const std::vector<std::string>& candidates) {
    std::string best;
    std::size_t best_distance = name.size() / 3 + 1;
    for (const std::string& candidate : candidates) {
        const std::size_t longer = std::max(candidate.size(), name.size());
        if (longer - std::min(candidate.size(), name.size()) > best_distance)
            continue;
        const std::size_t distance = edit_distance(name, candidate);
        if (distance < best_distance || (distance == best_distance && best.empty())) {
            best = candidate;
            best_distance = distance;
        }
    }
    return best;
}

std::string did_you_mean(const std::string& name, const std::vector<std::string>& candidates) {
    const std::string nearest = nearest_name(name, candidates);
    return nearest.empty() ? "" : "; did you mean \"" + nearest + "\"?";
}

}  // namespace ostrelcell
