// Servers and clients are killed under load, at random places, and the others go on. OSTREL_TEST_SEED=N replays a run
// as far as processes that run side by side can be replayed; OSTREL_TEST_KILLS=N kills more often.
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <random>
#include <set>
#include <thread>

#include "killboard.h"
#include "ostrel/events/eventcalls.h"
#include "ostrel/storefixture.h"
#include "paths.h"

extern char** environ;

namespace {

uint64_t fromEnvironment(const char* name, uint64_t otherwise) {
    const char* value = std::getenv(name);
    return value ? std::stoull(value) : otherwise;
}

class Worker {
public:
    explicit Worker(std::vector<std::string> words) {
        words.insert(words.begin(), paths::storeWorker);
        std::vector<char*> arguments;
        for (std::string& word : words)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        if (posix_spawn(&m_pid, paths::storeWorker, nullptr, nullptr, arguments.data(), environ) != 0)
            m_pid = 0;
    }
    ~Worker() { killHard(); }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    void killHard() {
        // Not waited for in the kernel, which on a busy machine would go round and round there until the last thread is
        // out of the way.
        if (m_pid > 0 && kill(m_pid, SIGKILL) == 0)
            comesTrue([this] { return waitpid(m_pid, nullptr, WNOHANG) == m_pid; });
        m_pid = 0;
    }

    // Its exit status; -1 where it does not come to an end.
    int result() {
        int status = 0;
        const bool hasEnded = comesTrue([&] { return waitpid(m_pid, &status, WNOHANG) == m_pid; });
        if (hasEnded)
            m_pid = 0;
        return hasEnded && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    pid_t m_pid = 0;
};

class Kills : public testing::Test {
protected:
    void SetUp() override {
        startServer();
        ASSERT_TRUE(isServedBy(1));
        ASSERT_EQ(ostrel_store_open(store.c_str(), nullptr, nullptr, 0), 0);
        for (int id = 0; id < clientCount; ++id)
            startClient(id);
        for (int id = 0; id < clientCount; ++id)
            ASSERT_TRUE(works(row(id))) << board.firstFailure;
    }

    void TearDown() override {
        server.reset();
        for (auto& client : clients)
            client.reset();
        removeObjectsOf(store);
        std::filesystem::remove(boardFile);
        std::filesystem::remove(writesFile);
    }

    void startServer() {
        server = std::make_unique<Worker>(std::vector<std::string>{"server", store, boardFile, writesFile});
    }

    void startClient(int id) {
        clients[static_cast<size_t>(id)] = std::make_unique<Worker>(
            std::vector<std::string>{"client", store, boardFile, std::to_string(id), std::to_string(random())});
    }

    ClientRow& row(int id) { return board.clients[static_cast<size_t>(id)]; }

    bool isServedBy(uint64_t servers) {
        return comesTrue([&] { return board.servers.load() == servers; });
    }

    static bool works(const ClientRow& row) {
        const uint64_t before = row.progress.load();
        return comesTrue([&] { return row.progress.load() > before; });
    }

    // Kills it somewhere within its next steps.
    void killWithin(Worker& victim, const ClientRow& ofVictim, uint64_t steps) {
        const uint64_t target = ofVictim.progress.load() + random() % steps;
        const bool came = comesTrue([&] { return ofVictim.progress.load() >= target; });
        ASSERT_TRUE(came) << "it stands still; " << board.firstFailure;
        for (uint64_t turns = random() % 20000; turns > 0; --turns)
            asm volatile("");
        victim.killHard();
    }

    void killServer() {
        const uint64_t served = board.servers.load();
        killWithin(*server, board.server, 60);
        EXPECT_EQ(find(realName(0)), 0) << "a store without a server is still there";
        checkCount();
        startServer();
        ASSERT_TRUE(isServedBy(served + 1)) << board.firstFailure;
        ASSERT_EQ(board.adopted.load(), served);
    }

    void killClient(int id) {
        killWithin(*clients[static_cast<size_t>(id)], row(id), 40);
        checkValues(id);
        startClient(id);
        ASSERT_TRUE(works(row(id))) << board.firstFailure;
    }

    static int find(const std::string& label) {
        SHARED_MEMORY mem{};
        return find_variable(const_cast<char*>(label.c_str()), &mem);
    }

    template <typename Record>
    static const Record* record(const std::string& label) {
        SHARED_MEMORY mem{};
        EXPECT_EQ(find_variable(const_cast<char*>(label.c_str()), &mem), 0) << label;
        const auto* found = static_cast<const Record*>(mem.member_adr ? mem.member_adr : get_vrbl_adr(mem));
        static const Record none{};
        EXPECT_TRUE(found) << label;
        return found ? found : &none;
    }

