// Statistics, composition, property and emission variables.
#include "names.h"
#include "variablekeys.h"

namespace ostrelcell {

namespace {

// `{ value = 20.9, units = "%", decimals = 2 }` or with expr in the place of value
void read_member_table(const toml::table& table, TableReader& parent, Member& member) {
    TableReader reader(table, parent.subject() + "." + member.name, parent.diagnostics());
    member.value = reader.number("value").value_or(0);
    member.expr = reader.expression("expr");
    member.units = reader.units("units").value_or(member.units);
    member.decimals = static_cast<unsigned short>(reader.integer("decimals", 0, 9).value_or(member.decimals));
    reader.report_unknown_keys();
}

Member read_member(TableReader& reader, const Variable& variable, int index, Member member) {
    member.index = index;
    member.name = member_names(variable.kind)[static_cast<std::size_t>(index)];
    const toml::node* node = reader.node(member.name);
    if (const toml::table* table = node->as_table())
        read_member_table(*table, reader, member);
    else if (node->is_string())
        member.expr = reader.expression(member.name);
    else
        member.value = number_in(*node, member.name, reader).value_or(0);
    return member;
}

void read_fluid(TableReader& reader, Variable& variable) {
    const auto word = reader.text("fluid", 79);
    if (!word || *word == "gas")
        return;
    if (*word == "liquid")
        variable.fluid = LIQUID_STREAM;
    else
        reader.fault(reader.line("fluid"), "fluid must be \"gas\" or \"liquid\"");
}

}  // namespace

void read_stat(TableReader& reader, Variable& variable) {
    StatSettings& stat = variable.stat;
    stat.source = reader.text("source", max_name_length).value_or("");
    stat.source_line = reader.line("source");
    if (stat.source.empty() && !reader.table().contains("source"))
        reader.fault(variable.line, "a stat needs a source: the name of the value that it watches");
    stat.interval_s = reader.integer("interval", 1, 86400).value_or(stat.interval_s);
    stat.confidence = reader.number("confidence").value_or(stat.confidence);
    if (stat.confidence < 50 || stat.confidence > 99.99)
        reader.fault(reader.line("confidence"), "confidence is a percentage; it must lie between 50 and 99.99");
}

void read_members(TableReader& reader, Variable& variable) {
    Member defaults;
    defaults.units = reader.units("units").value_or(Units{});
    defaults.decimals = static_cast<unsigned short>(reader.integer("decimals", 0, 9).value_or(defaults.decimals));
    if (variable.kind != EMIS_TYPE)
        read_fluid(reader, variable);
    if (variable.kind != COMP_TYPE) {
        variable.composition = reader.text("composition", max_name_length).value_or("");
        variable.composition_line = reader.line("composition");
    }
    reader.suggest(member_names(variable.kind));
    for (const auto& [key, value] : reader.table()) {
        const int index = member_index(variable.kind, std::string(key.str()));
        if (index >= 0)
            variable.members.push_back(read_member(reader, variable, index, defaults));
    }
}

}  // namespace ostrelcell
