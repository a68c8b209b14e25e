#include "variablekeys.h"

#include <cmath>

#include "limitkeys.h"
#include "suggestion.h"
#include "valueformat.h"

namespace ostrelcell {

namespace {

constexpr size_t maxEventName = 31;
constexpr size_t maxString = 79;  // a record keeps 80 bytes, and displays want their zero

const ostrel_section* sectionNamed(const std::string& name, SM_VARI_TYPE kind, bool& nameKnown,
                                   std::vector<std::string>& ofKind) {
    int count = 0;
    const ostrel_section* sections = ostrel_sections(&count);
    const ostrel_section* found = nullptr;
    nameKnown = false;
    for (const ostrel_section* section = sections; section != sections + count; ++section) {
        nameKnown = nameKnown || name == section->name;
        if (section->kind != kind)
            continue;
        ofKind.emplace_back(section->name);
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

void readSection(TableReader& reader, Variable& variable) {
    const std::string name = reader.text("section", maxString).value_or("");
    bool known = false;
    std::vector<std::string> ofKind;
    variable.section = sectionNamed(name, variable.kind, known, ofKind);
    if (variable.section != nullptr)
        return;
    const std::string kind = kindWord(variable.kind);
    reader.fault(reader.line("section"),
                 known ? "section \"" + name + "\" holds no " + kind + "; use one of " + joined(ofKind)
                       : "unknown section \"" + name + "\"; for " + kind + " use one of " + joined(ofKind));
    variable.section = sectionNamed("", variable.kind, known, ofKind);
}

void readNumber(TableReader& reader, Variable& variable) {
    if (variable.kind == REAL_TYPE)
        variable.value = reader.number("value").value_or(0);
    else
        variable.value = reader.integer("value").value_or(0);
    variable.units = reader.units("units").value_or(Units{});
    readRange(reader, variable);
    readValueLimits(reader, variable.limits);
    readAgeLimit(reader, variable.limits);
    variable.event = reader.text("event", maxEventName).value_or("");
}

void readLogical(TableReader& reader, Variable& variable) {
    variable.value = reader.boolean("value").value_or(false) ? 1 : 0;
    readLogicalStates(reader, variable.states);
    readAgeLimit(reader, variable.limits);
    variable.trueEvent = reader.text("true_event", maxEventName).value_or("");
    variable.falseEvent = reader.text("false_event", maxEventName).value_or("");
}

void readTexts(TableReader& reader, Variable& variable) {
    const toml::node* node = reader.node("texts");
    if (node == nullptr)
        return;
    const toml::array* list = node->as_array();
    if (list == nullptr || list->empty()) {
        reader.fault(reader.line("texts"), "texts must be a list of texts");
        return;
    }
    for (const toml::node& item : *list)
        variable.texts.push_back(textIn(item, "texts", maxString, reader).value_or(""));
}

void readString(TableReader& reader, Variable& variable) {
    variable.text = reader.text("value", maxString).value_or("");
    readTexts(reader, variable);
    readAgeLimit(reader, variable.limits);
    variable.event = reader.text("event", maxEventName).value_or("");
}

void readScalar(TableReader& reader, Variable& variable) {
    readFormat(reader, variable);
    switch (variable.kind) {
        case LOGI_TYPE:
            readLogical(reader, variable);
            break;
        case STRING_TYPE:
            readString(reader, variable);
            break;
        default:
            readNumber(reader, variable);
    }
    variable.expr = reader.expression("expr");
    if (variable.kind == STRING_TYPE && variable.expr.given() && variable.texts.empty())
        reader.fault(variable.expr.line, "expr chooses one of texts; a string with expr needs texts");
    if (variable.kind == STRING_TYPE && !variable.expr.given() && !variable.texts.empty())
        reader.fault(reader.line("texts"), "texts are chosen by expr; a string with texts needs expr");
}

}  // namespace

void readFormat(TableReader& reader, Variable& variable) {
    variable.format = defaultFormat(variable.kind);
    const auto format = reader.text("format", maxString);
    if (!format)
        return;
    const std::string fault = formatFault(variable.kind, *format);
    if (fault.empty())
        variable.format = *format;
    else
        reader.fault(reader.line("format"), fault);
}

void readRange(TableReader& reader, Variable& variable) {
    variable.rangeMax = 100;
    const toml::node* node = reader.node("range");
    if (node == nullptr)
        return;
    const toml::array* list = node->as_array();
    if (list == nullptr || list->size() != 2) {
        reader.fault(reader.line("range"), "range must be a list of two numbers, as in [0, 100]");
        return;
    }
    const auto low = numberIn((*list)[0], "range", reader);
    const auto high = numberIn((*list)[1], "range", reader);
    if (!low || !high)
        return;
    if (*low >= *high)
        reader.fault(reader.line("range"), "range must rise from its first number to its second");
    variable.rangeMin = *low;
    variable.rangeMax = *high;
}

void readVariable(TableReader& reader, Variable& variable) {
    readSection(reader, variable);
    if (variable.kind == STAT_TYPE)
        readStat(reader, variable);
    else if (hasMembers(variable.kind))
        readMembers(reader, variable);
    else if (is_array(variable.kind))
        readArray(reader, variable);
    else
        readScalar(reader, variable);
    readWriteRule(reader, variable);
    reader.reportUnknownKeys();
}

}  // namespace ostrelcell
