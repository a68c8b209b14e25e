// The sections of the variable store that a catalogue is read from.
#ifndef OSTREL_SELECTION_CATALOGUESECTIONS_H
#define OSTREL_SELECTION_CATALOGUESECTIONS_H

#include <ostrel/records.h>

#include <array>

#include "variables/kinds.h"

// One run of records of one kind inside a memory area.
struct CatalogueSection {
    const char* label;  // the group that VariableMapList lists it under
    const char* title;  // its heading in a flat list of everything
    SM_AREA_ID area;
    SM_VARI_TYPE kind;               // tells the record
    size_t start;                    // bytes from the base of the area
    short SYSTEM_ATTRIBUTES::*used;  // slots in use; null where their number is fixed
    short fixed;                     // that number
    int opensFor;                    // QT_OSTREL_FLAGS, of which a filter must have one
    bool isArray;                    // the filter must have QT_OSTREL_ARRAY as well

    short count(const SYSTEM_ATTRIBUTES& attributes) const { return used ? attributes.*used : fixed; }
    // QT_OSTREL_ANY opens every section; it is compared as a whole and is no mask.
    bool isTakenBy(QT_OSTREL_VAR_TYPE filter) const;
};

// All of them, in the order of retrieval. Sections of one area stand together; the general-use ones come first.
const std::array<CatalogueSection, 33>& catalogueSections();

// How many of them are the general-use ones, which are linked together.
constexpr size_t generalUseSections = 4;

#endif
