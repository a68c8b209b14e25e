// The sections as the library looks them up, and where the common fields of each kind of record lie.
#ifndef OSTREL_STORE_SECTIONS_H
#define OSTREL_STORE_SECTIONS_H

#include <ostrel/areas.h>

#include <cstddef>

inline constexpr int storeSections = 34;

// The number of the section of that area and kind in ostrel_sections(), or -1.
int sectionNumber(int area, int kind);

// The section that holds all arrays of that kind, or -1 for a kind that is no array.
int arraySectionNumber(int kind);

inline constexpr bool isArray(int kind) {
    return kind >= REAL_ARRAY_TYPE && kind <= LOGI_ARRAY_TYPE;
}

inline bool hasMembers(int kind) {
    return kind >= STAT_TYPE && kind <= EMIS_TYPE;
}

// Offsets in a record of the fields that every kind has under the same name (an alias calls its label `alias`).
struct CommonFields {
    size_t label;
    size_t active;
    size_t shmId;
    size_t index;
};

// `kind` is the kind of one of the sections.
const CommonFields& commonFields(int kind);

// Bytes of one element of an array of that kind.
size_t elementSize(int arrayKind);

#endif
