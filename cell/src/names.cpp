#include "names.h"

#include <ostrel/store.h>

#include <algorithm>
#include <cctype>

#include "suggestion.h"

namespace ostrelcell {

namespace {

bool isLetter(char c) {
    return std::isalpha(static_cast<unsigned char>(c)) != 0 || c == '_';
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    size_t start = 0;
    for (size_t at = text.find(separator); at != std::string::npos; at = text.find(separator, start)) {
        parts.push_back(text.substr(start, at - start));
        start = at + 1;
    }
    parts.push_back(text.substr(start));
    return parts;
}

std::vector<std::string> namesOfMembers(SM_VARI_TYPE kind, int count) {
    std::vector<std::string> names;
    for (int index = 0; index < count; ++index) {
        const char* name = ostrel_member_name(kind, index);
        names.emplace_back(name != nullptr ? name : "");
    }
    return names;
}

std::string unknownName(const CellModel& model, const std::string& name) {
    std::vector<std::string> known;
    for (const auto& entry : model.variableByLabel)
        known.push_back(entry.first);
    for (const auto& entry : model.aliasByName)
        known.push_back(entry.first);
    std::sort(known.begin(), known.end());
    return "there is no variable \"" + name + "\"" + didYouMean(name, known);
}

std::optional<int> indexOf(const Variable& array, size_t dimension, const std::string& text, std::string& why) {
    const int size = array.shape.sizes[dimension];
    if (!text.empty() && std::all_of(text.begin(), text.end(), isDigit)) {
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
    why = array.name + " has no label \"" + text + "\"" + didYouMean(text, labels);
    return std::nullopt;
}

std::optional<ValueRef> resolveMember(const CellModel& model, const std::string& name, std::string& why) {
    const size_t point = name.find('.');
    const auto found = model.variableByLabel.find(name.substr(0, point + 1));
    if (found == model.variableByLabel.end()) {
        why = unknownName(model, name.substr(0, point + 1));
        return std::nullopt;
    }
    const SM_VARI_TYPE kind = model.variables[static_cast<size_t>(found->second)].kind;
    const std::string member = name.substr(point + 1);
    const int index = memberIndex(kind, member);
    if (index >= 0)
        return ValueRef{found->second, index};
    if (member.empty())
        why = "\"" + name + "\" has members; name one of them";
    else
        why = "\"" + name.substr(0, point) + "\" has no member \"" + member + "\"" +
              didYouMean(member, memberNames(kind));
    return std::nullopt;
}

std::optional<ValueRef> resolveElement(const CellModel& model, const std::string& name, std::string& why) {
    std::vector<std::string> parts = split(name, ':');
    const auto found = model.variableByLabel.find(parts.front());
    if (found == model.variableByLabel.end()) {
        why = unknownName(model, parts.front());
        return std::nullopt;
    }
    parts.erase(parts.begin());
    const auto position = elementPosition(model.variables[static_cast<size_t>(found->second)], parts, why);
    if (!position)
        return std::nullopt;
    return ValueRef{found->second, *position};
}

}  // namespace

std::string nameFault(const std::string& name, bool withPoint) {
    const std::string quoted = "\"" + name + "\"";
    if (name.empty() || !isLetter(name.front()) ||
        !std::all_of(name.begin(), name.end(), [](char c) { return isLetter(c) || isDigit(c); }))
        return quoted + " is no name; use letters, digits and underscores, and no digit first";
    if (name.size() + (withPoint ? 1 : 0) > maxNameLength)
        return quoted + " is longer than " + std::to_string(maxNameLength - (withPoint ? 1 : 0)) + " characters";
    const auto& reserved = reservedWords();
    if (std::find(reserved.begin(), reserved.end(), name) != reserved.end())
        return quoted + " has a meaning of its own in expressions; choose another name";
    return "";
}

const std::vector<std::string>& reservedWords() {
    static const std::vector<std::string> words = {"t", "dt", "i", "j", "k", "pi", "true", "false"};
    return words;
}

const std::vector<std::string>& memberNames(SM_VARI_TYPE kind) {
    static const std::vector<std::string> stat = namesOfMembers(STAT_TYPE, NUM_MEMBER_TYPES);
    static const std::vector<std::string> composition = namesOfMembers(COMP_TYPE, NUM_COMPOSITION_TYPES);
    static const std::vector<std::string> property = namesOfMembers(PROP_TYPE, NUM_PROPERTY_TYPES);
    static const std::vector<std::string> emission = namesOfMembers(EMIS_TYPE, NUM_EMISSION_TYPES);
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

int memberIndex(SM_VARI_TYPE kind, const std::string& name) {
    const auto& names = memberNames(kind);
    const auto found = name.empty() ? names.end() : std::find(names.begin(), names.end(), name);
    return found == names.end() ? -1 : static_cast<int>(found - names.begin());
}

std::optional<int> elementPosition(const Variable& array, const std::vector<std::string>& indexes, std::string& why) {
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
    for (size_t dimension = 0; dimension < sizes.size(); ++dimension) {
        const auto index = indexOf(array, dimension, indexes[dimension], why);
        if (!index)
            return std::nullopt;
        position = position * sizes[dimension] + *index;
    }
    return position;
}

std::optional<ValueRef> resolveName(const CellModel& model, const std::string& fullName, std::string& why) {
    const auto target = followAliases(model, fullName);
    if (!target) {
        why = "the aliases behind \"" + fullName + "\" go in a circle";
        return std::nullopt;
    }
    if (target->find('.') != std::string::npos)
        return resolveMember(model, *target, why);
    if (target->find(':') != std::string::npos)
        return resolveElement(model, *target, why);
    const auto found = model.variableByLabel.find(*target);
    if (found == model.variableByLabel.end()) {
        why = model.variableByLabel.contains(*target + ".") ? "\"" + *target + "\" has members; name one of them"
                                                            : unknownName(model, *target);
        return std::nullopt;
    }
    if (is_array(model.variables[static_cast<size_t>(found->second)].kind)) {
        elementPosition(model.variables[static_cast<size_t>(found->second)], {}, why);
        return std::nullopt;
    }
    return ValueRef{found->second, -1};
}

std::optional<std::string> followAliases(const CellModel& model, const std::string& name) {
    const auto alias = model.aliasByName.find(name);
    return alias == model.aliasByName.end() ? name : model.aliases[static_cast<size_t>(alias->second)].end;
}

// Each chain is walked once: what is behind an alias that was met before is known.
void findEndsOfAliases(CellModel& model) {
    std::vector<bool> isMet(model.aliases.size());
    for (size_t start = 0; start < model.aliases.size(); ++start) {
        std::vector<size_t> path;
        size_t at = start;
        std::optional<std::string> end;
        for (;;) {
            if (isMet[at]) {
                // Of an alias on the way here nothing is known yet, which is what a circle ends in.
                end = model.aliases[at].end;
                break;
            }
            isMet[at] = true;
            path.push_back(at);
            const std::string& target = model.aliases[at].target;
            const auto next = model.aliasByName.find(target);
            if (next == model.aliasByName.end()) {
                end = target;
                break;
            }
            at = static_cast<size_t>(next->second);
        }
        for (const size_t alias : path)
            model.aliases[alias].end = end;
    }
}

}  // namespace ostrelcell
