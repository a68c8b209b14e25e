#include "toolstest.h"

using Info = ToolsTest;

TEST_F(Info, TellsTheRecordTheLimitsAndTheAliases) {
    const QJsonObject info = json({"info", "SPEED"}).object();
    EXPECT_EQ(info["name"], QJsonValue("ENGINE_SPEED"));
    EXPECT_EQ(info["aliases"], QJsonValue(QJsonArray{"SPEED"}));
    EXPECT_EQ(info["section"], QJsonValue("General Use (real)"));
    EXPECT_EQ(info["limits"], QJsonValue(QJsonObject{{"low_alarm", 600}, {"high_alarm", 6000}, {"high_abort", 6500}}));
    const QJsonObject record = info["record"].toObject();
    EXPECT_EQ(record["label"], QJsonValue("ENGINE_SPEED"));
    EXPECT_EQ(record["display_format"], QJsonValue("%8.1f"));
    EXPECT_EQ(record["limit_status"], QJsonValue(QJsonArray{}));
}

TEST_F(Info, NamesTheLimitsThatAreViolated) {
    ostrel({"set", "ENGINE_SPEED", "6200"});
    EXPECT_TRUE(eventually([&] {
        const auto violated = json({"info", "ENGINE_SPEED"})["record"]["limit_status"].toArray();
        return violated.contains("high alarm") && !violated.contains("high abort");
    }));
}

TEST_F(Info, KnowsEveryKind) {
    EXPECT_EQ(json({"info", "CYCLES"})["kind"], QJsonValue("integer"));
    EXPECT_EQ(json({"info", "PUMP_ON"})["record"]["true_state"], QJsonValue("RUNNING"));
    EXPECT_EQ(json({"info", "TEST_NAME"})["kind"], QJsonValue("string"));
    EXPECT_EQ(json({"info", "SPEED_STAT."})["record"]["source_label"], QJsonValue("ENGINE_SPEED"));
    EXPECT_EQ(json({"info", "COUNTS"})["dimensions"], QJsonValue(QJsonArray{2, 3}));
    EXPECT_EQ(json({"info", "VALVES"})["kind"], QJsonValue("logical array"));
    EXPECT_EQ(json({"info", "STEPS:0"})["value"], QJsonValue("warm up"));
}

TEST_F(Info, IsALineAFieldForPeople) {
    const auto lines = ostrel({"info", "CYCLES"}).lines();
    ASSERT_GT(lines.size(), 20U);
    EXPECT_EQ(lines[0], "name: CYCLES");
    EXPECT_EQ(lines[4], "value: 42");
}

TEST_F(Info, NamesTheNearestOfAnUnknownName) {
    refuses({"info", "CYCLE"}, "CYCLE: no such variable; did you mean CYCLES?");
}
