// The walk through the catalogue: each section with its records, in the order of retrieval.
#ifndef OSTREL_SELECTION_CATALOGUEWALK_H
#define OSTREL_SELECTION_CATALOGUEWALK_H

#include <functional>

#include "selection/arealinks.h"
#include "selection/cataloguesections.h"

// The attributes of the store, which stay linked; null without a running store, which is told on the standard output.
const SYSTEM_ATTRIBUTES* linkSystemAttributes();

// Hands each section that `isTaken` wants to `visit`, with the base of its area, which is linked that long. Sections of
// an area that does not link are left out, and the general-use ones where the area of the reals does not.
void walkCatalogue(AreaLinks& areas, const std::function<bool(const CatalogueSection& section)>& isTaken,
                   const std::function<void(const CatalogueSection& section, void* base)>& visit);

// Calls visit(records) with a pointer to the section's first record, of the type that its kind has.
template <class Visit>
void visitRecords(const CatalogueSection& section, void* base, const Visit& visit) {
    void* const start = static_cast<char*>(base) + section.start;
    switch (section.kind) {
        case REAL_TYPE:
            return visit(static_cast<const REAL_VARIABLE*>(start));
        case INT_TYPE:
            return visit(static_cast<const INTEGER_VARIABLE*>(start));
        case LOGI_TYPE:
            return visit(static_cast<const LOGICAL_VARIABLE*>(start));
        case STRING_TYPE:
            return visit(static_cast<const STRING_VARIABLE*>(start));
        case REAL_ARRAY_TYPE:
            return visit(static_cast<const REAL_ARRAY_VARIABLE*>(start));
        case INT_ARRAY_TYPE:
            return visit(static_cast<const INTEGER_ARRAY_VARIABLE*>(start));
        case LOGI_ARRAY_TYPE:
            return visit(static_cast<const LOGICAL_ARRAY_VARIABLE*>(start));
        case STRING_ARRAY_TYPE:
            return visit(static_cast<const STRING_ARRAY_VARIABLE*>(start));
        case STAT_TYPE:
            return visit(static_cast<const STAT_VARIABLE*>(start));
        case COMP_TYPE:
            return visit(static_cast<const COMP_VARIABLE*>(start));
        case PROP_TYPE:
            return visit(static_cast<const PROP_VARIABLE*>(start));
        default:
            return visit(static_cast<const EMIS_VARIABLE*>(start));
    }
}

#endif
