#include "recordfill.h"

#include <ostrel/units.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <ctime>

#include "ground/fieldtext.h"
#include "names.h"
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

int toInt(double value) {
    return static_cast<int>(std::lround(std::clamp(value, static_cast<double>(INT_MIN), static_cast<double>(INT_MAX))));
}

// What a number starts with: its own value where it was there before, else that of the model, which is the one kept
// from the last run where it persists.
double startingValue(bool created, double present, const char* presentUnits, const Units& units, double ofFile) {
    if (created)
        return ofFile;
    std::string from = presentUnits;
    std::string to = units.keyword;
    if (from == to)
        return present;
    double converted = 0;
    return unitsConvert(present, from.data(), &converted, to.data()) == 0 ? converted : ofFile;
}

template <typename Record>
void fillWriter(Record& record) {
    record.last_pid = getpid();
    setText(record.last_process_name, writerName());
}

// What scalars and the heads of arrays have in common.
template <typename Record>
void fillCommon(const CellModel& model, const Variable& variable, Record& record) {
    setText(record.display_format, variable.format);
    setText(record.owner.name, model.name);
    record.label_type = label_type(variable.label());
}

template <typename Record>
void fillUnits(Record& record, const Units& units) {
    setText(record.units, units.keyword);
    record.units_code = units.code;
}

template <typename Record>
void fillEvent(const Variable& variable, Record& record) {
    setText(record.event_name, variable.event);
    record.event_active = variable.event.empty() ? 0 : 1;
}

template <typename Record>
void fillLogicalTexts(const Variable& variable, Record& record) {
    setText(record.true_state, variable.states.trueText);
    setText(record.false_state, variable.states.falseText);
    setText(record.true_event_name, variable.trueEvent);
    setText(record.false_event_name, variable.falseEvent);
    record.signal_on_true = variable.trueEvent.empty() ? 0 : 1;
    record.signal_on_false = variable.falseEvent.empty() ? 0 : 1;
}

template <typename Record>
void startFresh(Record& record) {
    record.last_sampled_time = now();
    fillWriter(record);
}

void fillReal(const CellModel& model, const Variable& variable, REAL_VARIABLE& record, bool created) {
    fillCommon(model, variable, record);
    record.value =
        startingValue(created, record.value, fieldText(record.units).c_str(), variable.units, variable.value);
    fillUnits(record, variable.units);
    fillEvent(variable, record);
    record.display_resolution = formatDecimals(variable.format);
    record.min_plot_range = variable.rangeMin;
    record.max_plot_range = variable.rangeMax;
    if (created)
        startFresh(record);
}

void fillInteger(const CellModel& model, const Variable& variable, INTEGER_VARIABLE& record, bool created) {
    fillCommon(model, variable, record);
    record.value =
        toInt(startingValue(created, record.value, fieldText(record.units).c_str(), variable.units, variable.value));
    fillUnits(record, variable.units);
    fillEvent(variable, record);
    record.min_plot_range = toInt(variable.rangeMin);
    record.max_plot_range = toInt(variable.rangeMax);
    if (created)
        startFresh(record);
}

void fillLogical(const CellModel& model, const Variable& variable, LOGICAL_VARIABLE& record, bool created) {
    fillCommon(model, variable, record);
    fillLogicalTexts(variable, record);
    record.which_state_is_alarm = variable.states.alarm;
    if (!created)
        return;
    record.value = variable.value != 0 ? 1 : 0;
    startFresh(record);
}

void fillString(const CellModel& model, const Variable& variable, STRING_VARIABLE& record, bool created) {
    fillCommon(model, variable, record);
    fillEvent(variable, record);
    record.type = LONG_STRING_VARIABLE;
    if (!created)
        return;
    setText(record.value, variable.text);
    startFresh(record);
}

void fillStat(const CellModel& model, const Variable& variable, STAT_VARIABLE& record) {
    std::string why;
    const auto source = resolveName(model, variable.stat.source, why);
    const Variable& watched = model.variables[static_cast<size_t>(source ? source->variable : 0)];
    Units units = watched.units;
    std::string format = watched.format;
    for (const Member& member : watched.members) {
        if (member.index == source->part) {
            units = member.units;
            format = "%." + std::to_string(member.decimals) + "f";
        }
    }
    setText(record.source_label, model.fullName(*source));
    setText(record.owner.name, model.name);
    record.process_interval = variable.stat.intervalS;
    for (int index = 0; index < NUM_MEMBER_TYPES; ++index) {
        STAT_MEMBER& member = record.stat[index];
        Units seconds{"s", 0};
        units_keyword_to_code(seconds.keyword.data(), &seconds.code);
        const StatUnits which = unitsOfStatMember(index);
        fillUnits(member, which == StatUnits::source ? units : which == StatUnits::seconds ? seconds : Units{});
        const bool counts = index == NM || index == NR;
        member.display_resolution = which == StatUnits::source ? formatDecimals(format) : counts ? 0 : 3;
    }
    fillWriter(record);
}

template <typename Field>
void fillMember(const Member& member, Field& field, bool created) {
    field.value = startingValue(created, field.value, fieldText(field.units).c_str(), member.units, member.value);
    fillUnits(field, member.units);
    field.display_resolution = member.decimals;
}

void fillComposition(const Variable& variable, COMP_VARIABLE& record, bool created) {
    record.fluid_type = variable.fluid;
    record.last_pid = getpid();
    for (const Member& member : variable.members)
        fillMember(member, record.fraction[member.index], created);
}

