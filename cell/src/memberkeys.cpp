// Statistics, composition, property and emission variables.
#include "names.h"
#include "variablekeys.h"

namespace ostrelcell {

namespace {

// `{ value = 20.9, units = "%", decimals = 2 }` or with expr in the place of value
void readMemberTable(const toml::table& table, TableReader& parent, Member& member) {
    TableReader reader(table, parent.subject() + "." + member.name, parent.diagnostics());
    member.value = reader.number("value").value_or(0);
    member.expr = reader.expression("expr");
    member.units = reader.units("units").value_or(member.units);
    member.decimals = static_cast<unsigned short>(reader.integer("decimals", 0, 9).value_or(member.decimals));
    reader.reportUnknownKeys();
}

Member readMember(TableReader& reader, const Variable& variable, int index, Member member) {
    member.index = index;
    member.name = memberNames(variable.kind)[static_cast<size_t>(index)];
    const toml::node* node = reader.node(member.name);
    if (const toml::table* table = node->as_table())
        readMemberTable(*table, reader, member);
    else if (node->is_string())
        member.expr = reader.expression(member.name);
    else
        member.value = numberIn(*node, member.name, reader).value_or(0);
    return member;
}

void readFluid(TableReader& reader, Variable& variable) {
    const auto word = reader.text("fluid", 79);
    if (!word || *word == "gas")
        return;
    if (*word == "liquid")
        variable.fluid = LIQUID_STREAM;
    else
        reader.fault(reader.line("fluid"), "fluid must be \"gas\" or \"liquid\"");
}

}  // namespace

void readStat(TableReader& reader, Variable& variable) {
    StatSettings& stat = variable.stat;
    stat.source = reader.text("source", maxNameLength).value_or("");
    stat.sourceLine = reader.line("source");
    if (stat.source.empty() && !reader.table().contains("source"))
        reader.fault(variable.line, "a stat needs a source: the name of the value that it watches");
    stat.intervalS = reader.integer("interval", 1, 86400).value_or(stat.intervalS);
    stat.confidence = reader.number("confidence").value_or(stat.confidence);
    if (stat.confidence < 50 || stat.confidence > 99.99)
        reader.fault(reader.line("confidence"), "confidence is a percentage; it must lie between 50 and 99.99");
}

void readMembers(TableReader& reader, Variable& variable) {
    Member defaults;
    defaults.units = reader.units("units").value_or(Units{});
    defaults.decimals = static_cast<unsigned short>(reader.integer("decimals", 0, 9).value_or(defaults.decimals));
    if (variable.kind != EMIS_TYPE)
        readFluid(reader, variable);
    if (variable.kind != COMP_TYPE) {
        variable.composition = reader.text("composition", maxNameLength).value_or("");
        variable.compositionLine = reader.line("composition");
    }
    reader.suggest(memberNames(variable.kind));
    for (const auto& [key, value] : reader.table()) {
        const int index = memberIndex(variable.kind, std::string(key.str()));
        if (index >= 0)
            variable.members.push_back(readMember(reader, variable, index, defaults));
    }
}

}  // namespace ostrelcell
