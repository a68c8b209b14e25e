// Whose stores a program uses. Anybody may make an object of any name in shared memory that is not there yet, and
// values that somebody else put there must not be taken for the cell's.
#ifndef OSTREL_STORE_STOREOWNER_H
#define OSTREL_STORE_STOREOWNER_H

#include <sys/types.h>

#include <string>

// Whether that is the user of this process, root, or the user that OSTREL_OWNER names (a name or a number).
bool mayOwnStores(uid_t owner);

// What people are told of an object that belongs to another user.
std::string foreignOwner(uid_t owner);

// Whose the object of that name is, and its mode: "it belongs to ann and has mode 0600".
std::string ownershipOf(const std::string& name);

// What people are told of the object of that name that could not be opened or made: of a squatted one whose it is.
std::string problemOfObject(const std::string& name, int error);

#endif
