// Events inside one process, on a stand-in for the store.
#include <gtest/gtest.h>
#include <ostrel/records.h>
#include <unistd.h>

#include <cstring>
#include <random>
#include <thread>

#include "eventcalls.h"
#include "events/eventmemory.h"
#include "events/eventtable.h"
#include "eventstore.h"
#include "procstat.h"

namespace {

using Texts = std::vector<std::string>;

// Runs a function on a thread of its own, which starts and ends without any attachment.
void onOwnThread(const std::function<void()>& function) {
    std::thread(function).join();
}

class Events : public testing::Test {
protected:
    Events() { store.use(); }

    EventStore store;
};

TEST_F(Events, withoutAStoreAnswerSo) {
    EventStore::useNone();
    std::array<char, 32> name{"some"};
    int period = 100;
    int eid = 7;
    EXPECT_EQ(find_ms_timer(100, name.data(), &eid), OSTREL_EVENT_NO_STORE);
    EXPECT_EQ(event_create_timer(name.data(), 10, 0, 1, 0, &period, &eid), OSTREL_EVENT_NO_STORE);
    EXPECT_EQ(ostrel_event_create("some", &eid), OSTREL_EVENT_NO_STORE);
    EXPECT_EQ(event_attach("some", 1, &eid), OSTREL_EVENT_NO_STORE);
    EXPECT_EQ(event_detach(1), OSTREL_EVENT_NO_STORE);
    EXPECT_EQ(event_set(1, nullptr, 0), OSTREL_EVENT_NO_STORE);
    EXPECT_EQ(event_set_name(name.data(), nullptr, 0), OSTREL_EVENT_NO_STORE);
    EXPECT_EQ(event_get_id(name.data(), &eid), OSTREL_EVENT_NO_STORE);
    ostrel_event_info_t info{};
    EXPECT_EQ(ostrel_event_info(0, &info), OSTREL_EVENT_NO_STORE);
    EXPECT_EQ(event_wait(nullptr, 0, &eid), OSTREL_EVENT_QUIET);
    EXPECT_EQ(eid, 7);
}

TEST_F(Events, refuseWhatIsNoName) {
    int eid = 7;
    int period = 100;
    for (std::string name : {std::string(), std::string(32, 'n'), std::string(200, 'n')}) {
        EXPECT_EQ(ostrel_event_create(name.c_str(), &eid), OSTREL_EVENT_INVALID) << name;
        EXPECT_EQ(event_attach(name.c_str(), 1, &eid), OSTREL_EVENT_INVALID) << name;
        EXPECT_EQ(event_set_name(name.data(), nullptr, 0), OSTREL_EVENT_INVALID) << name;
        EXPECT_EQ(event_get_id(name.data(), &eid), OSTREL_EVENT_INVALID) << name;
        EXPECT_EQ(event_create_timer(name.data(), 10, 0, 1, 0, &period, &eid), OSTREL_EVENT_INVALID) << name;
    }
    EXPECT_EQ(ostrel_event_create(nullptr, &eid), OSTREL_EVENT_INVALID);
    EXPECT_EQ(event_attach(nullptr, 1, &eid), OSTREL_EVENT_INVALID);
    EXPECT_EQ(event_set_name(nullptr, nullptr, 0), OSTREL_EVENT_INVALID);
    EXPECT_EQ(event_get_id(nullptr, &eid), OSTREL_EVENT_INVALID);
    EXPECT_EQ(event_create_timer(nullptr, 10, 0, 1, 0, &period, &eid), OSTREL_EVENT_INVALID);
    EXPECT_EQ(find_ms_timer(100, nullptr, &eid), OSTREL_EVENT_INVALID);
    EXPECT_EQ(eid, 7);
}

TEST_F(Events, takeANameOf31Characters) {
    const std::string name(31, 'n');
    int eid = 0;
    ASSERT_EQ(ostrel_event_create(name.c_str(), &eid), 0);
    ASSERT_EQ(event_attach(name.c_str(), 1, &eid), 0);
    EXPECT_EQ(raise(name.c_str(), "here"), 0);
    EXPECT_STREQ(receive().payload.c_str(), "here");
    EXPECT_EQ(attached(name.c_str()), 1);
}

TEST_F(Events, refuseHandlesThatAreNull) {
    eventId("some");
    std::array<char, 32> name{"some"};
    int period = 100;
    EXPECT_EQ(event_attach("some", 1, nullptr), OSTREL_EVENT_INVALID);
    EXPECT_EQ(event_get_id(name.data(), nullptr), OSTREL_EVENT_INVALID);
    EXPECT_EQ(event_wait(nullptr, 0, nullptr), OSTREL_EVENT_INVALID);
    EXPECT_EQ(find_ms_timer(100, name.data(), nullptr), OSTREL_EVENT_INVALID);
    EXPECT_EQ(event_create_timer(name.data(), 10, 0, 1, 0, &period, nullptr), OSTREL_EVENT_INVALID);
    EXPECT_EQ(event_create_timer(name.data(), 10, 0, 1, 0, nullptr, &period), OSTREL_EVENT_INVALID);
    EXPECT_EQ(ostrel_event_info(0, nullptr), OSTREL_EVENT_INVALID);
    EXPECT_EQ(ostrel_event_create("other", nullptr), 0);
}

TEST_F(Events, unknownOnesAreNotMadeByTheWay) {
    int eid = 7;
    std::array<char, 32> name{"unknown"};
    EXPECT_EQ(event_attach("unknown", 1, &eid), OSTREL_EVENT_UNKNOWN);
    EXPECT_EQ(event_set_name(name.data(), nullptr, 0), OSTREL_EVENT_UNKNOWN);
    EXPECT_EQ(event_get_id(name.data(), &eid), OSTREL_EVENT_UNKNOWN);
    EXPECT_EQ(event_set(0, nullptr, 0), OSTREL_EVENT_UNKNOWN);
    EXPECT_EQ(event_set(-1, nullptr, 0), OSTREL_EVENT_UNKNOWN);
    EXPECT_EQ(event_set(1'000'000, nullptr, 0), OSTREL_EVENT_UNKNOWN);
    EXPECT_EQ(event_detach(1'000'000), OSTREL_EVENT_UNKNOWN);
    EXPECT_EQ(eid, 7);
    EXPECT_EQ(store.layout().threads[0].used, 0U) << "a thread that is attached to nothing holds no place";
}

TEST_F(Events, theFirstOneIsFoundAsTheOthersAre) {
    std::array<char, 32> config{"config"};
    int eid = 0;
    int again = 0;
    EXPECT_EQ(event_get_id(config.data(), &eid), 0);
    EXPECT_GT(eid, 0);
    EXPECT_EQ(ostrel_event_create("config", &again), 0);
    EXPECT_EQ(again, eid);
    EXPECT_EQ(createTimer("config", 100, again), OSTREL_EVENT_EXISTS);
    ostrel_event_info_t info{};
    EXPECT_EQ(ostrel_event_info(0, &info), 0);
    EXPECT_STREQ(info.name, "config");
    EXPECT_NE(ostrel_event_info(1, &info), 0) << "there is one of that name";
    EXPECT_EQ(raise("config"), 0);
    EXPECT_EQ(raised("config"), 1U);
}

TEST_F(Events, whatADetachedQueueHadDroppedStaysCounted) {
    const int some = eventId("some");
    attach("some", 2);
    for (int number = 0; number < 5; ++number)
        raise("some");
    EXPECT_EQ(dropped("some"), 3U);
    event_detach(some);
    EXPECT_EQ(dropped("some"), 3U) << "without having been read before";
    onOwnThread([] {
        attach("some", 1);
        raise("some");
        raise("some");
    });
    EXPECT_EQ(dropped("some"), 4U);
}

TEST_F(Events, haveOneIdPerName) {
    const int first = eventId("first");
    const int second = eventId("second");
    EXPECT_GT(first, 0);
    EXPECT_NE(first, second);
    EXPECT_EQ(eventId("first"), first);
    std::array<char, 32> name{"second"};
    int eid = 0;
    EXPECT_EQ(event_get_id(name.data(), &eid), 0);
    EXPECT_EQ(eid, second);
}

TEST_F(Events, everyStoreHasConfig) {
    EXPECT_EQ(attach("config", 1), 0);
    EXPECT_EQ(attached("config"), 1);
}

TEST_F(Events, carryTheWholePayload) {
    const int eid = eventId("some");
    ASSERT_EQ(attach("some"), 0);
    std::string payload(payloadCapacity, '\0');
    for (size_t byte = 0; byte < payload.size(); ++byte)
        payload[byte] = static_cast<char>(255 - byte);
    EXPECT_EQ(event_set(eid, payload.data(), payload.size()), 0);
    const Received received = receive();
    EXPECT_EQ(received.eid, eid);
    EXPECT_EQ(received.payload, payload);
}

TEST_F(Events, fillTheBufferAsFarAsItGoes) {
    eventId("some");
    ASSERT_EQ(attach("some"), 0);
    raise("some", "abcdef");
    raise("some", "abcdef");
    raise("some", "abcdef");
    raise("some");
    EXPECT_EQ(receive(3).payload, "abc");
    EXPECT_EQ(receive(6).payload, "abcdef");
    EXPECT_EQ(receive(300).payload, "abcdef" + std::string(294, '\0'));
    EXPECT_EQ(receive(5).payload, std::string(5, '\0'));
    raise("some", "abcdef");
    int eid = 0;
    EXPECT_EQ(event_wait(nullptr, 0, &eid), 0);
}

TEST_F(Events, refusePayloadsThatAreTooLongOrMissing) {
    const int eid = eventId("some");
    ASSERT_EQ(attach("some"), 0);
    std::string payload(payloadCapacity + 1, 'x');
    std::array<char, 32> name{"some"};
    EXPECT_EQ(event_set(eid, payload.data(), payload.size()), OSTREL_EVENT_INVALID);
    EXPECT_EQ(event_set(eid, nullptr, 1), OSTREL_EVENT_INVALID);
    EXPECT_EQ(event_set_name(name.data(), payload.data(), payload.size()), OSTREL_EVENT_INVALID);
    EXPECT_EQ(event_set_name(name.data(), nullptr, 1), OSTREL_EVENT_INVALID);
    EXPECT_EQ(raised("some"), 0U);
    int received = 0;
    EXPECT_EQ(event_wait(payload.data(), 1, &received), OSTREL_EVENT_QUIET);
    EXPECT_EQ(event_wait(nullptr, 1, &received), OSTREL_EVENT_INVALID);
}

TEST_F(Events, comeInTheOrderOfRaising) {
    for (const char* name : {"one", "two", "three"}) {
        eventId(name);
        ASSERT_EQ(attach(name, 100), 0);
    }
    Texts sent;
    for (int round = 0; round < 30; ++round) {
        for (const char* name : {"two", "one", "three", "one"}) {
            sent.push_back(std::string(name) + " " + std::to_string(sent.size()));
            raise(name, sent.back());
        }
    }
    EXPECT_EQ(receiveUntil(sent.back()), sent);
}

TEST_F(Events, aFullQueueDropsItsOldest) {
    struct Depth {
        unsigned short asked;
        int kept;
    };
    for (const Depth depth :
         {Depth{0, 1}, {1, 1}, {2, 2}, {10, 10}, {255, 255}, {256, 256}, {257, 256}, {65535, 256}}) {
        SCOPED_TRACE(depth.asked);
        const std::string name = "depth " + std::to_string(depth.asked);
        eventId(name.c_str());
        int eid = 0;
        ASSERT_EQ(event_attach(name.c_str(), depth.asked, &eid), 0);
        Texts expected;
        for (int number = 0; number < 600; ++number) {
            raise(name.c_str(), std::to_string(number));
            if (number >= 600 - depth.kept)
                expected.push_back(std::to_string(number));
        }
        const auto lost = static_cast<uint64_t>(600 - depth.kept);
        EXPECT_EQ(dropped(name.c_str()), lost);
        EXPECT_EQ(receiveUntil("599"), expected);
        EXPECT_EQ(dropped(name.c_str()), lost);
        EXPECT_EQ(raised(name.c_str()), 600U);
        event_detach(eid);
        EXPECT_EQ(dropped(name.c_str()), lost);
    }
}

TEST_F(Events, eachThreadHasAQueueOfItsOwn) {
    eventId("some");
    std::atomic<int> ready = 0;
    const auto receiver = [&](unsigned short depth, Texts& received) {
        attach("some", depth);
        ++ready;
        received = receiveUntil("last");
    };
    Texts deep;
    Texts other;
    std::thread first(receiver, 256, std::ref(deep));
    std::thread second(receiver, 256, std::ref(other));
    ASSERT_TRUE(comes([&] { return ready == 2; }));
    Texts sent;
    for (int number = 0; number < 200; ++number) {
        sent.push_back(std::to_string(number));
        raise("some", sent.back());
    }
    sent.emplace_back("last");
    raise("some", "last");
    first.join();
    second.join();
    EXPECT_EQ(deep, sent);
    EXPECT_EQ(other, sent);
    EXPECT_EQ(dropped("some"), 0U);
}

TEST_F(Events, reachOnlyThoseAttached) {
    eventId("some");
    eventId("other");
    ASSERT_EQ(attach("some"), 0);
    std::atomic<bool> isAttached = false;
    std::atomic<bool> mayEnd = false;
    std::thread bystander([&] {
        attach("other");
        isAttached = true;
        EXPECT_EQ(receive().payload.substr(0, 3), "end");
        mayEnd = true;
    });
    const auto isAsleep = [&] { return isAttached && store.isAsleep(1); };
    ASSERT_TRUE(comes(isAsleep));
    const uint32_t before = store.layout().threads[1].wakeups;
    for (int number = 0; number < 5; ++number)
        raise("some");
    EXPECT_EQ(store.layout().threads[1].wakeups, before);
    raise("other", "end");
    bystander.join();
    EXPECT_TRUE(mayEnd);
    EXPECT_EQ(store.layout().threads[1].wakeups, before + 1);
}

TEST_F(Events, areQuietAfterASecond) {
    int eid = 7;
    char byte = 'x';
    EXPECT_EQ(event_wait(&byte, 1, &eid), OSTREL_EVENT_QUIET);
    eventId("some");
    attach("some");
    EXPECT_EQ(event_wait(&byte, 1, &eid), OSTREL_EVENT_QUIET);
    EXPECT_EQ(byte, 'x');
}

TEST_F(Events, attachOnlyOnce) {
    const int some = eventId("some");
    int eid = 0;
    EXPECT_EQ(event_attach("some", 1, &eid), 0);
    EXPECT_EQ(eid, some);
    eid = 0;
    EXPECT_EQ(event_attach("some", 1, &eid), OSTREL_EVENT_ATTACHED);
    EXPECT_EQ(eid, some);
    EXPECT_EQ(attached("some"), 1);
    onOwnThread([] { EXPECT_EQ(attach("some"), 0) << "another thread is not attached yet"; });
}

TEST_F(Events, stopAfterDetaching) {
    const int some = eventId("some");
    eventId("other");
    attach("some");
    attach("other");
    raise("some", "unread");
    EXPECT_EQ(event_detach(some), 0);
    EXPECT_EQ(event_detach(some), OSTREL_EVENT_UNKNOWN);
    raise("some", "unseen");
    raise("other", "seen");
    EXPECT_EQ(receiveUntil("seen"), Texts{"seen"});
    EXPECT_EQ(attached("some"), 0);
    EXPECT_EQ(attach("some"), 0);
    raise("some", "again");
    EXPECT_EQ(receiveUntil("again"), Texts{"again"});
}

TEST_F(Events, aThreadThatEndsIsDetached) {
    eventId("some");
    eventId("other");
    onOwnThread([] {
        attach("some");
        attach("other");
        EXPECT_EQ(attached("some"), 1);
    });
    EXPECT_EQ(attached("some"), 0);
    EXPECT_EQ(attached("other"), 0);
    EXPECT_EQ(store.layout().threads[0].used, 0U);
}

TEST_F(Events, canBeTwoThousand) {
    int made = 1;  // "config"
    int eid = 0;
    while (ostrel_event_create(("event " + std::to_string(made)).c_str(), &eid) == 0)
        ++made;
    EXPECT_EQ(made, 2000);
    EXPECT_EQ(ostrel_event_create("one more", &eid), OSTREL_EVENT_FULL);
    EXPECT_EQ(createTimer("a timer", 100, eid), OSTREL_EVENT_FULL);
    EXPECT_EQ(ostrel_event_create("event 1999", &eid), 0);
    ASSERT_EQ(attach("event 1999"), 0);
    raise("event 1999", "last one");
    EXPECT_EQ(receiveUntil("last one"), Texts{"last one"});
    ostrel_event_info_t info{};
    EXPECT_EQ(ostrel_event_info(1999, &info), 0);
    EXPECT_NE(ostrel_event_info(2000, &info), 0);
    EXPECT_NE(ostrel_event_info(-1, &info), 0);
}

// The places stand at the end of the table: sets of threads are walked over to their last word.
TEST_F(Events, serveAsManyThreadsAsThereArePlaces) {
    eventId("some");
    store.takePlaces(threadCapacity);
    for (unsigned place = threadCapacity - 256; place < threadCapacity; ++place)
        store.layout().threads[place].used = 0;
    std::atomic<int> ready = 0;
    std::atomic<int> got = 0;
    std::vector<std::thread> threads;
    for (int number = 0; number < 256; ++number) {
        threads.emplace_back([&] {
            EXPECT_EQ(attach("some"), 0);
            ++ready;
            got += receive().payload.substr(0, 3) == "all";
        });
    }
    ASSERT_TRUE(comes([&] { return ready == 256; }));
    EXPECT_EQ(attached("some"), 256);
    EXPECT_EQ(attach("some"), OSTREL_EVENT_FULL);
    raise("some", "all");
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(got, 256);
    EXPECT_EQ(attached("some"), 0);
    EXPECT_EQ(attach("some"), 0);
}

TEST_F(Events, withoutAPlaceForTheThreadComeAsSoonAsThereIsOne) {
    const int some = eventId("some");
    store.takePlaces(threadCapacity);
    loggedLines().clear();
    int eid = 0;
    for (int attempt = 0; attempt < 3; ++attempt)
        EXPECT_EQ(event_attach("some", 1, &eid), OSTREL_EVENT_FULL);
    EXPECT_EQ(eid, some);
    EXPECT_EQ(event_wait(nullptr, 0, &eid), OSTREL_EVENT_QUIET);
    ASSERT_EQ(loggedLines().size(), 1U);
    const std::string own = "4096 by " + programName(getpid()) + "[" + std::to_string(getpid()) + "]";
    EXPECT_NE(loggedLines().front().find(own), std::string::npos) << loggedLines().front();
    store.layout().threads[4000].used = 0;
    EXPECT_TRUE(comes([&] { return event_wait(nullptr, 0, &eid), attached("some") == 1; }));
    raise("some", "in");
    EXPECT_EQ(receiveUntil("in"), Texts{"in"});
    EXPECT_EQ(attach("some"), OSTREL_EVENT_ATTACHED);
}

TEST_F(Events, thatDoNotExistAreNotWaitedForWithoutAPlaceEither) {
    store.takePlaces(threadCapacity);
    EXPECT_EQ(attach("unknown"), OSTREL_EVENT_UNKNOWN);
    store.layout().threads[0].used = 0;
    int eid = 0;
    EXPECT_EQ(event_wait(nullptr, 0, &eid), OSTREL_EVENT_QUIET);
    EXPECT_EQ(event_get_id(std::array<char, 32>{"unknown"}.data(), &eid), OSTREL_EVENT_UNKNOWN);
}

TEST_F(Events, thatNobodyWaitsForAnyMoreAreNotAttachedTo) {
    const int some = eventId("some");
    store.takePlaces(threadCapacity);
    attach("some");
    EXPECT_EQ(event_detach(some), 0);
    store.layout().threads[0].used = 0;
    int eid = 0;
    EXPECT_EQ(event_wait(nullptr, 0, &eid), OSTREL_EVENT_QUIET);
    EXPECT_EQ(attached("some"), 0);
}

// As the timers' threads of a display go: no timer can be made, and no attach follows.
TEST_F(Events, aTimerWithoutRoomTicksAsSoonAsThereIsSome) {
    store.layout().eventCount = eventCapacity;
    loggedLines().clear();
    int eid = -1;
    EXPECT_EQ(createTimer("tmr-70", 70, eid), OSTREL_EVENT_FULL);
    EXPECT_EQ(loggedLines().size(), 1U);
    int got = 0;
    EXPECT_EQ(event_wait(nullptr, 0, &got), OSTREL_EVENT_QUIET);
    store.layout().eventCount = 1;
    EXPECT_TRUE(comes([&] { return event_wait(nullptr, 0, &got), attached("tmr-70") == 1; }));
    std::array<char, 32> name{};
    EXPECT_EQ(find_ms_timer(70, name.data(), &got), 0);
    EXPECT_EQ(got, eid);
    raise("tmr-70");
    EXPECT_EQ(receive().eid, eid);
}

TEST_F(Events, tellHowMuchRoomIsTaken) {
    eventId("some");
    attach("some");
    ostrel_event_room_t room{};
    ASSERT_EQ(ostrel_event_room(&room), 0);
    EXPECT_EQ(room.threads, 1);
    EXPECT_EQ(room.most_threads, 4096);
    EXPECT_EQ(room.events, 2);
    EXPECT_EQ(room.most_events, 2000);
    EXPECT_EQ(ostrel_event_room(nullptr), OSTREL_EVENT_INVALID);
}

TEST_F(Events, aTimerIsMadeOnce) {
    int eid = 0;
    ASSERT_EQ(createTimer("tmr-500", 500, eid), 0);
    EXPECT_EQ(eid, eventId("tmr-500"));
    const int id = eid;
    eid = 7;
    EXPECT_EQ(createTimer("tmr-500", 500, eid), OSTREL_EVENT_EXISTS);
    EXPECT_EQ(eid, 7);
    eventId("plain");
    EXPECT_EQ(createTimer("plain", 500, eid), OSTREL_EVENT_EXISTS);
    ASSERT_EQ(attach("tmr-500"), 0);
    EXPECT_EQ(createTimer("tmr-500", 500, eid), OSTREL_EVENT_ATTACHED);
    EXPECT_EQ(eid, id);
    onOwnThread([] {
        int other = 0;
        EXPECT_EQ(createTimer("tmr-500", 500, other), OSTREL_EVENT_EXISTS);
    });
}

TEST_F(Events, aTimerHasAPeriodWithinBounds) {
    int eid = 7;
    for (const int period : {-1, 0, 9, 3'600'001})
        EXPECT_EQ(createTimer("tmr", period, eid), OSTREL_EVENT_INVALID) << period;
    EXPECT_EQ(eid, 7);
    EXPECT_EQ(createTimer("tmr-10", 10, eid), 0);
    EXPECT_EQ(createTimer("tmr-3600000", 3'600'000, eid), 0);
}

TEST_F(Events, aTimerIsFoundByItsPeriod) {
    std::array<char, 32> name{};
    int eid = -1;
    EXPECT_EQ(find_ms_timer(250, name.data(), &eid), OSTREL_EVENT_UNKNOWN);
    EXPECT_EQ(find_ms_timer(0, name.data(), &eid), OSTREL_EVENT_UNKNOWN) << "a plain event is no timer of 0 ms";
    EXPECT_EQ(eid, -1);
    int made = 0;
    createTimer("pulse", 250, made);
    EXPECT_EQ(find_ms_timer(250, name.data(), &eid), 0);
    EXPECT_STREQ(name.data(), "pulse");
    EXPECT_EQ(eid, made);
    ostrel_event_info_t info{};
    ASSERT_EQ(ostrel_event_info(1, &info), 0);
    EXPECT_EQ(info.period_ms, 250);
}

TEST_F(Events, theServerRaisesInTheMemoryThatItNames) {
    EventStore other;
    attach("config");
    EXPECT_EQ(raiseEventIn(&other.layout(), "config", "other", 5), 0);
    EXPECT_EQ(raiseEventIn(&store.layout(), "config", "own", 3), 0);
    EXPECT_EQ(raiseEventIn(&store.layout(), "unknown", nullptr, 0), OSTREL_EVENT_UNKNOWN);
    EXPECT_EQ(receiveUntil("own"), Texts{"own"});
}

class ReplacedStore : public Events {
protected:
    EventStore next;
};

TEST_F(ReplacedStore, getsTheWaitingThreadsByName) {
    int timer = 0;
    createTimer("tmr-50", 50, timer);
    const int some = eventId("some");
    attach("tmr-50", 3);
    attach("some", 2);
    next.use();
    eventId("made first there");  // So that the events lie elsewhere.

    int eid = 0;
    EXPECT_EQ(event_wait(nullptr, 0, &eid), OSTREL_EVENT_QUIET);
    EXPECT_EQ(attached("some"), 1);
    EXPECT_EQ(attached("tmr-50"), 1);
    EXPECT_EQ(eventId("some"), some);
    std::array<char, 32> name{};
    EXPECT_EQ(find_ms_timer(50, name.data(), &eid), 0) << "a timer is made again with its period";
    EXPECT_EQ(eid, timer);
    EXPECT_EQ(store.layout().threads[0].used, 0U);

    for (const char* text : {"1", "2", "3"})
        raise("some", text);
    EXPECT_EQ(event_set(timer, nullptr, 0), 0);
    EXPECT_EQ(receiveUntil(""), (Texts{"2", "3", ""})) << "the depth is kept";
    EXPECT_EQ(event_attach("some", 1, &eid), OSTREL_EVENT_ATTACHED);
}

TEST_F(ReplacedStore, isFoundByAThreadThatSleeps) {
    eventId("some");
    std::atomic<bool> isAttached = false;
    std::thread sleeper([&] {
        attach("some");
        isAttached = true;
        EXPECT_EQ(receiveUntil("new"), Texts{"new"});
    });
    ASSERT_TRUE(comes([&] { return isAttached && store.isAsleep(0); }));
    next.use();
    eventId("some");
    EXPECT_TRUE(comes([] { return attached("some") == 1; }));
    raise("some", "new");
    sleeper.join();
}

TEST_F(ReplacedStore, isFoundAfterATimeWithoutAny) {
    eventId("some");
    attach("some");
    EventStore::useNone();
    int eid = 0;
    EXPECT_EQ(event_wait(nullptr, 0, &eid), OSTREL_EVENT_QUIET);
    next.use();
    EXPECT_EQ(event_wait(nullptr, 0, &eid), OSTREL_EVENT_QUIET);
    raise("some", "back");
    EXPECT_EQ(receiveUntil("back"), Texts{"back"});
}

TEST_F(ReplacedStore, isAReconfigurationOfEverything) {
    int config = 0;
    event_attach("config", 1, &config);
    next.use();
    for (const unsigned state : {1U, 0U}) {
        const Received received = receive(sizeof(GLOBAL_CONFIG_EVENT));
        GLOBAL_CONFIG_EVENT event{};
        ASSERT_EQ(received.payload.size(), sizeof event);
        std::memcpy(&event, received.payload.data(), sizeof event);
        EXPECT_EQ(received.eid, config);
        EXPECT_EQ(event.new_state, state);
        EXPECT_EQ(static_cast<int>(event.memcode), -1);
    }
    raise("config", "real");
    EXPECT_EQ(receiveUntil("real"), Texts{"real"});
}

TEST_F(ReplacedStore, withoutRoomGetsTheThreadsWhenThereIsSome) {
    eventId("some");
    attach("some");
    next.takePlaces(threadCapacity);
    next.use();
    int eid = 0;
    EXPECT_EQ(event_wait(nullptr, 0, &eid), OSTREL_EVENT_QUIET);
    EXPECT_EQ(attach("config"), OSTREL_EVENT_FULL);
    next.layout().threads[200].used = 0;
    // It may have missed a reconfiguration, so it is told of one: its start and its end.
    EXPECT_EQ(receive().eid, eventId("config"));
    EXPECT_EQ(receive().eid, eventId("config"));
    raise("some", "in");
    EXPECT_EQ(receiveUntil("in"), Texts{"in"});
}

TEST_F(Events, aPlaceThatWasTakenAwayIsTakenAgain) {
    eventId("some");
    attach("some");
    releasePlace(store.layout(), 0);
    int eid = 0;
    EXPECT_EQ(event_wait(nullptr, 0, &eid), OSTREL_EVENT_QUIET);
    raise("some", "again");
    EXPECT_EQ(receiveUntil("again"), Texts{"again"});
}

TEST_F(Events, ofAnotherLayoutAreNotTouched) {
    eventId("some");
    attach("some");
    const auto refuses = [&](auto& field) {
        const auto kept = field;
        ++field;
        EXPECT_EQ(raise("some"), OSTREL_EVENT_NO_STORE);
        int eid = 0;
        EXPECT_EQ(event_wait(nullptr, 0, &eid), OSTREL_EVENT_QUIET);
        field = kept;
    };
    refuses(store.layout().magic);
    refuses(store.layout().version);
    refuses(store.layout().layoutSize);
    refuses(store.layout().guard);
    EXPECT_EQ(raise("some", "well"), 0);
    EXPECT_EQ(receiveUntil("well"), Texts{"well"});
}

// What stands behind the lock is scribbled over; the calls may fail in any way but by a crash.
TEST_F(Events, surviveDamagedMemory) {
    std::mt19937 random(12345);
    auto* bytes = reinterpret_cast<unsigned char*>(&store.layout());
    const size_t first = offsetof(EventLayout, eventCount);
    const size_t afterEvents = offsetof(EventLayout, heads);
    const int some = eventId("some");
    for (int round = 0; round < 300; ++round) {
        attach("some", 256);
        for (int hit = 0; hit < 20'000; ++hit) {
            const size_t end = hit % 2 == 0 ? afterEvents : offsetof(EventLayout, subscriptions);
            bytes[first + random() % (end - first)] = static_cast<unsigned char>(random());
        }
        std::array<char, 32> name{"some"};
        int eid = 0;
        event_set(some, name.data(), name.size());
        raise("config", "text");
        eventId(("new " + std::to_string(round)).c_str());
        find_ms_timer(100, name.data(), &eid);
        ostrel_event_info_t info{};
        for (int index = 0; index < 500; ++index)
            ostrel_event_info(index, &info);
        for (int event = 0; event < 500; ++event) {
            Message message{};
            if (oldestMessage(store.layout(), event, 0, message)) {
                EXPECT_LE(message.size, payloadCapacity);
                takeMessage(store.layout(), event, 0);
            }
        }
        releaseDeadPlaces(store.layout());
        event_detach(some);
    }
}

}  // namespace
