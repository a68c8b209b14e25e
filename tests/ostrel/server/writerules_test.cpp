// What the cell lets clients write, and the list of what they wrote.
#include <fcntl.h>
#include <pwd.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <climits>
#include <cmath>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <thread>

#include "ostrel/storefixture.h"

namespace {

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

char* text(const std::string& s) {
    return const_cast<char*>(s.c_str());
}

class WriteRules : public StoreTest {
protected:
    void SetUp() override {
        StoreTest::SetUp();
        configure({"put 54 1 REAL", "put 54 1 FREE", "put 55 2 INT", "put 56 3 LOGI", "put 57 7 TEXT",
                   "array 15 REALS 2 3", "array 16 INTS 3", "array 17 TEXTS 3", "array 18 LOGIS 3"});
    }

    void TearDown() override {
        StoreTest::TearDown();
        std::filesystem::remove(file);
    }

    double real(const std::string& label) { return record<REAL_VARIABLE>(label)->value; }

    static int setElement(const std::string& name, double number, const char* words = nullptr) {
        const SHARED_MEMORY mem = handle(name);
        return ostrel_set_array_element(&mem, number, words);
    }

    static std::vector<ostrel_write> writes(uint64_t after = 0) {
        std::vector<ostrel_write> result;
        for (ostrel_write write{}; ostrel_next_write(after, &write) == 0; after = write.number)
            result.push_back(write);
        return result;
    }

    std::vector<std::string> drained() {
        EXPECT_EQ(server.tell("drain " + file), "ok");
        return lines();
    }

    std::vector<std::string> lines() const {
        std::ifstream stream(file);
        std::vector<std::string> result;
        for (std::string line; std::getline(stream, line);)
            result.push_back(line);
        return result;
    }

    static std::vector<std::string> fields(const std::string& line) {
        std::vector<std::string> result(1);
        for (const char c : line)
            if (c == '\t')
                result.emplace_back();
            else
                result.back() += c;
        return result;
    }

