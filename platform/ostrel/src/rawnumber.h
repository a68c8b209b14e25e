// What a caller has put into an enumeration, which need not be one of its values: read as a number, since a value
// outside of an enumeration means nothing to the language.
#ifndef OSTREL_RAWNUMBER_H
#define OSTREL_RAWNUMBER_H

#include <ostrel/records.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

inline int rawNumber(const void* enumeration) {
    int16_t number = 0;
    std::memcpy(&number, enumeration, sizeof number);
    return number;
}

inline int areaIn(const SHARED_MEMORY& mem) {
    return rawNumber(reinterpret_cast<const char*>(&mem) + offsetof(SHARED_MEMORY, code));
}

inline int kindIn(const SHARED_MEMORY& mem) {
    return rawNumber(reinterpret_cast<const char*>(&mem) + offsetof(SHARED_MEMORY, vari_type));
}

#endif
