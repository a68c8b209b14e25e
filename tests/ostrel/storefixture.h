// A store of each test's own, served by a process of its own, and a client in the test process.
//
// Records are packed and EXPECT_EQ takes references, so tests compare a copy of a field: +record->value.
#ifndef OSTREL_TESTS_OSTREL_STOREFIXTURE_H
#define OSTREL_TESTS_OSTREL_STOREFIXTURE_H

#include <gtest/gtest.h>
#include <ostrel/records.h>
#include <ostrel/store.h>
#include <sys/types.h>

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

// The server program. Each command is answered by one line: "ok ..." or "error ...".
class ServerProcess {
public:
    ServerProcess();
    ~ServerProcess();
    ServerProcess(const ServerProcess&) = delete;
    ServerProcess& operator=(const ServerProcess&) = delete;

    // The answer to a command of storeserver.cpp.
    std::string tell(const std::string& command);

    // Sends a command without waiting for its end.
    void send(const std::string& command);

    pid_t pid() const { return m_pid; }
    void killHard();

private:
    void wait();

    pid_t m_pid = 0;
    FILE* m_commands = nullptr;
    FILE* m_answers = nullptr;
};

// A name that no other test has, of a store that is not made yet.
std::string newStoreName();

// What the system holds of the store: names of objects.
std::vector<std::string> objectsOf(const std::string& store);
void removeObjectsOf(const std::string& store);

// Waits for the condition to come true; false when it has not within 10 seconds.
bool comesTrue(const std::function<bool()>& condition);

class StoreTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Commands, each of which must succeed, between begin and commit of all areas.
    void configure(const std::vector<std::string>& commands);

    static int find(const std::string& label);
    static SHARED_MEMORY handle(const std::string& label);
    template <typename Record>
    static Record* record(const std::string& label) {
        return static_cast<Record*>(get_vrbl_adr(handle(label)));
    }

    const std::string store = newStoreName();
    ServerProcess server;
};

#endif
