// Texts as they stand in the store, written by other programs.
#ifndef OSTREL_TOOLS_FIELDTEXT_H
#define OSTREL_TOOLS_FIELDTEXT_H

#include <string>

#include "ground/fieldtext.h"

// The text with everything replaced that could move a terminal's cursor or change its colours.
inline std::string printable(std::string text) {
    for (char& character : text) {
        if (static_cast<unsigned char>(character) < 0x20 || character == 0x7F)
            character = '?';
    }
    return text;
}

#endif
