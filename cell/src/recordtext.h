// Texts in the fixed fields of records.
#ifndef OSTREL_CELL_RECORDTEXT_H
#define OSTREL_CELL_RECORDTEXT_H

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>

namespace ostrelcell {

// Copies as much as fits with a terminating zero, and clears the rest of the field. A field that holds the text already
// is not touched: readers take no lock.
template <size_t size>
void setText(char (&field)[size], const std::string& text) {
    char wanted[size] = {};
    std::memcpy(wanted, text.data(), std::min(text.size(), size - 1));
    if (std::memcmp(field, wanted, size) != 0)
        std::memcpy(field, wanted, size);
}

}  // namespace ostrelcell

#endif
