// Timers, raised by a server process of the test's own on a stand-in for the store.
#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include "eventcalls.h"
#include "events/eventlock.h"
#include "events/eventmemory.h"
#include "eventstore.h"

namespace {

int timer(const char* name, int periodMs) {
    int eid = 0;
    createTimer(name, periodMs, eid);
    return eid;
}

// Of 10 ms.
uint64_t periodsSince(int64_t start) {
    return static_cast<uint64_t>((monotonicNow() - start) / (10 * nanosecondsPerMs));
}

class Timers : public testing::Test {
protected:
    Timers() { store.use(); }

    std::unique_ptr<Child> server() {
        return std::make_unique<Child>([this] {
            const TimerService service(&store.layout());
            pause();
            return 0;
        });
    }

    EventStore store;
};

TEST_F(Timers, madeBeforeAndAfterTheServerTick) {
    const int before = timer("tmr-20", 20);
    ASSERT_EQ(attach("tmr-20"), 0);
    const auto running = server();
    EXPECT_TRUE(ticks(before, 5));
    const int after = timer("tmr-10", 10);
    EXPECT_TRUE(comes([] { return raised("tmr-10") >= 5; }));
    event_detach(before);
    ASSERT_EQ(attach("tmr-10"), 0);
    EXPECT_TRUE(ticks(after, 5));
}

TEST_F(Timers, tickInTheServersOwnProcess) {
    const int tick = timer("tmr-10", 10);
    ASSERT_EQ(attach("tmr-10"), 0);
    {
        const TimerService service(&store.layout());
        EXPECT_TRUE(ticks(tick, 10));
    }
    const uint64_t atTheEnd = raised("tmr-10");
    int eid = 0;
    while (event_wait(nullptr, 0, &eid) == 0) {
    }
    EXPECT_EQ(raised("tmr-10"), atTheEnd) << "no tick after the service has ended";
}

TEST_F(Timers, eachKeepsItsPeriod) {
    timer("tmr-10", 10);
    timer("tmr-30", 30);
    timer("tmr-100", 100);
    timer("tmr-3600000", 3'600'000);
    const auto running = server();
    ASSERT_TRUE(comes([] { return raised("tmr-100") >= 1; }));
    const int64_t start = monotonicNow();
    const uint64_t fast = raised("tmr-10");
    const uint64_t slow = raised("tmr-100");
    ASSERT_TRUE(comes([slow] { return raised("tmr-100") >= slow + 10; }));
    // A loaded machine may miss periods, each timer for itself, but never has more.
    const uint64_t came = raised("tmr-10") - fast;
    EXPECT_LE(came, periodsSince(start) + 1);
    EXPECT_GE(came, 10U);
    EXPECT_EQ(raised("tmr-3600000"), 0U);
}

TEST_F(Timers, doNotCatchUpWithABurst) {
    const int tick = timer("tmr-10", 10);
    ASSERT_EQ(attach("tmr-10"), 0);
    const auto running = server();
    ASSERT_TRUE(ticks(tick, 10));
    running->signal(SIGSTOP);
    int eid = 0;
    while (event_wait(nullptr, 0, &eid) == 0) {
    }

    // A second has passed, a hundred periods. From here on there may be one tick a period, and the one overdue.
    const uint64_t before = raised("tmr-10");
    const int64_t start = monotonicNow();
    running->signal(SIGCONT);
    ASSERT_TRUE(ticks(tick, 30));
    const uint64_t came = raised("tmr-10") - before;
    EXPECT_LE(came, periodsSince(start) + 2);
}

TEST_F(Timers, goOnWithTheNextServer) {
    const int tick = timer("tmr-10", 10);
    ASSERT_EQ(attach("tmr-10"), 0);
    auto running = server();
    for (int round = 0; round < 20; ++round) {
        ASSERT_TRUE(ticks(tick, 3));
        running->kill();
        running = server();
    }
    EXPECT_TRUE(ticks(tick, 3));
    running->kill();
    int eid = 0;
    while (event_wait(nullptr, 0, &eid) == 0) {
    }
    EXPECT_EQ(attached("tmr-10"), 1) << "without a server the attachment stays";
}

TEST_F(Timers, takeNoSignalsOfTheProgram) {
    timer("tmr-10", 10);
    const auto running = std::make_unique<Child>([this] {
        sigset_t term;
        sigemptyset(&term);
        sigaddset(&term, SIGTERM);
        pthread_sigmask(SIG_BLOCK, &term, nullptr);
        const TimerService service(&store.layout());
        int number = 0;
        return sigwait(&term, &number) == 0 && number == SIGTERM ? 0 : 1;
    });
    ASSERT_TRUE(comes([] { return raised("tmr-10") >= 1; }));
    running->signal(SIGTERM);
    EXPECT_EQ(running->result(), 0);
}

}  // namespace
