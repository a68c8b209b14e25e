#include "recordfill.h"

#include <ostrel/units.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <ctime>

#include "names.h"
#include "recordtext.h"
#include "statistics.h"
#include "valueformat.h"

namespace ostrelcell {

namespace {

timespec now() {
    timespec time{};
    clock_gettime(CLOCK_REALTIME, &time);
    return time;
}

// Labels up to 16 characters fit everywhere; displays may shorten others.
LABEL_TYPE label_type(const std::string& label) {
    return label.size() > 16 ? LONG_LABEL_TYPE : SHORT_LABEL_TYPE;
}

int to_int(double value) {
    return static_cast<int>(std::lround(std::clamp(value, static_cast<double>(INT_MIN), static_cast<double>(INT_MAX))));
}

// What a number starts with: its own value where it was there before, else that of the model, which is the one kept
// from the last run where it persists.
double starting_value(bool created, double present, const char* present_units, const Units& units, double of_file) {
    if (created)
        return of_file;
    std::string from = present_units;
    std::string to = units.keyword;
    if (from == to)
        return present;
    double converted = 0;
    return unitsConvert(present, from.data(), &converted, to.data()) == 0 ? converted : of_file;
}

template <std::size_t size>
std::string text_of(const char (&field)[size]) {
    return {field, std::find(field, field + size, '\0')};
}

template <typename Record>
void fill_writer(Record& record) {
    record.last_pid = getpid();
    set_text(record.last_process_name, writer_name());
}

// What scalars and the heads of arrays have in common.
template <typename Record>
void fill_common(const CellModel& model, const Variable& variable, Record& record) {
    set_text(record.display_format, variable.format);
    set_text(record.owner.name, model.name);
    record.label_type = label_type(variable.label());
}

template <typename Record>
void fill_units(Record& record, const Units& units) {
    set_text(record.units, units.keyword);
    record.units_code = units.code;
}

template <typename Record>
void fill_event(const Variable& variable, Record& record) {
    set_text(record.event_name, variable.event);
    record.event_active = variable.event.empty() ? 0 : 1;
}

template <typename Record>
void fill_logical_texts(const Variable& variable, Record& record) {
    set_text(record.true_state, variable.states.true_text);
    set_text(record.false_state, variable.states.false_text);
    set_text(record.true_event_name, variable.true_event);
    set_text(record.false_event_name, variable.false_event);
    record.signal_on_true = variable.true_event.empty() ? 0 : 1;
    record.signal_on_false = variable.false_event.empty() ? 0 : 1;
}

template <typename Record>
void start_fresh(Record& record) {
    record.last_sampled_time = now();
    fill_writer(record);
}

void fill_real(const CellModel& model, const Variable& variable, REAL_VARIABLE& record, bool created) {
    fill_common(model, variable, record);
    record.value = starting_value(created, record.value, text_of(record.units).c_str(), variable.units, variable.value);
    fill_units(record, variable.units);
    fill_event(variable, record);
    record.display_resolution = format_decimals(variable.format);
    record.min_plot_range = variable.range_min;
    record.max_plot_range = variable.range_max;
    if (created)
        start_fresh(record);
}

void fill_integer(const CellModel& model, const Variable& variable, INTEGER_VARIABLE& record, bool created) {
    fill_common(model, variable, record);
    record.value =
        to_int(starting_value(created, record.value, text_of(record.units).c_str(), variable.units, variable.value));
    fill_units(record, variable.units);
    fill_event(variable, record);
    record.min_plot_range = to_int(variable.range_min);
    record.max_plot_range = to_int(variable.range_max);
    if (created)
        start_fresh(record);
}

void fill_logical(const CellModel& model, const Variable& variable, LOGICAL_VARIABLE& record, bool created) {
    fill_common(model, variable, record);
    fill_logical_texts(variable, record);
    record.which_state_is_alarm = variable.states.alarm;
    if (!created)
        return;
    record.value = variable.value != 0 ? 1 : 0;
    start_fresh(record);
}

void fill_string(const CellModel& model, const Variable& variable, STRING_VARIABLE& record, bool created) {
    fill_common(model, variable, record);
    fill_event(variable, record);
    record.type = LONG_STRING_VARIABLE;
    if (!created)
        return;
    set_text(record.value, variable.text);
    start_fresh(record);
}

void fill_stat(const CellModel& model, const Variable& variable, STAT_VARIABLE& record) {
    std::string why;
    const auto source = resolve_name(model, variable.stat.source, why);
    const Variable& watched = model.variables[static_cast<std::size_t>(source ? source->variable : 0)];
    Units units = watched.units;
    std::string format = watched.format;
    for (const Member& member : watched.members) {
        if (member.index == source->part) {
            units = member.units;
            format = "%." + std::to_string(member.decimals) + "f";
        }
    }
    set_text(record.source_label, model.full_name(*source));
    set_text(record.owner.name, model.name);
    record.process_interval = variable.stat.interval_s;
    for (int index = 0; index < NUM_MEMBER_TYPES; ++index) {
        STAT_MEMBER& member = record.stat[index];
        Units seconds{"s", 0};
        units_keyword_to_code(seconds.keyword.data(), &seconds.code);
        const StatUnits which = units_of_stat_member(index);
        fill_units(member, which == StatUnits::source ? units : which == StatUnits::seconds ? seconds : Units{});
        const bool counts = index == NM || index == NR;
        member.display_resolution = which == StatUnits::source ? format_decimals(format) : counts ? 0 : 3;
    }
    fill_writer(record);
}

template <typename Field>
void fill_member(const Member& member, Field& field, bool created) {
    field.value = starting_value(created, field.value, text_of(field.units).c_str(), member.units, member.value);
    fill_units(field, member.units);
    field.display_resolution = member.decimals;
}

void fill_composition(const Variable& variable, COMP_VARIABLE& record, bool created) {
    record.fluid_type = variable.fluid;
    record.last_pid = getpid();
    for (const Member& member : variable.members)
        fill_member(member, record.fraction[member.index], created);
}

void fill_property(const Variable& variable, PROP_VARIABLE& record, bool created) {
    record.fluid_type = variable.fluid;
    record.last_pid = getpid();
    record.last_sampled_time = now();
    set_text(record.comp_label, variable.composition.empty() ? "" : variable.composition + ".");
    for (const Member& member : variable.members)
        fill_member(member, record.properties[member.index], created);
}

void fill_emission(const Variable& variable, EMIS_VARIABLE& record, bool created) {
    record.last_pid = getpid();
    record.last_sampled_time = now();
    set_text(record.comp_label, variable.composition.empty() ? "" : variable.composition + ".");
    for (const Member& member : variable.members) {
        fill_member(member, record.emission[member.index], created);
        record.emission[member.index].data_written = 1;
    }
}

template <typename Head>
void fill_array_head(const CellModel& model, const Variable& variable, Head& head) {
    fill_common(model, variable, head);
    for (std::size_t dimension = 0; dimension < variable.shape.labels.size(); ++dimension) {
        const auto& labels = variable.shape.labels[dimension];
        for (std::size_t index = 0; index < labels.size(); ++index)
            set_text(head.enum_labels[dimension][index], labels[index]);
        head.enum_size[dimension] = static_cast<unsigned short>(labels.size());
    }
}

template <typename Element>
void fill_elements(const Variable& variable, Element* element, bool created,
                   void (*fill)(Element&, double value, const Variable&, bool)) {
    for (double value : variable.values) {
        fill(*element, value, variable, created);
        if (created)
            start_fresh(*element);
        ++element;
    }
}

void fill_real_element(REAL_ARRAY_MEMBER& element, double value, const Variable& variable, bool created) {
    element.value = starting_value(created, element.value, text_of(element.units).c_str(), variable.units, value);
    fill_units(element, variable.units);
}

void fill_integer_element(INTEGER_ARRAY_MEMBER& element, double value, const Variable& variable, bool created) {
    element.value =
        to_int(starting_value(created, element.value, text_of(element.units).c_str(), variable.units, value));
    fill_units(element, variable.units);
}

void fill_logical_element(LOGICAL_ARRAY_MEMBER& element, double value, const Variable&, bool created) {
    if (created)
        element.value = value != 0 ? 1 : 0;
}

void fill_string_elements(const Variable& variable, STRING_ARRAY_MEMBER* element, bool created) {
    if (!created)
        return;
    for (const std::string& text : variable.element_texts) {
        set_text(element->value, text);
        start_fresh(*element);
        ++element;
    }
}

void fill_array(const CellModel& model, const Variable& variable, const Placed& placed) {
    switch (variable.kind) {
        case REAL_ARRAY_TYPE: {
            auto& head = *static_cast<REAL_ARRAY_VARIABLE*>(placed.record);
            fill_array_head(model, variable, head);
            head.display_resolution = format_decimals(variable.format);
            head.min_plot_range = variable.range_min;
            head.max_plot_range = variable.range_max;
            fill_elements(variable, static_cast<REAL_ARRAY_MEMBER*>(placed.elements), placed.created,
                          fill_real_element);
            break;
        }
        case INT_ARRAY_TYPE: {
            auto& head = *static_cast<INTEGER_ARRAY_VARIABLE*>(placed.record);
            fill_array_head(model, variable, head);
            head.min_plot_range = variable.range_min;
            head.max_plot_range = variable.range_max;
            fill_elements(variable, static_cast<INTEGER_ARRAY_MEMBER*>(placed.elements), placed.created,
                          fill_integer_element);
            break;
        }
        case LOGI_ARRAY_TYPE: {
            auto& head = *static_cast<LOGICAL_ARRAY_VARIABLE*>(placed.record);
            fill_array_head(model, variable, head);
            fill_logical_texts(variable, head);
            fill_elements(variable, static_cast<LOGICAL_ARRAY_MEMBER*>(placed.elements), placed.created,
                          fill_logical_element);
            break;
        }
        default: {
            auto& head = *static_cast<STRING_ARRAY_VARIABLE*>(placed.record);
            fill_array_head(model, variable, head);
            head.type = LONG_STRING_VARIABLE;
            fill_string_elements(variable, static_cast<STRING_ARRAY_MEMBER*>(placed.elements), placed.created);
        }
    }
}

}  // namespace

void fill_record(const CellModel& model, const Variable& variable, const Placed& placed) {
    switch (variable.kind) {
        case REAL_TYPE:
            return fill_real(model, variable, *static_cast<REAL_VARIABLE*>(placed.record), placed.created);
        case INT_TYPE:
            return fill_integer(model, variable, *static_cast<INTEGER_VARIABLE*>(placed.record), placed.created);
        case LOGI_TYPE:
            return fill_logical(model, variable, *static_cast<LOGICAL_VARIABLE*>(placed.record), placed.created);
        case STRING_TYPE:
            return fill_string(model, variable, *static_cast<STRING_VARIABLE*>(placed.record), placed.created);
        case STAT_TYPE:
            return fill_stat(model, variable, *static_cast<STAT_VARIABLE*>(placed.record));
        case COMP_TYPE:
            return fill_composition(variable, *static_cast<COMP_VARIABLE*>(placed.record), placed.created);
        case PROP_TYPE:
            return fill_property(variable, *static_cast<PROP_VARIABLE*>(placed.record), placed.created);
        case EMIS_TYPE:
            return fill_emission(variable, *static_cast<EMIS_VARIABLE*>(placed.record), placed.created);
        default:
            return fill_array(model, variable, placed);
    }
}

}  // namespace ostrelcell
