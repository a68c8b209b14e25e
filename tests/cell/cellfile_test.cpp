// Every mistake in a cell file is told with its line, all of them at once.
#include "cellfile.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <vector>

#include "celltest.h"
#include "names.h"
#include "paths.h"

using namespace ostrelcell;

namespace {

const std::string head = "[cell]\nname = \"test\"\n";  // two lines

struct Reading {
    CellModel model;
    Simulation simulation;
    Diagnostics diagnostics{"cell.toml"};

    explicit Reading(const std::string& text) { readCellText(text, model, simulation, diagnostics); }
};

// The reasons for the lines behind the head, which count from 1 here.
std::string faults(const std::string& lines) {
    return Reading(lines.find("[cell]") == std::string::npos ? head + lines : lines).diagnostics.text();
}

std::vector<std::string> splitLines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

struct Mistake {
    const char* name;
    std::string text;
    std::string reasons;
};

class CellFileMistake : public testing::TestWithParam<Mistake> {};

TEST_P(CellFileMistake, IsToldWithItsLine) {
    EXPECT_EQ(faults(GetParam().text), GetParam().reasons);
}

const Mistake mistakes[] = {
    {"unknown_key", "[real.A]\nunit = \"bar\"\n", "cell.toml:4: real.A: unknown key \"unit\"; did you mean \"units\"?"},
    {"other_spelling", "[logical.A]\nalarm = true\ncolor = \"red\"\n",
     "cell.toml:5: logical.A: unknown key \"color\"; did you mean \"colour\"?"},
    {"unknown_table", "[reel.A]\n", "cell.toml:3: unknown table \"reel\"; did you mean \"real\"?"},
    {"wrong_type", "[real.A]\nvalue = \"12\"\n", "cell.toml:4: real.A: value is a text; it must be a number"},
    {"whole_number", "[integer.A]\nvalue = 1.5\n",
     "cell.toml:4: integer.A: value is a number; it must be a whole number"},
    {"integer_too_large", "[integer.A]\nvalue = 3000000000\n",
     "cell.toml:4: integer.A: value is 3000000000; it must lie between -2147483648 and 2147483647"},
    {"logical_value", "[logical.A]\nvalue = 1\n",
     "cell.toml:4: logical.A: value is a whole number; it must be true or false"},
    {"not_finite", "[real.A]\nvalue = nan\n", "cell.toml:4: real.A: value must be a finite number"},
    {"min_above_max", "[real.A]\nmin = 5\nmax = 2\n", "cell.toml:4: real.A: min 5 lies above max 2"},
    {"starts_below_min", "[real.A]\nvalue = 1\nmin = 1.5\n", "cell.toml:4: real.A: value 1 is below min 1.5"},
    {"starts_above_max", "[integer_array.A]\nsize = 2\nvalue = [1, 9]\nmax = 5\n",
     "cell.toml:5: integer_array.A: value 9 is above max 5"},
    {"min_no_number", "[real.A]\nmin = \"0\"\n", "cell.toml:4: real.A: min is a text; it must be a number"},
    {"min_half", "[integer.A]\nmin = 0.5\nvalue = 1\n",
     "cell.toml:4: integer.A: min must be a whole number, as the variable's values are"},
    {"min_of_logical", "[logical.A]\nmin = 0\n",
     "cell.toml:4: logical.A: min is for numbers; a logical variable has no use for it"},
    {"max_of_text", "[string.A]\nmax = 5\n",
     "cell.toml:4: string.A: max is for numbers; a string variable has no use for it"},
    {"writable_word", "[real.A]\nwritable = \"no\"\n",
     "cell.toml:4: real.A: writable is a text; it must be true or false"},
    {"writable_gas", "[composition.A]\nwritable = true\n",
     "cell.toml:4: composition.A: writable is for what clients can write; a composition variable has no use for it"},
    {"persist_stat", "[real.X]\n[stat.A]\nsource = \"X\"\npersist = true\n",
     "cell.toml:6: stat.A: persist is for what clients can write; a stat variable has no use for it"},
    {"stray_letter", "[real.A]\nunits \xC2\xB5 = 5\n",
     "cell.toml:4: a character that is not ASCII stands outside of quotes and comments"},
    {"letter_behind_a_value", "[real.A]\nvalue = 5 \xC3\xA4\n",
     "cell.toml:4: a character that is not ASCII stands outside of quotes and comments"},
    {"letter_behind_a_text", "[string.A]\nvalue = \"\"\"\n\\\"a\"\"\"\"\" \xC3\xA4\n",
     "cell.toml:5: a character that is not ASCII stands outside of quotes and comments"},
    {"bad_name", "[real.\"A-B\"]\n",
     "cell.toml:3: real.A-B: \"A-B\" is no name; use letters, digits and underscores, and no digit first"},
    {"digit_first", "[real.1A]\n",
     "cell.toml:3: real.1A: \"1A\" is no name; use letters, digits and underscores, and no digit first"},
    {"long_name", "[stat." + std::string(79, 'X') + "]\nsource = \"A\"\n[real.A]\n",
     "cell.toml:3: stat." + std::string(79, 'X') + ": \"" + std::string(79, 'X') + "\" is longer than 78 characters"},
    {"reserved_name", "[real.t]\n",
     "cell.toml:3: real.t: \"t\" has a meaning of its own in expressions; choose another name"},
    {"no_table", "[real]\nA = 5\n", "cell.toml:4: real.A must be a table, as in [real.A]"},
    {"twice", "[real.A]\n[integer.A]\n", "cell.toml:4: integer.A: the name stands already in line 3 as real.A"},
    {"unknown_units", "[real.A]\nunits = \"furlong\"\n", "cell.toml:4: real.A: unknown units \"furlong\""},
    {"units_too_long", "[real.A]\nunits = \"abcdefghijklmnop\"\n",
     "cell.toml:4: real.A: units has 16 characters; at most 15 are kept"},
    {"format_kind", "[integer.A]\nformat = \"%.2f\"\n",
     "cell.toml:4: integer.A: format \"%.2f\" does not fit the kind; its conversion must be one of \"diuxXo\""},
    {"format_string", "[real.A]\nformat = \"%s\"\n",
     "cell.toml:4: real.A: format \"%s\" does not fit the kind; its conversion must be one of \"eEfFgGaA\""},
    {"format_two", "[real.A]\nformat = \"%f %f\"\n",
     "cell.toml:4: real.A: format \"%f %f\" has more than one conversion"},
    {"format_none", "[real.A]\nformat = \"bar\"\n",
     "cell.toml:4: real.A: format \"bar\" has no conversion; write \"%.2f\" for instance"},
    {"format_long", "[real.A]\nformat = \"%10.3f bar\"\n",
     "cell.toml:4: real.A: format \"%10.3f bar\" is longer than 7 characters"},
    {"format_wide", "[real.A]\nformat = \"%999f\"\n",
     "cell.toml:4: real.A: format \"%999f\" asks for more than 99 characters"},
    {"format_length_modifier", "[real.A]\nformat = \"%Lf\"\n",
     "cell.toml:4: real.A: format \"%Lf\" does not fit the kind; its conversion must be one of \"eEfFgGaA\""},
    {"unknown_section", "[real.A]\nsection = \"gu-reel\"\n",
     "cell.toml:4: real.A: unknown section \"gu-reel\"; for real use one of gu-real, analog-input, frequency-input, "
     "counter-input, performance-real, constant-real, fuel-real, control-real"},
    {"section_kind", "[string.A]\nsection = \"gu-real\"\n",
     "cell.toml:4: string.A: section \"gu-real\" holds no string; use one of gu-string, constant-string, fuel-string, "
     "control-string, display-string"},
    {"text_too_long", "[string.A]\nvalue = \"" + std::string(80, 'x') + "\"\n",
     "cell.toml:4: string.A: value has 80 characters; at most 79 are kept"},
    {"limits_out_of_order", "[real.A]\nhigh_abort = 10\nhigh_alarm = 20\n",
     "cell.toml:4: real.A: high_abort is below high_alarm; limits must rise from low_emergency to high_emergency"},
    {"low_above_high", "[real.A]\nlow_alarm = 10\nhigh_alarm = 5\n",
     "cell.toml:5: real.A: high_alarm is below low_alarm; limits must rise from low_emergency to high_emergency"},
    {"limit_without_value", "[real.A]\nhigh_alarm = { colour = \"red\" }\n",
     "cell.toml:4: real.A.high_alarm: a limit needs a value"},
    {"limit_key", "[real.A]\nhigh_alarm = { value = 5, blinks = true }\n",
     "cell.toml:4: real.A.high_alarm: unknown key \"blinks\"; did you mean \"blink\"?"},
    {"unknown_colour", "[real.A]\nhigh_alarm = { value = 5, colour = \"orange\" }\n",
     "cell.toml:4: real.A.high_alarm: unknown colour \"orange\"; use one of none, blue, green, cyan, red, magenta, "
     "yellow, white"},
    {"alarm_state", "[logical.A]\nalarm = \"on\"\n",
     "cell.toml:4: logical.A: alarm must be true, false or \"none\": the state that is an alarm"},
    {"colour_without_alarm", "[logical.A]\ncolour = \"red\"\n",
     "cell.toml:4: logical.A: colour and blink are those of the alarm; say with alarm which state it is, or use "
     "true_colour and false_colour"},
    {"age", "[real.A]\nage = 0\n", "cell.toml:4: real.A: age must be more than 0 seconds"},
    {"range", "[real.A]\nrange = [5, 1]\n", "cell.toml:4: real.A: range must rise from its first number to its second"},
    {"range_shape", "[real.A]\nrange = 5\n",
     "cell.toml:4: real.A: range must be a list of two numbers, as in [0, 100]"},
    {"no_name", "[cell]\nscan_ms = 50\n", "cell.toml:1: cell: a cell needs a name"},
    {"scan_too_fast", "[cell]\nname = \"x\"\nscan_ms = 5\n",
     "cell.toml:3: cell: scan_ms is 5; it must lie between 10 and 1000"},
    {"mode", "[cell]\nname = \"x\"\nmode = \"0777\"\n",
     "cell.toml:3: cell: mode must let the owner read and write, and nobody execute"},
    {"mode_text", "[cell]\nname = \"x\"\nmode = \"rw\"\n",
     "cell.toml:3: cell: mode must be octal digits in quotes, as in \"0660\""},
    {"group", "[cell]\nname = \"x\"\ngroup = \"no-such-group\"\n",
     "cell.toml:3: cell: there is no group \"no-such-group\" on this machine"},
    {"latch_reset", "[cell]\nname = \"x\"\nlatch_reset = \"A\"\n[real.A]\n",
     "cell.toml:3: cell: latch_reset: \"A\" is no logical"},
    {"alias_to_nothing", "[real.SPEED]\n[alias]\nN = \"SPED\"\n",
     "cell.toml:5: alias.N: there is no variable \"SPED\"; did you mean \"SPEED\"?"},
    {"alias_cycle", "[alias]\nA = \"B\"\nB = \"C\"\nC = \"A\"\n",
     "cell.toml:4: alias.A: aliases go in a circle: A -> B -> C -> A"},
    {"alias_to_itself", "[alias]\nA = \"A\"\n", "cell.toml:4: alias.A: aliases go in a circle: A -> A"},
    {"alias_as_variable", "[real.A]\n[real.B]\n[alias]\nA = \"B\"\n",
     "cell.toml:6: alias.A: the name stands already in line 3"},
    {"alias_to_array", "[real_array.A]\nsize = 2\n[alias]\nB = \"A\"\n",
     "cell.toml:6: alias.B: \"A\" takes 1 index, as in A:0"},
    {"stat_without_source", "[stat.S]\n",
     "cell.toml:3: stat.S: a stat needs a source: the name of the value that it watches"},
    {"stat_source", "[stat.S]\nsource = \"A\"\n", "cell.toml:4: stat.S: source: there is no variable \"A\""},
    {"stat_of_text", "[stat.S]\nsource = \"A\"\n[string.A]\n",
     "cell.toml:4: stat.S: source: \"A\" is a text; statistics need numbers"},
    {"unknown_member", "[composition.AIR]\nN3 = 5\n",
     "cell.toml:4: composition.AIR: unknown key \"N3\"; did you mean \"N2\"?"},
    {"fluid", "[composition.AIR]\nfluid = \"solid\"\n",
     "cell.toml:4: composition.AIR: fluid must be \"gas\" or \"liquid\""},
    {"unknown_composition", "[composition.AIR]\n[property.P]\ncomposition = \"AIRS\"\n",
     "cell.toml:5: property.P: there is no composition \"AIRS\"; did you mean \"AIR\"?"},
    {"array_without_size", "[real_array.A]\n",
     "cell.toml:3: real_array.A: an array needs a size, as in size = 6 or size = [2, 3]"},
    {"four_dimensions", "[real_array.A]\nsize = [2, 2, 2, 2]\n",
     "cell.toml:4: real_array.A: an array has 1 to 3 dimensions, not 4"},
    {"size_too_large", "[real_array.A]\nsize = 2501\n",
     "cell.toml:4: real_array.A: size must be whole numbers between 1 and 2500"},
    {"too_many_labels", "[real_array.A]\nsize = 1\nlabels = [\"X\", \"Y\"]\n",
     "cell.toml:5: real_array.A: there are 2 labels for 1 elements"},
    {"too_few_labels", "[real_array.A]\nsize = 3\nlabels = [\"X\", \"Y\"]\n",
     "cell.toml:5: real_array.A: there are 2 labels for 3 elements"},
    {"too_few_labels_of_a_dimension", "[real_array.A]\nsize = [2, 3]\nlabels = [[], [\"X\"]]\n",
     "cell.toml:5: real_array.A: there are 1 labels for 3 elements"},
    {"label_twice", "[real_array.A]\nsize = 2\nlabels = [\"X\", \"X\"]\n",
     "cell.toml:5: real_array.A: label \"X\" stands twice"},
    {"label_number", "[real_array.A]\nsize = 1\nlabels = [\"5\"]\n",
     "cell.toml:5: real_array.A: label \"5\" reads as a number; an index is a number or a label"},
    {"value_count", "[integer_array.A]\nsize = [2, 2]\nvalue = [1, 2, 3]\n",
     "cell.toml:5: integer_array.A: value has 3 elements; size asks for 4"},
    {"texts_without_expr", "[string.A]\ntexts = [\"x\"]\n",
     "cell.toml:4: string.A: texts are chosen by expr; a string with texts needs expr"},
    {"expr_without_texts", "[string.A]\nexpr = \"1\"\n",
     "cell.toml:4: string.A: expr chooses one of texts; a string with expr needs texts"},
    {"expr_number", "[real.A]\nexpr = 5\n",
     "cell.toml:4: real.A: expr is a whole number; it must be an expression in quotes"},
    {"expr_unknown", "[real.A]\nexpr = \"2 * SPED\"\n[real.SPEED]\n",
     "cell.toml:4: real.A: expr: there is no variable \"SPED\"; did you mean \"SPEED\"?"},
    {"expr_function", "[real.A]\nexpr = \"lagg(1, 2)\"\n",
     "cell.toml:4: real.A: expr: there is no function lagg(); did you mean \"lag\"?"},
    {"expr_arguments", "[real.A]\nexpr = \"lag(1)\"\n",
     "cell.toml:4: real.A: expr: lag() takes 2 to 3 arguments, not 1"},
    {"expr_no_arguments", "[real.A]\nexpr = \"noise()\"\n",
     "cell.toml:4: real.A: expr: noise() takes 1 argument, not 0"},
    {"expr_end", "[real.A]\nexpr = \"1 +\"\n", "cell.toml:4: real.A: expr: it ends too early"},
    {"expr_bracket", "[real.A]\nexpr = \"(1 + 2\"\n", "cell.toml:4: real.A: expr: a bracket is not closed"},
    {"expr_equals", "[real.A]\nexpr = \"1 = 2\"\n",
     "cell.toml:4: real.A: expr: a single \"=\"; equality is written \"==\""},
    {"expr_comma", "[real.A]\nexpr = \"1,5\"\n",
     "cell.toml:4: real.A: expr: unexpected comma; decimals are written with a point"},
    {"expr_text", "[real.A]\nexpr = \"S + 1\"\n[string.S]\n",
     "cell.toml:4: real.A: expr: \"S\" is a text; expressions compute with numbers"},
    {"expr_juxtaposed", "[real.A]\nexpr = \"2 3\"\n",
     "cell.toml:4: real.A: expr: two values stand together without an operator"},
    {"expr_index", "[real.A]\nexpr = \"B:7\"\n[real_array.B]\nsize = 3\n",
     "cell.toml:4: real.A: expr: index 7 of B is out of range; it ends at 2"},
    {"expr_cycle", "[real.A]\nexpr = \"B\"\n[real.B]\nexpr = \"C\"\n[real.C]\nexpr = \"A + 1\"\n",
     "cell.toml:4: real.A: expr: expressions go in a circle: A -> B -> C -> A; prev(NAME) takes the value of the last "
     "scan"},
};

INSTANTIATE_TEST_SUITE_P(Each, CellFileMistake, testing::ValuesIn(mistakes),
                         [](const auto& mistake) { return mistake.param.name; });

TEST(CellFile, TellsASyntaxErrorWithItsLine) {
    const std::string reasons = faults("[real.A]\nvalue = = 1\n[real.B]\nunit = 5\n");
    EXPECT_EQ(reasons.rfind("cell.toml:4: ", 0), 0U) << reasons;
    EXPECT_EQ(reasons.find('\n'), std::string::npos) << reasons;
}

TEST(CellFile, TellsATableThatStandsTwice) {
    const std::string reasons = faults("[real.A]\n[real.A]\n");
    EXPECT_EQ(reasons.rfind("cell.toml:4: ", 0), 0U) << reasons;
}

TEST(CellFile, TellsAllMistakesInTheOrderOfTheLines) {
    EXPECT_EQ(faults("[alias]\nX = \"NOTHING\"\n\n[real.A]\nunits = \"furlong\"\nexpr = \"B +\"\n\n[integer.B]\n"
                     "format = \"%f\"\nvalue = true\nhigh_alarm = 1\nhigh_abort = 0\n"),
              "cell.toml:4: alias.X: there is no variable \"NOTHING\"\n"
              "cell.toml:7: real.A: unknown units \"furlong\"\n"
              "cell.toml:8: real.A: expr: it ends too early\n"
              "cell.toml:11: integer.B: format \"%f\" does not fit the kind; its conversion must be one of \"diuxXo\"\n"
              "cell.toml:12: integer.B: value is true or false; it must be a whole number\n"
              "cell.toml:14: integer.B: high_abort is below high_alarm; limits must rise from low_emergency to "
              "high_emergency");
}

TEST(CellFile, TellsTheMistakeOfAnArraysExpressionOnce) {
    EXPECT_EQ(faults("[real_array.A]\nsize = 100\nexpr = \"NOTHING + i\"\n"),
              "cell.toml:5: real_array.A: expr: there is no variable \"NOTHING\"");
}

TEST(CellFile, RefusesMoreVariablesThanTheSectionHolds) {
    std::string text;
    for (int number = 0; number < 5; ++number)
        text += "[integer.N" + std::to_string(number) + "]\nsection = \"control-integer\"\n";
    EXPECT_EQ(faults(text), "cell.toml:11: integer.N4: section \"control-integer\" is full; it has room for 4");
}

TEST(CellFile, KeepsTheOrderOfTheFile) {
    const Reading reading(head + "[real.Z]\n[integer.M]\n[real.A]\n");
    ASSERT_EQ(reading.model.variables.size(), 3U);
    EXPECT_EQ(reading.model.variables[0].name, "Z");
    EXPECT_EQ(reading.model.variables[1].name, "M");
    EXPECT_EQ(reading.model.variables[2].name, "A");
}

TEST(CellFile, AcceptsEverySectionForItsKind) {
    int count = 0;
    const ostrel_section* sections = ostrel_sections(&count);
    ASSERT_GT(count, 30);
    for (const ostrel_section* section = sections; section != sections + count; ++section) {
        if (section->kind == ALIAS_TYPE)
            continue;
        std::string text = "[" + std::string(kindWord(section->kind)) + ".X]\nsection = \"" + section->name + "\"\n";
        if (is_array(section->kind))
            text += "size = 2\n";
        if (section->kind == STAT_TYPE)
            text += "source = \"S\"\n[real.S]\n";
        const Reading reading(head + text);
        EXPECT_EQ(reading.diagnostics.text(), "") << section->name;
        ASSERT_FALSE(reading.model.variables.empty());
        EXPECT_EQ(reading.model.variables.front().section, section) << section->name;
    }
}

TEST(CellFile, GivesDefaults) {
    const Reading reading(head + "[real.A]\n[logical.L]\nalarm = true\n[stat.S]\nsource = \"A\"\n");
    EXPECT_EQ(reading.diagnostics.text(), "");
    EXPECT_EQ(reading.model.scan_ms, 100);
    EXPECT_EQ(reading.model.mode, 0600);
    const Variable& real = reading.model.variables[0];
    EXPECT_EQ(real.format, "%.2f");
    EXPECT_EQ(real.value, 0);
    EXPECT_EQ(std::string(real.section->name), "gu-real");
    EXPECT_EQ(real.rangeMax, 100);
    EXPECT_FALSE(real.limits.any());
    const Variable& logical = reading.model.variables[1];
    EXPECT_EQ(logical.states.trueText, "TRUE");
    EXPECT_EQ(logical.states.alarmStatus, 1024);
    EXPECT_EQ(reading.model.variables[2].stat.intervalS, 10);
}

TEST(CellFile, ColoursAlarmsYellowAbortsRedAndLetsEmergenciesBlink) {
    const Reading reading(head +
                          "[real.A]\nhigh_alarm = 1\nhigh_abort = 2\nhigh_emergency = 3\nage = 4\n"
                          "low_alarm = { value = 0, colour = \"blue\", blink = true }\n");
    const auto& rules = reading.model.variables.front().limits.rules;
    EXPECT_EQ(rules[HIGH_ALARM_LIMIT].status, 1536);
    EXPECT_EQ(rules[HIGH_ABORT_LIMIT].status, 1024);
    EXPECT_EQ(rules[HIGH_EMERGENCY_LIMIT].status, 1025);
    EXPECT_EQ(rules[VARIABLE_AGE_LIMIT].status, 768);
    EXPECT_EQ(rules[LOW_ALARM_LIMIT].status, 257);
}

TEST(CellFile, TakesWhatIsJustWithinItsBounds) {
    EXPECT_EQ(faults("[real.A]\nlow_abort = 1\nlow_alarm = 1\nhigh_alarm = 1\nhigh_abort = 1\n"
                     "[real_array.B]\nsize = [1, 2500]\n"),
              "");
}

TEST(CellFile, TakesAVariableAndAStatOfTheSameName) {
    EXPECT_EQ(faults("[real.A]\n[stat.A]\nsource = \"A\"\n[real.B]\nexpr = \"A + A.AV\"\n"), "");
}

TEST(CellFile, SaysThatAFileIsMissing) {
    CellModel model;
    Simulation simulation;
    Diagnostics diagnostics("/nowhere/cell.toml");
    readCellFile("/nowhere/cell.toml", model, simulation, diagnostics);
    EXPECT_EQ(diagnostics.text(), "/nowhere/cell.toml: cannot be read: No such file or directory");
}

TEST(CellFile, SaysThatAFolderIsNoFile) {
    CellModel model;
    Simulation simulation;
    Diagnostics diagnostics("/tmp");
    readCellFile("/tmp", model, simulation, diagnostics);
    EXPECT_EQ(diagnostics.text(), "/tmp: is a directory; name a cell file");
}

TEST(CellFile, TakesEveryLetterInQuotesAndComments) {
    EXPECT_EQ(faults("[string.A] # \xC3\xA4\nvalue = \"\xC2\xB5 \\\" \xC2\xB5\"\n"
                     "[string.B]\nvalue = '\xC3\xA4'\n"
                     "[string.C]\nvalue = \"\"\"\n\"\xC3\xA4\"\n\"\"\"\n"
                     "[string.D]\nvalue = \"\" # \xC3\xA4\n"),
              "");
}

TEST(CellFile, NothingIsRightWithAnEmptyFile) {
    EXPECT_EQ(Reading("").diagnostics.text(), "cell.toml:1: there is no table [cell] with the name of the cell");
}

// The demo is cut after each of its lines: whatever comes of it, it must be told and not crash.
TEST(CellFile, SurvivesTheDemoCutAnywhere) {
    std::ifstream stream(std::string(paths::sources) + "/demo-cell/cell.toml");
    std::string text;
    int lines = 0;
    for (std::string line; std::getline(stream, line) && lines < 150; ++lines) {
        text += line + "\n";
        const Reading reading(text);
        for (const std::string& reason : splitLines(reading.diagnostics.text()))
            EXPECT_EQ(reason.rfind("cell.toml:", 0), 0U) << reason;
    }
    EXPECT_EQ(lines, 150);
}

TEST(CellFile, FindsNoMistakeInTheDemo) {
    CellModel model;
    Simulation simulation;
    Diagnostics diagnostics(std::string(paths::sources) + "/demo-cell/cell.toml");
    readCellFile(std::string(paths::sources) + "/demo-cell/cell.toml", model, simulation, diagnostics);
    EXPECT_EQ(diagnostics.text(), "");
    EXPECT_GE(model.variables.size(), 150U);
}

}  // namespace
