// A store that grows: the next generation takes the place of the one in use, under clients that hold on to it.
#include <fcntl.h>
#include <ostrel/events.h>
#include <ostrel/server.h>
#include <sys/mman.h>
#include <unistd.h>

#include <atomic>
#include <cstring>
#include <thread>

#include "ostrel/events/eventcalls.h"
#include "ostrel/storefixture.h"

namespace {

char* text(const std::string& s) {
    return const_cast<char*>(s.c_str());
}

class Generation : public StoreTest {
protected:
    void TearDown() override {
        for (const char* name : {"config", "some", "tmr-10"})
            event_detach(eventId(name));
        StoreTest::TearDown();
    }

    static uint32_t generation() {
        ostrel_store_status status{};
        ostrel_store_get_status(&status);
        return status.generation;
    }

    // Grows the store's real variables to more than it was made for, with the variables put by the commands.
    void grow(const std::vector<std::string>& commands, const std::string& room = "room 54 1 25000") {
        ASSERT_EQ(server.tell(room), "ok 1");
        configure(commands);
    }

    static RECONFIG_DATA* counters() {
        return static_cast<RECONFIG_DATA*>(get_private_shrd_mem(text("reconfig_data"), sizeof(RECONFIG_DATA)));
    }

    double real(const std::string& label) { return record<REAL_VARIABLE>(label)->value; }
};

// A word of the header of a store, changed behind the back of everybody.
class HeaderWord {
public:
    HeaderWord(const std::string& store, off_t offset) {
        const int fd = shm_open(("/ostrel-" + store).c_str(), O_RDWR, 0);
        m_page = static_cast<char*>(mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0));
        close(fd);
        m_word = reinterpret_cast<uint32_t*>(m_page + offset);
    }
    ~HeaderWord() { munmap(m_page, 4096); }
    HeaderWord(const HeaderWord&) = delete;
    HeaderWord& operator=(const HeaderWord&) = delete;
    uint32_t& value() const { return *m_word; }

private:
    char* m_page;
    uint32_t* m_word;
};

constexpr off_t version = 8;

TEST_F(Generation, IsNotMadeForWhatFits) {
    configure({"put 54 1 A"});
    for (const char* room : {"room 54 1 20000", "room 55 2 0", "room 64 15 64", "room 9 1 893", "room 54 1 -1"})
        EXPECT_EQ(server.tell(room), "ok 0") << room;
    EXPECT_EQ(generation(), 1u);
}

TEST_F(Generation, IsRefusedWhereASectionCannotGrow) {
    configure({"put 54 1 A"});
    for (const char* room : {"room 9 1 894", "room 53 10 35", "room 54 1 32768", "room 65 16 257", "room 1 1 1",
                             "room 54 2 1", "room -1 1 1", "room 4000 99 1"})
        EXPECT_EQ(server.tell(room).substr(0, 5), "error") << room;
    EXPECT_EQ(server.tell("room 9 1 894"), "error store " + store +
                                               ": the section control-real has room for 893 variables at most; 894 "
                                               "were asked for");
    EXPECT_EQ(generation(), 1u);
    EXPECT_EQ(find("A"), 0);
}

TEST_F(Generation, IsRefusedInTheMiddleOfAReconfiguration) {
    ASSERT_EQ(server.tell("begin -1"), "ok");
    EXPECT_EQ(server.tell("room 54 1 25000").substr(0, 5), "error");
    ASSERT_EQ(server.tell("commit"), "ok");
}

TEST_F(Generation, ThatWouldBeRefusedIsDropped) {
    configure({"put 54 1 A", "array 15 FIELD 3", "alias NICK A 1", "limits A 5", "rule A 1 0 10"});
    set_real_variable(record<REAL_VARIABLE>("A"), 7);
    REAL_VARIABLE* before = record<REAL_VARIABLE>("A");
    for (const char* refused : {"54 1 1A", "54 1 A.", "58 9 STAT", "54 2 B", "64 15 FIELD", "64 15 FIELD 3 3 3 3",
                                "64 15 FIELD 0", "54 1", "63 14 N:1 A"}) {
        ASSERT_EQ(server.tell("room 54 1 25000"), "ok 1");
        EXPECT_EQ(server.tell(std::string("reserve ") + refused).substr(0, 5), "error") << refused;
        EXPECT_EQ(generation(), 1u);
        EXPECT_EQ(record<REAL_VARIABLE>("A"), before);
        EXPECT_EQ(record<REAL_VARIABLE>("NICK"), before);
    }
    for (const std::string& object : objectsOf(store))
        EXPECT_EQ(object.find(".next"), std::string::npos) << object;
    ASSERT_EQ(server.tell("rule A 1 0 5"), "ok") << "of the generation that is served";
    EXPECT_EQ(server.tell("reserve 54 1 A"), "ok");
    configure({"put 54 1 A"});
    EXPECT_EQ(record<REAL_VARIABLE>("A"), before);
    EXPECT_EQ(real("A"), 7);
    set_real_variable(before, 6);
    EXPECT_EQ(real("A"), 7);
}

