#include "reading.h"

#include <ostrel/store.h>
#include <ostrel/units.h>

#include <algorithm>
#include <concepts>
#include <cstdio>
#include <optional>
#include <string_view>

#include "failure.h"
#include "fieldtext.h"

namespace {

// A number of the store, with what belongs to it.
struct Number {
    double value;
    bool whole;  // an integer
    std::string units;
    std::string format;
};

struct Logical {
    bool value;
    StateNames names;
};

template <class Record>
std::string memberFormat(Record* record, int member) {
    if constexpr (std::same_as<Record, STAT_VARIABLE>)
        return get_stat_format(record, static_cast<STAT_MEMBER_TYPE>(member));
    else if constexpr (std::same_as<Record, COMP_VARIABLE>)
        return get_comp_format(record, static_cast<COMPOSITION_MEMBER_TYPE>(member));
    else if constexpr (std::same_as<Record, PROP_VARIABLE>)
        return get_prop_format(record, static_cast<PROPERTY_MEMBER_TYPE>(member));
    else
        return get_emis_format(record, static_cast<EMISSION_MEMBER_TYPE>(member));
}

const auto& members(const STAT_VARIABLE& record) {
    return record.stat;
}
const auto& members(const COMP_VARIABLE& record) {
    return record.fraction;
}
const auto& members(const PROP_VARIABLE& record) {
    return record.properties;
}
const auto& members(const EMIS_VARIABLE& record) {
    return record.emission;
}

const auto* element(const REAL_ARRAY_VARIABLE& array, SHARED_MEMORY handle) {
    return get_real_array_adr(const_cast<REAL_ARRAY_VARIABLE*>(&array), &handle);
}
const auto* element(const INTEGER_ARRAY_VARIABLE& array, SHARED_MEMORY handle) {
    return get_integer_array_adr(const_cast<INTEGER_ARRAY_VARIABLE*>(&array), &handle);
}
const auto* element(const STRING_ARRAY_VARIABLE& array, SHARED_MEMORY handle) {
    return get_string_array_adr(const_cast<STRING_ARRAY_VARIABLE*>(&array), &handle);
}
const auto* element(const LOGICAL_ARRAY_VARIABLE& array, SHARED_MEMORY handle) {
    return get_logical_array_adr(const_cast<LOGICAL_ARRAY_VARIABLE*>(&array), &handle);
}

template <class Record>
std::optional<Number> number(const Variable& variable, const Record& record) {
    if constexpr (requires {
                      record.value + 0.0;
                      record.units;
                  }) {
        const auto value = record.value;
        return Number{static_cast<double>(value), std::integral<decltype(value)>, fieldText(record.units),
                      fieldText(record.display_format)};
    } else if constexpr (requires { members(record); }) {
        const int index = variable.handle.offset;
        if (index < 0 || index >= memberCount(variable.handle.vari_type))
            return std::nullopt;
        const auto& member = members(record)[index];
        return Number{member.value, false, fieldText(member.units), memberFormat(const_cast<Record*>(&record), index)};
    } else if constexpr (requires { element(record, variable.handle)->units; }) {
        const auto* member = element(record, variable.handle);
        if (member == nullptr)
            return std::nullopt;
        const auto value = member->value;
        return Number{static_cast<double>(value), std::integral<decltype(value)>, fieldText(member->units),
                      fieldText(record.display_format)};
    }
    return std::nullopt;
}

template <class Record>
std::optional<Logical> logical(const Variable& variable, const Record& record) {
    if constexpr (requires { record.true_state; }) {
        const StateNames names{fieldText(record.true_state), fieldText(record.false_state)};
        if constexpr (requires { record.value; })
            return Logical{record.value != 0, names};
        else if (const auto* member = element(record, variable.handle))
            return Logical{member->value != 0, names};
    }
    return std::nullopt;
}

template <class Record>
std::optional<std::string> words(const Variable& variable, const Record& record) {
    if constexpr (std::same_as<Record, STRING_VARIABLE>) {
        return fieldText(record.value);
    } else if constexpr (std::same_as<Record, STRING_ARRAY_VARIABLE>) {
        if (const auto* member = element(record, variable.handle))
            return fieldText(member->value);
    }
    return std::nullopt;
}

// Whether `format` is text around one conversion of `conversions`, with flags, width and precision at most: what printf
// may be given.
bool isSafeFormat(std::string_view format, std::string_view conversions) {
    const auto skip = [&](size_t at, std::string_view characters) {
        return std::min(format.find_first_not_of(characters, at), format.size());
    };
    constexpr std::string_view digits = "0123456789";
    const size_t percent = format.find('%');
    if (percent == std::string_view::npos)
        return false;
    size_t at = skip(skip(percent + 1, "-+ #0"), digits);
    if (at < format.size() && format[at] == '.')
        at = skip(at + 1, digits);
    return at < format.size() && conversions.find(format[at]) != std::string_view::npos &&
           format.find('%', at) == std::string_view::npos;
}

template <class Value>
std::string formatted(const std::string& format, Value value) {
    const int length = std::snprintf(nullptr, 0, format.c_str(), value);
    if (length < 0)
        return {};
    std::string text(static_cast<size_t>(length) + 1, '\0');
    std::snprintf(text.data(), text.size(), format.c_str(), value);
    text.pop_back();
    const size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? std::string() : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string numberText(const Number& number) {
    if (number.whole)
        return formatted(isSafeFormat(number.format, "diuxXo") ? number.format : "%d", static_cast<int>(number.value));
    return formatted(isSafeFormat(number.format, "eEfFgGaA") ? number.format : "%g", number.value);
}

Number converted(const std::string& name, Number number, const std::string& units) {
    if (units.empty() || units == number.units)
        return number;
    if (number.units.empty())
        throw Failure(name + ": has no units and cannot be shown in " + units + "; leave --units out");
    if (unitsConvert(number.value, number.units.data(), &number.value, std::string(units).data()) != 0) {
        throw Failure(name + ": " + number.units + " cannot be converted to " + units + "; 'ostrel units " +
                      number.units + "' lists what can");
    }
    number.whole = false;
    number.units = units;
    return number;
}

Json numberValue(const Number& number) {
    return number.whole ? Json(static_cast<int>(number.value)) : Json(number.value);
}

std::string sizeText(const Variable& variable) {
    if (variable.hasMembers())
        return std::to_string(memberCount(variable.handle.vari_type)) + " members";
    std::string text;
    for (const int size : dimensions(variable))
        text += (text.empty() ? "" : "x") + std::to_string(size);
    return text + " elements";
}

Reading readOne(const Variable& variable, const std::string& units) {
    Reading reading;
    withRecord(variable.handle.vari_type, variable.record, [&](const auto& record) {
        if (const auto found = number(variable, record)) {
            const Number shown = converted(variable.name, *found, units);
            reading = {numberValue(shown), numberText(shown), shown.units};
            return;
        }
        if (!units.empty())
            throw Failure(variable.name + ": is no number and has no units; leave --units out");
        if (const auto state = logical(variable, record)) {
            const std::string& name = state->value ? state->names.whenTrue : state->names.whenFalse;
            reading = {state->value, name.empty() ? (state->value ? "true" : "false") : name, {}};
        } else if (const auto text = words(variable, record)) {
            reading = {*text, *text, {}};
        }
    });
    return reading;
}

}  // namespace

Reading read(const Variable& variable, const std::string& units) {
    if (variable.isWhole())
        return {Json(), sizeText(variable), {}};
    return readOne(variable, units);
}

StateNames stateNames(const Variable& variable) {
    StateNames names;
    withRecord(variable.handle.vari_type, variable.record, [&](const auto& record) {
        if constexpr (requires { record.true_state; })
            names = {fieldText(record.true_state), fieldText(record.false_state)};
    });
    return names;
}
