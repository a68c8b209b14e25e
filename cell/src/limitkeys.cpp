#include "limitkeys.h"

#include "colours.h"

namespace ostrelcell {

namespace {

struct LimitKey {
    LIMIT_ARRAY_INDEXES index;
    const char* key;
    short status;  // where the file asks for no other
};

constexpr LimitKey limit_keys[] = {
    {LOW_ALARM_LIMIT, "low_alarm", colour_yellow},
    {LOW_ABORT_LIMIT, "low_abort", colour_red},
    {LOW_EMERGENCY_LIMIT, "low_emergency", colour_red | blink_bit},
    {HIGH_ALARM_LIMIT, "high_alarm", colour_yellow},
    {HIGH_ABORT_LIMIT, "high_abort", colour_red},
    {HIGH_EMERGENCY_LIMIT, "high_emergency", colour_red | blink_bit},
    {VARIABLE_AGE_LIMIT, "age", colour_cyan},
};

short status_word(std::optional<short> colour, std::optional<bool> blink, short otherwise) {
    const bool blinks = blink.value_or((otherwise & blink_bit) != 0);
    const int word = colour.value_or(static_cast<short>(otherwise & ~blink_bit)) | (blinks ? blink_bit : 0);
    return static_cast<short>(word);
}

// `{ value = 110, colour = "yellow", blink = false }`
LimitRule read_rule_table(const toml::table& table, const LimitKey& key, TableReader& parent) {
    TableReader reader(table, parent.subject() + "." + key.key, parent.diagnostics());
    LimitRule rule;
    const auto value = reader.number("value");
    if (value)
        rule = {true, *value, 0};
    else if (!table.contains("value"))
        reader.fault(line_of(table), "a limit needs a value");
    const auto colour = reader.colour("colour");
    rule.status = status_word(colour, reader.boolean("blink"), key.status);
    reader.report_unknown_keys();
    return rule;
}

LimitRule read_rule(TableReader& reader, const LimitKey& key) {
    const toml::node* node = reader.node(key.key);
    if (node == nullptr)
        return {};
    if (const toml::table* table = node->as_table())
        return read_rule_table(*table, key, reader);
    const auto value = number_in(*node, key.key, reader);
    return value ? LimitRule{true, *value, key.status} : LimitRule{};
}

void check_order(TableReader& reader, const Limits& limits) {
    // From the lowest to the highest, as they have to stand.
    constexpr LIMIT_ARRAY_INDEXES ascending[] = {LOW_EMERGENCY_LIMIT, LOW_ABORT_LIMIT,  LOW_ALARM_LIMIT,
                                                 HIGH_ALARM_LIMIT,    HIGH_ABORT_LIMIT, HIGH_EMERGENCY_LIMIT};
    const LimitKey* lower = nullptr;
    for (LIMIT_ARRAY_INDEXES index : ascending) {
        const LimitKey& upper = limit_keys[index];
        if (!limits.rules[index].exists)
            continue;
        if (lower != nullptr && limits.rules[lower->index].value > limits.rules[index].value)
            reader.fault(reader.line(upper.key), std::string(upper.key) + " is below " + lower->key +
                                                     "; limits must rise from low_emergency to high_emergency");
        lower = &upper;
    }
}

// `alarm = true`, or "true", "false", "none".
WHICH_STATE_IS_ALARM read_alarm_state(TableReader& reader) {
    const toml::node* node = reader.node("alarm");
    if (node == nullptr)
        return NO_ALARM;
    std::string word = node->value_exact<std::string>().value_or("");
    if (const auto flag = node->value_exact<bool>())
        word = *flag ? "true" : "false";
    if (word == "true")
        return TRUE_IS_ALARM;
    if (word == "false")
        return FALSE_IS_ALARM;
    if (word != "none")
        reader.fault(reader.line("alarm"), "alarm must be true, false or \"none\": the state that is an alarm");
    return NO_ALARM;
}

}  // namespace

void read_value_limits(TableReader& reader, Limits& limits) {
    for (const LimitKey& key : limit_keys)
        if (key.index != VARIABLE_AGE_LIMIT)
            limits.rules[key.index] = read_rule(reader, key);
    check_order(reader, limits);
    limits.deadband = reader.number("deadband").value_or(0);
    if (limits.deadband < 0)
        reader.fault(reader.line("deadband"), "deadband must not be negative");
    limits.normal_status = reader.colour("normal_colour").value_or(colour_none);
}

void read_age_limit(TableReader& reader, Limits& limits) {
    const LimitKey& key = limit_keys[VARIABLE_AGE_LIMIT];
    LimitRule rule = read_rule(reader, key);
    if (rule.exists && rule.value <= 0)
        reader.fault(reader.line(key.key), "age must be more than 0 seconds");
    limits.rules[VARIABLE_AGE_LIMIT] = rule;
}

void read_logical_states(TableReader& reader, LogicalStates& states) {
    states.true_text = reader.text("true_state", 79).value_or(states.true_text);
    states.false_text = reader.text("false_state", 79).value_or(states.false_text);
    states.alarm = read_alarm_state(reader);
    const auto colour = reader.colour("colour");
    const auto blink = reader.boolean("blink");
    states.alarm_status = status_word(colour, blink, colour_red);
    if (states.alarm == NO_ALARM && (colour || blink))
        reader.fault(reader.line(colour ? "colour" : "blink"),
                     "colour and blink are those of the alarm; say with alarm which state it is, "
                     "or use true_colour and false_colour");
    states.true_status = reader.colour("true_colour").value_or(colour_none);
    states.false_status = reader.colour("false_colour").value_or(colour_none);
}

}  // namespace ostrelcell
