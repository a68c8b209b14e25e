// The program ostrel-cell from outside.
#include <ostrel/log.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "celltest.h"
#include "paths.h"
#include "process.h"

namespace {

class Program : public CellTest {
protected:
    Program() { ostrel_store_open(m_store.c_str(), nullptr, nullptr, 0); }

    std::vector<std::string> command(const std::string& file) const { return {paths::cell, file, "--store", m_store}; }

    bool storeExists() const { return std::filesystem::exists("/dev/shm/ostrel-" + m_store); }

    static double heartbeatAge() {
        ostrel_store_status status{};
        ostrel_store_get_status(&status);
        return status.heartbeat_age_s;
    }

    // A client that had linked a store which was taken from under it sees the next one when it looks.
    static bool isLinkedTo(const Process& cell) {
        return eventually([&cell] {
            ostrel_store_status status{};
            ostrel_store_get_status(&status);
            return status.server_pid == cell.pid();
        });
    }

    const std::string m_store = uniqueStoreName();
};

const std::string simple = "[real.SP]\nvalue = 3\n[real.Y]\nexpr = \"SP * 2\"\n[real.CLOCK]\nexpr = \"t\"\n";

std::string contents(const std::string& file) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

TEST_F(Program, ServesUntilItIsTerminated) {
    Process cell(command(write(simple)));
    ASSERT_TRUE(cell.says("\n")) << cell.errors();
    EXPECT_EQ(cell.output(),
              "ostrel-cell: test: serving new store " + m_store + ", 3 variables, 0 aliases, scan 10 ms\n");
    EXPECT_EQ(number("Y"), 6);
    set_real_variable(&record<REAL_VARIABLE>("SP"), 5);
    EXPECT_TRUE(eventually([] { return number("Y") == 10; }));
    EXPECT_TRUE(eventually([] { return number("CLOCK") > 0.1; }));
    cell.signal(SIGTERM);
    EXPECT_EQ(cell.wait(), 0);
    EXPECT_EQ(cell.errors(), "");
    EXPECT_FALSE(storeExists());
}

TEST_F(Program, EndsOnInterrupt) {
    Process cell(command(write(simple)));
    ASSERT_TRUE(cell.says("\n")) << cell.errors();
    cell.signal(SIGINT);
    EXPECT_EQ(cell.wait(), 0);
    EXPECT_FALSE(storeExists());
}

TEST_F(Program, ReloadsOnHangUp) {
    Process cell(command(write(simple + "[real.GOES]\n")));
    ASSERT_TRUE(cell.says("\n")) << cell.errors();
    set_real_variable(&record<REAL_VARIABLE>("SP"), 7);
    write(simple + "[real.COMES]\nexpr = \"SP + 1\"\n");
    cell.signal(SIGHUP);
    ASSERT_TRUE(cell.says("reloaded")) << cell.errors();
    EXPECT_EQ(number("SP"), 7);
    EXPECT_EQ(number("COMES"), 8);
    EXPECT_FALSE(exists("GOES"));
    cell.signal(SIGTERM);
    EXPECT_EQ(cell.wait(), 0);
}

// There is room for 64 arrays of a kind until a cell asks for more.
std::string arrays(int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += "[real_array.A" + std::to_string(i) + "]\nsize = 2\nvalue = " + std::to_string(i) + "\n";
    return text;
}

TEST_F(Program, GrowsItsStoreOnHangUp) {
    Process cell(command(write(simple + arrays(1))));
    ASSERT_TRUE(cell.says("\n")) << cell.errors();
    const REAL_VARIABLE& former = record<REAL_VARIABLE>("SP");
    set_real_variable(&record<REAL_VARIABLE>("SP"), 7);
    write(simple + arrays(100));
    cell.signal(SIGHUP);
    ASSERT_TRUE(cell.says("reloaded")) << cell.errors();
    EXPECT_TRUE(eventually([] { return exists("A99:1") && number("A99:1") == 99; }));
    EXPECT_EQ(number("SP"), 7);
    EXPECT_EQ(former.value, 7);
    set_real_variable(&record<REAL_VARIABLE>("SP"), 8);
    EXPECT_TRUE(eventually([] { return number("Y") == 16; }));
    cell.signal(SIGTERM);
    EXPECT_EQ(cell.wait(), 0);
}

TEST_F(Program, StartsWithMoreThanTheUsualRoom) {
    Process cell(command(write(simple + arrays(100))));
    ASSERT_TRUE(cell.says("\n")) << cell.errors();
    EXPECT_EQ(number("A99:0"), 99);
    EXPECT_TRUE(eventually([] { return number("CLOCK") > 0.1; }));
    cell.signal(SIGTERM);
    EXPECT_EQ(cell.wait(), 0);
}

TEST_F(Program, KeepsTheOldCellWhenAReloadFails) {
    const std::string file = write(simple);
    Process cell(command(file));
    ASSERT_TRUE(cell.says("\n")) << cell.errors();
    write(simple + "[real.BAD]\nunits = \"furlong\"\n");
    cell.signal(SIGHUP);
    ASSERT_TRUE(cell.complains("goes on as it was\n"));
    EXPECT_EQ(cell.errors(), file + ":11: real.BAD: unknown units \"furlong\"\nostrel-cell: " + file +
                                 ": not reloaded; the cell goes on as it was\n");
    EXPECT_FALSE(exists("BAD"));
    const double before = number("CLOCK");
    EXPECT_TRUE(eventually([before] { return number("CLOCK") > before; }));
    cell.signal(SIGTERM);
    EXPECT_EQ(cell.wait(), 0);
}

TEST_F(Program, AStartThatFailsLeavesWhatAKilledOneLeft) {
    Process killed(command(write(simple)));
    ASSERT_TRUE(killed.says("\n")) << killed.errors();
    set_real_variable(&record<REAL_VARIABLE>("SP"), 7);
    killed.signal(SIGKILL);
    killed.wait();
    Process failing(command(write("[cell]\nname = \"test\"\naudit = \"/no/such/folder/audit\"\n" + simple)));
    EXPECT_EQ(failing.wait(), 1);
    EXPECT_NE(failing.errors(), "");
    EXPECT_EQ(number("SP"), 7);
    ostrel_store_status status{};
    EXPECT_EQ(ostrel_store_get_status(&status), 1);
    EXPECT_EQ(status.alive, 0);
    Process next(command(write(simple)));
    ASSERT_TRUE(next.says("serving adopted store")) << next.errors();
    EXPECT_EQ(number("SP"), 7);
    next.signal(SIGTERM);
    EXPECT_EQ(next.wait(), 0);
}

TEST_F(Program, TellsFiveMistakesAndMakesNoStore) {
    const std::string file = write(
        "[real.A]\nunits = \"furlong\"\n[real.B]\nformat = \"%d\"\n[real.C]\nexpr = \"D\"\n"
        "[logical.E]\nvalue = 1\n[alias]\nF = \"G\"\n");
    Process cell(command(file));
    EXPECT_EQ(cell.wait(), 1);
    const std::string errors = cell.errors();
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 5) << errors;
    for (const char* line : {":5: real.A: ", ":7: real.B: ", ":9: real.C: ", ":11: logical.E: ", ":13: alias.F: "})
        EXPECT_NE(errors.find(file + line), std::string::npos) << line << " in\n" << errors;
    EXPECT_EQ(cell.output(), "");
    EXPECT_FALSE(storeExists());
}

