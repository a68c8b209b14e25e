// Reaching the store that a command works with.
#ifndef OSTREL_TOOLS_STOREACCESS_H
#define OSTREL_TOOLS_STOREACCESS_H

#include <ostrel/store.h>

#include <optional>
#include <string>

// Whether somebody keeps the values of the store moving.
enum class ServerState {
    Alive,
    Stopped,  // its process is there and has not shown for a while that it scans
    Dead
};

ServerState serverState(const ostrel_store_status& status);

// Why the values of the store stand still, in a sentence; empty where they do not.
std::string standstill(const ostrel_store_status& status);

// Chooses the store of that name (none: OSTREL_STORE, else "cell"). Throws Failure where it is not running. Tells on
// standard error where the values stand still.
ostrel_store_status openStore(const std::optional<std::string>& name);

// As openStore(), for a command that writes: throws Failure where nobody would see to what is written.
void openStoreToWrite(const std::optional<std::string>& name, bool force);

#endif
