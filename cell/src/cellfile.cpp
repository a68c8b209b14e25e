#include "cellfile.h"

#include <grp.h>

#include <algorithm>
#include <filesystem>

#include "cellcheck.h"
#include "ground/regularfile.h"
#include "names.h"
#include "straycharacter.h"
#include "suggestion.h"
#include "tablereader.h"
#include "variablekeys.h"

namespace ostrelcell {

namespace {

struct NamedTable {
    SM_VARI_TYPE kind;
    std::string name;
    int line;
    const toml::node* node;
};

// The same cell gives the same noise at every start.
uint64_t seedOf(const std::string& name) {
    uint64_t hash = 1469598103934665603U;
    for (char c : name)
        hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
    return hash;
}

int readMode(TableReader& reader) {
    const auto text = reader.text("mode", 79);
    if (!text)
        return 0600;
    if (text->empty() || text->size() > 4 || text->find_first_not_of("01234567") != std::string::npos) {
        reader.fault(reader.line("mode"), "mode must be octal digits in quotes, as in \"0660\"");
        return 0600;
    }
    const int mode = std::stoi(*text, nullptr, 8);
    if ((mode & 0600) != 0600 || (mode & ~0666) != 0)
        reader.fault(reader.line("mode"), "mode must let the owner read and write, and nobody execute");
    return mode;
}

void readEvents(TableReader& reader, CellModel& model) {
    const toml::node* node = reader.node("events");
    if (node == nullptr)
        return;
    const toml::array* list = node->as_array();
    if (list == nullptr) {
        reader.fault(reader.line("events"), "events must be a list of names");
        return;
    }
    for (const toml::node& item : *list) {
        const auto name = textIn(item, "events", 31, reader);
        if (name && name->empty())
            reader.fault(lineOf(item), "an event needs a name");
        else if (name)
            model.events.push_back(*name);
    }
}

void readGroup(TableReader& reader, CellModel& model) {
    model.group = reader.text("group", 79).value_or("");
    if (!model.group.empty() && getgrnam(model.group.c_str()) == nullptr)
        reader.fault(reader.line("group"), "there is no group \"" + model.group + "\" on this machine");
}

void readCellTable(const toml::table& table, CellModel& model, Diagnostics& diagnostics) {
    TableReader reader(table, "cell", diagnostics);
    model.name = reader.text("name", 63).value_or("");
    if (model.name.empty() && !(table.contains("name") && !table.get("name")->is_string()))
        reader.fault(reader.line("name"), "a cell needs a name");
    model.scan_ms = reader.integer("scan_ms", 10, 1000).value_or(model.scan_ms);
    model.log = reader.text("log", 4095).value_or("");
    model.audit = reader.text("audit", 4095);
    model.kept = reader.text("kept", 4095).value_or("");
    model.logMegabytes = reader.integer("log_mb", 0, 1'000'000).value_or(model.logMegabytes);
    model.auditMegabytes = reader.integer("audit_mb", 0, 1'000'000).value_or(model.auditMegabytes);
    model.mode = readMode(reader);
    readGroup(reader, model);
    model.seed = seedOf(model.name) + static_cast<uint64_t>(reader.integer("seed").value_or(0));
    model.latchReset = reader.text("latch_reset", maxNameLength).value_or("");
    model.latchResetLine = reader.line("latch_reset");
    readEvents(reader, model);
    reader.reportUnknownKeys();
}

void collectVariables(const toml::key& key, const toml::node& node, SM_VARI_TYPE kind, Diagnostics& diagnostics,
                      std::vector<NamedTable>& found) {
    const toml::table* table = node.as_table();
    const std::string word(key.str());
    if (table == nullptr) {
        diagnostics.add(lineOf(key), word + " must be a table of variables, as in [" + word + ".NAME]");
        return;
    }
    for (const auto& [name, entry] : *table)
        found.push_back({kind, std::string(name.str()), lineOf(name), &entry});
}

void addVariable(const NamedTable& entry, CellModel& model, Diagnostics& diagnostics) {
    const std::string subject = std::string(kindWord(entry.kind)) + "." + entry.name;
    const std::string fault = nameFault(entry.name, hasMembers(entry.kind));
    if (!fault.empty())
        diagnostics.add(entry.line, subject + ": " + fault);
    const toml::table* table = entry.node->as_table();
    if (table == nullptr) {
        diagnostics.add(entry.line, subject + " must be a table, as in [" + subject + "]");
        return;
    }
    Variable variable;
    variable.kind = entry.kind;
    variable.name = entry.name;
    variable.line = entry.line;
    TableReader reader(*table, subject, diagnostics);
    readVariable(reader, variable);
    const auto place = model.variableByLabel.emplace(variable.label(), static_cast<int>(model.variables.size()));
    if (!place.second) {
        const Variable& first = model.variables[static_cast<size_t>(place.first->second)];
        diagnostics.add(entry.line, subject + ": the name stands already in line " + std::to_string(first.line) +
                                        " as " + kindWord(first.kind) + "." + first.name);
        return;
    }
    model.variables.push_back(std::move(variable));
}

void readAlias(const toml::key& key, const toml::node& node, CellModel& model, Diagnostics& diagnostics) {
    Alias alias;
    alias.name = std::string(key.str());
    alias.line = lineOf(key);
    const std::string subject = "alias." + alias.name;
    const std::string fault = nameFault(alias.name, false);
    if (!fault.empty())
        diagnostics.add(alias.line, subject + ": " + fault);
    if (const toml::table* table = node.as_table()) {
        TableReader reader(*table, subject, diagnostics);
        alias.target = reader.text("target", maxNameLength).value_or("");
        alias.primary = reader.boolean("primary").value_or(false);
        if (!table->contains("target"))
            diagnostics.add(alias.line, subject + ": an alias needs a target");
        reader.reportUnknownKeys();
    } else if (const auto target = node.value_exact<std::string>()) {
        alias.target = *target;
    } else {
        diagnostics.add(alias.line, subject + " is " + typeWords(node) + "; it must be the name that it stands for");
    }
    if (!alias.target.empty())
        model.aliases.push_back(std::move(alias));
}

void readAliases(const toml::key& key, const toml::node& node, CellModel& model, Diagnostics& diagnostics) {
    const toml::table* table = node.as_table();
    if (table == nullptr) {
        diagnostics.add(lineOf(key), "alias must be a table, as in [alias]");
        return;
    }
    for (const auto& [name, entry] : *table)
        readAlias(name, entry, model, diagnostics);
    std::stable_sort(model.aliases.begin(), model.aliases.end(),
                     [](const Alias& a, const Alias& b) { return a.line < b.line; });
    for (size_t index = 0; index < model.aliases.size(); ++index)
        model.aliasByName.emplace(model.aliases[index].name, static_cast<int>(index));
    findEndsOfAliases(model);
}

void readDocument(const toml::table& document, CellModel& model, Diagnostics& diagnostics) {
    std::vector<std::string> known = kindWords();
    known.insert(known.end(), {"cell", "alias"});
    std::vector<NamedTable> variables;
    for (const auto& [key, node] : document) {
        const std::string word(key.str());
        if (word == "cell" && node.is_table())
            readCellTable(*node.as_table(), model, diagnostics);
        else if (word == "alias")
            readAliases(key, node, model, diagnostics);
        else if (const SM_VARI_TYPE kind = kindOfWord(word); kind != UNDEFINED_VAR_TYPE)
            collectVariables(key, node, kind, diagnostics, variables);
        else
            diagnostics.add(lineOf(key), word == "cell" ? "cell must be a table, as in [cell]"
                                                        : "unknown table \"" + word + "\"" + didYouMean(word, known));
    }
    if (!document.contains("cell"))
        diagnostics.add(1, "there is no table [cell] with the name of the cell");
    // The tables come by name; people are shown the variables in the order of the file.
    std::stable_sort(variables.begin(), variables.end(),
                     [](const NamedTable& a, const NamedTable& b) { return a.line < b.line; });
    for (const NamedTable& entry : variables)
        addVariable(entry, model, diagnostics);
}

}  // namespace

void readCellText(const std::string& text, CellModel& model, Simulation& simulation, Diagnostics& diagnostics) {
    if (const int line = lineOfStrayCharacter(text)) {
        diagnostics.add(line, "a character that is not ASCII stands outside of quotes and comments");
        return;
    }
    try {
        const toml::table document = toml::parse(text);
        readDocument(document, model, diagnostics);
        checkCell(model, diagnostics);
        simulation.build(model, diagnostics);
    } catch (const toml::parse_error& error) {
        diagnostics.add(static_cast<int>(error.source().begin.line), std::string(error.description()));
    }
}

void readCellFile(const std::string& file, CellModel& model, Simulation& simulation, Diagnostics& diagnostics) {
    model.file = file;
    std::string problem;
    const std::string text = readRegularFile(file, Trust::Any, problem);
    if (!problem.empty()) {
        const bool isFolder = std::filesystem::is_directory(file);
        diagnostics.add(0, isFolder ? "is a directory; name a cell file" : "cannot be read: " + problem);
        return;
    }
    readCellText(text, model, simulation, diagnostics);
}

}  // namespace ostrelcell
