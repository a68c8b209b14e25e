// What a variable holds: its value for machines, the text that an operator would see, and the units.
#ifndef OSTREL_TOOLS_READING_H
#define OSTREL_TOOLS_READING_H

#include <string>

#include "json.h"
#include "variable.h"

struct Reading {
    Json value;  // a number, true or false, a text; null for a whole variable
    std::string text;
    std::string units;
};

// Reads it, in its own units where `units` is empty. Throws Failure where it cannot be converted to them.
Reading read(const Variable& variable, const std::string& units = {});

// What the variable's two states are called; empty for a kind that is not logical.
struct StateNames {
    std::string whenTrue;
    std::string whenFalse;
};
StateNames stateNames(const Variable& variable);

#endif