TEST(Reserving, RefusesWhatAPutWouldRefuse) {
    const ostrel_server_options options{};
    char message[200] = "";
    ostrel_server* own = ostrel_server_open(&options, message, sizeof message);
    ASSERT_NE(own, nullptr) << message;
    const ostrel_server_variable twice[] = {{GU_REAL_MEM, REAL_TYPE, "A", nullptr, 0, nullptr},
                                            {GU_INTEGER_MEM, INT_TYPE, "A", nullptr, 0, nullptr}};
    EXPECT_EQ(ostrel_server_reserve(own, twice, 1, message, sizeof message), 0);
    EXPECT_NE(ostrel_server_reserve(own, twice, 2, message, sizeof message), 0);
    EXPECT_STREQ(message, "A: stands already; a name can be given once");
    std::vector<std::string> names;
    for (int i = 0; i < 65; ++i)
        names.push_back("A" + std::to_string(i));
    const unsigned short size = 1;
    std::vector<ostrel_server_variable> arrays;
    for (const std::string& name : names)
        arrays.push_back({REAL_ARRAY_MEM, REAL_ARRAY_TYPE, name.c_str(), nullptr, 1, &size});
    EXPECT_EQ(ostrel_server_reserve(own, arrays.data(), 64, message, sizeof message), 0);
    EXPECT_NE(ostrel_server_reserve(own, arrays.data(), 65, message, sizeof message), 0);
    EXPECT_NE(std::string(message).find("is full; it has room for 64"), std::string::npos) << message;
    EXPECT_NE(ostrel_server_reserve(own, nullptr, 1, message, sizeof message), 0);
    EXPECT_NE(ostrel_server_reserve(nullptr, arrays.data(), 1, message, sizeof message), 0);
    ostrel_server_close(own);
}

TEST_F(Generation, HasTheRoomAskedForAndSome) {
    grow({"put 54 1 A"});
    EXPECT_EQ(generation(), 2u);
    EXPECT_GE(ostrel_section_capacity(GU_REAL_MEM, REAL_TYPE), 25000);
    EXPECT_EQ(ostrel_section_capacity(GU_INTEGER_MEM, INT_TYPE), 20000);
    EXPECT_EQ(server.tell("room 54 1 25000"), "ok 0");
    grow({"put 54 1 A"}, "room 54 1 32767");
    EXPECT_EQ(generation(), 3u);
    EXPECT_EQ(ostrel_section_capacity(GU_REAL_MEM, REAL_TYPE), 32767);
}

TEST_F(Generation, TakesMoreVariablesThanTheOneBefore) {
    ASSERT_EQ(server.tell("room 54 1 21000"), "ok 1");
    ASSERT_EQ(server.tell("churn 1 20999"), "ok");
    EXPECT_EQ(find("V20998"), 0);
    set_real_variable(record<REAL_VARIABLE>("V20998"), 5);
    EXPECT_EQ(real("V20998"), 5);
}

TEST_F(Generation, IsNotSeenBeforeItsCommit) {
    configure({"put 54 1 A"});
    REAL_VARIABLE* before = record<REAL_VARIABLE>("A");
    ASSERT_EQ(server.tell("room 54 1 25000"), "ok 1");
    ASSERT_EQ(server.tell("begin -1"), "ok");
    ASSERT_EQ(server.tell("put 54 1 B"), "ok 1");
    EXPECT_EQ(find("A"), 0);
    EXPECT_NE(find("B"), 0);
    EXPECT_EQ(record<REAL_VARIABLE>("A"), before);
    set_real_variable(before, 3);
    EXPECT_EQ(+before->value, 3);
    EXPECT_EQ(generation(), 1u);
    ASSERT_EQ(server.tell("commit"), "ok");
    EXPECT_NE(find("A"), 0);
    EXPECT_EQ(find("B"), 0);
}

