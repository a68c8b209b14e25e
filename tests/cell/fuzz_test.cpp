// Files that nobody would write: whatever stands in one, it is refused with its reasons or taken whole.
//
// Each input comes from a number, so one that went wrong is found again by its number and kept below. CELL_FUZZ_RUNS in
// the environment asks for more of them, CELL_FUZZ_FIRST for others.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>

#include "cellfile.h"
#include "paths.h"

using namespace ostrelcell;

namespace {

using Random = std::mt19937_64;

std::string readFile(const std::string& file) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

size_t below(Random& random, size_t bound) {
    return bound == 0 ? 0 : static_cast<size_t>(random() % bound);
}

// One of everything that a cell file can say, in few lines, so that a change hits something.
const std::string smallCell = R"cell([cell]
name = "fuzz"
scan_ms = 50
mode = "0600"
latch_reset = "L"
events = ["GO"]
kept = "k"
audit = ""
[real.A]
units = "bar"
format = "%.2f"
value = 1.5
min = 0
max = 5
persist = true
low_alarm = 1
high_abort = { value = 4, colour = "red", blink = true }
deadband = 0.1
age = 3
range = [0, 10]
[real.B]
expr = "lag(A, 2) + noise(0.1) + ARR:1 + ARR:TWO + S.AV + prev(C) + (L ? 1 : ramp(2, 1))"
[integer.C]
expr = "max(1, table(A, 0, 1, 2, 3), hysteresis(B, 2, 1), held(alarm(A) > 0))"
writable = false
[logical.L]
alarm = true
true_state = "ON"
true_event = "GO"
[string.T]
texts = ["a", "b"]
expr = "C"
[real_array.ARR]
size = [3]
labels = ["ONE", "TWO", "THREE"]
value = [1, 2, 3]
[string_array.W]
size = [2, 2]
value = "x"
[stat.S]
source = "A"
interval = 5
[composition.GAS]
fluid = "gas"
N2 = 78.1
O2 = { expr = "100 - GAS.N2", units = "%", decimals = 2 }
[property.P]
composition = "GAS"
[emission.E]
FUEL_MF_MEA = "B"
[alias]
N = { target = "A", primary = true }
M = "ARR:1"
)cell";

const char* const pieces[] = {"[",       "]",     "{",
                              "}",       "=",     "\"",
                              "\"\"\"",  "'",     ",",
                              ".",       ":",     "#",
                              "\n",      "\r",    "(",
                              ")",       "-",     "?",
                              "1e999",   "-1",    "0",
                              "nan",     "inf",   "99999999",
                              "true",    "[[",    "]]",
                              "\\u0000", "\\",    "\x80",
                              "\xFF",    "1:2:3", "expr = \"",
                              "A",       "t",     "prev(",
                              "table(",  "size",  "value",
                              "[real.",  "%n",    "%*s",
                              "1/0",     "B.C",   "^",
                              "ARR:",    "GAS.",  "min = ",
                              "max = ",  "++",    "9223372036854775807"};

void change(std::string& text, Random& random) {
    const size_t at = below(random, text.size() + 1);
    const size_t length = std::min(below(random, 40), text.size() - at);
    switch (random() % 7) {
        case 0:
            text.erase(at, length);
            break;
        case 1:
            text.insert(at, pieces[below(random, std::size(pieces))]);
            break;
        case 2:
            text.replace(at, std::min<size_t>(length, 4), pieces[below(random, std::size(pieces))]);
            break;
        case 3:
            text.insert(below(random, text.size() + 1), text.substr(at, length));
            break;
        case 4:
            if (at < text.size())
                text[at] = static_cast<char>(random());
            break;
        case 5:
            text.resize(at);
            break;
        default:
            text.insert(at, std::string(1 + below(random, 200), "([{\"-!9"[random() % 7]));
    }
}

std::string randomBytes(Random& random) {
    std::string text(below(random, 400), '\0');
    for (char& byte : text)
        byte = static_cast<char>(random());
    return text;
}

// Some hundred bytes of the demo around a place, with the head that makes them a cell.
std::string pieceOf(const std::string& demo, Random& random) {
    const size_t from = demo.find("\n[", below(random, demo.size()));
    return "[cell]\nname = \"x\"\n" + (from == std::string::npos ? "" : demo.substr(from, 600 + below(random, 900)));
}

std::string input(uint64_t number, const std::string& demo) {
    Random random(number);
    if (number % 16 == 0)
        return randomBytes(random);
    std::string text = number % 4 == 1 ? pieceOf(demo, random) : smallCell;
    for (size_t changes = 1 + below(random, 8); changes > 0; --changes)
        change(text, random);
    return text;
}

// What a cell must be that is served: nothing in it may lead anywhere else.
void expectWhole(const CellModel& model, Simulation& simulation) {
    EXPECT_FALSE(model.name.empty());
    for (const Variable& variable : model.variables) {
        EXPECT_NE(variable.kind, UNDEFINED_VAR_TYPE);
        ASSERT_NE(variable.section, nullptr);
        EXPECT_EQ(variable.section->kind, variable.kind);
        EXPECT_EQ(model.variableByLabel.count(variable.label()), 1U);
    }
    for (const auto& output : simulation.outputs())
        ASSERT_LT(static_cast<size_t>(output.ref.variable), model.variables.size());
    for (int count = 0; count < 2; ++count)
        simulation.run(count, 1, [](size_t, double result) { return result; });
}

bool isToldByLine(const std::string& reasons) {
    std::istringstream stream(reasons);
    for (std::string line; std::getline(stream, line);)
        if (line.rfind("fuzz.toml:", 0) == 0)
            return true;
    return false;
}

// True where the text was taken.
bool take(const std::string& text) {
    CellModel model;
    Simulation simulation;
    Diagnostics diagnostics("fuzz.toml");
    readCellText(text, model, simulation, diagnostics);
    if (diagnostics.empty())
        expectWhole(model, simulation);
    else
        EXPECT_TRUE(isToldByLine(diagnostics.text())) << diagnostics.text();
    return diagnostics.empty();
}

uint64_t fromEnvironment(const char* name, uint64_t otherwise) {
    const char* text = std::getenv(name);
    return text != nullptr ? std::strtoull(text, nullptr, 10) : otherwise;
}

TEST(CellFuzz, TakesTheCellThatItStartsFrom) {
    EXPECT_TRUE(take(smallCell));
}

TEST(CellFuzz, RefusesOrTakesWhole) {
    const std::string demo = readFile(std::string(paths::sources) + "/demo-cell/cell.toml");
    ASSERT_FALSE(demo.empty());
    const uint64_t first = fromEnvironment("CELL_FUZZ_FIRST", 1);
    const uint64_t runs = fromEnvironment("CELL_FUZZ_RUNS", 20'000);
    uint64_t taken = 0;
    for (uint64_t number = first; number < first + runs && !testing::Test::HasFailure(); ++number) {
        SCOPED_TRACE("input " + std::to_string(number));
        taken += take(input(number, demo)) ? 1 : 0;
    }
    EXPECT_GT(taken, 0U) << "some changes leave a good file";
    EXPECT_LT(taken, runs);
}

class CellFuzzFound : public testing::TestWithParam<uint64_t> {};

TEST_P(CellFuzzFound, StaysRepaired) {
    take(input(GetParam(), readFile(std::string(paths::sources) + "/demo-cell/cell.toml")));
}

// Letters outside of quotes: what the parser makes of them is not defined in every release.
INSTANTIATE_TEST_SUITE_P(, CellFuzzFound, testing::Values(17'450, 22'378));

}  // namespace
