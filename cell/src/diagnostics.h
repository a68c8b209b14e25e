// Collects what is wrong with a cell file, so that one look shows all of it.
#ifndef OSTREL_CELL_DIAGNOSTICS_H
#define OSTREL_CELL_DIAGNOSTICS_H

#include <string>
#include <vector>

namespace ostrelcell {

class Diagnostics {
public:
    explicit Diagnostics(std::string file) : m_file(std::move(file)) {}

    // Line 0 blames the file as a whole.
    void add(int line, const std::string& reason);
    bool empty() const { return m_entries.empty(); }
    int count() const { return static_cast<int>(m_entries.size()); }

    // "FILE:LINE: reason", in the order of the lines, without a line break at the end.
    std::string text() const;

private:
    struct Entry {
        int line;
        std::string reason;
    };
    std::string m_file;
    std::vector<Entry> m_entries;
};

}  // namespace ostrelcell

#endif
