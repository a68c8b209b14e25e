// All variables of the store, read from its sections.
#ifndef OSTREL_TOOLS_CATALOGUE_H
#define OSTREL_TOOLS_CATALOGUE_H

#include <ostrel/areas.h>

#include <map>
#include <string>
#include <vector>

#include "variable.h"

struct CatalogueEntry {
    const ostrel_section* section;
    Variable variable;
    std::vector<std::string> aliases;  // of the variable itself, not of its members or elements
};

// In the order of the sections. A variable that comes or goes meanwhile may be missing or stand there once more.
std::vector<CatalogueEntry> catalogue();

// Those whose name or alias the glob pattern takes, in any case; all where it is empty.
std::vector<CatalogueEntry> catalogue(const std::string& pattern);

// What a name on the command line means: all that it takes where it is a pattern, such as 'OIL*', else itself. Throws
// Failure for a pattern that takes nothing.
std::vector<std::string> namesMeant(const std::string& nameOrPattern);

// How many variables a section holds at the moment.
int variablesIn(const ostrel_section& section);

// Other names by the full name that each stands for.
std::multimap<std::string, std::string> aliases();

// Every name that can be asked for, aliases included, members and elements not.
std::vector<std::string> knownNames();

// Those of them that the pattern takes; all where it is empty.
std::vector<std::string> knownNames(const std::string& pattern);

#endif
