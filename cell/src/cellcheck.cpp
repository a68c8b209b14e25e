#include "cellcheck.h"

#include <algorithm>
#include <map>
#include <set>

#include "names.h"
#include "nearestname.h"

namespace ostrelcell {

namespace {

std::string subject_of(const Variable& variable) {
    return std::string(kind_word(variable.kind)) + "." + variable.name;
}

void check_room(const CellModel& model, Diagnostics& diagnostics) {
    std::map<const ostrel_section*, int> used;
    for (const Variable& variable : model.variables) {
        if (variable.section == nullptr || ++used[variable.section] != variable.section->largest + 1)
            continue;
        diagnostics.add(variable.line, subject_of(variable) + ": section \"" + variable.section->name +
                                           "\" is full; it has room for " + std::to_string(variable.section->largest));
    }
    const ostrel_section* aliases = ostrel_section_of(ALIAS_MEM, ALIAS_TYPE);
    if (aliases != nullptr && model.aliases.size() > static_cast<std::size_t>(aliases->largest))
        diagnostics.add(model.aliases[static_cast<std::size_t>(aliases->largest)].line,
                        "there is room for " + std::to_string(aliases->largest) + " aliases");
}

// The aliases of a cycle that `start` leads into, in the order in which they point to each other.
std::vector<std::string> alias_cycle(const CellModel& model, const std::string& start) {
    std::vector<std::string> path;
    std::string name = start;
    while (std::find(path.begin(), path.end(), name) == path.end()) {
        const auto found = model.alias_by_name.find(name);
        if (found == model.alias_by_name.end())
            return {};
        path.push_back(name);
        name = model.aliases[static_cast<std::size_t>(found->second)].target;
    }
    path.erase(path.begin(), std::find(path.begin(), path.end(), name));
    return path;
}

std::string arrows(std::vector<std::string> path) {
    path.push_back(path.front());
    std::string text;
    for (const std::string& name : path)
        text += (text.empty() ? "" : " -> ") + name;
    return text;
}

void check_alias(const CellModel& model, const Alias& alias, std::set<std::string>& reported,
                 Diagnostics& diagnostics) {
    const std::string subject = "alias." + alias.name + ": ";
    const auto variable = model.variable_by_label.find(alias.name);
    if (variable != model.variable_by_label.end())
        diagnostics.add(alias.line,
                        subject + "the name stands already in line " +
                            std::to_string(model.variables[static_cast<std::size_t>(variable->second)].line));
    const auto cycle = alias_cycle(model, alias.name);
    if (!cycle.empty()) {
        if (reported.insert(*std::min_element(cycle.begin(), cycle.end())).second)
            diagnostics.add(alias.line, subject + "aliases go in a circle: " + arrows(cycle));
        return;
    }
    std::string why;
    if (!resolve_name(model, alias.target, why))
        diagnostics.add(alias.line, subject + why);
}

void check_stat(const CellModel& model, const Variable& variable, Diagnostics& diagnostics) {
    constexpr int max_samples = 100'000;
    const std::string subject = subject_of(variable) + ": ";
    const StatSettings& stat = variable.stat;
    std::string why;
    const auto source = stat.source.empty() ? std::nullopt : resolve_name(model, stat.source, why);
    if (!stat.source.empty() && !source)
        diagnostics.add(stat.source_line, subject + "source: " + why);
    if (source && is_text(model.variables[static_cast<std::size_t>(source->variable)].kind))
        diagnostics.add(stat.source_line,
                        subject + "source: \"" + stat.source + "\" is a text; statistics need numbers");
    if (stat.interval_s * 1000 / model.scan_ms > max_samples)
        diagnostics.add(variable.line, subject + "interval holds more than " + std::to_string(max_samples) +
                                           " scans; make it shorter or scan_ms longer");
}

void check_composition(const CellModel& model, const Variable& variable, Diagnostics& diagnostics) {
    if (variable.composition.empty())
        return;
    const auto found = model.variable_by_label.find(variable.composition + ".");
    if (found != model.variable_by_label.end() &&
        model.variables[static_cast<std::size_t>(found->second)].kind == COMP_TYPE)
        return;
    std::vector<std::string> known;
    for (const Variable& other : model.variables)
        if (other.kind == COMP_TYPE)
            known.push_back(other.name);
    diagnostics.add(variable.composition_line, subject_of(variable) + ": there is no composition \"" +
                                                   variable.composition + "\"" +
                                                   did_you_mean(variable.composition, known));
}

void check_latch_reset(const CellModel& model, Diagnostics& diagnostics) {
    if (model.latch_reset.empty())
        return;
    std::string why;
    const auto ref = resolve_name(model, model.latch_reset, why);
    if (!ref)
        diagnostics.add(model.latch_reset_line, "cell: latch_reset: " + why);
    else if (model.variables[static_cast<std::size_t>(ref->variable)].kind != LOGI_TYPE)
        diagnostics.add(model.latch_reset_line, "cell: latch_reset: \"" + model.latch_reset + "\" is no logical");
}

}  // namespace

void check_cell(const CellModel& model, Diagnostics& diagnostics) {
    check_room(model, diagnostics);
    std::set<std::string> reported;
    for (const Alias& alias : model.aliases)
        check_alias(model, alias, reported, diagnostics);
    for (const Variable& variable : model.variables) {
        if (variable.kind == STAT_TYPE)
            check_stat(model, variable, diagnostics);
        check_composition(model, variable, diagnostics);
    }
    check_latch_reset(model, diagnostics);
}

}  // namespace ostrelcell
