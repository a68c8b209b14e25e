#include "ground/nearestnames.h"

#include <algorithm>
#include <cctype>
#include <numeric>

namespace {

char lower(char character) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
}

// Letters to insert, delete, replace, or to swap with their neighbour, to come from one name to the other.
size_t distance(const std::string& a, const std::string& b) {
    std::vector<size_t> beforeLast, last(b.size() + 1), row(b.size() + 1);
    std::iota(last.begin(), last.end(), size_t{0});
    for (size_t i = 1; i <= a.size(); ++i) {
        row[0] = i;
        for (size_t j = 1; j <= b.size(); ++j) {
            const bool same = lower(a[i - 1]) == lower(b[j - 1]);
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (same ? 0 : 1)});
            if (i > 1 && j > 1 && lower(a[i - 1]) == lower(b[j - 2]) && lower(a[i - 2]) == lower(b[j - 1]))
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
        }
        beforeLast = last;
        std::swap(last, row);
    }
    return last[b.size()];
}

}  // namespace

std::vector<std::string> nearestNames(const std::string& mistyped, const std::vector<std::string>& names) {
    const size_t tolerance = std::max<size_t>(1, mistyped.size() / 3);
    std::vector<std::pair<size_t, std::string>> similar;
    for (const std::string& name : names) {
        const size_t steps = distance(mistyped, name);
        if (steps <= tolerance)
            similar.emplace_back(steps, name);
    }
    std::sort(similar.begin(), similar.end());
    similar.erase(std::unique(similar.begin(), similar.end()), similar.end());
    std::vector<std::string> result;
    // Beside a name that is almost right, one that is merely similar would only confuse.
    for (size_t i = 0; i < similar.size() && i < 3 && similar[i].first <= similar[0].first + 1; ++i)
        result.push_back(similar[i].second);
    return result;
}
