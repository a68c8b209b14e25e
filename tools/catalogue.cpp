#include "catalogue.h"

#include <fnmatch.h>
#include <ostrel/store.h>

#include <algorithm>

#include "failure.h"
#include "fieldtext.h"

namespace {

// Calls `function` with the address of each slot of the section that ever held a variable.
template <class Function>
void forEachSlot(const ostrel_section& section, Function function) {
    void* base = nullptr;
    if (link_to_memory(static_cast<short>(section.area), &base) != 0)
        return;
    const int used = ostrel_section_used(section.area, section.kind);
    const char* slot = static_cast<const char*>(base) + section.start;
    for (int i = 0; i < used; ++i, slot += section.record_size)
        function(slot);
    fre_shrd_mem(section.area);
}

bool matches(const std::string& pattern, const std::string& name) {
    return fnmatch(pattern.c_str(), name.c_str(), FNM_CASEFOLD) == 0;
}

std::string activeLabel(SM_VARI_TYPE kind, const void* slot) {
    std::string label;
    withRecord(kind, slot, [&](const auto& record) {
        if (record.active != 0)
            label = fieldText(record.label);
    });
    return label;
}

// Labels of all variables with the section of each.
std::vector<std::pair<const ostrel_section*, std::string>> labels() {
    std::vector<std::pair<const ostrel_section*, std::string>> result;
    int count = 0;
    const ostrel_section* sections = ostrel_sections(&count);
    for (int i = 0; i < count; ++i) {
        forEachSlot(sections[i], [&](const void* slot) {
            if (std::string label = activeLabel(sections[i].kind, slot); !label.empty())
                result.emplace_back(&sections[i], std::move(label));
        });
    }
    return result;
}

}  // namespace

std::multimap<std::string, std::string> aliases() {
    std::multimap<std::string, std::string> result;
    const ostrel_section* section = ostrel_section_of(ALIAS_MEM, ALIAS_TYPE);
    if (section == nullptr)
        return result;
    forEachSlot(*section, [&](const void* slot) {
        const auto& record = *static_cast<const ALIAS_VARIABLE*>(slot);
        if (record.active != 0)
            result.emplace(fieldText(record.var.label), fieldText(record.alias));
    });
    return result;
}

std::vector<CatalogueEntry> catalogue() {
    std::vector<CatalogueEntry> result;
    const auto byTarget = aliases();
    for (const auto& [section, label] : labels()) {
        Variable variable{label, label, {}, nullptr};
        // A name that went since its section was walked is no failure of the whole list.
        if (find_variable(variable.fullName.data(), &variable.handle) != 0)
            continue;
        variable.record = get_vrbl_adr(variable.handle);
        CatalogueEntry entry{section, variable, {}};
        const auto [first, last] = byTarget.equal_range(label);
        for (auto alias = first; alias != last; ++alias)
            entry.aliases.push_back(alias->second);
        result.push_back(std::move(entry));
    }
    return result;
}

std::vector<CatalogueEntry> catalogue(const std::string& pattern) {
    std::vector<CatalogueEntry> entries = catalogue();
    std::erase_if(entries, [&](const CatalogueEntry& entry) {
        return !pattern.empty() && !matches(pattern, entry.variable.name) &&
               std::none_of(entry.aliases.begin(), entry.aliases.end(),
                            [&](const std::string& alias) { return matches(pattern, alias); });
    });
    return entries;
}

std::vector<std::string> namesMeant(const std::string& nameOrPattern) {
    if (nameOrPattern.find_first_of("*?[") == std::string::npos)
        return {nameOrPattern};
    std::vector<std::string> names;
    for (const CatalogueEntry& entry : catalogue(nameOrPattern))
        names.push_back(entry.variable.name);
    if (names.empty())
        throw Failure(nameOrPattern + ": no variable has a name like this; 'ostrel list' shows all");
    return names;
}

int variablesIn(const ostrel_section& section) {
    int count = 0;
    forEachSlot(section, [&](const void* slot) {
        withRecord(section.kind, slot, [&](const auto& record) { count += record.active != 0 ? 1 : 0; });
        if (section.kind == ALIAS_TYPE)
            count += static_cast<const ALIAS_VARIABLE*>(slot)->active != 0 ? 1 : 0;
    });
    return count;
}

std::vector<std::string> knownNames() {
    std::vector<std::string> names;
    for (const auto& [section, label] : labels())
        names.push_back(label);
    for (const auto& [target, alias] : aliases())
        names.push_back(alias);
    return names;
}

std::vector<std::string> knownNames(const std::string& pattern) {
    std::vector<std::string> names = knownNames();
    std::erase_if(names, [&](const std::string& name) { return !pattern.empty() && !matches(pattern, name); });
    return names;
}
