// Completion as bash asks for it: the file is sourced and its function called with the line so far.
#include <algorithm>

#include "paths.h"
#include "toolstest.h"

namespace {

class Completion : public ToolsTest {
protected:
    // What bash would offer behind the line; `ostrel` itself stands before it, the test's store behind that.
    std::vector<std::string> offered(const std::string& line) const {
        const std::string script =
            "set -u; export PATH=\"$1:$PATH\"; source \"$2\"\n"
            "[ \"$(complete -p ostrel)\" = 'complete -F _ostrel ostrel' ] || exit 3\n"
            "COMP_LINE=$3; COMP_POINT=${#COMP_LINE}; COMPREPLY=(); _ostrel\n"
            "[ ${#COMPREPLY[@]} -eq 0 ] || printf '%s\\n' \"${COMPREPLY[@]}\"\n";
        const std::string folder = std::filesystem::path(paths::command).parent_path();
        const Outcome outcome =
            run({"/bin/bash", "--norc", "-c", script, "bash", folder,
                 std::string(paths::sources) + "/tools/completion/ostrel", "ostrel --store " + store() + " " + line});
        EXPECT_EQ(outcome.status, 0) << line;
        EXPECT_EQ(outcome.errors, "") << line;
        std::vector<std::string> lines = outcome.lines();
        std::sort(lines.begin(), lines.end());
        return lines;
    }

    bool offers(const std::string& line, const std::string& word) const {
        const auto words = offered(line);
        return std::find(words.begin(), words.end(), word) != words.end();
    }
};

using Words = std::vector<std::string>;

}  // namespace

TEST_F(Completion, OffersEveryCommand) {
    for (const char* command :
         {"list", "get", "set", "watch", "info", "units", "event", "writes", "reconfig", "status"})
        EXPECT_TRUE(offers("", command)) << command;
    EXPECT_EQ(offered("wa"), Words{"watch"});
    EXPECT_EQ(offered("event "), (Words{"raise", "wait"}));
}

TEST_F(Completion, OffersTheOptionsOfTheCommand) {
    EXPECT_EQ(offered("watch --c"), (Words{"--changes", "--count"}));
    EXPECT_TRUE(offers("watch CYCLES --", "--rate"));
    EXPECT_TRUE(offers("get --", "--json"));
    EXPECT_EQ(offered("event wait --t"), Words{"--timeout"});
    EXPECT_FALSE(offers("get --", "--rate"));
}

TEST_F(Completion, OffersNamesOfTheStoreThatIsAsked) {
    EXPECT_EQ(offered("get OIL_"), (Words{"OIL_PRESSURE", "OIL_TEMP"}));
    EXPECT_EQ(offered("get CYCLES HOT"), Words{"HOTTEST"});
    EXPECT_EQ(offered("watch --changes --rate 100 FAN"), Words{"FAN_SPEED"});
    EXPECT_EQ(offered("info TEST"), Words{"TEST_NAME"});
    EXPECT_EQ(offered("info TEST_NAME "), Words{});
    EXPECT_EQ(offered("get NOTHING"), Words{});
}

TEST_F(Completion, GoesOnIntoMembersAndElements) {
    EXPECT_EQ(offered("get SPEED_ST"), Words{"SPEED_STAT."});
    EXPECT_EQ(offered("get SPEED_STAT.M"), (Words{"SPEED_STAT.MD", "SPEED_STAT.ME", "SPEED_STAT.MN", "SPEED_STAT.MX"}));
    EXPECT_EQ(offered("get CYL_TEMP:"), (Words{"0", "1", "2", "3"}));
}

TEST_F(Completion, OffersWhatCanBeSet) {
    EXPECT_EQ(offered("set PUMP_ON "), (Words{"RUNNING", "STOPPED"}));
    EXPECT_TRUE(offers("set OIL_TEMP 200 ", "DEGF"));
    EXPECT_FALSE(offers("set OIL_TEMP 200 ", "bar"));
    EXPECT_TRUE(offers("get OIL_TEMP --units ", "DEGF"));
}

TEST_F(Completion, OffersEvents) {
    EXPECT_EQ(offered("event raise PUR"), (Words{"PURGE", "PURGE_DONE"}));
}

TEST_F(Completion, IsQuietWithoutAStore) {
    const Outcome outcome = run({"/bin/bash", "--norc", "-c",
                                 "export PATH=\"$1:$PATH\"; source \"$2\"; COMP_LINE='ostrel --store none-such get A'; "
                                 "COMP_POINT=${#COMP_LINE}; _ostrel; echo ${#COMPREPLY[@]}",
                                 "bash", std::filesystem::path(paths::command).parent_path(),
                                 std::string(paths::sources) + "/tools/completion/ostrel"});
    EXPECT_EQ(outcome.output, "0\n");
    EXPECT_EQ(outcome.errors, "");
}
