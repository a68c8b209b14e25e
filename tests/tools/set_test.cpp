#include "toolstest.h"

using Set = ToolsTest;

TEST_F(Set, WritesEveryKindAndShowsWhatItHoldsThen) {
    EXPECT_EQ(ostrel({"set", "OIL_PRESSURE", "4.25"}).output, "OIL_PRESSURE 4.25 bar\n");
    EXPECT_EQ(ostrel({"set", "CYCLES", "-7"}).output, "CYCLES -7\n");
    EXPECT_EQ(ostrel({"set", "PUMP_ON", "RUNNING"}).output, "PUMP_ON RUNNING\n");
    EXPECT_EQ(ostrel({"set", "TEST_NAME", "hot start"}).output, "TEST_NAME hot start\n");
    EXPECT_EQ(ostrel({"set", "CYL_TEMP:1", "500"}).output, "CYL_TEMP:1 500 DEGC\n");
    EXPECT_EQ(ostrel({"set", "COUNTS:1:2", "66"}).output, "COUNTS:1:2 66\n");
    EXPECT_EQ(ostrel({"set", "VALVES:1", "OPEN"}).output, "VALVES:1 OPEN\n");
    EXPECT_EQ(ostrel({"set", "STEPS:0", "cool down"}).output, "STEPS:0 cool down\n");

    EXPECT_EQ(value("OIL_PRESSURE"), "OIL_PRESSURE 4.25 bar");
    EXPECT_EQ(value("CYCLES"), "CYCLES -7");
    EXPECT_EQ(value("PUMP_ON"), "PUMP_ON RUNNING");
    EXPECT_EQ(value("TEST_NAME"), "TEST_NAME hot start");
    EXPECT_EQ(value("CYL_TEMP:1"), "CYL_TEMP:1 500 DEGC");
    EXPECT_EQ(value("CYL_TEMP:0"), "CYL_TEMP:0 401 DEGC");
    EXPECT_EQ(value("COUNTS:1:2"), "COUNTS:1:2 66");
    EXPECT_EQ(value("VALVES:0"), "VALVES:0 SHUT");
    EXPECT_EQ(value("VALVES:1"), "VALVES:1 OPEN");
    EXPECT_EQ(value("STEPS:0"), "STEPS:0 cool down");
}

TEST_F(Set, TakesAliases) {
    ostrel({"set", "SPEED", "2000"});
    EXPECT_EQ(value("ENGINE_SPEED"), "ENGINE_SPEED 2000.0 rpm");
    ostrel({"set", "HOTTEST", "999"});
    EXPECT_EQ(value("CYL_TEMP:3"), "CYL_TEMP:3 999 DEGC");
}

TEST_F(Set, TakesEveryWordForAState) {
    for (const char* word : {"1", "true", "on", "ON", "running"}) {
        ostrel({"set", "PUMP_ON", "0"});
        EXPECT_EQ(ostrel({"set", "PUMP_ON", word}).output, "PUMP_ON RUNNING\n") << word;
    }
    for (const char* word : {"0", "false", "off", "Off", "stopped"}) {
        ostrel({"set", "PUMP_ON", "1"});
        EXPECT_EQ(ostrel({"set", "PUMP_ON", word}).output, "PUMP_ON STOPPED\n") << word;
    }
}

TEST_F(Set, ConvertsFromTheUnitsGiven) {
    EXPECT_EQ(ostrel({"set", "OIL_TEMP", "212", "DEGF"}).output, "OIL_TEMP 100.0 DEGC\n");
    EXPECT_EQ(ostrel({"set", "CYL_TEMP:0", "32", "DEGF"}).output, "CYL_TEMP:0 0 DEGC\n");
    EXPECT_EQ(ostrel({"set", "FAN_SPEED", "25", "Hz"}).output, "FAN_SPEED 1500 rpm\n");
    EXPECT_EQ(ostrel({"set", "OIL_TEMP", "-12.5", "degc"}).output, "OIL_TEMP -12.5 DEGC\n");
}

TEST_F(Set, TakesADashAfterTwoDashes) {
    EXPECT_EQ(ostrel({"set", "TEST_NAME", "--", "--fast"}).output, "TEST_NAME --fast\n");
    EXPECT_EQ(ostrel({"set", "RATIO", "-0.5"}).output, "RATIO -0.50\n");
}

