// The store that a server keeps: making it, adopting the one that a dead server left, and replacing it with the next
// generation, whose areas are larger.
#ifndef OSTREL_SERVER_GENERATION_H
#define OSTREL_SERVER_GENERATION_H

#include <optional>
#include <span>
#include <string>

#include "server/serverstate.h"

// Adopts or makes the store and lets clients have it. Else `problem` says why not.
void openStore(ostrel_server& server, const ostrel_server_options& options, std::string& problem);

// Ends the store cleanly.
void closeStore(ostrel_server& server);

// Leaves the store as it is to the next server.
void leaveStore(ostrel_server& server);

// The generation that clients use.
Attachment& storeOfClients(const ostrel_server& server);

// The capacities of the store, larger where the rooms ask for more; nothing, with the reason, where that cannot be.
std::optional<Capacities> capacitiesFor(const Attachment& store, std::span<const ostrel_server_room> rooms,
                                        std::string& problem);
bool fits(const Attachment& store, const Capacities& capacities);

// Makes the next generation, to be filled; false, with the reason, where that cannot be.
bool startNextGeneration(ostrel_server& server, const Capacities& capacities, std::string& problem);

// Drops the next generation as if it had never been started.
void abandonNextGeneration(ostrel_server& server);

// Lets clients have the next generation in place of the one they use, and tells them there.
void finishNextGeneration(ostrel_server& server);

// Raises the event of reconfigurations in that store.
void announce(const Attachment& store, SM_AREA_ID area, bool starts);

// Counts a reconfiguration in that store.
void countReconfiguration(const Attachment& store);

#endif
