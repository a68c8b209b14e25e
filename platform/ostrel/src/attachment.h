/*
 * The store that this process uses, as mapped memory.
 *
 * An Attachment is never destroyed once it was handed out, so every address in it stays good to the end of the process.
 * All functions here may be called from any thread.
 */
#ifndef OSTREL_ATTACHMENT_H
#define OSTREL_ATTACHMENT_H

#include <cstddef>
#include <cstdint>

#include <ostrel/areas.h>

struct StoreHeader;

class Attachment {
public:
    /* The header of the store in shared memory. Never null. */
    StoreHeader* header() const;

    /* Tells this store from every other one that was ever made. */
    uint64_t instance() const;

    /* False where this process may only read the store. */
    bool isWritable() const;

    /* True in the process that serves this store. */
    bool isServer() const;

    /* The memory of the events, formatted by formatEventMemory(); null where it cannot be mapped for writing. */
    void* eventMemory() const;

    /* The start of an area; null where the store has no such area. */
    char* base(SM_AREA_ID area) const;
};

/*
 * The store in use, attaching to it where that has become possible; null for no store. Where the store in use has ended
 * and another one of its name is there, that one is given from then on. Costs two atomic loads while nothing changes.
 */
Attachment* attachment();

#endif
