// Events between processes, some of which are killed. On a stand-in for the store.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <limits>
#include <random>
#include <thread>

#include "eventcalls.h"
#include "events/eventlock.h"
#include "events/eventmemory.h"
#include "events/eventowner.h"
#include "events/eventtable.h"
#include "eventstore.h"

namespace {

using Texts = std::vector<std::string>;

class EventProcesses : public testing::Test {
protected:
    EventProcesses() { store.use(); }

    EventStore store;
};

TEST_F(EventProcesses, deliverWholePayloadsInOrder) {
    eventId("there");
    eventId("back");
    attach("back", 10);
    constexpr int rounds = 2000;
    Child echo([] {
        attach("there", 10);
        raise("back", "ready");
        for (int round = 0; round < rounds; ++round) {
            const Received received = receive();
            if (received.eid == 0 || raise("back", received.payload) != 0)
                return 1;
        }
        return 0;
    });
    ASSERT_EQ(receiveUntil("ready"), Texts{"ready"});
    for (int round = 0; round < rounds; ++round) {
        const std::string sent(payloadCapacity, static_cast<char>('a' + round % 26));
        ASSERT_EQ(raise("there", sent), 0);
        ASSERT_EQ(receive().payload, sent);
    }
    EXPECT_EQ(echo.result(), 0);
}

TEST_F(EventProcesses, allGetWhatOneRaises) {
    eventId("all");
    std::vector<std::unique_ptr<Child>> children;
    for (int number = 0; number < 8; ++number) {
        children.push_back(std::make_unique<Child>([] {
            attach("all", 256);
            Texts expected;
            for (int message = 0; message < 200; ++message)
                expected.push_back(std::to_string(message));
            return receiveUntil("199") == expected ? 0 : 1;
        }));
    }
    ASSERT_TRUE(comes([] { return attached("all") == 8; }));
    for (int message = 0; message < 200; ++message)
        raise("all", std::to_string(message));
    for (const auto& child : children)
        EXPECT_EQ(child->result(), 0);
}

TEST_F(EventProcesses, aForkedChildLeavesItsParentAttached) {
    eventId("some");
    attach("some");
    Child child([] {
        int eid = 0;
        const short int result = event_attach("some", 1, &eid);  // Not -261: it is another thread.
        return result == 0 && event_detach(eid) == 0 ? 0 : 1;
    });
    EXPECT_EQ(child.result(), 0);
    EXPECT_EQ(attached("some"), 1);
    raise("some", "still here");
    EXPECT_EQ(receiveUntil("still here"), Texts{"still here"});
}

// What belonged to the parent's thread is destroyed with the child's, and is not the child's to give up.
TEST_F(EventProcesses, aForkedChildThatExitsLeavesItsParentAttached) {
    eventId("some");
    attach("some");
    Child child([]() -> int { std::exit(0); });  // which destroys what is the thread's
    EXPECT_EQ(child.result(), 0);
    EXPECT_EQ(attached("some"), 1);
    EXPECT_EQ(store.layout().threads[0].used, 1U);
}

TEST_F(EventProcesses, aKilledOneIsReclaimed) {
    eventId("some");
    Child child([] {
        attach("some");
        receive();
        return 0;
    });
    ASSERT_TRUE(comes([] { return attached("some") == 1; }));
    reclaimDeadThreads(&store.layout());
    EXPECT_EQ(attached("some"), 1) << "it lives";
    child.signal(SIGSTOP);
    reclaimDeadThreads(&store.layout());
    EXPECT_EQ(attached("some"), 1) << "it is stopped, not dead";
    child.signal(SIGKILL);
    // Before the parent has fetched its status, when it is a zombie.
    EXPECT_TRUE(comes([&] {
        reclaimDeadThreads(&store.layout());
        return attached("some") == 0;
    }));
}

TEST_F(EventProcesses, aPlaceIsFreeWhenItsNumbersWereGivenToAnother) {
    ThreadIdentity self = currentThread();
    EXPECT_FALSE(isGone(self));
    ASSERT_GT(self.started, 0U);
    ++self.started;
    EXPECT_TRUE(isGone(self));
}

TEST_F(EventProcesses, attachingToAFullTableReclaimsTheDead) {
    eventId("some");
    store.takePlaces(threadCapacity - 256);
    auto& waiting = shared<std::atomic<int>>();
    Child child([&] {
        std::vector<std::thread> threads;
        for (int number = 0; number < 256; ++number) {
            threads.emplace_back([&] {
                attach("some");
                ++waiting;
                pause();
            });
        }
        pause();
        return 0;
    });
    ASSERT_TRUE(comes([&] { return waiting == 256; }));
    EXPECT_EQ(attach("some"), OSTREL_EVENT_FULL);
    child.kill();
    EXPECT_EQ(attach("some"), 0);
    EXPECT_EQ(attached("some"), 1);
}

// A cell raises an event for each variable that changed: it must not stand still with each of them.
TEST_F(EventProcesses, oneStoppedWithTheLockHoldsARaiserUpOnce) {
    eventId("some");
    auto& isHolding = shared<std::atomic<bool>>();
    Child stopped([&] {
        const EventLock lock(store.layout());
        isHolding = true;
        pause();
        return 0;
    });
    ASSERT_TRUE(comes([&] { return isHolding.load(); }));
    const int64_t start = monotonicNow();
    for (int number = 0; number < 20; ++number)
        EXPECT_EQ(raise("some"), OSTREL_EVENT_NO_STORE);
    EXPECT_LT(monotonicNow() - start, 5 * nanosecondsPerSecond);
    stopped.kill();
    EXPECT_EQ(raise("some"), 0);
    EXPECT_EQ(raised("some"), 1U);
}

TEST_F(EventProcesses, oneKilledWithTheLockHoldsNobodyUp) {
    eventId("some");
    attach("some");
    auto& isHolding = shared<std::atomic<bool>>();
    for (int round = 0; round < 20; ++round) {
        isHolding = false;
        Child child([&] {
            const EventLock lock(store.layout());
            isHolding = lock.held();
            pause();
            return 0;
        });
        ASSERT_TRUE(comes([&] { return isHolding.load(); }));
        child.kill();
        const std::string text = "round " + std::to_string(round);
        ASSERT_EQ(raise("some", text), 0);
        ASSERT_EQ(receiveUntil(text), Texts{text});
    }
}

TEST_F(EventProcesses, oneStoppedWithTheLockMakesTheOthersFailAndNotHang) {
    eventId("some");
    attach("some");
    auto& isHolding = shared<std::atomic<bool>>();
    Child child([&] {
        const EventLock lock(store.layout());
        isHolding = true;
        raise(SIGSTOP);
        return 0;
    });
    ASSERT_TRUE(comes([&] { return isHolding.load(); }));
    EXPECT_EQ(raise("some"), OSTREL_EVENT_NO_STORE);
    int eid = 0;
    EXPECT_EQ(event_wait(nullptr, 0, &eid), OSTREL_EVENT_QUIET);
    EXPECT_TRUE(comes([&] {
        child.signal(SIGCONT);
        return raise("some", "on") == 0;
    }));
    EXPECT_EQ(receiveUntil("on"), Texts{"on"});
}

// A raiser that died after it took the message in and before it woke anyone.
TEST_F(EventProcesses, theNextOneWakesWhomTheDeadDidNot) {
    const int some = eventId("some");
    const int index = findEvent(store.layout(), *toEventName("some"));
    auto& isHolding = shared<std::atomic<bool>>();
    Child receiver([] {
        attach("some");
        return receiveUntil("left behind") == Texts{"left behind"} ? 0 : 1;
    });
    ASSERT_TRUE(comes([&] { return store.isAsleep(0); }));
    Child raiser([&] {
        const EventLock lock(store.layout());
        ThreadSet toWake{};
        putMessage(store.layout(), index, "left behind", sizeof "left behind", toWake);
        isHolding = true;
        pause();
        return 0;
    });
    ASSERT_TRUE(comes([&] { return isHolding.load(); }));
    raiser.kill();
    const uint32_t wakeups = store.layout().threads[0].wakeups;
    int eid = 0;
    std::array<char, 32> name{"some"};
    EXPECT_EQ(event_get_id(name.data(), &eid), 0);
    EXPECT_EQ(eid, some);
    EXPECT_EQ(store.layout().threads[0].wakeups, wakeups + 1);
    EXPECT_EQ(receiver.result(), 0);
}

constexpr long refused = -1;

// Runs an operation in a child process, prepared for it, and kills that after so many instructions of it. How many it
// came to; `refused` where the machine lets no process trace its child.
long killAfter(long instructions, const std::function<void()>& prepare, const std::function<void()>& operation) {
    const pid_t child = fork();
    if (child == 0) {
        if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
            _exit(1);
        prepare();
        ::raise(SIGSTOP);
        operation();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (!WIFSTOPPED(status))
        return refused;
    long done = 0;
    for (; done < instructions && WIFSTOPPED(status); ++done) {
        ptrace(PTRACE_SINGLESTEP, child, nullptr, nullptr);
        waitpid(child, &status, 0);
    }
    if (WIFSTOPPED(status)) {
        kill(child, SIGKILL);
        waitpid(child, &status, 0);
    }
    return done;
}

class KilledAtAnyInstruction : public EventProcesses {
protected:
    KilledAtAnyInstruction() {
        eventId("some");
        attach("some");
    }

    // Kills so many processes, at points spread over all instructions of the operation, with a check after each.
    static void killIn(const std::function<void()>& prepare, const std::function<void()>& operation, long kills,
                       const std::function<void()>& check) {
        const long all = killAfter(std::numeric_limits<long>::max(), prepare, operation);
        if (all == refused)
            GTEST_SKIP() << "this machine lets no process trace its child";
        check();
        ASSERT_GT(all, kills);
        for (long number = 0; number < kills && !HasFatalFailure(); ++number) {
            SCOPED_TRACE(number * all / kills);
            killAfter(number * all / kills, prepare, operation);
            check();
        }
    }

    // The others can go on, and what the killed one raised came whole or not at all.
    void othersGoOn() {
        ASSERT_EQ(raise("some", "after"), 0);
        const Texts received = receiveUntil("after");
        ASSERT_TRUE(received == Texts{"after"} || received == (Texts{whole, "after"}));
        reclaimDeadThreads(&store.layout());
        ASSERT_EQ(attached("some"), 1);
    }

    const std::function<void()> checkOthers = [this] { othersGoOn(); };
    const std::string whole = std::string(200, 'x');
    const std::function<void()> attachChild = [] { attach("some", 2); };
};

TEST_F(KilledAtAnyInstruction, ofRaisingLeavesTheOthersWhole) {
    killIn(
        attachChild, [this] { raise("some", whole); }, 60, checkOthers);
}

// The slot of the new message is not that of the oldest one that a queue of the greatest depth still holds.
TEST_F(KilledAtAnyInstruction, ofRaisingLeavesAFullQueueWhole) {
    const std::string old(200, 'o');
    const auto fill = [&] {
        for (unsigned message = 0; message < deepestQueue; ++message)
            raise("some", old);
    };
    const auto isWhole = [&] {
        for (unsigned message = 0; message < deepestQueue; ++message) {
            const std::string received = receive().payload.c_str();
            ASSERT_TRUE(received == old || (received == whole && message == deepestQueue - 1)) << received;
        }
        reclaimDeadThreads(&store.layout());
    };
    const auto attachAndFill = [&] {
        attachChild();
        fill();
    };
    killIn(
        attachAndFill, [this] { raise("some", whole); }, 80, isWhole);
}

TEST_F(KilledAtAnyInstruction, ofReceivingLeavesTheOthersWhole) {
    const auto attachAndRaise = [this] {
        attachChild();
        raise("some", whole);
    };
    const auto receiveIt = [] {
        int eid = 0;
        event_wait(nullptr, 0, &eid);
    };
    killIn(attachAndRaise, receiveIt, 60, checkOthers);
}

TEST_F(KilledAtAnyInstruction, ofDetachingLeavesTheOthersWhole) {
    const int some = eventId("some");
    killIn(
        attachChild, [some] { event_detach(some); }, 60, checkOthers);
}

TEST_F(KilledAtAnyInstruction, ofAttachingLeavesTheOthersWhole) {
    killIn([] {}, attachChild, 30, checkOthers);
}

// Raises and receives as fast as it goes, to be killed at any point.
int makeLoad(unsigned seed) {
    std::mt19937 random(seed);
    for (;;) {
        int eid = 0;
        attach("load", 256);
        for (int turn = 0; turn < 20; ++turn) {
            raise("load", std::string(1 + random() % payloadCapacity, 'x'));
            event_wait(nullptr, 0, &eid);
        }
        event_detach(eid);
    }
}

TEST_F(EventProcesses, killsAtRandomUnderLoadSpareTheOthers) {
    eventId("load");
    eventId("there");
    eventId("back");
    Child echo([] {
        attach("there", 256);
        for (;;)
            raise("back", receive().payload.c_str());
        return 0;
    });
    ASSERT_TRUE(comes([] { return attached("there") == 1; }));
    attach("back", 256);
    std::mt19937 random(20260101);
    std::vector<std::unique_ptr<Child>> load(3);
    for (int kill = 0; kill < 200; ++kill) {
        std::unique_ptr<Child>& next = load[random() % load.size()];
        next = std::make_unique<Child>([kill] { return makeLoad(static_cast<unsigned>(kill)); });
        const uint64_t before = raised("load");
        ASSERT_TRUE(comes([before] { return raised("load") != before; })) << "after kill " << kill;
        const std::string text = "message " + std::to_string(kill);
        ASSERT_EQ(raise("there", text), 0) << "after kill " << kill;
        ASSERT_EQ(receiveUntil(text), Texts{text}) << "after kill " << kill;
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 2000));  // To kill anywhere in the loop.
        next->signal(SIGKILL);
    }
    load.clear();
    EXPECT_TRUE(comes([this] {
        reclaimDeadThreads(&store.layout());
        return attached("load") == 0;
    }));
    EXPECT_EQ(attached("there"), 1);
    EXPECT_EQ(attached("back"), 1);
}

}  // namespace
