#include <csignal>
#include <fstream>

#include "toolstest.h"

using Reconfig = ToolsTest;

TEST_F(Reconfig, BringsWhatTheCellFileHasNow) {
    std::ofstream(cellFile(), std::ios::app) << "\n[real.NEWCOMER]\nvalue = 5\n";
    EXPECT_EQ(ostrel({"get", "NEWCOMER"}).status, 1);
    EXPECT_EQ(ostrel({"reconfig"}).output, store() + ": reconfigured, 19 names\n");
    EXPECT_EQ(value("NEWCOMER"), "NEWCOMER 5.00");
}

TEST_F(Reconfig, KeepsValues) {
    ostrel({"set", "CYCLES", "1234"});
    EXPECT_EQ(json({"reconfig"}).object()["variables"], QJsonValue(18));
    EXPECT_EQ(value("CYCLES"), "CYCLES 1234");
}

TEST_F(Reconfig, NeedsAServer) {
    cell().signal(SIGKILL);
    cell().finish();
    const Outcome outcome = ostrel({"reconfig"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(outcome.errors.ends_with(store() + ": no server that could read its cell file again\n"))
        << outcome.errors;
    startCell();
}
