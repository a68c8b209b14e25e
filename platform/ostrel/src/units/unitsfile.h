// The keywords that a site adds, in a text file: one a line, KEYWORD CODE GROUP EXPRESSION, with # before a comment.
#ifndef OSTREL_UNITS_UNITSFILE_H
#define OSTREL_UNITS_UNITSFILE_H

#include "units/unitscatalogue.h"

// Adds the keywords of a file. What is wrong is written to the log with file and line, and left out.
void addUnitsOfFile(const char* path, UnitsCatalogue& catalogue);

#endif
