#include <map>

#include "toolstest.h"

using List = ToolsTest;

namespace {

std::map<QString, QJsonObject> byName(const QJsonDocument& document) {
    std::map<QString, QJsonObject> result;
    for (const QJsonValue& entry : document.array())
        result[entry.toObject()["name"].toString()] = entry.toObject();
    return result;
}

}  // namespace

TEST_F(List, ShowsEveryVariableOfTheCellOnce) {
    const auto entries = byName(json({"list"}));
    for (const char* name : {"ENGINE_SPEED", "OIL_TEMP", "OIL_PRESSURE", "RATIO", "CLOCK", "CYCLES", "FAN_SPEED",
                             "PUMP_ON", "DOOR", "TEST_NAME", "SPEED_STAT.", "CYL_TEMP", "COUNTS", "VALVES", "STEPS"})
        EXPECT_EQ(entries.count(name), 1U) << name;
    EXPECT_EQ(entries.size(), 15U);
    EXPECT_EQ(json({"list"}).array().size(), 15);
}

TEST_F(List, GoesBySectionAndThereByTheOrderOfTheFile) {
    std::vector<std::string> names;
    for (const QJsonValue& entry : json({"list"}).array())
        names.push_back(entry.toObject()["name"].toString().toStdString());
    EXPECT_EQ(names, (std::vector<std::string>{"ENGINE_SPEED", "OIL_TEMP", "OIL_PRESSURE", "RATIO", "CLOCK", "CYCLES",
                                               "FAN_SPEED", "PUMP_ON", "DOOR", "TEST_NAME", "CYL_TEMP", "COUNTS",
                                               "STEPS", "VALVES", "SPEED_STAT."}));
}

TEST_F(List, TellsKindValueUnitsSectionAndAliases) {
    const auto entries = byName(json({"list"}));
    const QJsonObject speed = entries.at("ENGINE_SPEED");
    EXPECT_EQ(speed["kind"], QJsonValue("real"));
    EXPECT_EQ(speed["value"], QJsonValue(1500.25));
    EXPECT_EQ(speed["units"], QJsonValue("rpm"));
    EXPECT_EQ(speed["section"], QJsonValue("General Use (real)"));
    EXPECT_EQ(speed["aliases"], QJsonValue(QJsonArray{"SPEED"}));
    EXPECT_EQ(entries.at("COUNTS")["text"], QJsonValue("2x3 elements"));
    EXPECT_EQ(entries.at("SPEED_STAT.")["text"], QJsonValue("33 members"));
    EXPECT_TRUE(entries.at("COUNTS")["value"].isNull());
}

TEST_F(List, TakesAPatternInAnyCaseForNamesAndAliases) {
    EXPECT_EQ(byName(json({"list", "oil_*"})).size(), 2U);
    EXPECT_EQ(byName(json({"list", "OIL_?RESSURE"})).size(), 1U);
    EXPECT_EQ(byName(json({"list", "SPEED"})).count("ENGINE_SPEED"), 1U);
}

TEST_F(List, IsATableForPeople) {
    const auto lines = ostrel({"list", "OIL*"}).lines();
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0], "NAME          KIND  VALUE  UNITS  SECTION             ALIASES");
    EXPECT_EQ(lines[1], "OIL_TEMP      real  90.0   DEGC   General Use (real)");
    EXPECT_EQ(lines[2], "OIL_PRESSURE  real  3.50   bar    General Use (real)");
}

TEST_F(List, SaysThatNothingMatchesAndWhatWould) {
    refuses({"list", "PRESS"}, "PRESS: no variable has a name like this; 'ostrel list \"*PRESS*\"' finds some");
    refuses({"list", "ZZZ*"}, "ZZZ*: no variable has a name like this; 'ostrel list' shows all");
    EXPECT_EQ(json({"list", "ZZZ*"}, 1).array().size(), 0);
}

TEST_F(List, GivesNamesAloneToScripts) {
    EXPECT_EQ(ostrel({"list", "--names", "*SPEED"}).output, "ENGINE_SPEED\nFAN_SPEED\nSPEED\nMEAN_SPEED\n");
    EXPECT_EQ(ostrel({"list", "--names", "ZZZ*"}).output, "");
    EXPECT_EQ(json({"list", "--names", "OIL*"}).array(), (QJsonArray{"OIL_TEMP", "OIL_PRESSURE"}));
}
