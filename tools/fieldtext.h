// Texts as they stand in the store: up to the end of the field where no zero ends them, and written by other programs.
#ifndef OSTREL_TOOLS_FIELDTEXT_H
#define OSTREL_TOOLS_FIELDTEXT_H

#include <cstring>
#include <string>

template <size_t size>
std::string fieldText(const char (&field)[size]) {
    return {field, strnlen(field, size)};
}

// The text with everything replaced that could move a terminal's cursor or change its colours.
inline std::string printable(std::string text) {
    for (char& character : text) {
        if (static_cast<unsigned char>(character) < 0x20 || character == 0x7F)
            character = '?';
    }
    return text;
}

#endif