    const std::string file = testing::TempDir() + store + ".writes";
};

TEST_F(WriteRules, AVariableWithoutARuleTakesEveryNumber) {
    set_real_variable(record<REAL_VARIABLE>("REAL"), -1e300);
    EXPECT_EQ(real("REAL"), -1e300);
    EXPECT_EQ(set_integer(record<INTEGER_VARIABLE>("INT"), INT_MIN), 0);
}

TEST_F(WriteRules, NobodyWritesWhatIsNotWritable) {
    for (const char* name : {"REAL", "INT", "LOGI", "TEXT", "REALS", "INTS", "TEXTS", "LOGIS"})
        ASSERT_EQ(server.tell(std::string("rule ") + name + " 0 - -"), "ok");
    set_real_variable(record<REAL_VARIABLE>("REAL"), 1);
    EXPECT_EQ(set_integer(record<INTEGER_VARIABLE>("INT"), 1), OSTREL_NOT_WRITABLE);
    EXPECT_EQ(set_logical(record<LOGICAL_VARIABLE>("LOGI"), 1), OSTREL_NOT_WRITABLE);
    EXPECT_EQ(set_logical_variable(record<LOGICAL_VARIABLE>("LOGI"), 1, 0, nullptr), OSTREL_NOT_WRITABLE);
    EXPECT_EQ(set_string_variable(record<STRING_VARIABLE>("TEXT"), text("no")), OSTREL_NOT_WRITABLE);
    EXPECT_EQ(setElement("REALS:1:2", 1), OSTREL_NOT_WRITABLE);
    EXPECT_EQ(setElement("INTS:0", 1), OSTREL_NOT_WRITABLE);
    EXPECT_EQ(setElement("LOGIS:0", 1), OSTREL_NOT_WRITABLE);
    EXPECT_EQ(setElement("TEXTS:0", 0, "no"), OSTREL_NOT_WRITABLE);
    EXPECT_EQ(real("REAL"), 0);
    EXPECT_EQ(+record<REAL_VARIABLE>("REAL")->update_count, 0u);
    EXPECT_EQ(+record<INTEGER_VARIABLE>("INT")->value, 0);
    EXPECT_EQ(+record<LOGICAL_VARIABLE>("LOGI")->value, 0);
    EXPECT_EQ(record<STRING_VARIABLE>("TEXT")->value[0], '\0');
    EXPECT_EQ(+static_cast<REAL_ARRAY_MEMBER*>(handle("REALS:1:2").member_adr)->value, 0);
}

TEST_F(WriteRules, APlainStoreIsHeldToTheRuleToo) {
    LOGICAL_VARIABLE* logical = record<LOGICAL_VARIABLE>("LOGI");
    ASSERT_EQ(server.tell("rule LOGI 1 - 0"), "ok");
    EXPECT_EQ(ostrel_store_logical(logical, 1), OSTREL_OUTSIDE);
    ASSERT_EQ(server.tell("rule LOGI 0 - -"), "ok");
    EXPECT_EQ(ostrel_store_logical(logical, 0), OSTREL_NOT_WRITABLE);
    EXPECT_EQ(ostrel_store_logical(logical, 1), OSTREL_NOT_WRITABLE);
    EXPECT_EQ(+logical->value, 0);
    ASSERT_EQ(server.tell("rule LOGI 1 - -"), "ok");
    EXPECT_EQ(ostrel_store_logical(logical, 1), OSTREL_STORED);
    EXPECT_EQ(+logical->value, 1);
    std::vector<short> refusals;
    for (const ostrel_write& write : writes())
        refusals.push_back(write.refusal);
    EXPECT_EQ(refusals, (std::vector<short>{OSTREL_OUTSIDE, OSTREL_NOT_WRITABLE, OSTREL_NOT_WRITABLE, OSTREL_STORED}));
}

TEST_F(WriteRules, APlainStoreIsListedAsAnyWrite) {
    EXPECT_EQ(ostrel_store_logical(record<LOGICAL_VARIABLE>("LOGI"), 5), OSTREL_STORED);
    const auto list = writes();
    ASSERT_EQ(list.size(), 1u);
    EXPECT_STREQ(list[0].variable, "LOGI");
    EXPECT_STREQ(list[0].old_value, "0");
    EXPECT_STREQ(list[0].new_value, "1");
    EXPECT_EQ(list[0].pid, getpid());
}

// A client that may read the store and not write it: another user's, or the owner's own of mode 0444.
TEST(ReadOnlyClient, IsRefusedAndGoesOn) {
    const std::string store = newStoreName();
    ServerProcess server;
    ASSERT_EQ(server.tell("open " + store + " 0444"), "ok 0");
    for (const char* command : {"begin -1", "put 54 1 REAL", "put 56 3 LOGI", "array 15 REALS 3", "commit"})
        ASSERT_EQ(server.tell(command).substr(0, 2), "ok") << command;
    const pid_t client = fork();
    if (client == 0) {
        const uid_t nobody = 65534;
        SHARED_MEMORY real{};
        SHARED_MEMORY logical{};
        SHARED_MEMORY element{};
        if ((geteuid() == 0 && setuid(nobody) != 0) || ostrel_store_open(store.c_str(), nullptr, nullptr, 0) != 0)
            _exit(100);
        if (find_variable(text("REAL"), &real) != 0 || find_variable(text("LOGI"), &logical) != 0 ||
            find_variable(text("REALS:1"), &element) != 0)
            _exit(101);
        if (ostrel_set_real(static_cast<REAL_VARIABLE*>(get_vrbl_adr(real)), 1) != OSTREL_READ_ONLY)
            _exit(103);
        auto* record = static_cast<LOGICAL_VARIABLE*>(get_vrbl_adr(logical));
        if (set_logical(record, 1) != OSTREL_READ_ONLY || ostrel_store_logical(record, 1) != OSTREL_READ_ONLY ||
            ostrel_set_array_element(&element, 1, nullptr) != OSTREL_READ_ONLY || record->value != 0)
            _exit(102);
        _exit(0);
    }
    int status = -1;
    EXPECT_EQ(waitpid(client, &status, 0), client);
    EXPECT_EQ(status, 0) << "exit status " << WEXITSTATUS(status) << ", signal " << WTERMSIG(status);
    server.tell("close");
    removeObjectsOf(store);
}

TEST_F(WriteRules, ValuesOutsideTheLimitsAreRefusedAndTheLimitsThemselvesAreNot) {
    ASSERT_EQ(server.tell("rule REAL 1 -2.5 10"), "ok");
    REAL_VARIABLE* variable = record<REAL_VARIABLE>("REAL");
    for (const double inside : {-2.5, 0.0, 10.0}) {
        set_real_variable(variable, inside);
        EXPECT_EQ(+variable->value, inside);
    }
    for (const double outside : {std::nextafter(-2.5, -3), std::nextafter(10, 11), HUGE_VAL, -HUGE_VAL}) {
        set_real_variable(variable, outside);
        EXPECT_EQ(+variable->value, 10) << outside;
    }
    EXPECT_EQ(+variable->update_count, 3u);
    set_real_variable(variable, noNumber);
    EXPECT_EQ(+variable->value, 10);
}

TEST_F(WriteRules, ARealTellsWhatBecameOfIt) {
    ASSERT_EQ(server.tell("rule REAL 1 0 1"), "ok");
    REAL_VARIABLE* variable = record<REAL_VARIABLE>("REAL");
    EXPECT_EQ(ostrel_set_real(variable, 0.5), OSTREL_STORED);
    EXPECT_EQ(ostrel_set_real(variable, 2), OSTREL_OUTSIDE);
    EXPECT_EQ(ostrel_set_real(record<REAL_VARIABLE>("FREE"), noNumber), OSTREL_NO_VALUE);
    EXPECT_EQ(ostrel_set_real(nullptr, 0), OSTREL_NO_RECORD);
    EXPECT_EQ(+variable->value, 0.5);
}

TEST_F(WriteRules, OneLimitAloneHolds) {
    ASSERT_EQ(server.tell("rule INT 1 5 -"), "ok");
    EXPECT_EQ(set_integer(record<INTEGER_VARIABLE>("INT"), 4), OSTREL_OUTSIDE);
    EXPECT_EQ(set_integer(record<INTEGER_VARIABLE>("INT"), INT_MAX), 0);
    ASSERT_EQ(server.tell("rule INT 1 - 5"), "ok");
    EXPECT_EQ(set_integer(record<INTEGER_VARIABLE>("INT"), 6), OSTREL_OUTSIDE);
    EXPECT_EQ(set_integer(record<INTEGER_VARIABLE>("INT"), INT_MIN), 0);
}

TEST_F(WriteRules, AnArraysRuleHoldsForEachElement) {
    ASSERT_EQ(server.tell("rule REALS 1 0 1"), "ok");
    ASSERT_EQ(server.tell("rule INTS 1 0 1"), "ok");
    EXPECT_EQ(setElement("REALS:1:2", 1.5), OSTREL_OUTSIDE);
    EXPECT_EQ(setElement("REALS:1:2", 0.5), 0);
    EXPECT_EQ(setElement("INTS:2", 2), OSTREL_OUTSIDE);
    EXPECT_EQ(setElement("INTS:2", 1.4), 0) << "an integer element takes the whole number next to it";
    EXPECT_EQ(setElement("REALS:0:0", noNumber), OSTREL_NO_VALUE);
}

TEST_F(WriteRules, AnotherVariablesRuleDoesNotMatter) {
    ASSERT_EQ(server.tell("rule REAL 0 - -"), "ok");
    set_real_variable(record<REAL_VARIABLE>("FREE"), 3);
    EXPECT_EQ(real("FREE"), 3);
}

TEST_F(WriteRules, AliasesLeadToTheRuleOfTheirTarget) {
    configure({"put 54 1 REAL", "alias NICK REAL 1", "rule REAL 1 0 1"});
    set_real_variable(record<REAL_VARIABLE>("NICK"), 2);
    EXPECT_EQ(real("REAL"), 0);
}

TEST_F(WriteRules, TheServerItselfWritesWhatItWants) {
    ASSERT_EQ(server.tell("rule REAL 0 - -"), "ok");
    ASSERT_EQ(server.tell("set REAL 4"), "ok");
    EXPECT_EQ(real("REAL"), 4);
    EXPECT_TRUE(writes().empty());
}

TEST_F(WriteRules, StayWithTheNameThroughAReconfigurationAndAnAdoption) {
    ASSERT_EQ(server.tell("rule REAL 1 0 1"), "ok");
    configure({"put 54 1 REAL", "put 54 1 FREE"});
    set_real_variable(record<REAL_VARIABLE>("REAL"), 2);
    EXPECT_EQ(real("REAL"), 0);
    server.killHard();
    set_real_variable(record<REAL_VARIABLE>("REAL"), 2);
    EXPECT_EQ(real("REAL"), 0) << "also while nobody serves the store";
    ServerProcess next;
    ASSERT_EQ(next.tell("open " + store), "ok 1");
    set_real_variable(record<REAL_VARIABLE>("REAL"), 2);
    EXPECT_EQ(real("REAL"), 0);
    next.tell("close");
}

TEST_F(WriteRules, ANewVariableInAUsedSlotIsFreeOfTheOldOnesRule) {
    std::vector<std::string> control;
    for (int i = 0; i < 4; ++i)
        control.push_back("put 9 2 C" + std::to_string(i));
    configure(control);
    for (int i = 0; i < 4; ++i)
        ASSERT_EQ(server.tell("rule C" + std::to_string(i) + " 0 - -"), "ok");
    configure({"put 9 2 D0"});
    EXPECT_EQ(set_integer(record<INTEGER_VARIABLE>("D0"), 7), 0);
}

TEST_F(WriteRules, ARuleForANameThatWasNotPutIsAnError) {
    EXPECT_EQ(server.tell("rule NOBODY 0 - -").substr(0, 5), "error");
}

TEST_F(WriteRules, EachWriteIsListedWithWhoAndWhat) {
    set_real_variable(record<REAL_VARIABLE>("REAL"), 1.5);
    set_real_variable(record<REAL_VARIABLE>("REAL"), 0.1);
    const auto list = writes();
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[0].number, 1u);
    EXPECT_EQ(list[1].number, 2u);
    EXPECT_STREQ(list[1].variable, "REAL");
    EXPECT_STREQ(list[1].old_value, "1.5");
    EXPECT_STREQ(list[1].new_value, "0.1");
    EXPECT_EQ(list[1].kind, REAL_TYPE);
    EXPECT_EQ(list[1].refusal, 0);
    EXPECT_EQ(list[1].pid, getpid());
    EXPECT_EQ(list[1].uid, getuid());
    EXPECT_STREQ(list[1].user, getpwuid(getuid())->pw_name);
    EXPECT_EQ(std::string(list[1].program), std::string(program_invocation_short_name).substr(0, 23));
    EXPECT_NEAR(static_cast<double>(list[1].time.tv_sec), static_cast<double>(time(nullptr)), 5);
}

