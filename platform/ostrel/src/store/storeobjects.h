// The shared memory objects of one store: their names, sizes, and what makes them fit together.
#ifndef OSTREL_STORE_STOREOBJECTS_H
#define OSTREL_STORE_STOREOBJECTS_H

#include <array>
#include <string>

#include "store/layout.h"
#include "store/sharedobject.h"

struct StoreObjects {
    SharedObject header;
    SharedObject elements;  // of all arrays
    SharedObject events;
    SharedObject blocks;  // private blocks by name
    SharedObject writes;  // what clients wrote, and what they may write
    std::array<SharedObject, MAX_NUM_SHRD_MEM> areas;

    StoreHeader* storeHeader() const { return reinterpret_cast<StoreHeader*>(header.data()); }
    IndexTable* indexTable(uint64_t version) const {
        return reinterpret_cast<IndexTable*>(header.data() + indexOffset + (version & 1) * indexBytes);
    }
};

// The room of each section.
using Capacities = std::array<uint32_t, storeSections>;
Capacities defaultCapacities();

// What a look at a store's objects came to.
enum class StoreLook {
    Usable,
    Absent,     // no store of that name, or none yet, or one that has just ended
    Forbidden,  // one that this user may not even read
    Damaged     // something of that name that cannot be used
};

// Empty for the name of a store: 1 to 63 letters, digits, points, underscores and hyphens that cannot be taken for a
// part of another store. Else why it is none.
std::string problemOfStoreName(const std::string& name);

// Makes the objects of a new store, with the header in state Making; an empty name makes them anonymous. Objects left
// over under their names are removed before. False: `problem` says why, and nothing is left behind.
bool createStoreObjects(StoreObjects& objects, const std::string& name, const Capacities& capacities,
                        const Access& access, std::string& problem);

// Maps the objects of the store of that name, for reading only where writing is not allowed.
StoreLook openStoreObjects(StoreObjects& objects, const std::string& name, std::string& problem);

// The name under which the next generation of a store is made, and its move to the name of the store, whose own objects
// lose theirs. At every instant the name leads to the one store, to none or to the other, never to parts of both.
std::string nextGenerationName(const std::string& name);
int replaceStoreObjects(const std::string& name);

// Takes the store's objects out of the name space. Who has them mapped keeps them.
void unlinkStoreObjects(const std::string& name);

// The object of the store's header.
std::string headerObject(const std::string& name);

#endif