TEST_F(Generation, KeepsValuesAndRulesOfNamesThatStay) {
    configure({"put 54 1 GONE", "put 54 1 A", "put 57 7 TEXT", "array 15 FIELD 2 3", "array 15 OTHER 4",
               "put 54 1 LEAST", "rule A 1 0 10", "rule LEAST 1 -5 -1"});
    set_real_variable(record<REAL_VARIABLE>("A"), 7);
    set_string_variable(record<STRING_VARIABLE>("TEXT"), text("hot"));
    SHARED_MEMORY element = handle("FIELD:1:2");
    ASSERT_EQ(ostrel_set_array_element(&element, 12, nullptr), 0);
    element = handle("OTHER:3");
    ASSERT_EQ(ostrel_set_array_element(&element, 12, nullptr), 0);

    ASSERT_EQ(server.tell("room 54 1 25000"), "ok 1");
    ASSERT_EQ(server.tell("begin -1"), "ok");
    EXPECT_EQ(server.tell("put 54 1 A"), "ok 0");
    EXPECT_EQ(server.tell("put 57 7 TEXT"), "ok 0");
    EXPECT_EQ(server.tell("put 54 1 LEAST"), "ok 0");
    EXPECT_EQ(server.tell("put 54 1 NEW"), "ok 1");
    EXPECT_EQ(server.tell("array 15 FIELD 2 3"), "ok 0");
    EXPECT_EQ(server.tell("array 15 OTHER 5"), "ok 1");
    ASSERT_EQ(server.tell("commit"), "ok");

    EXPECT_EQ(real("A"), 7);
    EXPECT_EQ(real("NEW"), 0);
    EXPECT_EQ(std::string(record<STRING_VARIABLE>("TEXT")->value), "hot");
    EXPECT_EQ(+static_cast<REAL_ARRAY_MEMBER*>(handle("FIELD:1:2").member_adr)->value, 12);
    EXPECT_EQ(+static_cast<REAL_ARRAY_MEMBER*>(handle("OTHER:3").member_adr)->value, 0);
    EXPECT_EQ(+record<REAL_VARIABLE>("A")->index, handle("A").index);
    set_real_variable(record<REAL_VARIABLE>("A"), 11);
    EXPECT_EQ(real("A"), 7) << "the rule goes with the name";
    set_real_variable(record<REAL_VARIABLE>("A"), -1);
    EXPECT_EQ(real("A"), 7);
    for (const double inside : {0.0, 10.0}) {
        set_real_variable(record<REAL_VARIABLE>("A"), inside);
        EXPECT_EQ(real("A"), inside);
    }
    EXPECT_EQ(ostrel_set_real(record<REAL_VARIABLE>("LEAST"), -5), OSTREL_STORED);
    EXPECT_EQ(ostrel_set_real(record<REAL_VARIABLE>("LEAST"), -6), OSTREL_OUTSIDE);
    EXPECT_EQ(ostrel_set_real(record<REAL_VARIABLE>("LEAST"), 0), OSTREL_OUTSIDE);
    EXPECT_NE(find("GONE"), 0);
}

TEST_F(Generation, LeavesNoPointerDangling) {
    configure({"put 54 1 A", "array 15 FIELD 3", "alias NICK A 1"});
    REAL_VARIABLE* old = record<REAL_VARIABLE>("A");
    const SHARED_MEMORY element = handle("FIELD:1");
    void* area = get_shrd_mem(GU_REAL_MEM, 0);
    set_real_variable(old, 1);
    grow({"put 54 1 A", "array 15 FIELD 3", "alias NICK A 1"});

    EXPECT_EQ(+old->value, 1);
    EXPECT_STREQ(old->label, "A");
    EXPECT_EQ(static_cast<REAL_VARIABLE*>(area)[0].index, 0);
    set_real_variable(old, 2);
    EXPECT_EQ(+old->value, 2) << "whoever has not looked up again writes to the record that it has";
    EXPECT_EQ(ostrel_set_array_element(&element, 5, nullptr), 0);
    REAL_VARIABLE* now = record<REAL_VARIABLE>("NICK");
    EXPECT_NE(now, old);
    EXPECT_EQ(+now->value, 1);
    fre_shrd_mem(GU_REAL_MEM);
}

TEST_F(Generation, IsCountedWhereTheCountersWereLinked) {
    configure({"put 54 1 A"});
    RECONFIG_DATA* data = counters();
    const int before = data->generic_reconfig_count;
    grow({"put 54 1 A"});
    EXPECT_NE(data->generic_reconfig_count, before);
    find("A");
    EXPECT_EQ(counters(), data);
    const int after = data->generic_reconfig_count;
    configure({"put 54 1 A"});
    EXPECT_EQ(data->generic_reconfig_count, after + 1) << "the same place shows the store in use";
}