TEST_F(Program, RefusesASecondServer) {
    const std::string file = write(simple);
    Process first(command(file));
    ASSERT_TRUE(first.says("\n")) << first.errors();
    Process second(command(file));
    EXPECT_EQ(second.wait(), 1);
    const std::string errors = second.errors();
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
    EXPECT_EQ(errors.rfind("ostrel-cell: ", 0), 0U) << errors;
    EXPECT_NE(errors.find(m_store), std::string::npos) << errors;
    EXPECT_NE(errors.find(std::to_string(first.pid())), std::string::npos) << errors;
    first.signal(SIGTERM);
    EXPECT_EQ(first.wait(), 0);
}

TEST_F(Program, RefusesNamesThatSomebodyElseHasTaken) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can give files away";
    for (const char* part : {".lock", ""}) {
        const std::string squatted = "/dev/shm/ostrel-" + m_store + part;
        std::ofstream(squatted) << "mine";
        ASSERT_EQ(chown(squatted.c_str(), 65534, static_cast<gid_t>(-1)), 0);
        Process cell(command(write(simple)));
        EXPECT_EQ(cell.wait(), 1) << part;
        EXPECT_NE(cell.errors().find("belongs to nobody"), std::string::npos) << part << ": " << cell.errors();
        EXPECT_EQ(contents(squatted), "mine");
        std::filesystem::remove(squatted);
    }
}