    // Of a client that does not run: each value is that of its last write, or of the one it was killed in.
    void checkValues(int id) {
        const uint64_t done = row(id).done.load();
        const uint64_t intent = row(id).intent.load();
        ASSERT_LE(intent - done, 1u);
        if (intent == 0)
            return;
        const auto isEither = [&](auto value, auto of) {
            return value == of(intent) || value == of(done) || done == 0;
        };
        EXPECT_TRUE(isEither(+record<REAL_VARIABLE>(realName(id))->value, realOf));
        EXPECT_TRUE(isEither(+record<INTEGER_VARIABLE>(integerName(id))->value, integerOf));
        EXPECT_TRUE(isEither(+record<REAL_ARRAY_MEMBER>(elementName(id))->value, realOf));
        const auto* words = record<STRING_VARIABLE>(textName(id));
        const std::string before = textOf(done);
        const std::string after = textOf(intent);
        for (size_t i = 0; i < 70 && done > 0; ++i)
            EXPECT_TRUE(words->value[i] == before[i] || words->value[i] == after[i]) << i;
    }

    void checkCount() {
        const double value = record<REAL_VARIABLE>("COUNT")->value;
        const uint64_t done = board.server.done.load();
        const uint64_t intent = board.server.intent.load();
        EXPECT_TRUE(value == realOf(done) || value == realOf(intent)) << value << " is not " << done;
    }

    void stopAll() {
        board.stop.store(1);
        EXPECT_EQ(server->result(), 0);
        for (auto& client : clients)
            EXPECT_EQ(client->result(), 0);
    }

    // The numbers go up, but for lines that a killed server had written and not counted.
    void checkWritesFile() {
        std::ifstream stream(writesFile);
        std::set<uint64_t> seen;
        for (std::string line; std::getline(stream, line);) {
            if (line[0] == '#')
                continue;
            ASSERT_EQ(std::count(line.begin(), line.end(), '\t'), 8) << line;
            const uint64_t number = std::stoull(line.substr(line.find('\t') + 1));
            const bool isLater = seen.empty() || number > *seen.rbegin();
            EXPECT_TRUE(isLater || seen.contains(number)) << line;
            seen.insert(number);
        }
        EXPECT_GT(seen.size(), 100u);
    }

    const uint64_t seed = fromEnvironment("OSTREL_TEST_SEED", 20260801);
    std::mt19937_64 random{seed};
    const std::string store = newStoreName();
    const std::string boardFile = testing::TempDir() + store + ".board";
    const std::string writesFile = testing::TempDir() + store + ".writes";
    KillBoard& board = mapBoard(boardFile);
    std::unique_ptr<Worker> server;
    std::array<std::unique_ptr<Worker>, clientCount> clients;
};

TEST_F(Kills, CostNobodyElseAnything) {
    const uint64_t wanted = fromEnvironment("OSTREL_TEST_KILLS", 210);
    uint64_t serverKills = 0;
    uint64_t clientKills = 0;
    while (serverKills + clientKills < wanted && board.failures.load() == 0 && !HasFatalFailure()) {
        if (random() % 3 == 0) {
            killServer();
            ++serverKills;
        } else {
            killClient(witnesses + static_cast<int>(random() % (clientCount - witnesses)));
            ++clientKills;
        }
    }
    std::cout << "seed " << seed << ": " << serverKills << " servers and " << clientKills << " clients were killed\n";
    EXPECT_EQ(board.failures.load(), 0u) << board.firstFailure;
    EXPECT_GE(serverKills + clientKills, wanted);

    // The places of the dead are free again, and those that lived through all of it get their events.
    EXPECT_TRUE(comes([] { return attached("shout") == clientCount && attached("tick") == clientCount; }));
    for (int id = 0; id < witnesses; ++id) {
        const uint64_t ticks = row(id).ticks.load();
        const uint64_t events = row(id).events.load();
        EXPECT_TRUE(comes([&] { return row(id).ticks.load() > ticks && row(id).events.load() > events; }));
    }
    stopAll();
    for (int id = 0; id < clientCount; ++id)
        checkValues(id);
    EXPECT_EQ(+record<REAL_VARIABLE>("LOCKED")->value, lockedValue);
    checkCount();
    checkWritesFile();
    EXPECT_EQ(board.failures.load(), 0u) << board.firstFailure;
}

}  // namespace