TEST_F(Generation, ClientsThatOnlyPollTheOldMemorySeeTheCountersGoUp) {
    configure({"put 54 1 A"});
    // As a client of another version has it mapped, which the library does not lead on.
    const int fd = shm_open(("/ostrel-" + store).c_str(), O_RDWR, 0);
    auto* old = static_cast<RECONFIG_DATA*>(mmap(nullptr, 4096, PROT_READ, MAP_SHARED, fd, 65536));
    close(fd);
    const RECONFIG_DATA before = *old;
    grow({"put 54 1 A"});
    EXPECT_EQ(+old->generic_reconfig_count, before.generic_reconfig_count + 1);
    EXPECT_EQ(+old->real_reconfig_count, before.real_reconfig_count + 1);
    EXPECT_EQ(+old->go_count, before.go_count + 1);
    munmap(old, 4096);
}

TEST_F(Generation, WaitingThreadsGoOnThereWithTheSameIds) {
    configure({"put 54 1 A"});
    int timer = 0;
    ASSERT_EQ(createTimer("tmr-10", 10, timer), 0);
    ASSERT_EQ(attach("tmr-10"), 0);
    ASSERT_EQ(ostrel_event_create("some", nullptr), 0);
    ASSERT_EQ(ostrel_event_create("waits for nobody", nullptr), 0);
    const int some = eventId("some");
    ASSERT_EQ(attach("some", 7), 0);
    ASSERT_TRUE(ticks(timer, 3));
    grow({"put 54 1 A"});
    ASSERT_TRUE(ticks(timer, 10));
    EXPECT_EQ(attached("some"), 1);
    EXPECT_EQ(attached("tmr-10"), 1);
    event_detach(timer);
    int eid = 0;
    EXPECT_EQ(event_get_id(text("waits for nobody"), &eid), 0);
    EXPECT_EQ(eventId("some"), some);
    ASSERT_EQ(event_set(some, nullptr, 0), 0);
    EXPECT_EQ(receive().eid, some);
}

TEST_F(Generation, IsAnnouncedToWhoeverAttachedToConfig) {
    configure({"put 54 1 A"});
    const int config = eventId("config");
    ASSERT_EQ(attach("config"), 0);
    grow({"put 54 1 A"});
    // The start comes from the old store; a thread that moves before it has read the end is told of both anew.
    bool hasStarted = false;
    for (;;) {
        const Received received = receive(sizeof(GLOBAL_CONFIG_EVENT));
        ASSERT_EQ(received.eid, config);
        GLOBAL_CONFIG_EVENT event{};
        std::memcpy(&event, received.payload.data(), sizeof event);
        EXPECT_EQ(static_cast<int>(event.memcode), -1);
        hasStarted = hasStarted || event.new_state == 1;
        if (event.new_state == 0)
            break;
    }
    EXPECT_TRUE(hasStarted);
    EXPECT_EQ(generation(), 2u) << "who is told of the end finds the new generation";
}

TEST_F(Generation, ThatWasNotFinishedLeavesTheOldOneToTheNextServer) {
    configure({"put 54 1 A"});
    set_real_variable(record<REAL_VARIABLE>("A"), 4);
    REAL_VARIABLE* before = record<REAL_VARIABLE>("A");
    ASSERT_EQ(server.tell("room 54 1 25000"), "ok 1");
    ASSERT_EQ(server.tell("begin -1"), "ok");
    ASSERT_EQ(server.tell("put 54 1 B"), "ok 1");
    server.killHard();
    EXPECT_EQ(find("A"), 0);
    ServerProcess next;
    ASSERT_EQ(next.tell("open " + store), "ok 1");
    EXPECT_EQ(record<REAL_VARIABLE>("A"), before);
    EXPECT_EQ(real("A"), 4);
    ASSERT_EQ(next.tell("room 54 1 25000"), "ok 1");
    ASSERT_EQ(next.tell("begin -1"), "ok");
    ASSERT_EQ(next.tell("put 54 1 A"), "ok 0");
    ASSERT_EQ(next.tell("commit"), "ok");
    EXPECT_EQ(real("A"), 4);
    next.tell("close");
    EXPECT_TRUE(objectsOf(store).empty());
}

TEST_F(Generation, IsAdoptedByTheNextServer) {
    configure({"put 54 1 A"});
    grow({"put 54 1 A"});
    set_real_variable(record<REAL_VARIABLE>("A"), 4);
    server.killHard();
    ServerProcess next;
    ASSERT_EQ(next.tell("open " + store), "ok 1");
    EXPECT_EQ(next.tell("room 54 1 25000"), "ok 0");
    EXPECT_EQ(real("A"), 4);
    next.tell("close");
}

