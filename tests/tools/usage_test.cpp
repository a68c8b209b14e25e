#include <gtest/gtest.h>

#include <algorithm>

#include "paths.h"
#include "program.h"

namespace {

Outcome ostrel(const Arguments& words) {
    Arguments all{paths::command};
    all.insert(all.end(), words.begin(), words.end());
    return run(all);
}

void isWrongUsage(const Arguments& words, const std::string& message) {
    const Outcome outcome = ostrel(words);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors, "ostrel: " + message + "\n");
}

}  // namespace

TEST(Usage, TellsItsVersion) {
    const Outcome outcome = ostrel({"--version"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, std::string("ostrel ") + paths::version + "\n");
}

TEST(Usage, HelpNamesEveryCommand) {
    const Outcome outcome = ostrel({"--help"});
    EXPECT_EQ(outcome.status, 0);
    for (const char* command : {"list", "get", "set", "watch", "info", "units", "event", "reconfig", "status"})
        EXPECT_NE(outcome.output.find(std::string("\n  ") + command + " "), std::string::npos) << command;
}

TEST(Usage, EveryCommandHasHelp) {
    for (const char* command : {"list", "get", "set", "watch", "info", "units", "event", "reconfig", "status"}) {
        const Outcome outcome = ostrel({command, "--help"});
        EXPECT_EQ(outcome.status, 0) << command;
        EXPECT_NE(outcome.output.find("Usage: ostrel " + std::string(command)), std::string::npos) << outcome.output;
    }
}

TEST(Usage, RefusesAnUnknownCommandWithTheNearest) {
    isWrongUsage({"lsit"}, "lsit: no such command; did you mean list?");
    isWrongUsage({"frobnicate"}, "frobnicate: no such command; see ostrel --help");
}

TEST(Usage, RefusesWhatIsMissingOrTooMuch) {
    EXPECT_EQ(ostrel({}).status, 2);
    EXPECT_EQ(ostrel({"get"}).status, 2);
    EXPECT_EQ(ostrel({"set", "A"}).status, 2);
    EXPECT_EQ(ostrel({"event"}).status, 2);
    EXPECT_EQ(ostrel({"set", "A", "1", "rpm", "more"}).status, 2);
    EXPECT_EQ(ostrel({"list", "--sideways"}).status, 2);
    EXPECT_EQ(ostrel({"watch", "A", "--rate", "9"}).status, 2);
    EXPECT_EQ(ostrel({"watch", "A", "--count", "0"}).status, 2);
}

TEST(Usage, SaysItInOneLine) {
    for (const Arguments& words :
         {Arguments{}, {"get"}, {"event"}, {"list", "--sideways"}, {"watch", "A", "--rate", "9"}}) {
        const Outcome outcome = ostrel(words);
        EXPECT_EQ(std::count(outcome.errors.begin(), outcome.errors.end(), '\n'), 1) << outcome.errors;
        EXPECT_TRUE(outcome.errors.starts_with("ostrel: ")) << outcome.errors;
        EXPECT_TRUE(outcome.errors.ends_with("; see ostrel --help\n")) << outcome.errors;
    }
}
