// Events and timers on the real store, with its server in a process of its own.
#include <ostrel/areas.h>
#include <ostrel/server.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>
#include <set>

#include "eventcalls.h"
#include "ostrel/storefixture.h"

namespace {

class EventServer : public StoreTest {
protected:
    void TearDown() override {
        for (const int eid : {eventId("config"), eventId("some"), eventId("tmr-10")})
            event_detach(eid);
        StoreTest::TearDown();
    }

    static int attachToTimer() {
        int eid = 0;
        EXPECT_EQ(createTimer("tmr-10", 10, eid), 0);
        EXPECT_EQ(attach("tmr-10"), 0);
        return eid;
    }
};

GLOBAL_CONFIG_EVENT configOf(const Received& received) {
    GLOBAL_CONFIG_EVENT event{};
    std::memcpy(&event, received.payload.data(), std::min(received.payload.size(), sizeof event));
    return event;
}

TEST_F(EventServer, RaisesTheTimersOfItsClients) {
    EXPECT_TRUE(ticks(attachToTimer(), 10));
}

TEST_F(EventServer, ThatIsKilledIsFollowedByOneThatRaisesTheTimersOn) {
    const int timer = attachToTimer();
    attach("config");
    ASSERT_TRUE(ticks(timer, 3));
    server.killHard();
    int eid = 0;
    while (event_wait(nullptr, 0, &eid) == 0) {
    }
    EXPECT_EQ(attached("tmr-10"), 1);
    ServerProcess next;
    ASSERT_EQ(next.tell("open " + store), "ok 1");
    EXPECT_TRUE(ticks(timer, 10)) << "and nothing of a reconfiguration, since the store is the same";
    next.tell("close");
}

TEST_F(EventServer, ThatStartsAnewGetsTheWaitingThreads) {
    const int timer = attachToTimer();
    const int config = eventId("config");
    attach("config", 1);
    const int some = eventId("some");
    attach("some");
    ASSERT_TRUE(ticks(timer, 3));
    server.tell("close");
    ServerProcess next;
    ASSERT_EQ(next.tell("open " + store), "ok 0");

    std::vector<unsigned> states;
    while (states.size() < 2) {
        const Received received = receive(sizeof(GLOBAL_CONFIG_EVENT));
        ASSERT_NE(received.eid, 0);
        if (received.eid != config)
            continue;
        states.push_back(configOf(received).new_state);
        EXPECT_EQ(static_cast<int>(configOf(received).memcode), -1);
    }
    EXPECT_EQ(states, (std::vector<unsigned>{1, 0}));
    EXPECT_TRUE(ticks(timer, 10));
    event_detach(timer);
    raise("some", "by name");
    EXPECT_EQ(receive().payload.substr(0, 7), "by name");
    EXPECT_EQ(eventId("some"), some);
    next.tell("close");
}

TEST_F(EventServer, FreesThePlacesOfTheDead) {
    eventId("some");
    const pid_t child = fork();
    if (child == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        attach("some");
        pause();
    }
    ASSERT_TRUE(comes([] { return attached("some") == 1; }));
    kill(child, SIGKILL);
    EXPECT_TRUE(comes([this] {
        server.tell("beat");
        return attached("some") == 0;
    }));
    waitpid(child, nullptr, 0);
}

TEST_F(EventServer, AnnouncesItsReconfigurations) {
    const int config = eventId("config");
    attach("config");
    configure({});
    for (const unsigned state : {1U, 0U}) {
        const Received received = receive(sizeof(GLOBAL_CONFIG_EVENT));
        EXPECT_EQ(received.eid, config);
        EXPECT_EQ(configOf(received).new_state, state);
        EXPECT_EQ(configOf(received).pid, server.pid());
    }
}

TEST_F(EventServer, BothPhasesReachWhoeverAskedForOneEvent) {
    attach("config", 1);
    configure({"put 54 1 SPEED"});
    configure({"put 54 1 SPEED"});
    for (const unsigned state : {1U, 0U, 1U, 0U})
        ASSERT_EQ(configOf(receive(sizeof(GLOBAL_CONFIG_EVENT))).new_state, state);
}

TEST_F(EventServer, EveryAreaOfAReconfigurationIsTold) {
    attach("config", 1);
    int sections = 0;
    const ostrel_section* const first = ostrel_sections(&sections);
    std::set<int> expected;
    for (const ostrel_section* section = first; section != first + sections; ++section)
        expected.insert(section->area);
    for (const int area : expected)
        ASSERT_EQ(server.tell("begin " + std::to_string(area)), "ok");
    ASSERT_EQ(server.tell("commit"), "ok");
    for (const unsigned state : {1U, 0U})
        for (const int area : expected) {
            const GLOBAL_CONFIG_EVENT event = configOf(receive(sizeof(GLOBAL_CONFIG_EVENT)));
            ASSERT_EQ(event.new_state, state);
            ASSERT_EQ(static_cast<int>(event.memcode), area);
        }
}

TEST(EventsBeforeAStore, WorkOnceItIsThere) {
    const std::string store = newStoreName();
    EXPECT_EQ(ostrel_store_open(store.c_str(), nullptr, nullptr, 0), 1);
    EXPECT_EQ(attach("config"), OSTREL_EVENT_NO_STORE);
    int eid = 0;
    EXPECT_EQ(event_wait(nullptr, 0, &eid), OSTREL_EVENT_QUIET);
    ServerProcess server;
    ASSERT_EQ(server.tell("open " + store), "ok 0");
    ASSERT_EQ(attach("config"), 0);
    raise("config", "now");
    EXPECT_EQ(receive(3).payload, "now");
    event_detach(eventId("config"));
    server.tell("close");
}

TEST(EventsOfAPrivateStore, ComeToItsOwnProcess) {
    const ostrel_server_options options{};
    char message[200] = "";
    ostrel_server* server = ostrel_server_open(&options, message, sizeof message);
    ASSERT_TRUE(server) << message;
    int eid = 0;
    ASSERT_EQ(createTimer("tmr-10", 10, eid), 0);
    ASSERT_EQ(attach("tmr-10"), 0);
    EXPECT_TRUE(ticks(eid, 5));
    event_detach(eid);
    ostrel_server_close(server);
}

}  // namespace
