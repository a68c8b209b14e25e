// The order of evaluation, and what goes on over a reload.
#include "simulation.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "simulated.h"

namespace {

ptrdiff_t place(const Simulated& cell, const std::string& name) {
    return std::find(cell.order.begin(), cell.order.end(), name) - cell.order.begin();
}

TEST(Simulation, EvaluatesWhatOthersNeedFirst) {
    Simulated cell(
        "[real.D]\nexpr = \"C + B\"\n[real.C]\nexpr = \"B + 1\"\n[real.B]\nexpr = \"A * 2\"\n[real.A]\nvalue = "
        "1\n[real.E]\nexpr = \"5\"\n");
    cell.set("A", 1);
    cell.run(0.1);
    EXPECT_DOUBLE_EQ(cell["D"], 5) << "all in one scan";
    EXPECT_LT(place(cell, "B"), place(cell, "C"));
    EXPECT_LT(place(cell, "C"), place(cell, "D"));
}

TEST(Simulation, FollowsWhatClientsWrite) {
    Simulated cell("[real.SP]\n[real.Y]\nexpr = \"SP * 2\"\n");
    cell.set("SP", 3);
    cell.run(0.1);
    EXPECT_DOUBLE_EQ(cell["Y"], 6);
    cell.set("SP", 4);
    cell.run(0.1);
    EXPECT_DOUBLE_EQ(cell["Y"], 8);
}

TEST(Simulation, TakesItsOwnNameAsTheValueBefore) {
    Simulated cell("[real.N]\nexpr = \"N + 1\"\n");
    cell.set("N", 10);
    cell.run(0.1);
    cell.run(0.1);
    EXPECT_DOUBLE_EQ(cell["N"], 12);
    cell.set("N", 0);
    cell.run(0.1);
    EXPECT_DOUBLE_EQ(cell["N"], 1) << "a client has cleared it";
}

TEST(Simulation, BreaksACycleWithThePreviousValue) {
    Simulated cell("[real.A]\nexpr = \"prev(B) + 1\"\n[real.B]\nexpr = \"A * 10\"\n");
    cell.run(0.1);
    EXPECT_DOUBLE_EQ(cell["A"], 1);
    EXPECT_DOUBLE_EQ(cell["B"], 10);
    cell.run(0.1);
    EXPECT_DOUBLE_EQ(cell["A"], 11);
    EXPECT_DOUBLE_EQ(cell["B"], 110);
}

TEST(Simulation, TakesThePreviousValueOfAnElement) {
    Simulated cell("[real_array.A]\nsize = 2\nexpr = \"prev(A:i) + 1 + i\"\n");
    cell.run(0.1);
    cell.run(0.1);
    EXPECT_DOUBLE_EQ(cell["A:0"], 2);
    EXPECT_DOUBLE_EQ(cell["A:1"], 4);
}

TEST(Simulation, UsesWhatTheStoreKept) {
    Simulated cell("[integer.I]\nexpr = \"2.7\"\n[real.Y]\nexpr = \"I * 2\"\n");
    double seen = 0;
    cell.simulation.run(0, 0, [&](size_t output, double result) {
        const std::string name = cell.model.fullName(cell.simulation.outputs()[output].ref);
        if (name == "Y")
            seen = result;
        return name == "I" ? 3 : result;
    });
    EXPECT_DOUBLE_EQ(seen, 6);
}

TEST(Simulation, KeepsManyExpressionsApart) {
    constexpr int count = 3000;
    std::string lines = "[real.BASE]\n";
    for (int number = 0; number < count; ++number)
        lines += "[real.V" + std::to_string(number) + "]\nexpr = \"" +
                 (number == 0 ? "BASE" : "BASE + " + std::to_string(number)) + "\"\n";
    lines += "[real.SUM]\nexpr = \"V0 + V1 + V" + std::to_string(count - 1) + "\"\n";
    Simulated cell(lines);
    cell.set("BASE", 100);
    cell.run(0.1);
    for (int number = 0; number < count; ++number)
        ASSERT_DOUBLE_EQ(cell["V" + std::to_string(number)], 100 + number) << number;
    EXPECT_DOUBLE_EQ(cell["SUM"], 300 + count);
}

TEST(Simulation, FollowsALongChain) {
    std::string lines = "[real.V0]\n";
    for (int number = 1; number <= 500; ++number)
        lines += "[real.V" + std::to_string(number) + "]\nexpr = \"V" + std::to_string(number - 1) + " + 1\"\n";
    Simulated cell(lines);
    cell.run(0.1);
    EXPECT_DOUBLE_EQ(cell["V500"], 500);
}

TEST(Simulation, KeepsTheMemoryOfExpressionsThatStay) {
    Simulated before("[real.X]\n[real.A]\nexpr = \"lag(X, 10)\"\n[real.B]\nexpr = \"lag(X, 10)\"\n");
    before.run(1);
    before.set("X", 100);
    before.run(1);
    const double reached = before["A"];
    ASSERT_GT(reached, 1);
    ASSERT_LT(reached, 50);
    Simulated after(
        "[real.NEW]\nexpr = \"noise(1)\"\n[real.X]\n[real.A]\nexpr = \"lag(X, 10)\"\n[real.B]\nexpr = "
        "\"lag(X, 11)\"\n");
    after.simulation.takeMemoryOf(before.simulation);
    after.set("X", 100);
    after.run(0);
    EXPECT_DOUBLE_EQ(after["A"], reached);
    EXPECT_DOUBLE_EQ(after["B"], 100) << "another expression starts anew";
}

}  // namespace
