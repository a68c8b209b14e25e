// The units that a value can be shown in.
#ifndef OSTREL_VARIABLES_UNITSLIST_H
#define OSTREL_VARIABLES_UNITSLIST_H

#include <QStringList>

// Appends the keywords that `units` converts to, at most 30; false where it has no dimension, with the list as it was.
bool listCompatibleUnits(const char (&units)[16], QStringList* list);

// The same for units without dimension as well: false only for what is no keyword.
bool listUnits(const char (&units)[16], QStringList* list);

#endif
