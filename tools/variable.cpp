#include "variable.h"

#include <ostrel/store.h>

#include <algorithm>

#include "catalogue.h"
#include "failure.h"
#include "fieldtext.h"
#include "suggestion.h"

namespace {

std::string memberName(SM_VARI_TYPE kind, int member) {
    const char* name = ostrel_member_name(kind, member);
    return name == nullptr ? std::string() : name;
}

std::vector<std::string> memberNames(SM_VARI_TYPE kind) {
    std::vector<std::string> names;
    for (int member = 0; member < memberCount(kind); ++member)
        names.push_back(memberName(kind, member));
    return names;
}

bool lookUp(const std::string& name, SHARED_MEMORY* handle) {
    std::string label = name;
    return find_variable(label.data(), handle) == 0;
}

// What an alias stands for; a name that is none stays as it is.
std::string resolved(std::string name) {
    SHARED_MEMORY handle{};
    if (find_alias_label(name.data(), &handle, nullptr) != 0)
        return name;
    const auto* alias = static_cast<const ALIAS_VARIABLE*>(get_vrbl_adr(handle));
    return alias == nullptr ? name : fieldText(alias->var.label);
}

std::string elementRange(const Variable& array) {
    std::string first = array.fullName, last = array.fullName;
    for (const int size : dimensions(array)) {
        first += ":0";
        last += ":" + std::to_string(size - 1);
    }
    return "from " + first + " to " + last;
}

// Why there is no variable of that name, as exactly as it can be said.
std::string whyUnknown(const std::string& name) {
    if (const size_t point = name.find('.'); point != std::string::npos && point + 1 < name.size()) {
        const auto base = lookUpVariable(name.substr(0, point + 1));
        if (base && base->hasMembers()) {
            return name + ": no such member" +
                   didYouMean(name.substr(point + 1), memberNames(base->handle.vari_type),
                              "; 'ostrel get " + base->fullName + "' lists all");
        }
    }
    if (const size_t colon = name.find(':'); colon != std::string::npos) {
        const auto array = lookUpVariable(name.substr(0, colon));
        if (array && array->isArray())
            return name + ": no such element; " + elementRange(*array);
        if (array)
            return name + ": no such element; " + array->fullName + " is no array";
    }
    return name + ": no such variable" + didYouMean(name, knownNames(), "; 'ostrel list' shows all names");
}

// Counts an index up, the last dimension first; false after the last element.
bool step(std::vector<int>& index, const std::vector<int>& sizes) {
    for (size_t i = index.size(); i-- > 0;) {
        if (++index[i] < sizes[i])
            return true;
        index[i] = 0;
    }
    return false;
}

std::vector<std::string> partNames(const Variable& whole) {
    std::vector<std::string> names;
    if (whole.hasMembers()) {
        for (const std::string& member : memberNames(whole.handle.vari_type))
            names.push_back(whole.fullName + member);
        return names;
    }
    const std::vector<int> sizes = dimensions(whole);
    if (sizes.empty() || *std::min_element(sizes.begin(), sizes.end()) < 1)
        return names;
    std::vector<int> index(sizes.size(), 0);
    do {
        std::string name = whole.fullName;
        for (const int i : index)
            name += ":" + std::to_string(i);
        names.push_back(name);
    } while (step(index, sizes));
    return names;
}

}  // namespace

int memberCount(SM_VARI_TYPE kind) {
    switch (kind) {
        case STAT_TYPE:
            return NUM_MEMBER_TYPES;
        case COMP_TYPE:
            return NUM_COMPOSITION_TYPES;
        case PROP_TYPE:
            return NUM_PROPERTY_TYPES;
        case EMIS_TYPE:
            return NUM_EMISSION_TYPES;
        default:
            return 0;
    }
}

bool Variable::hasMembers() const {
    return memberCount(handle.vari_type) != 0;
}

bool Variable::isArray() const {
    return handle.vari_type >= REAL_ARRAY_TYPE && handle.vari_type <= LOGI_ARRAY_TYPE;
}

bool Variable::isWhole() const {
    return (hasMembers() && fullName.ends_with('.')) || (isArray() && fullName.find(':') == std::string::npos);
}

std::optional<Variable> lookUpVariable(const std::string& name) {
    Variable variable{name, resolved(name), {}, nullptr};
    if (!lookUp(variable.fullName, &variable.handle)) {
        // Who asks for all members need not know that the name ends in a point.
        variable.fullName += '.';
        if (!lookUp(variable.fullName, &variable.handle))
            return std::nullopt;
    }
    variable.record = get_vrbl_adr(variable.handle);
    return variable.record == nullptr ? std::nullopt : std::optional(variable);
}

Variable findVariable(const std::string& name) {
    auto variable = lookUpVariable(name);
    if (!variable)
        throw Failure(whyUnknown(name));
    return *variable;
}

std::vector<Variable> parts(const Variable& variable) {
    if (!variable.isWhole())
        return {variable};
    std::vector<Variable> result;
    for (const std::string& name : partNames(variable)) {
        if (const auto part = lookUpVariable(name))
            result.push_back(*part);
    }
    return result;
}

std::vector<int> dimensions(const Variable& array) {
    std::vector<int> sizes;
    withRecord(array.handle.vari_type, array.record, [&](const auto& record) {
        if constexpr (requires { record.num_dimensions; }) {
            for (int i = 0; i < std::min<int>(record.num_dimensions, 3); ++i)
                sizes.push_back(record.dimension_size[i]);
        }
    });
    return sizes;
}

std::string kindName(SM_VARI_TYPE kind) {
    switch (kind) {
        case REAL_TYPE:
            return "real";
        case INT_TYPE:
            return "integer";
        case LOGI_TYPE:
            return "logical";
        case STRING_TYPE:
            return "string";
        case STAT_TYPE:
            return "statistics";
        case COMP_TYPE:
            return "composition";
        case PROP_TYPE:
            return "property";
        case EMIS_TYPE:
            return "emission";
        case REAL_ARRAY_TYPE:
            return "real array";
        case INT_ARRAY_TYPE:
            return "integer array";
        case STRING_ARRAY_TYPE:
            return "string array";
        case LOGI_ARRAY_TYPE:
            return "logical array";
        case ALIAS_TYPE:
            return "alias";
        default:
            return "kind " + std::to_string(kind);
    }
}