TEST_F(Program, AdoptsTheStoreOfAKilledServer) {
    const std::string file = write(simple);
    Process first(command(file));
    ASSERT_TRUE(first.says("\n")) << first.errors();
    REAL_VARIABLE* setpoint = &record<REAL_VARIABLE>("SP");
    set_real_variable(setpoint, 9);
    first.signal(SIGKILL);
    EXPECT_EQ(first.wait(), 128 + SIGKILL);
    Process second(command(file));
    ASSERT_TRUE(second.says("serving adopted store")) << second.errors();
    EXPECT_EQ(+setpoint->value, 9);
    EXPECT_TRUE(eventually([] { return number("Y") == 18; }));
    second.signal(SIGTERM);
    EXPECT_EQ(second.wait(), 0);
}

TEST_F(Program, RecordsWhatClientsWriteBesideItsFile) {
    const std::string file = write("[real.SP]\nmax = 5\nvalue = 3\n[real.Y]\nexpr = \"SP * 2\"\n");
    Process cell(command(file));
    ASSERT_TRUE(cell.says("\n")) << cell.errors();
    set_real_variable(&record<REAL_VARIABLE>("SP"), 4);
    const std::string audit = path(m_store + ".audit");
    ASSERT_TRUE(eventually([&] { return contents(audit).find("\tSP\t3\t4\t") != std::string::npos; }))
        << contents(audit);
    set_real_variable(&record<REAL_VARIABLE>("SP"), 6);
    EXPECT_EQ(number("SP"), 4);
    cell.signal(SIGTERM);
    EXPECT_EQ(cell.wait(), 0);
    const std::string lines = contents(audit);
    EXPECT_NE(lines.find("\tSP\t4\t6\trefused"), std::string::npos) << lines;
    EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 2) << "what the cell writes itself is not told\n" << lines;
}

TEST_F(Program, RecordsWritesWhereItIsTold) {
    const std::string head = "[cell]\nname = \"test\"\nscan_ms = 10\nlog = \"logs/cell.log\"\n";
    std::filesystem::create_directory(path("logs"));
    for (const auto& [key, place] : {std::pair<std::string, std::string>{"", "logs/" + m_store + ".audit"},
                                     {"audit = \"who.txt\"\n", "who.txt"}}) {
        Process cell(command(write(head + key + "[real.SP]\n")));
        ASSERT_TRUE(cell.says("\n")) << cell.errors();
        ASSERT_TRUE(isLinkedTo(cell));
        set_real_variable(&record<REAL_VARIABLE>("SP"), 1);
        cell.signal(SIGTERM);
        EXPECT_EQ(cell.wait(), 0);
        EXPECT_NE(contents(path(place)).find("\tSP\t0\t1\t"), std::string::npos) << place;
    }
}

TEST_F(Program, RecordsNoWritesWhereItIsToldSo) {
    Process cell(command(write("[cell]\nname = \"test\"\naudit = \"\"\n[real.SP]\n")));
    ASSERT_TRUE(cell.says("\n")) << cell.errors();
    set_real_variable(&record<REAL_VARIABLE>("SP"), 1);
    cell.signal(SIGTERM);
    EXPECT_EQ(cell.wait(), 0);
    EXPECT_FALSE(std::filesystem::exists(path(m_store + ".audit")));
}

TEST_F(Program, DoesNotServeWithoutTheRecordThatWasAskedFor) {
    Process cell(command(write("[cell]\nname = \"test\"\naudit = \"nowhere/who.txt\"\n")));
    EXPECT_EQ(cell.wait(), 1);
    EXPECT_EQ(cell.errors(), "ostrel-cell: " + path("nowhere/who.txt") +
                                 ": the audit file cannot be written: No such file or directory\n");
    EXPECT_FALSE(storeExists());
}

