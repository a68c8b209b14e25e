#include "toolstest.h"

using Get = ToolsTest;

TEST_F(Get, ShowsAValueInItsOwnFormatWithUnits) {
    EXPECT_EQ(value("OIL_PRESSURE"), "OIL_PRESSURE 3.50 bar");
}

TEST_F(Get, ShowsEveryKind) {
    EXPECT_EQ(value("ENGINE_SPEED"), "ENGINE_SPEED 1500.2 rpm");
    EXPECT_EQ(value("CYCLES"), "CYCLES 42");
    EXPECT_EQ(value("PUMP_ON"), "PUMP_ON STOPPED");
    EXPECT_EQ(value("DOOR"), "DOOR TRUE");
    EXPECT_EQ(value("TEST_NAME"), "TEST_NAME cold start");
    EXPECT_EQ(value("CYL_TEMP:2"), "CYL_TEMP:2 403 DEGC");
    EXPECT_EQ(value("COUNTS:1:2"), "COUNTS:1:2 6");
    EXPECT_EQ(value("VALVES:1"), "VALVES:1 SHUT");
    EXPECT_EQ(value("STEPS:1"), "STEPS:1 ramp");
}

TEST_F(Get, TakesAliasesOfVariablesAndElementsAndLabelsOfElements) {
    EXPECT_EQ(value("SPEED"), "SPEED 1500.2 rpm");
    EXPECT_EQ(value("HOTTEST"), "HOTTEST 404 DEGC");
    EXPECT_EQ(value("CYL_TEMP:second"), "CYL_TEMP:second 402 DEGC");
}

TEST_F(Get, FollowsTheStatisticsOfAMember) {
    EXPECT_TRUE(eventually([&] {
        const auto list = json({"get", "MEAN_SPEED"}).array();
        return list[0].toObject()["value"].toDouble() == 1500.25;
    }));
}

TEST_F(Get, ShowsAllElementsOfAnArray) {
    const Outcome outcome = ostrel({"get", "COUNTS"});
    EXPECT_EQ(outcome.lines(), (std::vector<std::string>{"COUNTS:0:0 1", "COUNTS:0:1 2", "COUNTS:0:2 3", "COUNTS:1:0 4",
                                                         "COUNTS:1:1 5", "COUNTS:1:2 6"}));
}

TEST_F(Get, ShowsAllMembersWithAndWithoutThePoint) {
    EXPECT_EQ(ostrel({"get", "SPEED_STAT."}).lines().size(), 33U);
    EXPECT_EQ(ostrel({"get", "SPEED_STAT"}).lines().size(), 33U);
}

TEST_F(Get, ConvertsUnits) {
    const Outcome outcome = ostrel({"get", "OIL_TEMP", "--units", "DEGF"});
    EXPECT_EQ(outcome.output, "OIL_TEMP 194.0 DEGF\n");
}

TEST_F(Get, TellsMachinesTheFullValue) {
    const QJsonArray list = json({"get", "ENGINE_SPEED", "CYCLES", "PUMP_ON", "TEST_NAME", "RATIO"}).array();
    ASSERT_EQ(list.size(), 5);
    EXPECT_EQ(
        list[0].toObject(),
        (QJsonObject{
            {"name", "ENGINE_SPEED"}, {"kind", "real"}, {"value", 1500.25}, {"text", "1500.2"}, {"units", "rpm"}}));
    EXPECT_EQ(list[1].toObject()["value"], QJsonValue(42));
    EXPECT_EQ(list[2].toObject()["value"], QJsonValue(false));
    EXPECT_EQ(list[2].toObject()["text"], QJsonValue("STOPPED"));
    EXPECT_EQ(list[3].toObject()["value"], QJsonValue("cold start"));
    EXPECT_EQ(list[4].toObject()["value"], QJsonValue(0.1));
}

TEST_F(Get, ServesTheGoodNamesAndFailsAtTheEnd) {
    const Outcome outcome = ostrel({"get", "CYCLES", "ENGINE_SPED", "TEST_NAME"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "CYCLES 42\nTEST_NAME cold start\n");
    EXPECT_EQ(outcome.errors, "ostrel: ENGINE_SPED: no such variable; did you mean ENGINE_SPEED?\n");
    EXPECT_EQ(json({"get", "CYCLES", "ENGINE_SPED"}, 1).array().size(), 1);
}

TEST_F(Get, NamesTheNearestOfAnUnknownName) {
    refuses({"get", "OIL_TMEP"}, "OIL_TMEP: no such variable; did you mean OIL_TEMP?");
    refuses({"get", "oil_temp"}, "oil_temp: no such variable; did you mean OIL_TEMP?");
    refuses({"get", "ZZZZZZ"}, "ZZZZZZ: no such variable; 'ostrel list' shows all names");
}

TEST_F(Get, SaysWhichPartOfANameIsWrong) {
    refuses({"get", "SPEED_STAT.AW"}, "SPEED_STAT.AW: no such member; did you mean AV?");
    refuses({"get", "SPEED_STAT.NOTHING"}, "SPEED_STAT.NOTHING: no such member; 'ostrel get SPEED_STAT.' lists all");
    refuses({"get", "COUNTS:2:0"}, "COUNTS:2:0: no such element; from COUNTS:0:0 to COUNTS:1:2");
    refuses({"get", "CYCLES:1"}, "CYCLES:1: no such element; CYCLES is no array");
}

TEST_F(Get, RefusesUnitsThatDoNotFit) {
    refuses({"get", "ENGINE_SPEED", "--units", "bar"},
            "ENGINE_SPEED: rpm cannot be converted to bar; 'ostrel units rpm' lists what can");
    refuses({"get", "CYCLES", "--units", "rpm"}, "CYCLES: has no units and cannot be shown in rpm; leave --units out");
    refuses({"get", "TEST_NAME", "--units", "rpm"}, "TEST_NAME: is no number and has no units; leave --units out");
}

TEST_F(Get, TakesPatterns) {
    EXPECT_EQ(ostrel({"get", "oil_*"}).output, "OIL_TEMP 90.0 DEGC\nOIL_PRESSURE 3.50 bar\n");
    EXPECT_EQ(ostrel({"get", "CYC*", "[VX]*"}).output, "CYCLES 42\nVALVES:0 SHUT\nVALVES:1 SHUT\n");
    refuses({"get", "ZZZ*"}, "ZZZ*: no variable has a name like this; 'ostrel list' shows all");
}
