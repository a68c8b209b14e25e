// The demo does what it promises: it warms up, gets too hot, takes fuel readings, trips and starts again.
#include <fstream>
#include <sstream>

#include "paths.h"
#include "servedtest.h"

namespace {

std::string demo() {
    std::ostringstream text;
    text << std::ifstream(std::string(paths::sources) + "/demo-cell/cell.toml").rdbuf();
    return text.str();
}

class Demo : public ServedTest {
protected:
    // As an operator does; this thread is the cell's own, which nothing holds to its rules.
    static void set(const std::string& name, short value) { set_logical(&record<LOGICAL_VARIABLE>(name), value); }

    bool reaches(const std::string& state) {
        return scanUntil([&] { return text("CELL_STATE") == state; });
    }
};

TEST_F(Demo, TripsAndStaysTrippedUntilItIsStoppedAndStarts) {
    serve(demo());
    ASSERT_TRUE(reaches("UNDER LOAD"));
    set("EMERGENCY_STOP", 1);
    ASSERT_TRUE(reaches("TRIPPED"));
    EXPECT_EQ(number("IGNITION"), 0);
    set("EMERGENCY_STOP", 0);
    ASSERT_TRUE(scanUntil([] { return number("ENGINE_SPEED") < 20; }));
    EXPECT_EQ(text("CELL_STATE"), "TRIPPED");
    set("ENGINE_RUN", 0);
    ASSERT_TRUE(reaches("STOPPED"));
    const double starts = number("ENGINE_STARTS");
    set("ENGINE_RUN", 1);
    ASSERT_TRUE(reaches("CRANKING"));
    EXPECT_EQ(number("STARTER"), 1);
    ASSERT_TRUE(scanUntil([] { return number("FIRING") == 1 && number("ENGINE_SPEED") > 700; }));
    EXPECT_EQ(number("STARTER"), 0);
    EXPECT_EQ(number("ENGINE_STARTS"), starts + 1);
}

TEST_F(Demo, TakesAFuelReadingAndEndsIt) {
    serve(demo());
    ASSERT_TRUE(scanUntil([] { return number("FUEL_FLOW") > 1; }));
    set_real_variable(&record<REAL_VARIABLE>("FUEL_READING_LENGTH"), 2);
    set("LOAD_CYCLE", 0);
    set("FUEL_READING", 1);
    ASSERT_TRUE(scanUntil([] { return number("FUEL_READING_RATE") > 0; }));
    EXPECT_EQ(text("FUEL_READING_STATE"), "MEASURING");
    ASSERT_TRUE(scanUntil([] { return number("FUEL_READING") == 0; }));
    EXPECT_GT(number("FUEL_READING_MASS"), 0);
    EXPECT_EQ(number("FUEL_READING_NO"), 1);
}

TEST_F(Demo, GetsTooHotAndTellsIt) {
    serve(demo());
    // The oil follows the power within seconds; started near its limit it need not be waited for.
    set_real_variable(&record<REAL_VARIABLE>("OIL_TEMP"), 112);
    ASSERT_TRUE(scanUntil([] { return number("OIL_TEMP_HIGH") == 1; }));
    EXPECT_EQ(record<REAL_VARIABLE>("OIL_TEMP").limit_status.high_alarm, 1);
    EXPECT_GE(number("ALARM_COUNT"), 1);
}

}  // namespace
