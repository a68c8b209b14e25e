// What clients may write, and what outlives the cell.
#include <algorithm>
#include <cmath>

#include "variablekeys.h"

namespace ostrelcell {

namespace {

bool is_number(SM_VARI_TYPE kind) {
    return kind == REAL_TYPE || kind == INT_TYPE || kind == REAL_ARRAY_TYPE || kind == INT_ARRAY_TYPE;
}

std::string shown(double value) {
    char text[40];
    std::snprintf(text, sizeof text, "%.10g", value);
    return text;
}

// False, with a report, where the variable is of a kind that has no use for the key.
bool fits(TableReader& reader, const Variable& variable, const char* key, bool hasUse, const char* why) {
    const bool given = reader.node(key) != nullptr;
    if (given && !hasUse)
        reader.fault(reader.line(key), std::string(key) + " is for " + why + "; a " + kindWord(variable.kind) +
                                           " variable has no use for it");
    return given && hasUse;
}

std::optional<double> readBound(TableReader& reader, const Variable& variable, const char* key) {
    if (!fits(reader, variable, key, is_number(variable.kind), "numbers"))
        return std::nullopt;
    const auto bound = reader.number(key);
    const bool whole = variable.kind == INT_TYPE || variable.kind == INT_ARRAY_TYPE;
    if (bound && whole && *bound != std::floor(*bound)) {
        reader.fault(reader.line(key), std::string(key) + " must be a whole number, as the variable's values are");
        return std::nullopt;
    }
    return bound;
}

// A cell must not start with a value that it would refuse.
void checkStart(TableReader& reader, const Variable& variable) {
    std::vector<double> values = variable.values;
    if (!is_array(variable.kind))
        values.push_back(variable.value);
    const WriteRule& rule = variable.write;
    const auto outside = std::find_if(values.begin(), values.end(), [&](double value) { return !rule.allows(value); });
    if (outside == values.end())
        return;
    const bool below = rule.least && *outside < *rule.least;
    reader.fault(reader.line("value"), "value " + shown(*outside) + " is " + (below ? "below min " : "above max ") +
                                           shown(below ? *rule.least : *rule.most));
}

}  // namespace

void readWriteRule(TableReader& reader, Variable& variable) {
    const bool canBeWritten = !hasMembers(variable.kind);
    WriteRule& rule = variable.write;
    if (fits(reader, variable, "writable", canBeWritten, "what clients can write"))
        rule.writable = reader.boolean("writable").value_or(true);
    if (fits(reader, variable, "persist", canBeWritten, "what clients can write"))
        variable.persist = reader.boolean("persist").value_or(false);
    rule.least = readBound(reader, variable, "min");
    rule.most = readBound(reader, variable, "max");
    if (rule.least && rule.most && *rule.least > *rule.most) {
        reader.fault(reader.line("min"), "min " + shown(*rule.least) + " lies above max " + shown(*rule.most));
        rule.least = rule.most = std::nullopt;
    }
    // What an expression gives is the cell's own and may go anywhere.
    if (is_number(variable.kind) && !variable.expr.given())
        checkStart(reader, variable);
}

}  // namespace ostrelcell
