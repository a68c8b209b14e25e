#include "names.h"

#include <ostrel/store.h>

#include <algorithm>
#include <cctype>

#include "nearestname.h"

namespace ostrelcell {

namespace {

bool is_letter(char c) {
    return std::isalpha(static_cast<unsigned char>(c)) != 0 || c == '_';
}

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (std::size_t at = text.find(separator); at != std::string::npos; at = text.find(separator, start)) {
        parts.push_back(text.substr(start, at - start));
        start = at + 1;
    }
    parts.push_back(text.substr(start));
    return parts;
}

std::vector<std::string> names_of_members(SM_VARI_TYPE kind, int count) {
    std::vector<std::string> names;
    for (int index = 0; index < count; ++index) {
        const char* name = ostrel_member_name(kind, index);
        names.emplace_back(name != nullptr ? name : "");
    }
    return names;
}

std::string unknown_name(const CellModel& model, const std::string& name) {
    std::vector<std::string> known;
    for (const auto& entry : model.variable_by_label)
        known.push_back(entry.first);
    for (const auto& entry : model.alias_by_name)
        known.push_back(entry.first);
    std::sort(known.begin(), known.end());
    return "there is no variable \"" + name + "\"" + did_you_mean(name, known);
}

std::optional<int> index_of(const Variable& array, std::size_t dimension, const std::string& text, std::string& why) {
    const int size = array.shape.sizes[dimension];
    if (!text.empty() && std::all_of(text.begin(), text.end(), is_digit)) {
        const int index = text.size() > 5 ? size : std::stoi(text);
        if (index < size)
            return index;
        why = "index " + text + " of " + array.name + " is out of range; it ends at " + std::to_string(size - 1);
        return std::nullopt;
    }
    const auto& labels = array.shape.labels[dimension];
    const auto found = std::find(labels.begin(), labels.end(), text);
    if (found != labels.end())
        return static_cast<int>(found - labels.begin());
    why = array.name + " has no label \"" + text + "\"" + did_you_mean(text, labels);
    return std::nullopt;
}

std::optional<ValueRef> resolve_member(const CellModel& model, const std::string& name, std::string& why) {
    const std::size_t point = name.find('.');
    const auto found = model.variable_by_label.find(name.substr(0, point + 1));
    if (found == model.variable_by_label.end()) {
        why = unknown_name(model, name.substr(0, point + 1));
        return std::nullopt;
    }
    const SM_VARI_TYPE kind = model.variables[static_cast<std::size_t>(found->second)].kind;
    const std::string member = name.substr(point + 1);
    const int index = member_index(kind, member);
    if (index >= 0)
        return ValueRef{found->second, index};
    if (member.empty())
        why = "\"" + name + "\" has members; name one of them";
    else
        why = "\"" + name.substr(0, point) + "\" has no member \"" + member + "\"" +
              did_you_mean(member, member_names(kind));
    return std::nullopt;
}

std::optional<ValueRef> resolve_element(const CellModel& model, const std::string& name, std::string& why) {
    std::vector<std::string> parts = split(name, ':');
    const auto found = model.variable_by_label.find(parts.front());
    if (found == model.variable_by_label.end()) {
        why = unknown_name(model, parts.front());
        return std::nullopt;
    }
    parts.erase(parts.begin());
    const auto position = element_position(model.variables[static_cast<std::size_t>(found->second)], parts, why);
    if (!position)
        return std::nullopt;
    return ValueRef{found->second, *position};
}

}  // namespace

std::string name_fault(const std::string& name, bool with_point) {
    const std::string quoted = "\"" + name + "\"";
    if (name.empty() || !is_letter(name.front()) ||
        !std::all_of(name.begin(), name.end(), [](char c) { return is_letter(c) || is_digit(c); }))
        return quoted + " is no name; use letters, digits and underscores, and no digit first";
    if (name.size() + (with_point ? 1 : 0) > max_name_length)
        return quoted + " is longer than " + std::to_string(max_name_length - (with_point ? 1 : 0)) + " characters";
    const auto& reserved = reserved_words();
    if (std::find(reserved.begin(), reserved.end(), name) != reserved.end())
        return quoted + " has a meaning of its own in expressions; choose another name";
    return "";
}

