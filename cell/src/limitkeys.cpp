#include "limitkeys.h"

#include "colours.h"

namespace ostrelcell {

namespace {

struct LimitKey {
    LIMIT_ARRAY_INDEXES index;
    const char* key;
    short status;  // where the file asks for no other
};

constexpr LimitKey limitKeys[] = {
    {LOW_ALARM_LIMIT, "low_alarm", colourYellow},
    {LOW_ABORT_LIMIT, "low_abort", colourRed},
    {LOW_EMERGENCY_LIMIT, "low_emergency", colourRed | blinkBit},
    {HIGH_ALARM_LIMIT, "high_alarm", colourYellow},
    {HIGH_ABORT_LIMIT, "high_abort", colourRed},
    {HIGH_EMERGENCY_LIMIT, "high_emergency", colourRed | blinkBit},
    {VARIABLE_AGE_LIMIT, "age", colourCyan},
};

short statusWord(std::optional<short> colour, std::optional<bool> blink, short otherwise) {
    const bool blinks = blink.value_or((otherwise & blinkBit) != 0);
    const int word = colour.value_or(static_cast<short>(otherwise & ~blinkBit)) | (blinks ? blinkBit : 0);
    return static_cast<short>(word);
}

// `{ value = 110, colour = "yellow", blink = false }`
LimitRule readRuleTable(const toml::table& table, const LimitKey& key, TableReader& parent) {
    TableReader reader(table, parent.subject() + "." + key.key, parent.diagnostics());
    LimitRule rule;
    const auto value = reader.number("value");
    if (value)
        rule = {true, *value, 0};
    else if (!table.contains("value"))
        reader.fault(lineOf(table), "a limit needs a value");
    const auto colour = reader.colour("colour");
    rule.status = statusWord(colour, reader.boolean("blink"), key.status);
    reader.reportUnknownKeys();
    return rule;
}

LimitRule readRule(TableReader& reader, const LimitKey& key) {
    const toml::node* node = reader.node(key.key);
    if (node == nullptr)
        return {};
    if (const toml::table* table = node->as_table())
        return readRuleTable(*table, key, reader);
    const auto value = numberIn(*node, key.key, reader);
    return value ? LimitRule{true, *value, key.status} : LimitRule{};
}

void checkOrder(TableReader& reader, const Limits& limits) {
    // From the lowest to the highest, as they have to stand.
    constexpr LIMIT_ARRAY_INDEXES ascending[] = {LOW_EMERGENCY_LIMIT, LOW_ABORT_LIMIT,  LOW_ALARM_LIMIT,
                                                 HIGH_ALARM_LIMIT,    HIGH_ABORT_LIMIT, HIGH_EMERGENCY_LIMIT};
    const LimitKey* lower = nullptr;
    for (LIMIT_ARRAY_INDEXES index : ascending) {
        const LimitKey& upper = limitKeys[index];
        if (!limits.rules[index].exists)
            continue;
        if (lower != nullptr && limits.rules[lower->index].value > limits.rules[index].value)
            reader.fault(reader.line(upper.key), std::string(upper.key) + " is below " + lower->key +
                                                     "; limits must rise from low_emergency to high_emergency");
        lower = &upper;
    }
}

// `alarm = true`, or "true", "false", "none".
WHICH_STATE_IS_ALARM readAlarmState(TableReader& reader) {
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

void readValueLimits(TableReader& reader, Limits& limits) {
    for (const LimitKey& key : limitKeys)
        if (key.index != VARIABLE_AGE_LIMIT)
            limits.rules[key.index] = readRule(reader, key);
    checkOrder(reader, limits);
    limits.deadband = reader.number("deadband").value_or(0);
    if (limits.deadband < 0)
        reader.fault(reader.line("deadband"), "deadband must not be negative");
    limits.normalStatus = reader.colour("normal_colour").value_or(colourNone);
}

void readAgeLimit(TableReader& reader, Limits& limits) {
    const LimitKey& key = limitKeys[VARIABLE_AGE_LIMIT];
    LimitRule rule = readRule(reader, key);
    if (rule.exists && rule.value <= 0)
        reader.fault(reader.line(key.key), "age must be more than 0 seconds");
    limits.rules[VARIABLE_AGE_LIMIT] = rule;
}

void readLogicalStates(TableReader& reader, LogicalStates& states) {
    states.trueText = reader.text("true_state", 79).value_or(states.trueText);
    states.falseText = reader.text("false_state", 79).value_or(states.falseText);
    states.alarm = readAlarmState(reader);
    const auto colour = reader.colour("colour");
    const auto blink = reader.boolean("blink");
    states.alarmStatus = statusWord(colour, blink, colourRed);
    if (states.alarm == NO_ALARM && (colour || blink))
        reader.fault(reader.line(colour ? "colour" : "blink"),
                     "colour and blink are those of the alarm; say with alarm which state it is, "
                     "or use true_colour and false_colour");
    states.trueStatus = reader.colour("true_colour").value_or(colourNone);
    states.falseStatus = reader.colour("false_colour").value_or(colourNone);
}

}  // namespace ostrelcell
