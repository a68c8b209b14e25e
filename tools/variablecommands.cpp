#include <ostrel/store.h>
#include <ostrel/units.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <optional>

#include "catalogue.h"
#include "commands.h"
#include "failure.h"
#include "fieldtext.h"
#include "reading.h"

namespace {

// ---- Lists

using Row = std::vector<std::string>;

// Columns side by side, each as wide as its widest cell.
void printTable(const std::vector<Row>& rows) {
    std::vector<size_t> widths;
    for (const Row& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], row[i].size());
    }
    for (const Row& row : rows) {
        std::string line;
        for (size_t i = 0; i < row.size(); ++i)
            line += row[i] + std::string(widths[i] - row[i].size() + 2, ' ');
        line.erase(line.find_last_not_of(' ') + 1);
        std::puts(line.c_str());
    }
}

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : ", ") + word;
    return text;
}

void printEntries(const std::vector<CatalogueEntry>& entries) {
    std::vector<Row> rows{{"NAME", "KIND", "VALUE", "UNITS", "SECTION", "ALIASES"}};
    for (const auto& [section, variable, aliases] : entries) {
        const Reading reading = read(variable);
        rows.push_back({printable(variable.name), kindName(variable.handle.vari_type), printable(reading.text),
                        printable(reading.units), section->title, printable(joined(aliases))});
    }
    printTable(rows);
}

Json entriesJson(const std::vector<CatalogueEntry>& entries) {
    Json::Array list;
    for (const auto& [section, variable, aliases] : entries) {
        const Reading reading = read(variable);
        list.push_back(Json::Object{{"name", variable.name},
                                    {"kind", kindName(variable.handle.vari_type)},
                                    {"value", reading.value},
                                    {"text", reading.text},
                                    {"units", reading.units},
                                    {"section", section->title},
                                    {"aliases", Json::Array(aliases.begin(), aliases.end())}});
    }
    return list;
}

// ---- Values

Json readingJson(const Variable& variable, const Reading& reading) {
    return Json::Object{{"name", variable.name},
                        {"kind", kindName(variable.handle.vari_type)},
                        {"value", reading.value},
                        {"text", reading.text},
                        {"units", reading.units}};
}

std::string readingLine(const Variable& variable, const Reading& reading) {
    std::string line = variable.name + " " + reading.text;
    if (!reading.units.empty())
        line += " " + reading.units;
    return printable(line);
}

// Into the list, or printed where there is none.
void showReading(const Variable& variable, const Reading& reading, Json::Array* list) {
    if (list != nullptr)
        list->push_back(readingJson(variable, reading));
    else
        std::puts(readingLine(variable, reading).c_str());
}

// ---- Writing

