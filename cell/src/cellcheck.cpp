#include "cellcheck.h"

#include <algorithm>
#include <map>
#include <set>

#include "names.h"
#include "suggestion.h"

namespace ostrelcell {

namespace {

std::string subjectOf(const Variable& variable) {
    return std::string(kindWord(variable.kind)) + "." + variable.name;
}

void checkRoom(const CellModel& model, Diagnostics& diagnostics) {
    std::map<const ostrel_section*, int> used;
    for (const Variable& variable : model.variables) {
        if (variable.section == nullptr || ++used[variable.section] != variable.section->largest + 1)
            continue;
        diagnostics.add(variable.line, subjectOf(variable) + ": section \"" + variable.section->name +
                                           "\" is full; it has room for " + std::to_string(variable.section->largest));
    }
    const ostrel_section* aliases = ostrel_section_of(ALIAS_MEM, ALIAS_TYPE);
    if (aliases != nullptr && model.aliases.size() > static_cast<size_t>(aliases->largest))
        diagnostics.add(model.aliases[static_cast<size_t>(aliases->largest)].line,
                        "there is room for " + std::to_string(aliases->largest) + " aliases");
}

// The aliases of a cycle that `start` leads into, in the order in which they point to each other.
std::vector<std::string> aliasCycle(const CellModel& model, const std::string& start) {
    if (followAliases(model, start))
        return {};
    std::vector<std::string> path;
    std::set<std::string> seen;
    std::string name = start;
    while (seen.insert(name).second) {
        path.push_back(name);
        name = model.aliases[static_cast<size_t>(model.aliasByName.at(name))].target;
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

void checkAlias(const CellModel& model, const Alias& alias, std::set<std::string>& reported, Diagnostics& diagnostics) {
    const std::string subject = "alias." + alias.name + ": ";
    const auto variable = model.variableByLabel.find(alias.name);
    if (variable != model.variableByLabel.end())
        diagnostics.add(alias.line, subject + "the name stands already in line " +
                                        std::to_string(model.variables[static_cast<size_t>(variable->second)].line));
    if (reported.contains(alias.name) || reported.contains(alias.target))
        return;
    const auto cycle = aliasCycle(model, alias.name);
    if (!cycle.empty()) {
        if (!reported.contains(cycle.front()))
            diagnostics.add(alias.line, subject + "aliases go in a circle: " + arrows(cycle));
        reported.insert(cycle.begin(), cycle.end());
        return;
    }
    std::string why;
    if (!resolveName(model, alias.target, why))
        diagnostics.add(alias.line, subject + why);
}

void checkStat(const CellModel& model, const Variable& variable, Diagnostics& diagnostics) {
    constexpr int maxSamples = 100'000;
    const std::string subject = subjectOf(variable) + ": ";
    const StatSettings& stat = variable.stat;
    std::string why;
    const auto source = stat.source.empty() ? std::nullopt : resolveName(model, stat.source, why);
    if (!stat.source.empty() && !source)
        diagnostics.add(stat.sourceLine, subject + "source: " + why);
    if (source && isText(model.variables[static_cast<size_t>(source->variable)].kind))
        diagnostics.add(stat.sourceLine,
                        subject + "source: \"" + stat.source + "\" is a text; statistics need numbers");
    if (stat.intervalS * 1000 / model.scan_ms > maxSamples)
        diagnostics.add(variable.line, subject + "interval holds more than " + std::to_string(maxSamples) +
                                           " scans; make it shorter or scan_ms longer");
}

void checkComposition(const CellModel& model, const Variable& variable, Diagnostics& diagnostics) {
    if (variable.composition.empty())
        return;
    const auto found = model.variableByLabel.find(variable.composition + ".");
    if (found != model.variableByLabel.end() && model.variables[static_cast<size_t>(found->second)].kind == COMP_TYPE)
        return;
    std::vector<std::string> known;
    for (const Variable& other : model.variables)
        if (other.kind == COMP_TYPE)
            known.push_back(other.name);
    diagnostics.add(variable.compositionLine, subjectOf(variable) + ": there is no composition \"" +
                                                  variable.composition + "\"" +
                                                  didYouMean(variable.composition, known));
}

void checkLatchReset(const CellModel& model, Diagnostics& diagnostics) {
    if (model.latchReset.empty())
        return;
    std::string why;
    const auto ref = resolveName(model, model.latchReset, why);
    if (!ref)
        diagnostics.add(model.latchResetLine, "cell: latch_reset: " + why);
    else if (model.variables[static_cast<size_t>(ref->variable)].kind != LOGI_TYPE)
        diagnostics.add(model.latchResetLine, "cell: latch_reset: \"" + model.latchReset + "\" is no logical");
}

}  // namespace

void checkCell(const CellModel& model, Diagnostics& diagnostics) {
    checkRoom(model, diagnostics);
    std::set<std::string> reported;
    for (const Alias& alias : model.aliases)
        checkAlias(model, alias, reported, diagnostics);
    for (const Variable& variable : model.variables) {
        if (variable.kind == STAT_TYPE)
            checkStat(model, variable, diagnostics);
        checkComposition(model, variable, diagnostics);
    }
    checkLatchReset(model, diagnostics);
}

}  // namespace ostrelcell
