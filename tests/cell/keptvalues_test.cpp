// Values that outlive the cell: what is written, what is taken again, and what a kill leaves.
#include "keptvalues.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <limits>
#include <random>
#include <sstream>
#include <thread>

#include "servedtest.h"

using namespace ostrelcell;

namespace {

std::string contents(const std::string& file) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

class KeptValues : public ServedTest {
protected:
    std::string file() const { return path(store() + ".kept"); }
    void put(const std::string& text) const { std::ofstream(file()) << text; }
};

const std::string setpoint = scans + "[real.SP]\nunits = \"bar\"\nvalue = 1\npersist = true\n";

TEST_F(KeptValues, AreThereAtTheNextStart) {
    const std::string lines = setpoint +
                              "[integer.I]\npersist = true\n[logical.L]\npersist = true\n[string.S]\npersist = true\n"
                              "[real_array.A]\nsize = 2\npersist = true\n[string_array.T]\nsize = 2\npersist = true\n"
                              "[real.FORGETS]\nvalue = 5\n";
    serve(lines);
    set_real_variable(&record<REAL_VARIABLE>("SP"), 0.1);
    set_integer(&record<INTEGER_VARIABLE>("I"), -7);
    set_logical(&record<LOGICAL_VARIABLE>("L"), 1);
    char textValue[] = "50 % \xC3\xA4\n\"x\"";
    set_string_variable(&record<STRING_VARIABLE>("S"), textValue);
    const SHARED_MEMORY element = handleOf("A:1");
    ostrel_set_array_element(&element, 1e-300, nullptr);
    const SHARED_MEMORY word = handleOf("T:0");
    ostrel_set_array_element(&word, 0, "first");
    set_real_variable(&record<REAL_VARIABLE>("FORGETS"), 6);
    stop();
    serve(lines);
    EXPECT_EQ(number("SP"), 0.1);
    EXPECT_EQ(number("I"), -7);
    EXPECT_EQ(number("L"), 1);
    EXPECT_EQ(text("S"), textValue);
    EXPECT_EQ(number("A:1"), 1e-300);
    EXPECT_EQ(text("T:0"), "first");
    EXPECT_EQ(text("T:1"), "");
    EXPECT_EQ(number("FORGETS"), 5);
}

TEST_F(KeptValues, AreWrittenWhileTheCellRuns) {
    serve(setpoint);
    set_real_variable(&record<REAL_VARIABLE>("SP"), 2.5);
    EXPECT_TRUE(scanUntil([&] { return contents(file()) == "ostrel-kept 1\nreal SP bar 2.5\nend 1\n"; }))
        << contents(file());
}

// Written past the platform's functions, which trap it. A file with such a value would be put aside as a whole.
TEST_F(KeptValues, ThatAreNoNumbersAreLeftOut) {
    const std::string lines = setpoint + "[real.GOOD]\nvalue = 4\npersist = true\n";
    serve(lines);
    record<REAL_VARIABLE>("SP").value = std::numeric_limits<double>::quiet_NaN();
    stop();
    EXPECT_EQ(contents(file()), "ostrel-kept 1\nreal GOOD - 4\nend 1\n");
}

TEST_F(KeptValues, FollowTheUnitsOfTheCellFile) {
    put("ostrel-kept 1\nreal SP kPa 250\nend 1\n");
    serve(setpoint);
    EXPECT_NEAR(number("SP"), 2.5, 1e-12);
}

TEST_F(KeptValues, LieWhereTheCellFileSays) {
    serve("[cell]\nname = \"test\"\nkept = \"mine.txt\"\n" + setpoint);
    stop();
    EXPECT_EQ(contents(path("mine.txt")), "ostrel-kept 1\nreal SP bar 1\nend 1\n");
    EXPECT_FALSE(std::filesystem::exists(file()));
}

TEST_F(KeptValues, MakeNoFileWhereNothingPersists) {
    serve(scans + "[real.SP]\n");
    scan(3);
    stop();
    EXPECT_FALSE(std::filesystem::exists(file()));
}

TEST_F(KeptValues, ComeAndGoWithAReload) {
    serve(scans + "[real.SP]\nvalue = 3\n");
    int status = -1;
    reload(scans + "[real.SP]\nvalue = 3\npersist = true\n", status);
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(scanUntil([&] { return contents(file()) == "ostrel-kept 1\nreal SP - 3\nend 1\n"; }));
}

TEST_F(KeptValues, ThatDoNotFitAnyMoreLeaveTheRest) {
    put("ostrel-kept 1\nreal SP rpm 5\nreal_array A - 1 2 3\ninteger K - 4\nreal IN - 9\nreal GOOD - 8\nreal GONE - 1\n"
        "end 6\n");
    serve(setpoint +
          "[real_array.A]\nsize = 2\nvalue = 7\npersist = true\n[real.K]\nvalue = 1\npersist = true\n"
          "[real.IN]\nmax = 5\nvalue = 2\npersist = true\n[real.GOOD]\npersist = true\n");
    EXPECT_EQ(number("SP"), 1);
    EXPECT_EQ(number("A:0"), 7);
    EXPECT_EQ(number("K"), 1);
    EXPECT_EQ(number("IN"), 2);
    EXPECT_EQ(number("GOOD"), 8);
}

// min and max are for what clients write; an expression gives what it gives, and goes on from there.
TEST_F(KeptValues, OfAnExpressionMayLieOutsideMinAndMax) {
    put("ostrel-kept 1\nreal HOURS - 9\nreal SP - 9\nend 2\n");
    serve(scans +
          "[real.HOURS]\nexpr = \"HOURS + 0\"\nmax = 5\nvalue = 2\npersist = true\n"
          "[real.SP]\nmax = 5\nvalue = 2\npersist = true\n");
    EXPECT_EQ(number("HOURS"), 9);
    EXPECT_EQ(number("SP"), 2);
}

TEST_F(KeptValues, SayInALineWhatDoesNotFit) {
    put("ostrel-kept 1\nreal SP rpm 5\nend 1\n");
    CellModel model;
    Variable variable;
    variable.kind = REAL_TYPE;
    variable.name = "SP";
    variable.units.keyword = "bar";
    variable.persist = true;
    model.variables.push_back(variable);
    const auto remarks = takeKeptValues(file(), model);
    ASSERT_EQ(remarks.size(), 1U);
    EXPECT_EQ(remarks[0], file() + ": SP starts with the value of the cell file; its kept value is in rpm");
}

class BrokenKeptValues : public KeptValues, public testing::WithParamInterface<const char*> {};

TEST_P(BrokenKeptValues, AreKeptAsideAndTheCellStartsWithItsOwn) {
    put(GetParam());
    testing::internal::CaptureStderr();
    serve(setpoint);
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_EQ(number("SP"), 1);
    EXPECT_EQ(contents(file() + ".broken"), GetParam());
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
    EXPECT_NE(said.find(file() + ": is no whole file of kept values; moved to " + file() + ".broken, and"),
              std::string::npos)
        << said;
}

INSTANTIATE_TEST_SUITE_P(
    , BrokenKeptValues,
    testing::Values("", "ostrel-kept 1\n", "ostrel-kept 1\nreal SP bar 5\n", "ostrel-kept 1\nreal SP bar 5\nend 1",
                    "ostrel-kept 1\nreal SP bar 5\nend 2\n", "ostrel-kept 2\nreal SP bar 5\nend 1\n",
                    "ostrel-kept 1\nreal SP bar five\nend 1\n", "ostrel-kept 1\nreal SP bar nan\nend 1\n",
                    "ostrel-kept 1\nstring SP - %4\nend 1\n", "ostrel-kept 1\nreal SP bar 5\nreal SP bar 6\nend 2\n",
                    "ostrel-kept 1\nreal SP bar 5\nend 1\nmore\n",
                    "\x7f"
                    "ELF"));

// A file cut at each of its bytes is either whole or refused; nothing is taken in part.
TEST_F(KeptValues, AreTakenWholeOrNotAtAll) {
    const std::string whole = "ostrel-kept 1\nreal A - 5\nreal B - 6\nend 2\n";
    for (size_t size = 0; size <= whole.size(); ++size) {
        put(whole.substr(0, size));
        CellModel model;
        model.variables.resize(2);
        for (int index = 0; index < 2; ++index) {
            model.variables[static_cast<size_t>(index)].kind = REAL_TYPE;
            model.variables[static_cast<size_t>(index)].name = index == 0 ? "A" : "B";
            model.variables[static_cast<size_t>(index)].persist = true;
        }
        const auto remarks = takeKeptValues(file(), model);
        EXPECT_EQ(model.variables[0].value, size == whole.size() ? 5 : 0) << size;
        EXPECT_EQ(model.variables[1].value, size == whole.size() ? 6 : 0) << size;
        EXPECT_EQ(remarks.size(), size == whole.size() ? 0U : 1U) << size;
    }
}

[[noreturn]] void replaceForEver(const std::string& file, const std::string& one, const std::string& other) {
    for (;;) {
        replaceFile(file, one);
        replaceFile(file, other);
    }
}

// The process that writes is killed at any moment; the file is the one text or the other, never a piece or a mixture.
TEST_F(KeptValues, SurviveAKillAtAnyMoment) {
    const std::string one(200'000, 'a');
    const std::string other(120'000, 'b');
    std::mt19937 random(7);
    std::uniform_int_distribution<int> microseconds(0, 20'000);
    int seenOne = 0;
    int seenOther = 0;
    replaceFile(file(), one);
    for (int round = 0; round < 60; ++round) {
        const pid_t writer = fork();
        if (writer == 0)
            replaceForEver(file(), one, other);
        std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random)));
        kill(writer, SIGKILL);
        waitpid(writer, nullptr, 0);
        const std::string left = contents(file());
        EXPECT_TRUE(left == one || left == other) << left.size() << " bytes";
        (left == one ? seenOne : seenOther)++;
    }
    EXPECT_GT(seenOne, 0);
    EXPECT_GT(seenOther, 0);
}

TEST_F(KeptValues, ThatCannotBeWrittenSayWhy) {
    EXPECT_EQ(replaceFile(path("nowhere/x.kept"), "text"),
              path("nowhere/x.kept") + ": no file can be made beside it: No such file or directory");
    std::filesystem::create_directory(path("folder"));
    EXPECT_EQ(replaceFile(path("folder"), "text"), path("folder") + ": cannot be replaced: Is a directory");
}

// Who may put something into the folder shall not choose what is written to, nor hold the cell up.
TEST_F(KeptValues, ReplaceNoLinkAndNoPipe) {
    std::ofstream(path("target")) << "precious";
    std::filesystem::create_symlink(path("target"), file());
    EXPECT_EQ(replaceFile(file(), "text"), file() + ": cannot be replaced: is a link");
    EXPECT_EQ(contents(path("target")), "precious");
    CellModel model;
    EXPECT_EQ(takeKeptValues(file(), model),
              std::vector<std::string>{file() + ": kept values cannot be read: is a link"});
    std::filesystem::remove(file());
    ASSERT_EQ(mkfifo(file().c_str(), 0600), 0);
    EXPECT_EQ(replaceFile(file(), "text"), file() + ": cannot be replaced: is no regular file");
    EXPECT_EQ(takeKeptValues(file(), model),
              std::vector<std::string>{file() + ": kept values cannot be read: is no regular file"});
}

TEST_F(KeptValues, ThatAKilledCellWasWritingAreCleanedUp) {
    std::ofstream(file() + ".new-AbC123") << "half";
    std::ofstream(file() + ".new-AbC1234") << "somebody's";
    { KeptFile kept(file()); }
    EXPECT_FALSE(std::filesystem::exists(file() + ".new-AbC123"));
    EXPECT_TRUE(std::filesystem::exists(file() + ".new-AbC1234"));
}

}  // namespace
