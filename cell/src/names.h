// Names: which are allowed, and what a full name means in a cell.
#ifndef OSTREL_CELL_NAMES_H
#define OSTREL_CELL_NAMES_H

#include <optional>
#include <string>
#include <vector>

#include "cellmodel.h"

namespace ostrelcell {

constexpr size_t maxNameLength = 79;

// Empty where `name` can name a variable or an alias, else why not. `withPoint`: its label gets a point at its end.
std::string nameFault(const std::string& name, bool withPoint);

// Words that mean something of their own in an expression and so name no variable.
const std::vector<std::string>& reservedWords();

// Names of the members of a kind by index; a member without a name is an empty text.
const std::vector<std::string>& memberNames(SM_VARI_TYPE kind);

// The member's index, or -1.
int memberIndex(SM_VARI_TYPE kind, const std::string& name);

// The position of an element in row-major order by its indexes, numbers or labels. Nothing, with the reason in `why`.
std::optional<int> elementPosition(const Variable& array, const std::vector<std::string>& indexes, std::string& why);

// What a full name stands for, through aliases too. Nothing, with the reason in `why`.
std::optional<ValueRef> resolveName(const CellModel& model, const std::string& fullName, std::string& why);

// The full name at the end of a chain of aliases that starts with `name`. Nothing where the chain is a cycle.
std::optional<std::string> followAliases(const CellModel& model, const std::string& name);

// Fills in the ends of the chains, when all aliases are in the model.
void findEndsOfAliases(CellModel& model);

}  // namespace ostrelcell

#endif
