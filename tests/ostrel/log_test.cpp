// The platform's log.
#include <ostrel/log.h>
#include <regex.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <thread>

#include "ostrel/storefixture.h"

namespace {

bool matches(const std::string& text, const std::string& form) {
    regex_t compiled;
    if (regcomp(&compiled, ("^" + form + "$").c_str(), REG_EXTENDED | REG_NOSUB) != 0)
        return false;
    const bool isMatch = regexec(&compiled, text.c_str(), 0, nullptr, 0) == 0;
    regfree(&compiled);
    return isMatch;
}

class Log : public StoreTest {
protected:
    void SetUp() override {
        ASSERT_EQ(server.tell("open " + store), "ok 0");
        ASSERT_EQ(ostrel_store_open(store.c_str(), nullptr, nullptr, 0), 0);
    }

    void TearDown() override {
        StoreTest::TearDown();
        std::filesystem::remove(path);
    }

    std::vector<std::string> lines() {
        EXPECT_EQ(server.tell("drain_log " + path), "ok");
        std::ifstream file(path);
        std::vector<std::string> result;
        for (std::string line; std::getline(file, line);)
            result.push_back(line);
        return result;
    }

    const std::string path = std::filesystem::temp_directory_path() / ("ostrel-" + store + ".log");
};

TEST_F(Log, ALineTellsWhenWhoAndWhere) {
    testing::internal::CaptureStderr();
    log_error("pump.cpp", 12, 1, -253, "pressure %d of %s", 7, "oil");
    const std::string shown = testing::internal::GetCapturedStderr();
    const std::string form = "[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{3} [^ ]+\\[" +
                             std::to_string(getpid()) + "\\] pump\\.cpp:12 level 1 status -253: pressure 7 of oil\n";
    EXPECT_TRUE(matches(shown, form)) << shown;
    ASSERT_EQ(lines().size(), 1u);
    EXPECT_EQ(lines().front() + "\n", shown);
}

TEST_F(Log, LineBreaksBecomeBlanksAndLongLinesAreCut) {
    testing::internal::CaptureStderr();
    log_error("a.c", 1, 1, 0, "one\ntwo\rthree");
    log_error("a.c", 2, 1, 0, "%s", std::string(5000, 'x').c_str());
    log_error(nullptr, 3, 1, 0, "no file");
    testing::internal::GetCapturedStderr();
    ASSERT_EQ(lines().size(), 3u);
    EXPECT_TRUE(lines()[0].ends_with("one two three"));
    EXPECT_EQ(lines()[1].size(), 1000u);
    EXPECT_TRUE(lines()[2].ends_with("?:3 level 1 status 0: no file"));
}

TEST_F(Log, LinesOfSeveralThreadsDoNotMix) {
    testing::internal::CaptureStderr();
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([i] {
            for (int n = 0; n < 50; ++n)
                log_error("t.c", n, 1, 0, "%s", std::string(500, static_cast<char>('a' + i)).c_str());
        });
    for (std::thread& thread : threads)
        thread.join();
    testing::internal::GetCapturedStderr();
    ASSERT_EQ(lines().size(), 200u);
    for (const std::string& line : lines()) {
        const std::string text(500, line.back());
        EXPECT_TRUE(matches(line, "[^:]+:[0-9]+:[^:]+ t\\.c:[0-9]+ level 1 status 0: " + text)) << line;
    }
}

TEST_F(Log, AnAliasThatStandsForNothingIsLogged) {
    configure({"alias BAD NOTHING 0"});
    ASSERT_EQ(lines().size(), 1u);
    EXPECT_TRUE(lines()[0].ends_with("alias BAD: stands for no variable; it is left out")) << lines()[0];
}

}  // namespace