TEST_F(Set, KeepsTheBooksOfAWrite) {
    const auto before = json({"info", "ENGINE_SPEED"})["record"].toObject();
    ostrel({"set", "ENGINE_SPEED", "1700"});
    const auto after = json({"info", "ENGINE_SPEED"})["record"].toObject();
    EXPECT_EQ(after["last_process_name"], QJsonValue("ostrel"));
    EXPECT_NE(after["last_pid"], before["last_pid"]);
    EXPECT_GT(after["update_count"].toInt(), before["update_count"].toInt());
}

TEST_F(Set, RefusesWhatIsNoNumber) {
    for (const std::string word : {"fast", "12x", "", "nan", "inf", "1e999", "0x10", "1,5"}) {
        refuses({"set", "ENGINE_SPEED", word},
                "ENGINE_SPEED: '" + word + "' is no number that it can hold; give one such as 12.5 or -3e4");
    }
    EXPECT_EQ(value("ENGINE_SPEED"), "ENGINE_SPEED 1500.2 rpm");
}

TEST_F(Set, RefusesWhatAnIntegerCannotHold) {
    refuses({"set", "CYCLES", "1.5"}, "CYCLES: '1.5' is no whole number, and it holds only those");
    refuses({"set", "CYCLES", "2147483648"},
            "CYCLES: '2147483648' is beyond what it can hold; from -2147483648 to 2147483647");
    refuses({"set", "COUNTS:0:0", "0.5"}, "COUNTS:0:0: '0.5' is no whole number, and it holds only those");
    EXPECT_EQ(ostrel({"set", "CYCLES", "2147483647"}).output, "CYCLES 2147483647\n");
    EXPECT_EQ(ostrel({"set", "CYCLES", "-2147483648"}).output, "CYCLES -2147483648\n");
}

TEST_F(Set, RefusesAnUnknownState) {
    refuses({"set", "PUMP_ON", "maybe"},
            "PUMP_ON: 'maybe' is none of its states; give 'STOPPED', 'RUNNING', 0, 1, false, true, off or on");
    refuses({"set", "PUMP_ON", "2"},
            "PUMP_ON: '2' is none of its states; give 'STOPPED', 'RUNNING', 0, 1, false, true, off or on");
    EXPECT_EQ(value("PUMP_ON"), "PUMP_ON STOPPED");
}

TEST_F(Set, TakesATextUpToItsRoomAndNoLonger) {
    const std::string longest(80, 'x'), element(255, 'y');
    EXPECT_EQ(ostrel({"set", "TEST_NAME", longest}).output, "TEST_NAME " + longest + "\n");
    refuses({"set", "TEST_NAME", longest + "x"}, "TEST_NAME: the text has 81 characters; it holds at most 80");
    EXPECT_EQ(ostrel({"set", "STEPS:1", element}).output, "STEPS:1 " + element + "\n");
    refuses({"set", "STEPS:1", element + "y"}, "STEPS:1: the text has 256 characters; it holds at most 255");
    EXPECT_EQ(ostrel({"set", "TEST_NAME", ""}).status, 0);
    EXPECT_EQ(value("TEST_NAME"), "TEST_NAME ");
}

TEST_F(Set, RefusesUnitsThatDoNotFit) {
    refuses({"set", "ENGINE_SPEED", "1", "bar"},
            "ENGINE_SPEED: bar cannot be converted to rpm; 'ostrel units rpm' lists what can");
    refuses({"set", "CYCLES", "1", "rpm"}, "CYCLES: has no units; give the value alone");
    refuses({"set", "TEST_NAME", "a", "rpm"}, "TEST_NAME: is no number and has no units; give the value alone");
}

TEST_F(Set, RefusesWholeArraysAndMembers) {
    refuses({"set", "COUNTS", "1"}, "COUNTS: is an array; name one element, such as COUNTS:0:0");
    refuses({"set", "SPEED_STAT.AV", "1"},
            "SPEED_STAT.AV: is a statistics variable that the cell computes, and cannot be set");
}

TEST_F(Set, NamesTheNearestOfAnUnknownName) {
    refuses({"set", "CYCELS", "1"}, "CYCELS: no such variable; did you mean CYCLES?");
}

TEST_F(Set, TellsMachinesWhatItHoldsThen) {
    const auto result = json({"set", "FAN_SPEED", "900"}).object();
    EXPECT_EQ(result["name"], QJsonValue("FAN_SPEED"));
    EXPECT_EQ(result["value"], QJsonValue(900));
    EXPECT_EQ(result["units"], QJsonValue("rpm"));
}
