// Texts as they stand in the store, written by other programs.
#ifndef OSTREL_TOOLS_FIELDTEXT_H
#define OSTREL_TOOLS_FIELDTEXT_H

#include "ground/fieldtext.h"
#include "ground/printable.h"

#endif
