// What a cell file says, checked and ready to be put into a store.
#ifndef OSTREL_CELL_CELLMODEL_H
#define OSTREL_CELL_CELLMODEL_H

#include <ostrel/areas.h>
#include <ostrel/records.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace ostrelcell {

struct Expression {
    std::string text;  // empty: the value has none and is left to clients
    int line = 0;

    bool given() const { return !text.empty(); }
};

struct Units {
    std::string keyword;
    int code = 0;
};

struct LimitRule {
    bool exists = false;
    double value = 0;
    short status = 0;  // colour and blinking while it is violated
};

struct Limits {
    std::array<LimitRule, NUM_LIMIT_TYPES> rules;
    double deadband = 0;     // a limit stays violated until the value is this far back
    short normalStatus = 0;  // colour while none is violated

    bool any() const;
};

// What clients may write. The cell itself is not held to it.
struct WriteRule {
    bool writable = true;
    std::optional<double> least;
    std::optional<double> most;

    bool any() const { return !writable || least || most; }
    bool allows(double value) const;
};

// Which value of a logical is an alarm, and how each of its states looks.
struct LogicalStates {
    std::string trueText = "TRUE";
    std::string falseText = "FALSE";
    WHICH_STATE_IS_ALARM alarm = NO_ALARM;
    short alarmStatus = 0;
    short trueStatus = 0;
    short falseStatus = 0;

    bool coloured() const { return alarm != NO_ALARM || trueStatus != 0 || falseStatus != 0; }
};

// One member of a composition, property or emission variable.
struct Member {
    int index = 0;
    std::string name;
    Units units;
    double value = 0;
    unsigned short decimals = 3;
    Expression expr;
};

struct StatSettings {
    std::string source;
    int sourceLine = 0;
    int intervalS = 10;
    double confidence = 95;  // percent
};

struct ArrayShape {
    std::vector<unsigned short> sizes;
    std::vector<std::vector<std::string>> labels;  // per dimension; empty where it has none

    size_t elements() const;
    // The indexes of the element at `position` in row-major order.
    std::vector<int> indexes(size_t position) const;
};

struct Variable {
    SM_VARI_TYPE kind = UNDEFINED_VAR_TYPE;
    std::string name;  // without the point that the label of a variable with members ends in
    int line = 0;
    const ostrel_section* section = nullptr;

    Units units;
    std::string format;
    double value = 0;
    std::string text;
    Expression expr;
    std::vector<std::string> texts;  // a string with an expression shows one of these
    Limits limits;
    double rangeMin = 0;
    double rangeMax = 0;
    std::string event;
    std::string trueEvent;
    std::string falseEvent;
    LogicalStates states;
    WriteRule write;
    bool persist = false;  // starts with the value that it had at the end of the run before

    std::vector<Member> members;
    STREAM_COMP_TYPE fluid = GAS_STREAM;
    std::string composition;
    int compositionLine = 0;
    StatSettings stat;

    ArrayShape shape;
    std::vector<double> values;
    std::vector<std::string> elementTexts;

    std::string label() const;
};

struct Alias {
    std::string name;
    std::string target;
    std::optional<std::string> end;  // of the chain that starts with it; none where that is a circle
    bool primary = false;
    int line = 0;
};

// A full name resolved: a variable, and which of its members or elements (-1 for a scalar).
struct ValueRef {
    int variable = -1;
    int part = -1;

    bool operator==(const ValueRef&) const = default;
};

struct CellModel {
    std::string file;
    std::string name;
    int scan_ms = 100;
    std::string log;
    std::optional<std::string> audit;  // file of refused and accepted writes; empty: none
    std::string kept;                  // file of the values that persist
    int logMegabytes = 64;             // that the log grows to before another file is begun; 0: without end
    int auditMegabytes = 256;
    int mode = 0600;
    std::string group;
    uint64_t seed = 0;
    std::string latchReset;  // the logical that clears all latches when it is set
    int latchResetLine = 0;
    std::vector<std::string> events;
    std::vector<Variable> variables;
    std::vector<Alias> aliases;

    std::unordered_map<std::string, int> variableByLabel;
    std::unordered_map<std::string, int> aliasByName;

    // The full name of a value, as find_variable() takes it.
    std::string fullName(ValueRef ref) const;
};

bool hasMembers(SM_VARI_TYPE kind);
bool is_array(SM_VARI_TYPE kind);
// Strings and arrays of strings have texts in the place of numbers.
bool isText(SM_VARI_TYPE kind);

// The word for the kind in a cell file, such as "real_array"; and back, UNDEFINED_VAR_TYPE for no such word.
const char* kindWord(SM_VARI_TYPE kind);
SM_VARI_TYPE kindOfWord(const std::string& word);
// All of them, in the order in which they are explained to people.
const std::vector<std::string>& kindWords();

}  // namespace ostrelcell

#endif