TEST_F(Program, GoesOnWhereItsRecordCannotBeWritten) {
    const std::string file = write("[real.SP]\n[real.CLOCK]\nexpr = \"t\"\n");
    std::filesystem::create_directory(path(m_store + ".audit"));
    Process cell(command(file));
    ASSERT_TRUE(cell.says("\n")) << cell.errors();
    set_real_variable(&record<REAL_VARIABLE>("SP"), 1);
    ASSERT_TRUE(cell.complains("what clients write is not recorded")) << cell.errors();
    const double before = number("CLOCK");
    EXPECT_TRUE(eventually([before] { return number("CLOCK") > before + 0.2; }));
    const std::string errors = cell.errors();
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
    EXPECT_NE(errors.find(m_store + ".audit: cannot be written"), std::string::npos) << errors;
    cell.signal(SIGTERM);
    EXPECT_EQ(cell.wait(), 0);
}

// What a power cut leaves: no process, no shared memory, the files.
void forgetStore(const std::string& store) {
    for (const auto& entry : std::filesystem::directory_iterator("/dev/shm"))
        if (entry.path().filename().string().rfind("ostrel-" + store, 0) == 0)
            std::filesystem::remove(entry.path());
}

TEST_F(Program, StartsWithTheSetpointsOfTheLastRun) {
    const std::string file = write("[real.SP]\nvalue = 3\npersist = true\n[real.Y]\nexpr = \"SP * 2\"\n");
    Process first(command(file));
    ASSERT_TRUE(first.says("\n")) << first.errors();
    set_real_variable(&record<REAL_VARIABLE>("SP"), 5);
    first.signal(SIGTERM);
    EXPECT_EQ(first.wait(), 0);
    Process second(command(file));
    ASSERT_TRUE(second.says("serving new store")) << second.errors();
    EXPECT_EQ(number("Y"), 10);
    set_real_variable(&record<REAL_VARIABLE>("SP"), 6);
    ASSERT_TRUE(eventually([&] { return contents(path(m_store + ".kept")).find("SP - 6\n") != std::string::npos; }));
    second.signal(SIGKILL);
    EXPECT_EQ(second.wait(), 128 + SIGKILL);
    forgetStore(m_store);
    Process third(command(file));
    ASSERT_TRUE(third.says("serving new store")) << third.errors();
    ASSERT_TRUE(isLinkedTo(third));
    EXPECT_EQ(number("SP"), 6);
    EXPECT_EQ(third.errors(), "");
    third.signal(SIGTERM);
    EXPECT_EQ(third.wait(), 0);
}

// Killed while it writes values that change at every scan: what is left is of one scan, and the next run goes on there.
TEST_F(Program, LeavesWholeKeptValuesWhereverItIsKilled) {
    const std::string file = write("[real_array.A]\nsize = 2000\nexpr = \"prev(A:i) + 1\"\npersist = true\n");
    const std::string kept = path(m_store + ".kept");
    double highest = 0;
    for (int round = 0; round < 4; ++round) {
        Process cell(command(file));
        ASSERT_TRUE(cell.says("\n")) << cell.errors();
        EXPECT_EQ(cell.errors(), "") << "round " << round;
        ASSERT_TRUE(isLinkedTo(cell));
        EXPECT_GT(number("A:0"), highest);
        const std::string before = contents(kept);
        ASSERT_TRUE(eventually([&] { return contents(kept) != before; }));
        cell.signal(SIGKILL);
        EXPECT_EQ(cell.wait(), 128 + SIGKILL);
        forgetStore(m_store);
        std::istringstream words(contents(kept));
        std::string word;
        for (int skipped = 0; skipped < 6; ++skipped)
            words >> word;
        highest = std::stod(word);
        for (int element = 1; element < 2000; ++element) {
            std::string next;
            words >> next;
            ASSERT_EQ(next, word) << "of one scan";
        }
    }
    EXPECT_GT(highest, 0);
}