const std::vector<std::string>& reserved_words() {
    static const std::vector<std::string> words = {"t", "dt", "i", "j", "k", "pi", "true", "false"};
    return words;
}

const std::vector<std::string>& member_names(SM_VARI_TYPE kind) {
    static const std::vector<std::string> stat = names_of_members(STAT_TYPE, NUM_MEMBER_TYPES);
    static const std::vector<std::string> composition = names_of_members(COMP_TYPE, NUM_COMPOSITION_TYPES);
    static const std::vector<std::string> property = names_of_members(PROP_TYPE, NUM_PROPERTY_TYPES);
    static const std::vector<std::string> emission = names_of_members(EMIS_TYPE, NUM_EMISSION_TYPES);
    static const std::vector<std::string> none;
    switch (kind) {
        case STAT_TYPE:
            return stat;
        case COMP_TYPE:
            return composition;
        case PROP_TYPE:
            return property;
        case EMIS_TYPE:
            return emission;
        default:
            return none;
    }
}

int member_index(SM_VARI_TYPE kind, const std::string& name) {
    const auto& names = member_names(kind);
    const auto found = name.empty() ? names.end() : std::find(names.begin(), names.end(), name);
    return found == names.end() ? -1 : static_cast<int>(found - names.begin());
}

std::optional<int> element_position(const Variable& array, const std::vector<std::string>& indexes, std::string& why) {
    if (!is_array(array.kind)) {
        why = "\"" + array.name + "\" is no array";
        return std::nullopt;
    }
    const auto& sizes = array.shape.sizes;
    if (indexes.size() != sizes.size()) {
        why = "\"" + array.name + "\" takes " + std::to_string(sizes.size()) +
              (sizes.size() == 1 ? " index" : " indexes") + ", as in " + array.name +
              (sizes.size() == 1 ? ":0" : ":0:0");
        return std::nullopt;
    }
    int position = 0;
    for (std::size_t dimension = 0; dimension < sizes.size(); ++dimension) {
        const auto index = index_of(array, dimension, indexes[dimension], why);
        if (!index)
            return std::nullopt;
        position = position * sizes[dimension] + *index;
    }
    return position;
}

std::optional<ValueRef> resolve_name(const CellModel& model, const std::string& full_name, std::string& why) {
    const auto target = follow_aliases(model, full_name);
    if (!target) {
        why = "the aliases behind \"" + full_name + "\" go in a circle";
        return std::nullopt;
    }
    if (target->find('.') != std::string::npos)
        return resolve_member(model, *target, why);
    if (target->find(':') != std::string::npos)
        return resolve_element(model, *target, why);
    const auto found = model.variable_by_label.find(*target);
    if (found == model.variable_by_label.end()) {
        why = model.variable_by_label.contains(*target + ".") ? "\"" + *target + "\" has members; name one of them"
                                                              : unknown_name(model, *target);
        return std::nullopt;
    }
    if (is_array(model.variables[static_cast<std::size_t>(found->second)].kind)) {
        element_position(model.variables[static_cast<std::size_t>(found->second)], {}, why);
        return std::nullopt;
    }
    return ValueRef{found->second, -1};
}

std::optional<std::string> follow_aliases(const CellModel& model, const std::string& name) {
    std::string target = name;
    for (std::size_t hops = 0; hops <= model.aliases.size(); ++hops) {
        const auto alias = model.alias_by_name.find(target);
        if (alias == model.alias_by_name.end())
            return target;
        target = model.aliases[static_cast<std::size_t>(alias->second)].target;
    }
    return std::nullopt;
}

}  // namespace ostrelcell
