// The examples that the help and the man page give do what they say, with the demo cell.
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "paths.h"
#include "toolstest.h"

namespace {

class Examples : public ToolsTest {
protected:
    void SetUp() override {
        ToolsTest::SetUp();
        std::filesystem::copy_file(std::string(paths::sources) + "/demo-cell/cell.toml", cellFile(),
                                   std::filesystem::copy_options::overwrite_existing);
        ASSERT_EQ(ostrel({"reconfig"}).status, 0);
        setenv("OSTREL_STORE", store().c_str(), 1);
    }

    void TearDown() override {
        unsetenv("OSTREL_STORE");
        ToolsTest::TearDown();
    }

    // As the shell reads it. What would go on for ever is left to go on once, what waits for an event gets it.
    void works(const std::string& example) const {
        const std::string watch = example.find(" watch ") != std::string::npos ? " --count 1" : "";
        Program program({"/bin/sh", "-c", "exec " + std::string(paths::command) + example.substr(6) + watch});
        const size_t wait = example.find("event wait ");
        if (wait != std::string::npos) {
            const std::string event = example.substr(wait + 11, example.find(' ', wait + 11) - wait - 11);
            EXPECT_TRUE(eventually([&] {
                return ostrel({"status"}).output.find(event + ": raised 0, attached 1") != std::string::npos;
            })) << example;
            ostrel({"event", "raise", event});
        }
        const Outcome outcome = program.finish();
        EXPECT_EQ(outcome.status, 0) << example;
        EXPECT_EQ(outcome.errors, "") << example;
        EXPECT_NE(outcome.output, "") << example;
    }

    // The lines behind `heading` that call the command.
    void allWork(const std::string& text, const std::string& heading) const {
        std::istringstream lines(text.substr(text.find(heading)));
        int count = 0;
        for (std::string line; std::getline(lines, line);) {
            const size_t start = line.find_first_not_of(' ');
            if (start == std::string::npos || line.compare(start, 7, "ostrel ") != 0)
                continue;
            works(line.substr(start));
            ++count;
        }
        EXPECT_GE(count, 4);
    }
};

}  // namespace

TEST_F(Examples, OfTheHelpWork) {
    allWork(ostrel({"--help"}).output, "Examples:");
}

TEST_F(Examples, OfTheManPageWork) {
    std::ostringstream page;
    page << std::ifstream(std::string(paths::sources) + "/docs/man/ostrel.1").rdbuf();
    allWork(page.str(), ".SH EXAMPLES");
}
