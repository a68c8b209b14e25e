// The commands of `ostrel`. Each prints to standard output, as text or with `json` as JSON, and returns the exit
// status; one that fails as a whole throws Failure. The store is open before, except for unitsCommand().
#ifndef OSTREL_TOOLS_COMMANDS_H
#define OSTREL_TOOLS_COMMANDS_H

#include <ostrel/store.h>

#include <string>
#include <vector>

// Prints "ostrel: MESSAGE" on standard error.
void complain(const std::string& message);

// Variables whose name or alias the glob pattern takes; all where it is empty.
int listCommand(const std::string& pattern, bool json);

// Names and aliases that the pattern takes, a line each and nothing else; for scripts.
int namesCommand(const std::string& pattern, bool json);

// Values in their own units or in `units`; a name may be a pattern. Unknown names are told at the end, after all that
// could be read.
int getCommand(const std::vector<std::string>& names, const std::string& units, bool json);

// Writes a value given in `units` (empty: the variable's own) and prints what the variable then holds.
int setCommand(const std::string& name, const std::string& value, const std::string& units, bool json);

struct WatchRequest {
    std::vector<std::string> names;
    std::string units;
    int rateMs = 1000;
    int count = 0;  // rounds that print something; 0: until interrupted
    bool changesOnly = false;
};
int watchCommand(const WatchRequest& request, bool json);

// Every field of one variable.
int infoCommand(const std::string& name, bool json);

// What was written to variables whose name the glob pattern takes, refused values too; all where it is empty.
int writesCommand(const std::string& pattern, bool json);

// Keywords that the given one can be converted to; all keywords where it is empty.
int unitsCommand(const std::string& keyword, bool json);

int eventRaiseCommand(const std::string& name, const std::string& payload, bool json);

struct EventWaitRequest {
    std::string name;
    int timeoutSeconds = 0;  // 0: until it comes
    int count = 1;           // 0: until interrupted
};
int eventWaitCommand(const EventWaitRequest& request, bool json);

// Makes the server read its cell file again, and waits until it has.
int reconfigCommand(const ostrel_store_status& store, bool json);

int statusCommand(const ostrel_store_status& store, bool json);

#endif