void fillProperty(const Variable& variable, PROP_VARIABLE& record, bool created) {
    record.fluid_type = variable.fluid;
    record.last_pid = getpid();
    record.last_sampled_time = now();
    setText(record.comp_label, variable.composition.empty() ? "" : variable.composition + ".");
    for (const Member& member : variable.members)
        fillMember(member, record.properties[member.index], created);
}

void fillEmission(const Variable& variable, EMIS_VARIABLE& record, bool created) {
    record.last_pid = getpid();
    record.last_sampled_time = now();
    setText(record.comp_label, variable.composition.empty() ? "" : variable.composition + ".");
    for (const Member& member : variable.members) {
        fillMember(member, record.emission[member.index], created);
        record.emission[member.index].data_written = 1;
    }
}

template <typename Head>
void fillArrayHead(const CellModel& model, const Variable& variable, Head& head) {
    fillCommon(model, variable, head);
    for (size_t dimension = 0; dimension < variable.shape.labels.size(); ++dimension) {
        const auto& labels = variable.shape.labels[dimension];
        for (size_t index = 0; index < labels.size(); ++index)
            setText(head.enum_labels[dimension][index], labels[index]);
        head.enum_size[dimension] = static_cast<unsigned short>(labels.size());
    }
}

template <typename Element>
void fillElements(const Variable& variable, Element* element, bool created,
                  void (*fill)(Element&, double value, const Variable&, bool)) {
    for (double value : variable.values) {
        fill(*element, value, variable, created);
        if (created)
            startFresh(*element);
        ++element;
    }
}

void fillRealElement(REAL_ARRAY_MEMBER& element, double value, const Variable& variable, bool created) {
    element.value = startingValue(created, element.value, fieldText(element.units).c_str(), variable.units, value);
    fillUnits(element, variable.units);
}

void fillIntegerElement(INTEGER_ARRAY_MEMBER& element, double value, const Variable& variable, bool created) {
    element.value =
        toInt(startingValue(created, element.value, fieldText(element.units).c_str(), variable.units, value));
    fillUnits(element, variable.units);
}

void fillLogicalElement(LOGICAL_ARRAY_MEMBER& element, double value, const Variable&, bool created) {
    if (created)
        element.value = value != 0 ? 1 : 0;
}

void fillStringElements(const Variable& variable, STRING_ARRAY_MEMBER* element, bool created) {
    if (!created)
        return;
    for (const std::string& text : variable.elementTexts) {
        setText(element->value, text);
        startFresh(*element);
        ++element;
    }
}

void fillArray(const CellModel& model, const Variable& variable, const Placed& placed) {
    switch (variable.kind) {
        case REAL_ARRAY_TYPE: {
            auto& head = *static_cast<REAL_ARRAY_VARIABLE*>(placed.record);
            fillArrayHead(model, variable, head);
            head.display_resolution = formatDecimals(variable.format);
            head.min_plot_range = variable.rangeMin;
            head.max_plot_range = variable.rangeMax;
            fillElements(variable, static_cast<REAL_ARRAY_MEMBER*>(placed.elements), placed.created, fillRealElement);
            break;
        }
        case INT_ARRAY_TYPE: {
            auto& head = *static_cast<INTEGER_ARRAY_VARIABLE*>(placed.record);
            fillArrayHead(model, variable, head);
            head.min_plot_range = variable.rangeMin;
            head.max_plot_range = variable.rangeMax;
            fillElements(variable, static_cast<INTEGER_ARRAY_MEMBER*>(placed.elements), placed.created,
                         fillIntegerElement);
            break;
        }
        case LOGI_ARRAY_TYPE: {
            auto& head = *static_cast<LOGICAL_ARRAY_VARIABLE*>(placed.record);
            fillArrayHead(model, variable, head);
            fillLogicalTexts(variable, head);
            fillElements(variable, static_cast<LOGICAL_ARRAY_MEMBER*>(placed.elements), placed.created,
                         fillLogicalElement);
            break;
        }
        default: {
            auto& head = *static_cast<STRING_ARRAY_VARIABLE*>(placed.record);
            fillArrayHead(model, variable, head);
            head.type = LONG_STRING_VARIABLE;
            fillStringElements(variable, static_cast<STRING_ARRAY_MEMBER*>(placed.elements), placed.created);
        }
    }
}

}  // namespace

void fillRecord(const CellModel& model, const Variable& variable, const Placed& placed) {
    switch (variable.kind) {
        case REAL_TYPE:
            return fillReal(model, variable, *static_cast<REAL_VARIABLE*>(placed.record), placed.created);
        case INT_TYPE:
            return fillInteger(model, variable, *static_cast<INTEGER_VARIABLE*>(placed.record), placed.created);
        case LOGI_TYPE:
            return fillLogical(model, variable, *static_cast<LOGICAL_VARIABLE*>(placed.record), placed.created);
        case STRING_TYPE:
            return fillString(model, variable, *static_cast<STRING_VARIABLE*>(placed.record), placed.created);
        case STAT_TYPE:
            return fillStat(model, variable, *static_cast<STAT_VARIABLE*>(placed.record));
        case COMP_TYPE:
            return fillComposition(variable, *static_cast<COMP_VARIABLE*>(placed.record), placed.created);
        case PROP_TYPE:
            return fillProperty(variable, *static_cast<PROP_VARIABLE*>(placed.record), placed.created);
        case EMIS_TYPE:
            return fillEmission(variable, *static_cast<EMIS_VARIABLE*>(placed.record), placed.created);
        default:
            return fillArray(model, variable, placed);
    }
}

}  // namespace ostrelcell
