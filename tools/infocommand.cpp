#include <ostrel/store.h>

#include <cstdio>
#include <ctime>

#include "catalogue.h"
#include "commands.h"
#include "fieldtext.h"
#include "reading.h"

namespace {

// ---- A field of a record as a value

template <class Number>
requires(std::integral<Number> || std::floating_point<Number>) Json fieldJson(Number value) {
    if constexpr (std::integral<Number>)
        return value;
    else
        return static_cast<double>(value);
}

template <class Enumeration>
requires std::is_enum_v<Enumeration> Json fieldJson(Enumeration value) {
    return static_cast<int>(value);
}

template <size_t size>
Json fieldJson(const char (&text)[size]) {
    return fieldText(text);
}

Json fieldJson(const REGISTERED_NAME& owner) {
    return fieldText(owner.name);
}

Json fieldJson(PIO_ERROR_STATUS status) {
    return status.word;
}

// Universal time; null for a time that was never set.
Json fieldJson(timespec time) {
    if (time.tv_sec == 0 && time.tv_nsec == 0)
        return {};
    std::tm parts{};
    char text[32], result[48];
    gmtime_r(&time.tv_sec, &parts);
    std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &parts);
    std::snprintf(result, sizeof result, "%s.%03dZ", text, static_cast<int>(time.tv_nsec / 1'000'000 % 1000));
    return result;
}

// The limits that are violated or were.
Json fieldJson(LIMIT_STATUS status) {
    Json::Array names;
    const auto add = [&](unsigned set, const char* name) {
        if (set != 0)
            names.push_back(name);
    };
    add(status.low_alarm, "low alarm");
    add(status.low_abort, "low abort");
    add(status.low_emergency, "low emergency");
    add(status.high_alarm, "high alarm");
    add(status.high_abort, "high abort");
    add(status.high_emergency, "high emergency");
    add(status.variable_age, "age");
    add(status.low_alarm_latch, "low alarm latch");
    add(status.low_abort_latch, "low abort latch");
    add(status.low_emergency_latch, "low emergency latch");
    add(status.high_alarm_latch, "high alarm latch");
    add(status.high_abort_latch, "high abort latch");
    add(status.high_emergency_latch, "high emergency latch");
    add(status.variable_age_latch, "age latch");
    return names;
}

// ---- All fields of a record

