// Texts that other programs wrote, on their way to a terminal or a log.
#ifndef OSTREL_GROUND_PRINTABLE_H
#define OSTREL_GROUND_PRINTABLE_H

#include <string>

// The text with a question mark for each character that could move a terminal's cursor, change its colours or end a
// line, in either of its codes, and for each byte that belongs to no character (UTF-8).
std::string printable(std::string text);

// The same, but for the line feeds, which stay.
std::string printableLines(const std::string& text);

#endif