TEST_F(WriteRules, EveryKindIsListedInItsOwnWords) {
    set_integer(record<INTEGER_VARIABLE>("INT"), -7);
    set_logical(record<LOGICAL_VARIABLE>("LOGI"), 5);
    set_string_variable(record<STRING_VARIABLE>("TEXT"), text(std::string(80, 'x')));
    setElement("REALS:1:2", 2.25);
    setElement("INTS:1", 3);
    setElement("LOGIS:2", 1);
    setElement("TEXTS:0", 0, "hot start");
    const auto list = writes();
    ASSERT_EQ(list.size(), 7u);
    const std::pair<std::string, std::string> expected[] = {
        {"INT", "-7"},   {"LOGI", "1"},    {"TEXT", std::string(80, 'x')}, {"REALS:1:2", "2.25"},
        {"INTS:1", "3"}, {"LOGIS:2", "1"}, {"TEXTS:0", "hot start"}};
    for (size_t i = 0; i < list.size(); ++i) {
        EXPECT_EQ(list[i].variable, expected[i].first);
        EXPECT_EQ(list[i].new_value, expected[i].second);
    }
    EXPECT_STREQ(list[0].old_value, "0");
    EXPECT_STREQ(list[2].old_value, "");
}

TEST_F(WriteRules, RefusedWritesAreListedToo) {
    server.tell("rule REAL 1 0 1");
    server.tell("rule INT 0 - -");
    set_real_variable(record<REAL_VARIABLE>("REAL"), 7);
    set_integer(record<INTEGER_VARIABLE>("INT"), 7);
    set_real_variable(record<REAL_VARIABLE>("FREE"), noNumber);
    const auto list = writes();
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(list[0].refusal, OSTREL_OUTSIDE);
    EXPECT_STREQ(list[0].old_value, "0");
    EXPECT_STREQ(list[0].new_value, "7");
    EXPECT_EQ(list[1].refusal, OSTREL_NOT_WRITABLE);
    EXPECT_EQ(list[2].refusal, OSTREL_NO_VALUE);
}

