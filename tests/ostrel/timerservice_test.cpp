/* Timers, raised by a server process of the test's own on a stand-in for the store. */
#include <gtest/gtest.h>
#include <ostrel/events.h>
#include <signal.h>
#include <unistd.h>

#include "eventlock.h"
#include "eventmemory.h"
#include "eventstore.h"

namespace {

int createTimer(std::string name, int periodMs) {
    int eid = 0;
    event_create_timer(name.data(), 10, 0, 1, 0, &periodMs, &eid);
    return eid;
}

bool attachTo(const char* name) {
    int eid = 0;
    return event_attach(name, 256, &eid) == 0;
}

/* That many ticks of the timer come, and nothing else. */
bool ticks(int eid, int count) {
    for (; count > 0; --count) {
        if (receive(0).eid != eid)
            return false;
    }
    return true;
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
    const int before = createTimer("tmr-20", 20);
    ASSERT_TRUE(attachTo("tmr-20"));
    const auto running = server();
    EXPECT_TRUE(ticks(before, 5));
    const int after = createTimer("tmr-10", 10);
    EXPECT_TRUE(comes([] { return raised("tmr-10") >= 5; }));
    event_detach(before);
    ASSERT_TRUE(attachTo("tmr-10"));
    EXPECT_TRUE(ticks(after, 5));
}

TEST_F(Timers, tickInTheServersOwnProcess) {
    const int timer = createTimer("tmr-10", 10);
    ASSERT_TRUE(attachTo("tmr-10"));
    {
        const TimerService service(&store.layout());
        EXPECT_TRUE(ticks(timer, 10));
    }
    const std::uint64_t atTheEnd = raised("tmr-10");
    int eid = 0;
    while (event_wait(nullptr, 0, &eid) == 0) {
    }
    EXPECT_EQ(raised("tmr-10"), atTheEnd) << "no tick after the service has ended";
}

TEST_F(Timers, eachKeepsItsPeriod) {
    createTimer("tmr-10", 10);
    createTimer("tmr-30", 30);
    createTimer("tmr-100", 100);
    createTimer("tmr-3600000", 3'600'000);
    const auto running = server();
    ASSERT_TRUE(comes([] { return raised("tmr-100") >= 1; }));
    const std::uint64_t fast = raised("tmr-10");
    const std::uint64_t slow = raised("tmr-100");
    ASSERT_TRUE(comes([slow] { return raised("tmr-100") >= slow + 10; }));
    // A loaded machine may miss periods, each timer for itself, but never has more.
    EXPECT_LE(raised("tmr-10"), fast + 111);
    EXPECT_GE(raised("tmr-10"), fast + 10);
    EXPECT_EQ(raised("tmr-3600000"), 0U);
}

TEST_F(Timers, doNotCatchUpWithABurst) {
    const int timer = createTimer("tmr-10", 10);
    ASSERT_TRUE(attachTo("tmr-10"));
    const auto running = server();
    ASSERT_TRUE(ticks(timer, 10));
    running->signal(SIGSTOP);
    int eid = 0;
    while (event_wait(nullptr, 0, &eid) == 0) {
    }

    // A second has passed, a hundred periods. From here on there may be one tick a period, and the one overdue.
    const std::uint64_t before = raised("tmr-10");
    const std::int64_t start = monotonicNow();
    running->signal(SIGCONT);
    ASSERT_TRUE(ticks(timer, 30));
    const std::uint64_t came = raised("tmr-10") - before;
    const std::int64_t periods = (monotonicNow() - start) / (10 * nanosecondsPerMs);
    EXPECT_LE(came, static_cast<std::uint64_t>(periods) + 2);
}

TEST_F(Timers, goOnWithTheNextServer) {
    const int timer = createTimer("tmr-10", 10);
    ASSERT_TRUE(attachTo("tmr-10"));
    auto running = server();
    for (int round = 0; round < 20; ++round) {
        ASSERT_TRUE(ticks(timer, 3));
        running->kill();
        running = server();
    }
    EXPECT_TRUE(ticks(timer, 3));
    running->kill();
    int eid = 0;
    while (event_wait(nullptr, 0, &eid) == 0) {
    }
    EXPECT_EQ(attached("tmr-10"), 1) << "without a server the attachment stays";
}

TEST_F(Timers, takeNoSignalsOfTheProgram) {
    createTimer("tmr-10", 10);
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
