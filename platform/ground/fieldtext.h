// Texts in fixed fields, as records and messages have them: up to the end of the field where no zero ends them.
#ifndef OSTREL_GROUND_FIELDTEXT_H
#define OSTREL_GROUND_FIELDTEXT_H

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

template <size_t size>
std::string fieldText(const char (&field)[size]) {
    return {field, strnlen(field, size)};
}

// Copies as much as fits with a terminating zero, and clears the rest of the field. A field that holds the text already
// is not touched: readers of shared memory take no lock.
template <size_t size>
void setText(char (&field)[size], std::string_view text) {
    char wanted[size] = {};
    std::memcpy(wanted, text.data(), std::min(text.size(), size - 1));
    if (std::memcmp(field, wanted, size) != 0)
        std::memcpy(field, wanted, size);
}

// Copies as much as fits into the buffer that a caller gave for a message; it may be null.
inline void setMessage(char* message, size_t size, std::string_view text) {
    if (message == nullptr || size == 0)
        return;
    const size_t length = std::min(text.size(), size - 1);
    std::memcpy(message, text.data(), length);
    message[length] = '\0';
}

#endif