bool equalIgnoringCase(const std::string& a, const std::string& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

std::optional<bool> logicalValue(const std::string& text, const StateNames& names) {
    // The variable's own words count first: a state may be called "off" where that is its true one.
    if (text == names.whenTrue || text == names.whenFalse) {
        if (names.whenTrue != names.whenFalse)
            return text == names.whenTrue;
    }
    const auto is = [&](const std::string& word) { return !word.empty() && equalIgnoringCase(text, word); };
    if (is(names.whenTrue) != is(names.whenFalse))
        return is(names.whenTrue);
    if (is("1") || is("true") || is("on"))
        return true;
    if (is("0") || is("false") || is("off"))
        return false;
    return std::nullopt;
}

double numberGiven(const std::string& name, const std::string& text) {
    double value = 0;
    const char* first = text.c_str() + (text.starts_with('+') ? 1 : 0);
    const char* last = text.c_str() + text.size();
    const auto [end, error] = std::from_chars(first, last, value);
    if (error != std::errc() || end != last || !std::isfinite(value))
        throw Failure(name + ": '" + text + "' is no number that it can hold; give one such as 12.5 or -3e4");
    return value;
}

double inOwnUnits(const Variable& variable, double value, std::string units) {
    std::string own = get_variable_units(variable.handle);
    if (units.empty() || units == own)
        return value;
    if (own.empty())
        throw Failure(variable.name + ": has no units; give the value alone");
    if (units_dbl_keyword_convrt(value, units.data(), &value, own.data()) != 0) {
        throw Failure(variable.name + ": " + units + " cannot be converted to " + own + "; 'ostrel units " + own +
                      "' lists what can");
    }
    return value;
}

int wholeNumber(const std::string& name, const std::string& text, double value, bool mayRound) {
    using Limits = std::numeric_limits<int>;
    const double rounded = std::round(value);
    if (rounded != value && !mayRound)
        throw Failure(name + ": '" + text + "' is no whole number, and it holds only those");
    if (rounded < Limits::min() || rounded > Limits::max()) {
        throw Failure(name + ": '" + text + "' is beyond what it can hold; from " + std::to_string(Limits::min()) +
                      " to " + std::to_string(Limits::max()));
    }
    return static_cast<int>(rounded);
}

template <class Record>
Record* writable(const Variable& variable) {
    return static_cast<Record*>(const_cast<void*>(variable.record));
}

void accept(const Variable& variable, const std::string& value, short result) {
    switch (result) {
        case OSTREL_STORED:
            return;
        case OSTREL_READ_ONLY:
            throw Failure(variable.name + ": you may read this store but not write to it");
        case OSTREL_NOT_WRITABLE:
            throw Failure(variable.name + ": the cell lets nobody write it");
        case OSTREL_OUTSIDE:
            throw Failure(variable.name + ": '" + value +
                          "' lies outside the least and the greatest value that the cell allows");
        default:
            throw Failure(variable.name + ": the store refused the value with code " + std::to_string(result));
    }
}

void writeNumber(const Variable& variable, const std::string& text, const std::string& units) {
    const double value = inOwnUnits(variable, numberGiven(variable.name, text), units);
    switch (variable.handle.vari_type) {
        case REAL_TYPE:
            accept(variable, text, ostrel_set_real(writable<REAL_VARIABLE>(variable), value));
            break;
        case INT_TYPE:
            accept(variable, text,
                   set_integer(writable<INTEGER_VARIABLE>(variable),
                               wholeNumber(variable.name, text, value, !units.empty())));
            break;
        case INT_ARRAY_TYPE:
            accept(variable, text,
                   ostrel_set_array_element(&variable.handle, wholeNumber(variable.name, text, value, !units.empty()),
                                            nullptr));
            break;
        default:
            accept(variable, text, ostrel_set_array_element(&variable.handle, value, nullptr));
    }
}

void writeLogical(const Variable& variable, const std::string& text) {
    const StateNames names = stateNames(variable);
    const auto value = logicalValue(text, names);
    if (!value) {
        const std::string own = names.whenTrue.empty() || names.whenFalse.empty()
                                    ? ""
                                    : "'" + names.whenFalse + "', '" + names.whenTrue + "', ";
        throw Failure(variable.name + ": '" + text + "' is none of its states; give " + own +
                      "0, 1, false, true, off or on");
    }
    if (variable.handle.vari_type == LOGI_TYPE)
        accept(variable, text, set_logical_variable(writable<LOGICAL_VARIABLE>(variable), *value, 0, nullptr));
    else
        accept(variable, text, ostrel_set_array_element(&variable.handle, *value, nullptr));
}

void writeText(const Variable& variable, std::string text) {
    const bool isElement = variable.handle.vari_type == STRING_ARRAY_TYPE;
    const size_t room = isElement ? sizeof(STRING_ARRAY_MEMBER::value) - 1 : sizeof(STRING_VARIABLE::value);
    if (text.size() > room) {
        throw Failure(variable.name + ": the text has " + std::to_string(text.size()) +
                      " characters; it holds at most " + std::to_string(room));
    }
    if (isElement)
        accept(variable, text, ostrel_set_array_element(&variable.handle, 0, text.c_str()));
    else
        accept(variable, text, set_string_variable(writable<STRING_VARIABLE>(variable), text.data()));
}

void refuseWhole(const Variable& variable) {
    if (variable.hasMembers()) {
        throw Failure(variable.name + ": is a " + kindName(variable.handle.vari_type) +
                      " variable that the cell computes, and cannot be set");
    }
    if (variable.isWhole())
        throw Failure(variable.name + ": is an array; name one element, such as " + parts(variable).front().fullName);
}

void write(const Variable& variable, const std::string& value, const std::string& units) {
    refuseWhole(variable);
    const SM_VARI_TYPE kind = variable.handle.vari_type;
    const bool isNumber = kind == REAL_TYPE || kind == INT_TYPE || kind == REAL_ARRAY_TYPE || kind == INT_ARRAY_TYPE;
    if (isNumber)
        return writeNumber(variable, value, units);
    if (!units.empty())
        throw Failure(variable.name + ": is no number and has no units; give the value alone");
    if (kind == LOGI_TYPE || kind == LOGI_ARRAY_TYPE)
        return writeLogical(variable, value);
    writeText(variable, value);
}

}  // namespace

int namesCommand(const std::string& pattern, bool json) {
    const std::vector<std::string> names = knownNames(pattern);
    if (json)
        std::puts(Json(Json::Array(names.begin(), names.end())).text().c_str());
    else
        for (const std::string& name : names)
            std::puts(printable(name).c_str());
    return 0;
}

int listCommand(const std::string& pattern, bool json) {
    const auto entries = catalogue(pattern);
    if (json)
        std::puts(entriesJson(entries).text().c_str());
    if (entries.empty() && !pattern.empty()) {
        const std::string wider = "*" + pattern + "*";
        throw Failure(
            pattern + ": no variable has a name like this; " +
            (catalogue(wider).empty() ? "'ostrel list' shows all" : "'ostrel list \"" + wider + "\"' finds some"));
    }
    if (!json)
        printEntries(entries);
    return 0;
}

int getCommand(const std::vector<std::string>& names, const std::string& units, bool json) {
    Json::Array list;
    std::vector<std::string> failures;
    for (const std::string& name : names) {
        try {
            for (const std::string& meant : namesMeant(name))
                for (const Variable& variable : parts(findVariable(meant)))
                    showReading(variable, read(variable, units), json ? &list : nullptr);
        } catch (const Failure& failure) {
            failures.push_back(failure.what());
        }
    }
    if (json)
        std::puts(Json(list).text().c_str());
    for (const std::string& failure : failures)
        complain(failure);
    return failures.empty() ? 0 : 1;
}

int setCommand(const std::string& name, const std::string& value, const std::string& units, bool json) {
    const Variable variable = findVariable(name);
    write(variable, value, units);
    const Reading reading = read(variable);
    std::puts(json ? readingJson(variable, reading).text().c_str() : readingLine(variable, reading).c_str());
    return 0;
}
