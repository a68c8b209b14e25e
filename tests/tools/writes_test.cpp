#include <pwd.h>
#include <unistd.h>

#include "toolstest.h"

using Writes = ToolsTest;

TEST_F(Writes, ListsWhoWroteWhat) {
    EXPECT_EQ(ostrel({"writes"}).output, "");
    ostrel({"set", "OIL_PRESSURE", "4.25"});
    ostrel({"set", "TEST_NAME", "hot start"});
    const auto lines = ostrel({"writes"}).lines();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_NE(lines[0].find("  OIL_PRESSURE  3.5 -> 4.25  " + std::string(getpwuid(getuid())->pw_name) + "  ostrel["),
              std::string::npos)
        << lines[0];
    EXPECT_NE(lines[1].find("-> 'hot start'"), std::string::npos) << lines[1];
}

TEST_F(Writes, TakesAPattern) {
    ostrel({"set", "OIL_PRESSURE", "4.25"});
    ostrel({"set", "OIL_TEMP", "91"});
    ostrel({"set", "CYCLES", "43"});
    EXPECT_EQ(ostrel({"writes", "oil*"}).lines().size(), 2u);
    refuses({"writes", "NOBODY*"},
            "NOBODY*: nobody has written to a variable with a name like this; 'ostrel writes' shows all");
}

TEST_F(Writes, PrintsJson) {
    ostrel({"set", "COUNTS:1:2", "66"});
    const QJsonArray list = json({"writes"}).array();
    ASSERT_EQ(list.size(), 1);
    const QJsonObject write = list[0].toObject();
    EXPECT_EQ(write["variable"].toString(), "COUNTS:1:2");
    EXPECT_EQ(write["new"].toString(), "66");
    EXPECT_EQ(write["program"].toString(), "ostrel");
    EXPECT_EQ(write["stored"].toBool(), true);
    EXPECT_EQ(write["number"].toInt(), 1);
    EXPECT_EQ(json({"writes", "NOBODY"}, 1).array().size(), 0);
}
