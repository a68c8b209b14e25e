// What an expression can say.
#include "expression.h"

#include <gtest/gtest.h>

#include <cmath>

#include "simulated.h"

namespace {

TEST(Expression, ComputesWithTheUsualRules) {
    EXPECT_DOUBLE_EQ(valueOf("1 + 2 * 3"), 7);
    EXPECT_DOUBLE_EQ(valueOf("(1 + 2) * 3 / 2"), 4.5);
    EXPECT_DOUBLE_EQ(valueOf("2 ^ 3 ^ 2"), 512);
    EXPECT_DOUBLE_EQ(valueOf("-2 + 1.5e1 - .5"), 12.5);
    EXPECT_DOUBLE_EQ(valueOf("1e-2 * 2E+3"), 20);
    EXPECT_DOUBLE_EQ(valueOf("pi"), M_PI);
}

TEST(Expression, Compares) {
    EXPECT_EQ(valueOf("1 < 2"), 1);
    EXPECT_EQ(valueOf("2 <= 1"), 0);
    EXPECT_EQ(valueOf("2 == 2 && 1 != 2"), 1);
    EXPECT_EQ(valueOf("0 || 3 > 2"), 1);
    EXPECT_EQ(valueOf("!(1 < 2)"), 0);
    EXPECT_EQ(valueOf("!0"), 1);
    EXPECT_EQ(valueOf("true && !false"), 1);
    EXPECT_EQ(valueOf("2 > 1 ? 10 : 20"), 10);
    EXPECT_EQ(valueOf("0 ? 1 : 0 ? 2 : 3"), 3);
}

TEST(Expression, KnowsTheMathematicalFunctions) {
    EXPECT_DOUBLE_EQ(valueOf("sin(pi / 2) + cos(0) + tan(0)"), 2);
    EXPECT_DOUBLE_EQ(valueOf("asin(1) + acos(1) + atan(0)"), M_PI / 2);
    EXPECT_DOUBLE_EQ(valueOf("atan2(1, 1)"), M_PI / 4);
    EXPECT_DOUBLE_EQ(valueOf("sinh(0) + cosh(0) + tanh(0)"), 1);
    EXPECT_DOUBLE_EQ(valueOf("exp(1)"), M_E);
    EXPECT_DOUBLE_EQ(valueOf("ln(exp(2)) + log10(1000) + log2(8)"), 8);
    EXPECT_DOUBLE_EQ(valueOf("sqrt(16) + abs(-3) + sign(-7)"), 6);
    EXPECT_DOUBLE_EQ(valueOf("min(3, 1, 2) + max(3, 1, 2) + sum(1, 2, 3) + avg(2, 4)"), 13);
    EXPECT_DOUBLE_EQ(valueOf("rint(2.6) + floor(2.6) + ceil(2.2)"), 8);
    EXPECT_DOUBLE_EQ(valueOf("mod(7, 3) + mod(-1, 3)"), 3);
    EXPECT_DOUBLE_EQ(valueOf("mod(7, 0)"), 0);
    EXPECT_DOUBLE_EQ(valueOf("clamp(5, 0, 3) + clamp(-5, 0, 3) + clamp(2, 0, 3)"), 5);
}

TEST(Expression, LooksUpATable) {
    const std::string table = "table(%, 0, 10, 5, 20, 10, 0)";
    const auto at = [&table](const std::string& x) {
        std::string expression = table;
        return valueOf(expression.replace(expression.find('%'), 1, x));
    };
    EXPECT_DOUBLE_EQ(at("-3"), 10);
    EXPECT_DOUBLE_EQ(at("0"), 10);
    EXPECT_DOUBLE_EQ(at("2.5"), 15);
    EXPECT_DOUBLE_EQ(at("5"), 20);
    EXPECT_DOUBLE_EQ(at("7.5"), 10);
    EXPECT_DOUBLE_EQ(at("10"), 0);
    EXPECT_DOUBLE_EQ(at("99"), 0);
    EXPECT_DOUBLE_EQ(valueOf("table(1, 0, 5, 1, 6, 1, 8, 2, 9)"), 6) << "a step has its lower end";
    EXPECT_DOUBLE_EQ(valueOf("table(1.5, 0, 5, 1, 6, 1, 8, 2, 9)"), 8.5);
}

TEST(Expression, KnowsTheTime) {
    EXPECT_DOUBLE_EQ(valueOf("t", 2.5), 2.5);
    EXPECT_DOUBLE_EQ(valueOf("dt", 0.25), 0.25);
    EXPECT_DOUBLE_EQ(valueOf("step(2)", 1.9), 0);
    EXPECT_DOUBLE_EQ(valueOf("step(2)", 2), 1);
    EXPECT_DOUBLE_EQ(valueOf("square(10)", 4), 1);
    EXPECT_DOUBLE_EQ(valueOf("square(10)", 6), 0);
    EXPECT_DOUBLE_EQ(valueOf("square(10, 0.2)", 12.5), 0);
    EXPECT_DOUBLE_EQ(valueOf("saw(10)", 12.5), 0.25);
    EXPECT_DOUBLE_EQ(valueOf("triangle(10)", 2.5), 0.5);
    EXPECT_DOUBLE_EQ(valueOf("triangle(10)", 7.5), 0.5);
    EXPECT_DOUBLE_EQ(valueOf("triangle(10)", 5), 1);
}

TEST(Expression, LagsBehindByTheTimeConstant) {
    Simulated cell("[real.X]\n[real.Y]\nexpr = \"lag(X, 2)\"\n");
    cell.set("X", 5);
    cell.run(0.1);
    EXPECT_DOUBLE_EQ(cell["Y"], 5) << "it starts where its input is";
    cell.set("X", 15);
    for (int scan = 0; scan < 20; ++scan)
        cell.run(0.1);
    EXPECT_NEAR(cell["Y"], 5 + 10 * (1 - std::exp(-1.0)), 1e-9);
}

TEST(Expression, LagStartsWhereItIsTold) {
    Simulated cell("[real.Y]\nexpr = \"lag(10, 2, Y)\"\n");
    cell.set("Y", 4);
    cell.run(0.1);
    EXPECT_DOUBLE_EQ(cell["Y"], 4);
    cell.run(2);
    EXPECT_NEAR(cell["Y"], 4 + 6 * (1 - std::exp(-1.0)), 1e-9);
}

TEST(Expression, LagRecoversFromWhatIsNoNumber) {
    Simulated cell("[real.X]\n[real.Y]\nexpr = \"lag(1 / X * X, 1)\"\n");
    cell.set("X", 0);
    cell.run(0.1);
    cell.set("X", 1);
    cell.run(0.1);
    EXPECT_DOUBLE_EQ(cell["Y"], 1);
}

TEST(Expression, LagOfNoTimeFollowsAtOnceEvenWithoutTime) {
    Simulated cell("[real.X]\n[real.Y]\nexpr = \"lag(X, 0)\"\n");
    for (const double dt : {0.1, 0.1, 0.0}) {
        cell.set("X", cell["X"] + 5);
        cell.run(dt);
        EXPECT_DOUBLE_EQ(cell["Y"], cell["X"]) << dt;
    }
}

TEST(Expression, RampsByTheSizeOfItsRate) {
    Simulated cell("[real.X]\n[real.Y]\nexpr = \"ramp(X, -2)\"\n");
    cell.run(0.5);
    cell.set("X", 3);
    cell.run(0.5);
    EXPECT_DOUBLE_EQ(cell["Y"], 1);
    cell.set("X", -3);
    cell.run(0.5);
    EXPECT_DOUBLE_EQ(cell["Y"], 0);
}

TEST(Expression, RampsAtItsRate) {
    Simulated cell("[real.X]\n[real.Y]\nexpr = \"ramp(X, 2)\"\n");
    cell.run(0.5);
    cell.set("X", 3);
    cell.run(0.5);
    EXPECT_DOUBLE_EQ(cell["Y"], 1);
    cell.run(0.5);
    cell.run(0.5);
    EXPECT_DOUBLE_EQ(cell["Y"], 3);
    cell.run(0.5);
    EXPECT_DOUBLE_EQ(cell["Y"], 3);
    cell.set("X", 0);
    cell.run(0.5);
    EXPECT_DOUBLE_EQ(cell["Y"], 2);
}

TEST(Expression, Integrates) {
    Simulated cell("[real.X]\n[real.Y]\nexpr = \"integral(X, 100)\"\n");
    cell.set("X", 3);
    cell.run(1);
    EXPECT_DOUBLE_EQ(cell["Y"], 100);
    cell.run(2);
    cell.run(1);
    EXPECT_DOUBLE_EQ(cell["Y"], 109);
}

TEST(Expression, TellsForHowLongSomethingHeld) {
    Simulated cell("[real.X]\n[real.Y]\nexpr = \"held(X > 1)\"\n");
    cell.set("X", 2);
    cell.run(1);
    EXPECT_DOUBLE_EQ(cell["Y"], 0);
    cell.run(1);
    cell.run(1);
    EXPECT_DOUBLE_EQ(cell["Y"], 2);
    cell.set("X", 0);
    cell.run(1);
    EXPECT_DOUBLE_EQ(cell["Y"], 0);
}

TEST(Expression, SwitchesWithHysteresis) {
    Simulated cell("[real.X]\n[real.Y]\nexpr = \"hysteresis(X, 10, 5)\"\n[real.Z]\nexpr = \"hysteresis(X, 5, 10)\"\n");
    const auto at = [&cell](double x) {
        cell.set("X", x);
        cell.run(1);
        return std::to_string(static_cast<int>(cell["Y"])) + std::to_string(static_cast<int>(cell["Z"]));
    };
    EXPECT_EQ(at(7), "00");
    EXPECT_EQ(at(10), "10");
    EXPECT_EQ(at(7), "10");
    EXPECT_EQ(at(5), "01");
    EXPECT_EQ(at(7), "01");
    EXPECT_EQ(at(11), "10");
}

TEST(Expression, MakesNormalNoise) {
    Simulated cell("[real.Y]\nexpr = \"noise(2)\"\n");
    constexpr int count = 20000;
    double sum = 0;
    double squares = 0;
    int within = 0;
    for (int scan = 0; scan < count; ++scan) {
        cell.run(0.1);
        sum += cell["Y"];
        squares += cell["Y"] * cell["Y"];
        within += std::fabs(cell["Y"]) < 2 ? 1 : 0;
    }
    EXPECT_NEAR(sum / count, 0, 0.08);
    EXPECT_NEAR(std::sqrt(squares / count), 2, 0.08);
    EXPECT_NEAR(static_cast<double>(within) / count, 0.6827, 0.02);
}

TEST(Expression, RepeatsItsNoiseAndGivesEachCallItsOwn) {
    const std::string lines =
        "[real.A]\nexpr = \"noise(1)\"\n[real.B]\nexpr = \"noise(1)\"\n[real.C]\nexpr = \"noise(1) - "
        "noise(1)\"\n";
    Simulated first(lines);
    Simulated second(lines);
    for (int scan = 0; scan < 5; ++scan) {
        first.run(0.1);
        second.run(0.1);
        EXPECT_EQ(first["A"], second["A"]);
        EXPECT_NE(first["A"], first["B"]);
        EXPECT_NE(first["C"], 0);
    }
}

TEST(Expression, ReadsMembersAndElements) {
    Simulated cell(
        "[composition.AIR]\nN2 = 78\n[real_array.A]\nsize = [2, 2]\nlabels = [[\"IN\", \"OUT\"], []]\n"
        "[real.Y]\nexpr = \"AIR.N2 + 10 * A:0:1 + 100 * A:OUT:0\"\n");
    cell.set("AIR.N2", 1);
    cell.set("A:0:1", 2);
    cell.set("A:1:0", 3);
    cell.run(0.1);
    EXPECT_DOUBLE_EQ(cell["Y"], 321);
}

TEST(Expression, TellsAnElementFromAChoice) {
    Simulated cell(
        "[real.S]\n[real_array.A]\nsize = 2\n[real.Y]\nexpr = \"S ? A:1 : A:0\"\n"
        "[real.Z]\nexpr = \"S?S:A:0\"\n");
    cell.set("A:0", 7);
    cell.set("A:1", 8);
    cell.run(0.1);
    EXPECT_DOUBLE_EQ(cell["Y"], 7);
    EXPECT_DOUBLE_EQ(cell["Z"], 7);
    cell.set("S", 1);
    cell.run(0.1);
    EXPECT_DOUBLE_EQ(cell["Y"], 8);
    EXPECT_DOUBLE_EQ(cell["Z"], 1);
}

TEST(Expression, GivesEachElementItsIndexes) {
    Simulated cell(
        "[real_array.A]\nsize = [2, 3]\nexpr = \"10 * i + j\"\n[real_array.B]\nsize = 3\nexpr = \"A:1:i * "
        "2\"\n");
    cell.run(0.1);
    EXPECT_DOUBLE_EQ(cell["A:0:2"], 2);
    EXPECT_DOUBLE_EQ(cell["A:1:1"], 11);
    EXPECT_DOUBLE_EQ(cell["B:2"], 24);
}

TEST(Expression, ReadsAlarmLevels) {
    Simulated cell("[real.X]\nhigh_alarm = 5\n[real.Y]\nexpr = \"alarm(X) + 10\"\n");
    cell.set("X!", 2);
    cell.run(0.1);
    EXPECT_DOUBLE_EQ(cell["Y"], 12);
}

TEST(Expression, FollowsAliases) {
    Simulated cell("[real.X]\n[real.Y]\nexpr = \"Q * 2\"\n[alias]\nQ = \"P\"\nP = \"X\"\n");
    cell.set("X", 4);
    cell.run(0.1);
    EXPECT_DOUBLE_EQ(cell["Y"], 8);
}

TEST(Expression, GoesOverSeveralLines) {
    Simulated cell("[real.Y]\nexpr = \"\"\"\n1 +\n\t2\n\"\"\"\n");
    cell.run(0.1);
    EXPECT_DOUBLE_EQ(cell["Y"], 3);
}

}  // namespace