TEST_F(Program, ScansBeatsAndEndsWhileTheDiskHangs) {
    const std::string file =
        write("[cell]\nname = \"test\"\nscan_ms = 10\nlog = \"cell.log\"\n" + simple + "persist = true\n");
    setenv("LD_PRELOAD", paths::hangingDisk, 1);
    setenv("HANGING_FOLDER", std::filesystem::path(file).parent_path().c_str(), 1);
    Process cell(command(file));
    unsetenv("LD_PRELOAD");
    ASSERT_TRUE(cell.says("\n")) << cell.errors();
    std::ofstream(path("hangs")) << "";
    REAL_VARIABLE* setpoint = &record<REAL_VARIABLE>("SP");
    for (int i = 0; i < 5; ++i) {
        set_real_variable(setpoint, 10 + i);
        log_error("a program", 1, 1, 0, "has something to say");
        const double before = number("CLOCK");
        EXPECT_TRUE(eventually([&] { return number("CLOCK") > before + 0.2 && number("Y") == 2 * (10 + i); }));
        EXPECT_LT(heartbeatAge(), 1);
    }
    EXPECT_EQ(contents(path("cell.log")), "");
    cell.signal(SIGTERM);
    EXPECT_EQ(cell.wait(), 0);
    EXPECT_FALSE(storeExists());
}

TEST_F(Program, WritesTheLinesOfAllProgramsIntoTheLog) {
    Process cell(command(write("[cell]\nname = \"test\"\nscan_ms = 10\nlog = \"cell.log\"\nlog_mb = 1\n" + simple)));
    ASSERT_TRUE(cell.says("\n")) << cell.errors();
    log_error("a program", 7, 1, 0, "pressure %d\x1b[2J", 12);
    ASSERT_TRUE(eventually([&] { return contents(path("cell.log")).find("pressure 12") != std::string::npos; }));
    EXPECT_EQ(contents(path("cell.log")).find('\x1b'), std::string::npos);
    // Said at the very end, it gets there too.
    log_error("a program", 8, 1, 0, "last words");
    cell.signal(SIGTERM);
    EXPECT_EQ(cell.wait(), 0);
    EXPECT_NE(contents(path("cell.log")).find("last words"), std::string::npos);
}

TEST_F(Program, ShowsThatItLivesMoreOftenThanItScans) {
    Process cell(command(write("[cell]\nname = \"slow\"\nscan_ms = 1000\n[real.SCANS]\nexpr = \"SCANS + 1\"\n")));
    ASSERT_TRUE(cell.says("\n")) << cell.errors();
    const double start = number("SCANS");
    double age = 0;
    int beats = 0;
    ASSERT_TRUE(eventually([&] {
        const double before = age;
        age = heartbeatAge();
        beats += age < before ? 1 : 0;
        return number("SCANS") >= start + 3;
    }));
    EXPECT_GT(beats, 4);
    cell.signal(SIGTERM);
    EXPECT_EQ(cell.wait(), 0);
}

TEST_F(Program, ChecksAFile) {
    const std::string file = write(simple);
    Process good({paths::cell, "--check", file});
    EXPECT_EQ(good.wait(), 0);
    EXPECT_EQ(good.output(), "ostrel-cell: " + file + ": no mistakes; cell test, 3 variables, 0 aliases\n");
    write(simple + "x = 1\n");
    Process bad({paths::cell, "--check", file});
    EXPECT_EQ(bad.wait(), 1);
    EXPECT_EQ(bad.errors(), file + ":10: real.CLOCK: unknown key \"x\"\n");
}

TEST_F(Program, ExplainsItself) {
    Process help({paths::cell, "--help"});
    EXPECT_EQ(help.wait(), 0);
    for (const char* word : {"--store", "--check", "--version", "SIGHUP", "FILE"})
        EXPECT_NE(help.output().find(word), std::string::npos) << word;
    Process version({paths::cell, "--version"});
    EXPECT_EQ(version.wait(), 0);
    EXPECT_EQ(version.output(), std::string("ostrel-cell ") + paths::version + "\n");
}

TEST_F(Program, EndsWithTwoOnWrongUsage) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{}, {"--nonsense", "x"}, {"a.toml", "b.toml"}, {"a.toml", "--store"}}) {
        std::vector<std::string> words = {paths::cell};
        words.insert(words.end(), arguments.begin(), arguments.end());
        Process cell(words);
        EXPECT_EQ(cell.wait(), 2);
        EXPECT_EQ(cell.errors().rfind("ostrel-cell: ", 0), 0U) << cell.errors();
        EXPECT_EQ(cell.output(), "");
    }
}

TEST_F(Program, SaysThatItsFileIsMissing) {
    Process cell(command(path("nowhere.toml")));
    EXPECT_EQ(cell.wait(), 1);
    EXPECT_EQ(cell.errors(), path("nowhere.toml") + ": cannot be read: No such file or directory\n");
}

}  // namespace