TEST_F(Generation, CloseLeavesNothingBehindInTheMiddleOfIt) {
    ASSERT_EQ(server.tell("room 54 1 25000"), "ok 1");
    ASSERT_EQ(server.tell("close"), "ok");
    EXPECT_TRUE(objectsOf(store).empty());
}

TEST_F(Generation, TakesTheListOfWritesAlong) {
    configure({"put 54 1 A"});
    REAL_VARIABLE* old = record<REAL_VARIABLE>("A");
    const std::string file = testing::TempDir() + store + ".writes";
    set_real_variable(old, 0.5);
    ASSERT_EQ(server.tell("drain " + file), "ok");
    set_real_variable(old, 1);
    grow({"put 54 1 A"});
    set_real_variable(old, 2);
    set_real_variable(record<REAL_VARIABLE>("A"), 3);
    ASSERT_EQ(server.tell("drain " + file), "ok");
    FILE* stream = fopen(file.c_str(), "r");
    ASSERT_TRUE(stream);
    int lines = 0;
    for (int c = fgetc(stream); c != EOF; c = fgetc(stream))
        lines += c == '\n';
    fclose(stream);
    remove(file.c_str());
    EXPECT_EQ(lines, 4) << "each once, also what went to the record of the old generation";
}

TEST_F(Generation, LookUpsAndWritesGoOnWhileItIsMade) {
    configure({"put 54 1 A", "put 54 1 B"});
    std::atomic<bool> done{false};
    std::atomic<int> missed{0};
    std::thread client([&] {
        while (!done) {
            SHARED_MEMORY mem{};
            auto* found =
                find_variable(text("A"), &mem) == 0 ? static_cast<REAL_VARIABLE*>(get_vrbl_adr(mem)) : nullptr;
            if (!found) {
                ++missed;
                continue;
            }
            set_real_variable(found, 6);
        }
    });
    for (const char* room : {"room 54 1 21000", "room 54 1 27000", "room 55 2 21000", "room 55 2 27000"})
        grow({"put 54 1 A", "put 54 1 B"}, room);
    done = true;
    client.join();
    EXPECT_EQ(missed, 0);
    EXPECT_EQ(generation(), 5u);
}

TEST_F(Generation, FollowsAStoreOfAnotherVersion) {
    configure({"put 54 1 A"});
    REAL_VARIABLE* old = record<REAL_VARIABLE>("A");
    set_real_variable(old, 1);
    int timer = 0;
    ASSERT_EQ(createTimer("tmr-10", 10, timer), 0);
    ASSERT_EQ(attach("tmr-10"), 0);
    RECONFIG_DATA* data = counters();
    const int before = data->generic_reconfig_count;
    server.killHard();
    HeaderWord(store, version).value() = 99;
    ServerProcess next;
    ASSERT_EQ(next.tell("open " + store), "ok 0");
    ASSERT_EQ(next.tell("begin -1"), "ok");
    ASSERT_EQ(next.tell("put 54 1 A"), "ok 1");
    ASSERT_EQ(next.tell("commit"), "ok");
    EXPECT_NE(data->generic_reconfig_count, before);
    EXPECT_EQ(generation(), 2u);
    EXPECT_EQ(+old->value, 1);
    EXPECT_NE(record<REAL_VARIABLE>("A"), old);
    EXPECT_TRUE(ticks(timer, 5));
    next.tell("close");
}

TEST(GenerationOfAPrivateStore, IsUsedFromItsCommitOn) {
    const ostrel_server_options options{};
    char message[200] = "";
    ostrel_server* server = ostrel_server_open(&options, message, sizeof message);
    ASSERT_TRUE(server) << message;
    const auto put = [&](const char* label) {
        ostrel_server_begin(server, static_cast<SM_AREA_ID>(-1));
        ostrel_server_put(server, GU_REAL_MEM, REAL_TYPE, label, nullptr, message, sizeof message);
        ostrel_server_commit(server);
    };
    put("A");
    SHARED_MEMORY mem{};
    ASSERT_EQ(find_variable(text("A"), &mem), 0);
    auto* old = static_cast<REAL_VARIABLE*>(get_vrbl_adr(mem));
    const ostrel_server_room room{GU_REAL_MEM, REAL_TYPE, 30000};
    ASSERT_EQ(ostrel_server_make_room(server, &room, 1, message, sizeof message), 1) << message;
    EXPECT_EQ(get_vrbl_adr(mem), old);
    put("A");
    EXPECT_NE(get_vrbl_adr(mem), old);
    EXPECT_STREQ(old->label, "A");
    ostrel_server_close(server);
}

}  // namespace
