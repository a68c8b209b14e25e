#include "storefill.h"

#include <deque>

#include "names.h"
#include "recordfill.h"

namespace ostrelcell {

namespace {

size_t elementSize(SM_VARI_TYPE kind) {
    switch (kind) {
        case REAL_ARRAY_TYPE:
            return sizeof(REAL_ARRAY_MEMBER);
        case INT_ARRAY_TYPE:
            return sizeof(INTEGER_ARRAY_MEMBER);
        case LOGI_ARRAY_TYPE:
            return sizeof(LOGICAL_ARRAY_MEMBER);
        default:
            return sizeof(STRING_ARRAY_MEMBER);
    }
}

bool putVariable(ostrel_server* server, const Variable& variable, Placed& placed, std::string& reason) {
    char message[256] = "";
    int created = 0;
    const std::string label = variable.label();
    if (is_array(variable.kind))
        placed.record =
            ostrel_server_put_array(server, variable.kind, label.c_str(), static_cast<int>(variable.shape.sizes.size()),
                                    variable.shape.sizes.data(), &placed.elements, &created, message, sizeof message);
    else
        placed.record = ostrel_server_put(server, variable.section->area, variable.kind, label.c_str(), &created,
                                          message, sizeof message);
    placed.created = created != 0;
    if (placed.record == nullptr)
        reason = std::string(kindWord(variable.kind)) + "." + variable.name + ": " + message;
    return placed.record != nullptr;
}

void setLimits(ostrel_server* server, const Variable& variable) {
    double limits[NUM_LIMIT_TYPES];
    short exists[NUM_LIMIT_TYPES];
    short display[NUM_LIMIT_TYPES];
    for (size_t index = 0; index < NUM_LIMIT_TYPES; ++index) {
        const LimitRule& rule = variable.limits.rules[index];
        limits[index] = rule.value;
        exists[index] = rule.exists ? 1 : 0;
        display[index] = rule.status;
    }
    ostrel_server_set_limits(server, variable.label().c_str(), limits, exists, display);
}

// Records with members have no write operation, and so no rule.
void setWriteRule(ostrel_server* server, const Variable& variable) {
    if (hasMembers(variable.kind))
        return;
    const WriteRule& own = variable.write;
    const ostrel_write_rule rule{own.writable ? 1 : 0, own.least ? 1 : 0, own.most ? 1 : 0, own.least.value_or(0),
                                 own.most.value_or(0)};
    ostrel_server_set_write_rule(server, variable.label().c_str(), &rule);
}

// The store knows no aliases of aliases. An index may be a label here; the store is told the number.
std::string targetOf(const CellModel& model, const Alias& alias) {
    std::string why;
    const auto ref = resolveName(model, alias.target, why);
    return ref ? model.fullName(*ref) : alias.target;
}

bool putAlias(ostrel_server* server, const CellModel& model, const Alias& alias, std::string& reason) {
    const std::string target = targetOf(model, alias);
    char message[256] = "";
    if (ostrel_server_put_alias(server, alias.name.c_str(), target.c_str(), alias.primary ? 1 : 0, message,
                                sizeof message) != nullptr)
        return true;
    reason = "alias." + alias.name + ": " + message;
    return false;
}

}  // namespace

bool StoreContents::reserve(ostrel_server* server, const CellModel& model, std::string& reason) {
    std::deque<std::string> texts;  // never moves
    std::vector<ostrel_server_variable> all;
    for (const Variable& variable : model.variables) {
        const char* label = texts.emplace_back(variable.label()).c_str();
        const auto& sizes = variable.shape.sizes;
        all.push_back(
            {variable.section->area, variable.kind, label, nullptr, static_cast<int>(sizes.size()), sizes.data()});
    }
    for (const Alias& alias : model.aliases) {
        const char* target = texts.emplace_back(targetOf(model, alias)).c_str();
        all.push_back({ALIAS_MEM, ALIAS_TYPE, alias.name.c_str(), target, 0, nullptr});
    }
    char message[256] = "";
    if (ostrel_server_reserve(server, all.data(), static_cast<int>(all.size()), message, sizeof message) == 0)
        return true;
    reason = message;
    return false;
}

bool StoreContents::put(ostrel_server* server, const CellModel& model, std::string& reason) {
    m_placed.assign(model.variables.size(), {});
    for (size_t index = 0; index < model.variables.size(); ++index) {
        const Variable& variable = model.variables[index];
        if (!putVariable(server, variable, m_placed[index], reason))
            return false;
        fillRecord(model, variable, m_placed[index]);
        setLimits(server, variable);
        setWriteRule(server, variable);
    }
    for (const Alias& alias : model.aliases)
        if (!putAlias(server, model, alias, reason))
            return false;
    return true;
}

RecordValue StoreContents::value(const CellModel& model, ValueRef ref) const {
    const SM_VARI_TYPE kind = model.variables[static_cast<size_t>(ref.variable)].kind;
    const Placed& place = placed(ref.variable);
    if (!is_array(kind))
        return {kind, place.record, ref.part};
    char* element = static_cast<char*>(place.elements) + static_cast<size_t>(ref.part) * elementSize(kind);
    return {kind, element, -1};
}

}  // namespace ostrelcell