TEST_F(WriteRules, TheListKeepsTheLast4096) {
    REAL_VARIABLE* variable = record<REAL_VARIABLE>("REAL");
    for (int i = 1; i <= 5000; ++i)
        set_real_variable(variable, i);
    const auto list = writes();
    ASSERT_EQ(list.size(), 4096u);
    EXPECT_EQ(list.front().number, 905u);
    EXPECT_STREQ(list.front().new_value, "905");
    EXPECT_EQ(list.back().number, 5000u);
    EXPECT_EQ(writes(4999).size(), 1u);
    ostrel_write write{};
    EXPECT_NE(ostrel_next_write(5000, &write), 0);
    EXPECT_NE(ostrel_next_write(UINT64_MAX, &write), 0);
    EXPECT_NE(ostrel_next_write(0, nullptr), 0);
}

TEST_F(WriteRules, ManyWritersAtOnceLoseNoWriteAndMixNone) {
    constexpr int threads = 4;
    constexpr int each = 500;
    std::vector<std::thread> writers;
    for (int t = 0; t < threads; ++t)
        writers.emplace_back([t] {
            const SHARED_MEMORY mem = handle("REALS:" + std::to_string(t % 2) + ":" + std::to_string(t / 2));
            for (int i = 0; i < each; ++i)
                ostrel_set_array_element(&mem, t * each + i, nullptr);
        });
    for (std::thread& writer : writers)
        writer.join();
    const auto list = writes();
    ASSERT_EQ(list.size(), size_t{threads * each});
    for (const ostrel_write& write : list) {
        const int t = std::stoi(write.new_value) / each;
        EXPECT_EQ(write.variable, "REALS:" + std::to_string(t % 2) + ":" + std::to_string(t / 2));
    }
}

