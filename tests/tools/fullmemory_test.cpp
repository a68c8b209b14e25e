// Programs while the shared memory is full: they may refuse what they are asked for, but no signal ends one.
#include <csignal>
#include <fstream>

#include "paths.h"
#include "smallmemory.h"
#include "toolstest.h"

namespace {

class FullMemory : public testing::Test {
protected:
    static constexpr int enough = 32;  // megabytes for the cell
    static constexpr int firstSignal = 128;

    Arguments cellCommand() const { return {paths::cell, cellFile, "--store", store}; }

    Outcome ostrel(Arguments words) const {
        words.insert(words.begin(), {paths::command, "--store", store});
        return run(words);
    }

    // With what it says where it fails.
    std::string refusal(const Arguments& words) const {
        const Outcome outcome = ostrel(words);
        EXPECT_GE(outcome.status, 0) << words.front();
        EXPECT_LT(outcome.status, firstSignal) << words.front();
        return outcome.errors;
    }

    std::string value(const std::string& name) const {
        const Outcome outcome = ostrel({"get", name});
        EXPECT_EQ(outcome.status, 0) << outcome.errors;
        return outcome.output;
    }

    void expectService() const {
        EXPECT_EQ(refusal({"status"}), "");
        EXPECT_EQ(refusal({"list"}), "");
        EXPECT_NE(value("CYCLES"), "");
        EXPECT_EQ(refusal({"set", "SPEED_SP", "1001"}), "");
        EXPECT_EQ(value("SPEED_SP"), "SPEED_SP 1001.00 rpm\n");
        EXPECT_EQ(refusal({"watch", "CYCLES", "--count", "2"}), "");
        refusal({"event", "raise", "config"});
    }

    std::string file(const std::string& name, const std::string& text) const {
        const std::string path = folder.path() / name;
        std::ofstream(path) << text;
        return path;
    }

    Folder folder;
    const std::string store = freshStoreName();
    const std::string cellFile = file(
        "cell.toml",
        "[cell]\nname = \"test\"\nscan_ms = 20\nevents = [\"KNOCK\"]\n[real.SPEED_SP]\nunits = \"rpm\"\nvalue = 1\n"
        "[integer.CYCLES]\nexpr = \"t * 50\"\n");
};

TEST_F(FullMemory, lendsTheRunningCellAndItsClientsNoSignal) {
    withSharedMemoryOf(enough, [this] {
        Program cell(cellCommand());
        ASSERT_TRUE(eventually([this] { return ostrel({"get", "CYCLES"}).status == 0; }));
        const Filler filler;
        expectService();
        EXPECT_NE(refusal({"event", "wait", "KNOCK", "--timeout", "1"}), "");
        cell.signal(SIGHUP);
        expectService();
        cell.signal(SIGTERM);
        EXPECT_EQ(cell.finish().status, 0);
    });
}

TEST_F(FullMemory, isToldWithTheBytesOfAnEvent) {
    withSharedMemoryOf(enough, [this] {
        Program cell(cellCommand());
        ASSERT_TRUE(eventually([this] { return ostrel({"get", "CYCLES"}).status == 0; }));
        {
            const Filler filler;
            const std::string told = refusal({"event", "wait", "KNOCK", "--timeout", "1"});
            EXPECT_NE(told.find("no memory for the event KNOCK"), std::string::npos) << told;
            EXPECT_NE(told.find(" bytes"), std::string::npos) << told;
        }
        EXPECT_EQ(refusal({"event", "raise", "KNOCK"}), "");
    });
}

TEST_F(FullMemory, letsACellStartOrRefuseAtEverySize) {
    for (const int megabytes : {1, 2, 4, 6, 7, 8, 9, 10, 12, 16})
        withSharedMemoryOf(megabytes, [this, megabytes] {
            Program cell(cellCommand());
            cell.prints(1);
            const bool serves = ostrel({"get", "CYCLES"}).status == 0;
            {
                const Filler filler;
                if (serves)
                    expectService();
            }
            cell.signal(SIGTERM);
            const Outcome outcome = cell.finish();
            EXPECT_EQ(outcome.status, serves ? 0 : 1) << megabytes << " MiB: " << outcome.errors;
            const std::string reason = " bytes of shared memory; free some in /dev/shm";
            EXPECT_EQ(outcome.errors.find(reason) == std::string::npos, serves) << outcome.errors;
        });
}

TEST_F(FullMemory, lendsADisplayNoSignal) {
    withSharedMemoryOf(enough, [this] {
        Program cell(cellCommand());
        ASSERT_TRUE(eventually([this] { return ostrel({"get", "CYCLES"}).status == 0; }));
        const Filler filler;
        const std::string picture = folder.path() / "picture.png";
        const Outcome outcome = run({paths::display, "--store", store, "--screenshot", picture, "--after", "1500",
                                     std::string(paths::sources) + "/tests/host/forms/live.ui"});
        EXPECT_EQ(outcome.status, 0) << outcome.errors;
        EXPECT_TRUE(std::filesystem::exists(picture));
    });
}

TEST_F(FullMemory, letsANextCellTakeOverFromOneThatWasKilled) {
    withSharedMemoryOf(enough, [this] {
        Program cell(cellCommand());
        ASSERT_TRUE(eventually([this] { return ostrel({"get", "CYCLES"}).status == 0; }));
        const Filler filler;
        cell.signal(SIGKILL);
        cell.finish();
        EXPECT_NE(refusal({"get", "NO_SUCH"}), "");
        Program next(cellCommand());
        ASSERT_TRUE(eventually([this] { return ostrel({"status"}).status == 0; }));
        expectService();
        next.signal(SIGTERM);
        EXPECT_EQ(next.finish().status, 0);
    });
}

}  // namespace
