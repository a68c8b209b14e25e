// Names: which are allowed, and what a full name means in a cell.
#pragma once

#include "cellmodel.h"

#include <optional>
#include <string>
#include <vector>

namespace ostrelcell {

constexpr std::size_t max_name_length = 79;

// Empty where `name` can name a variable or an alias, else why not. `with_point`: its label gets a point at its end.
std::string name_fault(const std::string& name, bool with_point);

// Words that mean something of their own in an expression and so name no variable.
const std::vector<std::string>& reserved_words();

// Names of the members of a kind by index; a member without a name is an empty text.
const std::vector<std::string>& member_names(SM_VARI_TYPE kind);

// The member's index, or -1.
int member_index(SM_VARI_TYPE kind, const std::string& name);

// The position of an element in row-major order by its indexes, numbers or labels. Nothing, with the reason in `why`.
std::optional<int> element_position(const Variable& array, const std::vector<std::string>& indexes, std::string& why);

// What a full name stands for, through aliases too. Nothing, with the reason in `why`.
std::optional<ValueRef> resolve_name(const CellModel& model, const std::string& full_name, std::string& why);

// The full name at the end of a chain of aliases that starts with `name`. Nothing where the chain is a cycle.
std::optional<std::string> follow_aliases(const CellModel& model, const std::string& name);

}  // namespace ostrelcell