TEST_F(WriteRules, AWriteIsDrainedToTheFileOnce) {
    server.tell("rule INT 0 - -");
    set_real_variable(record<REAL_VARIABLE>("REAL"), 1.5);
    set_integer(record<INTEGER_VARIABLE>("INT"), 3);
    auto inFile = drained();
    ASSERT_EQ(inFile.size(), 2u);
    const auto first = fields(inFile[0]);
    ASSERT_EQ(first.size(), 9u);
    EXPECT_EQ(first[1], "1");
    EXPECT_EQ(first[3], std::to_string(getpid()));
    EXPECT_EQ(first[4], getpwuid(getuid())->pw_name);
    EXPECT_EQ(first[5], "REAL");
    EXPECT_EQ(first[6], "0");
    EXPECT_EQ(first[7], "1.5");
    EXPECT_EQ(first[8], "stored");
    EXPECT_EQ(fields(inFile[1])[8], "refused: not writable");
    EXPECT_EQ(drained().size(), 2u);
    set_real_variable(record<REAL_VARIABLE>("REAL"), 2);
    EXPECT_EQ(drained().size(), 3u);
    EXPECT_EQ(writes().size(), 3u) << "what is in the file is still in the list";
}

TEST_F(WriteRules, NothingWrittenMakesNoFile) {
    EXPECT_TRUE(drained().empty());
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(WriteRules, TheNextServerDrainsWhatAKilledOneLeft) {
    set_real_variable(record<REAL_VARIABLE>("REAL"), 1);
    EXPECT_EQ(drained().size(), 1u);
    set_real_variable(record<REAL_VARIABLE>("REAL"), 2);
    server.killHard();
    set_real_variable(record<REAL_VARIABLE>("REAL"), 3);
    ServerProcess next;
    ASSERT_EQ(next.tell("open " + store), "ok 1");
    ASSERT_EQ(next.tell("drain " + file), "ok");
    const auto inFile = lines();
    ASSERT_EQ(inFile.size(), 3u);
    EXPECT_EQ(fields(inFile[1])[7], "2");
    EXPECT_EQ(fields(inFile[2])[7], "3");
    next.tell("close");
}

TEST_F(WriteRules, WhatCameTooFastIsCountedInTheFile) {
    for (int i = 1; i <= 4096 + 10; ++i)
        set_real_variable(record<REAL_VARIABLE>("REAL"), i);
    const auto inFile = drained();
    ASSERT_EQ(inFile.size(), 4097u);
    EXPECT_EQ(inFile[0][0], '#');
    EXPECT_NE(inFile[0].find(" 10 writes are missing here"), std::string::npos) << inFile[0];
    EXPECT_EQ(fields(inFile[1])[1], "11");
}

TEST_F(WriteRules, AFileThatCannotBeWrittenLosesNothing) {
    set_real_variable(record<REAL_VARIABLE>("REAL"), 1);
    const std::string answer = server.tell("drain " + file + "/no/folder");
    EXPECT_EQ(answer.substr(0, 5), "error");
    EXPECT_NE(answer.find("cannot be written"), std::string::npos) << answer;
    EXPECT_EQ(drained().size(), 1u);
}

TEST_F(WriteRules, TextsCannotBreakALineOfTheFile) {
    set_string_variable(record<STRING_VARIABLE>("TEXT"), text("a\tb\nc\\d\x01"));
    const auto inFile = drained();
    ASSERT_EQ(inFile.size(), 1u);
    EXPECT_EQ(fields(inFile[0])[7], "a\\tb\\nc\\\\d\\x01");
}

// The ring as it lies in shared memory: number given out, number drained, entries of 320 bytes from byte 64 on.
struct Ring {
    explicit Ring(const std::string& store) {
        const int fd = shm_open(("/ostrel-" + store + "-writes").c_str(), O_RDWR, 0);
        words = static_cast<uint64_t*>(mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0));
        close(fd);
    }
    ~Ring() { munmap(words, size); }
    Ring(const Ring&) = delete;
    Ring& operator=(const Ring&) = delete;
    uint64_t* entry(uint64_t number) const { return words + 8 + (number - 1) % 4096 * 40; }

    static constexpr size_t size = 64 + 4096 * 320;
    uint64_t* words;
};

