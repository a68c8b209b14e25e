// The list of writes in a store: noting one, and reading them.
#ifndef OSTREL_STORE_WRITELOG_H
#define OSTREL_STORE_WRITELOG_H

#include <ostrel/store.h>

#include <string>

#include "store/attachment.h"
#include "store/writelayout.h"

// Where a write went.
struct WriteTarget {
    const Attachment* store;
    int section;
    int index;
    uint32_t element;  // of an array, its number + 1
};

// A value as it stands in a note.
using WrittenBytes = std::array<char, writtenBytes>;
WrittenBytes writtenNumber(double value);
WrittenBytes writtenText(const char* text, size_t longest);

// Notes a write of this process, stored or refused.
void noteWrite(const WriteTarget& target, const WrittenBytes& former, const WrittenBytes& value, short refusal);

// The note for people; without the name of the user.
ostrel_write describeNote(uint64_t number, const WriteNote& note);

#endif