// The kinds share most fields by name; a record has the ones that it has.
#define ADD(field)                            \
    if constexpr (requires { record.field; }) \
    fields.emplace_back(#field, fieldJson(record.field))

template <class Record>
void addIdentity(Json::Object& fields, const Record& record) {
    ADD(label);
    ADD(source_label);
    ADD(comp_label);
    ADD(shm_id);
    ADD(index);
    ADD(owner);
    ADD(label_type);
    ADD(parameter_index);
    ADD(hash_index);
    ADD(support_alias);
    ADD(active);
    ADD(previously_active);
    ADD(save_active);
    ADD(save_inactive);
}

template <class Record>
void addPresentation(Json::Object& fields, const Record& record) {
    ADD(value);
    ADD(units);
    ADD(units_code);
    ADD(display_format);
    ADD(display_resolution);
    ADD(min_plot_range);
    ADD(max_plot_range);
    ADD(true_state);
    ADD(false_state);
    ADD(type);
    ADD(fluid_type);
    ADD(num_dimensions);
    ADD(table_name);
    ADD(table_variable);
    ADD(table_index);
    ADD(table_type);
}

template <class Record>
void addState(Json::Object& fields, const Record& record) {
    ADD(status);
    ADD(limit_status);
    ADD(which_state_is_alarm);
    ADD(alarm);
    ADD(NAN_trapped);
    ADD(pio_error_status);
    ADD(override_active);
    ADD(last_override_state);
    ADD(restore_value);
    ADD(hst_value_saved);
    ADD(stat_in_use);
    ADD(data_written);
}

template <class Record>
void addHistory(Json::Object& fields, const Record& record) {
    ADD(update_count);
    ADD(last_sampled_value);
    ADD(last_sampled_time);
    ADD(last_delta_value);
    ADD(last_delta_time);
    ADD(last_computed_time);
    ADD(process_interval);
    ADD(reference_value);
    ADD(tolerance);
    ADD(transition_tolerance);
    ADD(last_pid);
    ADD(last_process_name);
    ADD(previous_value);
    ADD(previous_time);
    ADD(sumx);
    ADD(sumy);
    ADD(sumxy);
    ADD(sumx2);
    ADD(sumy2);
}

template <class Record>
void addEvents(Json::Object& fields, const Record& record) {
    ADD(event_active);
    ADD(event_name);
    ADD(event_id);
    ADD(signal_on_true);
    ADD(true_event_name);
    ADD(true_event_id);
    ADD(signal_on_false);
    ADD(false_event_name);
    ADD(false_event_id);
}
#undef ADD

Json::Object recordJson(const Variable& variable) {
    Json::Object fields;
    withRecord(variable.handle.vari_type, variable.record, [&](const auto& record) {
        addIdentity(fields, record);
        addPresentation(fields, record);
        addState(fields, record);
        addHistory(fields, record);
        addEvents(fields, record);
    });
    return fields;
}

// ---- What stands around the record

Json limitsJson(std::string name) {
    static constexpr const char* names[NUM_LIMIT_TYPES] = {
        "low_alarm", "low_abort", "low_emergency", "high_alarm", "high_abort", "high_emergency", "age_s"};
    double limits[NUM_LIMIT_TYPES] = {};
    short int exists[NUM_LIMIT_TYPES] = {};
    LIMIT_STATUS status{};
    if (get_limit_info(name.data(), &status, limits, exists, nullptr) != 0)
        return Json::Object();
    Json::Object result;
    for (size_t i = 0; i < NUM_LIMIT_TYPES; ++i) {
        if (exists[i] != 0)
            result.emplace_back(names[i], limits[i]);
    }
    return result;
}

Json aliasesJson(const std::string& fullName) {
    Json::Array result;
    const auto all = aliases();
    const auto [first, last] = all.equal_range(fullName);
    for (auto alias = first; alias != last; ++alias)
        result.push_back(alias->second);
    return result;
}

Json::Object info(const Variable& variable) {
    const Reading reading = read(variable);
    const ostrel_section* section = ostrel_section_of(variable.handle.code, variable.handle.vari_type);
    Json::Array sizes;
    for (const int size : dimensions(variable))
        sizes.push_back(size);
    return {{"name", variable.fullName},
            {"aliases", aliasesJson(variable.fullName)},
            {"kind", kindName(variable.handle.vari_type)},
            {"section", section == nullptr ? "" : section->title},
            {"value", reading.value},
            {"text", reading.text},
            {"units", reading.units},
            {"dimensions", sizes},
            {"limits", limitsJson(variable.fullName)},
            {"record", recordJson(variable)}};
}

void printFields(const Json::Object& fields, const std::string& indent) {
    for (const auto& [name, value] : fields) {
        if (const auto* inner = value.object()) {
            std::printf("%s%s:%s\n", indent.c_str(), name.c_str(), inner->empty() ? " none" : "");
            printFields(*inner, indent + "  ");
            continue;
        }
        std::string text = value.plainText();
        if (const auto* items = value.array()) {
            text.clear();
            for (const Json& item : *items)
                text += (text.empty() ? "" : ", ") + item.plainText();
        }
        const std::string line = indent + name + ":" + (text.empty() ? "" : " ") + printable(text);
        std::puts(line.c_str());
    }
}

}  // namespace

int infoCommand(const std::string& name, bool json) {
    const Json::Object fields = info(findVariable(name));
    if (json)
        std::puts(Json(fields).text().c_str());
    else
        printFields(fields, "");
    return 0;
}