TEST_F(WriteRules, AWriterKilledInTheMiddleCostsItsOwnEntryAlone) {
    set_real_variable(record<REAL_VARIABLE>("REAL"), 1);
    const Ring ring(store);
    // As a writer leaves it that took a number and died before, and one that died while it filled its entry.
    ring.words[0] += 2;
    ring.entry(3)[0] = 5;
    set_real_variable(record<REAL_VARIABLE>("REAL"), 4);
    const auto list = writes();
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[1].number, 4u);
    EXPECT_EQ(drained().size(), 1u) << "a writer that is under way is waited for";
    ASSERT_TRUE(comesTrue([this] { return drained().size() == 3; }));
    const auto inFile = lines();
    EXPECT_EQ(fields(inFile[0])[1], "1");
    EXPECT_NE(inFile[1].find(" 2 writes are missing here"), std::string::npos) << inFile[1];
    EXPECT_EQ(fields(inFile[2])[1], "4");
}

TEST_F(WriteRules, ASpoiledEntryIsNotBelieved) {
    set_real_variable(record<REAL_VARIABLE>("REAL"), 1);
    set_real_variable(record<REAL_VARIABLE>("REAL"), 2);
    const Ring ring(store);
    ring.entry(1)[20] ^= 1;
    const auto list = writes();
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].number, 2u);
    EXPECT_EQ(drained().size(), 2u);
    EXPECT_EQ(lines()[0][0], '#');
}

TEST_F(WriteRules, SpoiledCountersDoNoHarm) {
    set_real_variable(record<REAL_VARIABLE>("REAL"), 1);
    const Ring ring(store);
    for (const uint64_t taken : {UINT64_MAX, UINT64_MAX - 1, uint64_t{1} << 63, uint64_t{0}}) {
        ring.words[0] = taken;
        ring.words[1] = ~taken;
        writes();
        set_real_variable(record<REAL_VARIABLE>("REAL"), 2);
        EXPECT_EQ(server.tell("drain " + file), "ok") << taken;
    }
}

}  // namespace
