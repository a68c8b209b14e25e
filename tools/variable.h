// One variable of the store as the commands see it: found by its full name.
#ifndef OSTREL_TOOLS_VARIABLE_H
#define OSTREL_TOOLS_VARIABLE_H

#include <ostrel/records.h>

#include <optional>
#include <string>
#include <vector>

struct Variable {
    std::string name;      // as it was asked for: perhaps an alias
    std::string fullName;  // the variable's own name
    SHARED_MEMORY handle{};
    const void* record = nullptr;

    bool hasMembers() const;  // of a kind with members, whether one is selected or not
    bool isArray() const;     // of an array kind, whether an element is selected or not
    bool isWhole() const;     // has members or elements of which none is selected
};

// Finds a variable, member or element.
std::optional<Variable> lookUpVariable(const std::string& name);

// The same. Throws Failure that says what is near, or what of the name is wrong.
Variable findVariable(const std::string& name);

// The variable, or all of its members or elements where it is whole.
std::vector<Variable> parts(const Variable& variable);

// Numbers of elements in each dimension of an array.
std::vector<int> dimensions(const Variable& array);

// Words such as "real" or "integer array".
std::string kindName(SM_VARI_TYPE kind);

// Members that a variable of that kind has; 0 for a kind without.
int memberCount(SM_VARI_TYPE kind);

// Calls `function` with the record as what it is; false where the kind has no record.
template <class Function>
bool withRecord(SM_VARI_TYPE kind, const void* record, Function function) {
    const auto as = [&]<class Record>(const Record*) {
        function(*static_cast<const Record*>(record));
        return true;
    };
    switch (record == nullptr ? UNDEFINED_VAR_TYPE : kind) {
        case REAL_TYPE:
            return as(static_cast<const REAL_VARIABLE*>(nullptr));
        case INT_TYPE:
            return as(static_cast<const INTEGER_VARIABLE*>(nullptr));
        case LOGI_TYPE:
            return as(static_cast<const LOGICAL_VARIABLE*>(nullptr));
        case STRING_TYPE:
            return as(static_cast<const STRING_VARIABLE*>(nullptr));
        case STAT_TYPE:
            return as(static_cast<const STAT_VARIABLE*>(nullptr));
        case COMP_TYPE:
            return as(static_cast<const COMP_VARIABLE*>(nullptr));
        case PROP_TYPE:
            return as(static_cast<const PROP_VARIABLE*>(nullptr));
        case EMIS_TYPE:
            return as(static_cast<const EMIS_VARIABLE*>(nullptr));
        case REAL_ARRAY_TYPE:
            return as(static_cast<const REAL_ARRAY_VARIABLE*>(nullptr));
        case INT_ARRAY_TYPE:
            return as(static_cast<const INTEGER_ARRAY_VARIABLE*>(nullptr));
        case STRING_ARRAY_TYPE:
            return as(static_cast<const STRING_ARRAY_VARIABLE*>(nullptr));
        case LOGI_ARRAY_TYPE:
            return as(static_cast<const LOGICAL_ARRAY_VARIABLE*>(nullptr));
        default:
            return false;
    }
}

#endif
