// Reaching the store that a command works with.
#ifndef OSTREL_TOOLS_STOREACCESS_H
#define OSTREL_TOOLS_STOREACCESS_H

#include <ostrel/store.h>

#include <optional>
#include <string>

// Chooses the store of that name (none: OSTREL_STORE, else "cell"). Throws Failure where it is not running. Tells on
// standard error where its server has died, since the values then stand still.
ostrel_store_status openStore(const std::optional<std::string>& name);

#endif
