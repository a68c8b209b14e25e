#include "diagnostics.h"

#include <algorithm>

namespace ostrelcell {

void Diagnostics::add(int line, const std::string& reason) {
    m_entries.push_back({line, reason});
}

std::string Diagnostics::text() const {
    std::vector<Entry> sorted = m_entries;
    std::stable_sort(sorted.begin(), sorted.end(), [](const Entry& a, const Entry& b) { return a.line < b.line; });
    std::string result;
    for (const Entry& entry : sorted) {
        if (!result.empty())
            result += '\n';
        result += m_file + ":";
        if (entry.line > 0)
            result += std::to_string(entry.line) + ":";
        result += " " + entry.reason;
    }
    return result;
}

}  // namespace ostrelcell
