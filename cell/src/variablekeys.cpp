#include "variablekeys.h"

#include <cmath>

#include "limitkeys.h"
#include "nearestname.h"
#include "valueformat.h"

namespace ostrelcell {

namespace {

constexpr std::size_t max_event_name = 31;
constexpr std::size_t max_string = 79;  // a record keeps 80 bytes, and displays want their zero

const ostrel_section* section_named(const std::string& name, SM_VARI_TYPE kind, bool& name_known,
                                    std::vector<std::string>& of_kind) {
    int count = 0;
    const ostrel_section* sections = ostrel_sections(&count);
    const ostrel_section* found = nullptr;
    name_known = false;
    for (const ostrel_section* section = sections; section != sections + count; ++section) {
        name_known = name_known || name == section->name;
        if (section->kind != kind)
            continue;
        of_kind.emplace_back(section->name);
        if (name == section->name || (name.empty() && found == nullptr))
            found = section;
    }
    return found;
}

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : ", ") + word;
    return text;
}

void read_section(TableReader& reader, Variable& variable) {
    const std::string name = reader.text("section", max_string).value_or("");
    bool known = false;
    std::vector<std::string> of_kind;
    variable.section = section_named(name, variable.kind, known, of_kind);
    if (variable.section != nullptr)
        return;
    const std::string kind = kind_word(variable.kind);
    reader.fault(reader.line("section"),
                 known ? "section \"" + name + "\" holds no " + kind + "; use one of " + joined(of_kind)
                       : "unknown section \"" + name + "\"; for " + kind + " use one of " + joined(of_kind));
    variable.section = section_named("", variable.kind, known, of_kind);
}

void read_number(TableReader& reader, Variable& variable) {
    if (variable.kind == REAL_TYPE)
        variable.value = reader.number("value").value_or(0);
    else
        variable.value = reader.integer("value").value_or(0);
    variable.units = reader.units("units").value_or(Units{});
    read_range(reader, variable);
    read_value_limits(reader, variable.limits);
    read_age_limit(reader, variable.limits);
    variable.event = reader.text("event", max_event_name).value_or("");
}

void read_logical(TableReader& reader, Variable& variable) {
    variable.value = reader.boolean("value").value_or(false) ? 1 : 0;
    read_logical_states(reader, variable.states);
    read_age_limit(reader, variable.limits);
    variable.true_event = reader.text("true_event", max_event_name).value_or("");
    variable.false_event = reader.text("false_event", max_event_name).value_or("");
}

void read_texts(TableReader& reader, Variable& variable) {
    const toml::node* node = reader.node("texts");
    if (node == nullptr)
        return;
    const toml::array* list = node->as_array();
    if (list == nullptr || list->empty()) {
        reader.fault(reader.line("texts"), "texts must be a list of texts");
        return;
    }
    for (const toml::node& item : *list)
        variable.texts.push_back(text_in(item, "texts", max_string, reader).value_or(""));
}

void read_string(TableReader& reader, Variable& variable) {
    variable.text = reader.text("value", max_string).value_or("");
    read_texts(reader, variable);
    read_age_limit(reader, variable.limits);
    variable.event = reader.text("event", max_event_name).value_or("");
}

void read_scalar(TableReader& reader, Variable& variable) {
    read_format(reader, variable);
    switch (variable.kind) {
        case LOGI_TYPE:
            read_logical(reader, variable);
            break;
        case STRING_TYPE:
            read_string(reader, variable);
            break;
        default:
            read_number(reader, variable);
    }
    variable.expr = reader.expression("expr");
    if (variable.kind == STRING_TYPE && variable.expr.given() && variable.texts.empty())
        reader.fault(variable.expr.line, "expr chooses one of texts; a string with expr needs texts");
    if (variable.kind == STRING_TYPE && !variable.expr.given() && !variable.texts.empty())
        reader.fault(reader.line("texts"), "texts are chosen by expr; a string with texts needs expr");
}

}  // namespace

void read_format(TableReader& reader, Variable& variable) {
    variable.format = default_format(variable.kind);
    const auto format = reader.text("format", max_string);
    if (!format)
        return;
    const std::string fault = format_fault(variable.kind, *format);
    if (fault.empty())
        variable.format = *format;
    else
        reader.fault(reader.line("format"), fault);
}

void read_range(TableReader& reader, Variable& variable) {
    variable.range_max = 100;
    const toml::node* node = reader.node("range");
    if (node == nullptr)
        return;
    const toml::array* list = node->as_array();
    if (list == nullptr || list->size() != 2) {
        reader.fault(reader.line("range"), "range must be a list of two numbers, as in [0, 100]");
        return;
    }
    const auto low = number_in((*list)[0], "range", reader);
    const auto high = number_in((*list)[1], "range", reader);
    if (!low || !high)
        return;
    if (*low >= *high)
        reader.fault(reader.line("range"), "range must rise from its first number to its second");
    variable.range_min = *low;
    variable.range_max = *high;
}

void read_variable(TableReader& reader, Variable& variable) {
    read_section(reader, variable);
    if (variable.kind == STAT_TYPE)
        read_stat(reader, variable);
    else if (has_members(variable.kind))
        read_members(reader, variable);
    else if (is_array(variable.kind))
        read_array(reader, variable);
    else
        read_scalar(reader, variable);
    read_write_rule(reader, variable);
    reader.report_unknown_keys();
}

}  // namespace ostrelcell
