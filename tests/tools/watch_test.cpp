#include <csignal>
#include <set>

#include "toolstest.h"

using Watch = ToolsTest;

TEST_F(Watch, EndsAfterTheRoundsAskedFor) {
    const Outcome outcome = ostrel({"watch", "CYCLES", "TEST_NAME", "--rate", "10", "--count", "3"});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    ASSERT_EQ(outcome.lines().size(), 6U);
    EXPECT_NE(outcome.lines()[0].find(" CYCLES 42"), std::string::npos);
    EXPECT_NE(outcome.lines()[5].find(" TEST_NAME cold start"), std::string::npos);
}

TEST_F(Watch, FollowsAValue) {
    const Outcome outcome = ostrel({"watch", "CLOCK", "--rate", "40", "--count", "5", "--changes", "--json"});
    std::set<double> values;
    for (const std::string& line : outcome.lines()) {
        const auto sample = QJsonDocument::fromJson(QByteArray::fromStdString(line)).object();
        EXPECT_EQ(sample["name"], QJsonValue("CLOCK")) << line;
        EXPECT_EQ(sample["units"], QJsonValue("s"));
        EXPECT_TRUE(sample["time"].toString().endsWith('Z'));
        values.insert(sample["value"].toDouble());
    }
    EXPECT_EQ(values.size(), 5U) << outcome.output;
}

TEST_F(Watch, EndsQuietlyWhenNobodyReadsAnyMore) {
    std::string line = "set -o pipefail;";
    for (const std::string& word : command({"watch", "CYCLES", "--rate", "10"}))
        line += " '" + word + "'";
    const Outcome outcome = run({"/bin/bash", "-c", line + " | head -1"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.lines().size(), 1U);
    EXPECT_EQ(outcome.errors, "");
}

TEST_F(Watch, ShowsOnlyChangesWhereAskedTo) {
    Program watch(command({"watch", "CYCLES", "DOOR", "--rate", "10", "--changes"}));
    ASSERT_TRUE(watch.prints(2));
    ostrel({"set", "CYCLES", "43"});
    ASSERT_TRUE(watch.prints(3));
    ostrel({"set", "CYCLES", "44"});
    ASSERT_TRUE(watch.prints(4));
    watch.signal(SIGINT);
    const Outcome outcome = watch.finish();
    ASSERT_EQ(outcome.lines().size(), 4U);
    EXPECT_TRUE(outcome.lines()[2].ends_with(" CYCLES 43")) << outcome.lines()[2];
    EXPECT_TRUE(outcome.lines()[3].ends_with(" CYCLES 44")) << outcome.lines()[3];
}

TEST_F(Watch, ConvertsUnits) {
    const Outcome outcome = ostrel({"watch", "OIL_TEMP", "--units", "DEGF", "--count", "1"});
    ASSERT_EQ(outcome.lines().size(), 1U);
    EXPECT_TRUE(outcome.lines()[0].ends_with(" OIL_TEMP 194.0 DEGF")) << outcome.output;
}

TEST_F(Watch, EndsCleanlyWhenInterrupted) {
    for (const int number : {SIGINT, SIGTERM}) {
        Program watch(command({"watch", "CYCLES", "--rate", "3600000"}));
        ASSERT_TRUE(watch.prints(1));
        watch.signal(number);
        const Outcome outcome = watch.finish();
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.errors, "");
    }
}

TEST_F(Watch, GoesOnWithTheLastValuesWhenTheCellDies) {
    Program watch(command({"watch", "CYCLES", "--rate", "10"}));
    ASSERT_TRUE(watch.prints(1));
    cell().signal(SIGKILL);
    cell().finish();
    ASSERT_TRUE(watch.prints(20));
    startCell();
    ostrel({"set", "CYCLES", "77"});
    Program later(command({"watch", "CYCLES", "--count", "1"}));
    EXPECT_TRUE(later.finish().output.ends_with(" CYCLES 77\n"));
    watch.signal(SIGINT);
    EXPECT_EQ(watch.finish().status, 0);
}

TEST_F(Watch, RefusesAnUnknownNameAtOnce) {
    refuses({"watch", "CYCLES", "OIL_TEMPS"}, "OIL_TEMPS: no such variable; did you mean OIL_TEMP?");
}
