// Serving a store: what is put, what stays, and who takes over.
#include <ostrel/events.h>
#include <ostrel/server.h>
#include <sys/stat.h>

#include <atomic>
#include <cstring>
#include <thread>

#include "ostrel/storefixture.h"

namespace {

char* text(const std::string& s) {
    return const_cast<char*>(s.c_str());
}

class Server : public StoreTest {
protected:
    short count(short SYSTEM_ATTRIBUTES::*field) {
        void* base = nullptr;
        return link_to_memory(SYS_ATTR_MEM, &base) == 0 ? static_cast<SYSTEM_ATTRIBUTES*>(base)->*field : short{-1};
    }

    ostrel_store_status status() {
        ostrel_store_status result{};
        ostrel_store_get_status(&result);
        return result;
    }
};

TEST_F(Server, TheStatusDescribesTheStore) {
    configure({"put 54 1 A", "alias B A 0"});
    server.tell("beat");
    const ostrel_store_status now = status();
    EXPECT_EQ(now.found, 1);
    EXPECT_EQ(now.embedded, 0);
    EXPECT_EQ(now.alive, 1);
    EXPECT_EQ(now.name, store);
    EXPECT_STREQ(now.cell_file, "engine.toml");
    EXPECT_EQ(now.server_pid, server.pid());
    EXPECT_EQ(now.generation, 1u);
    EXPECT_EQ(now.variables, 2);
    EXPECT_GE(now.heartbeat_age_s, 0);
}

// Memory that the system has given to the store, in bytes.
int64_t memoryOf(const std::string& store) {
    int64_t bytes = 0;
    for (const std::string& object : objectsOf(store)) {
        struct stat status {};
        if (stat(("/dev/shm/" + object).c_str(), &status) == 0)
            bytes += status.st_blocks * 512;
    }
    return bytes;
}

TEST_F(Server, MemoryIsTakenForWhatIsUsedAlone) {
    constexpr int64_t mebibyte = 1 << 20;
    const int64_t empty = memoryOf(store);
    EXPECT_GT(empty, 0);
    EXPECT_LT(empty, 5 * mebibyte) << "of the 100 MiB that its areas can hold";
    configure({"put 54 1 A"});
    EXPECT_LT(memoryOf(store), empty + mebibyte);
    ASSERT_EQ(server.tell("churn 1 10000"), "ok");
    const int64_t full = memoryOf(store);
    EXPECT_GT(full, empty + 10000 * static_cast<int64_t>(sizeof(REAL_VARIABLE)));
    EXPECT_LT(full, empty + 3 * 10000 * static_cast<int64_t>(sizeof(REAL_VARIABLE)));
}

TEST_F(Server, NothingIsKnownBeforeTheCommit) {
    ASSERT_EQ(server.tell("begin -1"), "ok");
    ASSERT_EQ(server.tell("put 54 1 A"), "ok 1");
    EXPECT_NE(find("A"), 0);
    ASSERT_EQ(server.tell("commit"), "ok");
    EXPECT_EQ(find("A"), 0);
}

TEST_F(Server, NamesThatAreNoneAreRefusedWithAReason) {
    server.tell("begin -1");
    for (const char* label : {"1A", "A-B", "A.", "A:1", "A.B", "", "ÄH"})
        EXPECT_EQ(server.tell(std::string("put 54 1 ") + label).substr(0, 5), "error") << label;
    EXPECT_EQ(server.tell("put 54 1 " + std::string(80, 'A')).substr(0, 5), "error");
    EXPECT_EQ(server.tell("put 54 1 " + std::string(79, 'A')), "ok 1");
    EXPECT_EQ(server.tell("put 58 9 " + std::string(79, 'B')).substr(0, 5), "error");
    EXPECT_EQ(server.tell("put 58 9 " + std::string(78, 'B') + "."), "ok 1");
    EXPECT_EQ(server.tell("put 58 9 ."),
              "error .: is no name; use letters, digits and underscores, with no digit at the "
              "start");
    EXPECT_EQ(server.tell("put 54 2 A"), "error A: area 54 has no section for kind 2");
    EXPECT_EQ(server.tell("put 64 15 A"), "error A: arrays and aliases are put by functions of their own");
    server.tell("commit");
    EXPECT_EQ(find(std::string(79, 'A')), 0);
    EXPECT_EQ(find(std::string(78, 'B') + "."), 0);
    EXPECT_NE(find(std::string(78, 'B') + ".AV"), 0);
}

TEST_F(Server, ANameStandsOnce) {
    server.tell("begin -1");
    ASSERT_EQ(server.tell("put 54 1 A"), "ok 1");
    const std::string refusal = "error A: stands already; a name can be given once";
    EXPECT_EQ(server.tell("put 54 1 A"), refusal);
    EXPECT_EQ(server.tell("put 55 2 A"), refusal);
    EXPECT_EQ(server.tell("array 15 A 3"), refusal);
    EXPECT_EQ(server.tell("alias A B 0"), refusal);
    ASSERT_EQ(server.tell("alias B A 0"), "ok");
    EXPECT_EQ(server.tell("put 54 1 B"), "error B: stands already; a name can be given once");
}

TEST_F(Server, AVariableIsPutIntoAnAreaThatWasBegun) {
    EXPECT_EQ(server.tell("put 54 1 A"), "error A: its area is not under reconfiguration; begin that first");
    server.tell("begin 55");
    EXPECT_EQ(server.tell("put 54 1 A").substr(0, 5), "error");
    EXPECT_EQ(server.tell("put 55 2 A"), "ok 1");
}

TEST_F(Server, AFullSectionSaysSo) {
    server.tell("begin -1");
    for (int i = 0; i < 4; ++i)
        ASSERT_EQ(server.tell("put 9 2 N" + std::to_string(i)), "ok 1");
    EXPECT_EQ(server.tell("put 9 2 N4"), "error N4: the section control-integer is full; it has room for 4");
}

TEST_F(Server, ShapesThatNoArrayHasAreRefused) {
    server.tell("begin -1");
    for (const char* sizes : {"", " 0", " 2501", " 2 0", " 1 2 3 4"})
        EXPECT_EQ(server.tell(std::string("array 15 A") + sizes).substr(0, 5), "error") << sizes;
    EXPECT_EQ(server.tell("array 15 A 2500 2500 2500"),
              "error A: there is no memory left for it, 1562500000000 bytes of shared memory; free some in /dev/shm");
    EXPECT_EQ(server.tell("array 15 B 2500"), "ok 1");
    EXPECT_EQ(server.tell("array 1 C 3"), "error C: kind 1 is no array");
}

TEST_F(Server, AReloadKeepsSlotsValuesAndPointers) {
    configure({"put 54 1 A", "put 54 1 B", "put 54 1 C"});
    auto* b = record<REAL_VARIABLE>("B");
    set_real_variable(b, 42);
    configure({"put 54 1 NEW", "put 54 1 C", "put 54 1 B"});
    EXPECT_EQ(record<REAL_VARIABLE>("B"), b);
    EXPECT_EQ(+b->value, 42);
    EXPECT_EQ(+b->active, 1);
    EXPECT_EQ(handle("C").index, 2);
    EXPECT_EQ(handle("NEW").index, 3);
    EXPECT_NE(find("A"), 0);
}

TEST_F(Server, ANameThatComesBackHasItsOldSlot) {
    configure({"put 54 1 A", "put 54 1 B"});
    auto* a = record<REAL_VARIABLE>("A");
    set_real_variable(a, 7);
    configure({"put 54 1 B", "put 54 1 C"});
    EXPECT_EQ(+a->active, 0);
    EXPECT_STREQ(a->label, "A");
    EXPECT_EQ(count(&SYSTEM_ATTRIBUTES::max_num_gu_real), 3);
    configure({"put 54 1 C", "put 54 1 A"});
    EXPECT_EQ(record<REAL_VARIABLE>("A"), a);
    EXPECT_EQ(+a->active, 1);
    EXPECT_EQ(+a->value, 7);
}

TEST_F(Server, ARetiredSlotGoesToAnotherNameOnlyWhereNoOtherIsFree) {
    configure({"put 9 2 A", "put 9 2 B"});
    configure({"put 9 2 B"});
    configure({"put 9 2 B", "put 9 2 C", "put 9 2 D"});
    EXPECT_EQ(handle("C").index, 2);
    EXPECT_EQ(handle("D").index, 3);
    configure({"put 9 2 B", "put 9 2 C", "put 9 2 D", "put 9 2 E"});
    EXPECT_EQ(handle("E").index, 0);
    EXPECT_EQ(+record<INTEGER_VARIABLE>("E")->value, 0);
}

TEST_F(Server, ANameIsReplacedInASectionThatIsFull) {
    configure({"put 9 2 A", "put 9 2 B", "put 9 2 C", "put 9 2 D"});
    configure({"put 9 2 A", "put 9 2 X", "put 9 2 C", "put 9 2 D"});
    for (const char* name : {"A", "X", "C", "D"})
        EXPECT_STREQ(record<INTEGER_VARIABLE>(name)->label, name);
    EXPECT_EQ(handle("A").index, 0);
    EXPECT_EQ(handle("C").index, 2);
    EXPECT_NE(find("B"), 0);
}

TEST_F(Server, AReconfigurationOfOneAreaLeavesTheOthers) {
    configure({"put 54 1 A", "put 55 2 N", "alias FOR_A A 0", "alias FOR_N N 0", "limits N 5"});
    server.tell("begin 54");
    ASSERT_EQ(server.tell("put 54 1 B"), "ok 1");
    server.tell("commit");
    EXPECT_NE(find("A"), 0);
    EXPECT_EQ(find("B"), 0);
    EXPECT_EQ(find("N"), 0);
    EXPECT_EQ(find("FOR_N"), 0);
    EXPECT_NE(find("FOR_A"), 0);
    double limits[NUM_LIMIT_TYPES];
    EXPECT_EQ(get_limit_info(text("N"), nullptr, limits, nullptr, nullptr), 0);
    EXPECT_EQ(limits[0], 5);
}

TEST_F(Server, AnAliasThatStandsForNothingIsLeftOut) {
    configure({"put 54 1 A", "alias GOOD A 0", "alias BAD NOTHING 0", "alias WORSE GOOD 0", "alias SELF SELF 0"});
    EXPECT_EQ(find("GOOD"), 0);
    EXPECT_NE(find("BAD"), 0);
    EXPECT_NE(find("WORSE"), 0);
    EXPECT_NE(find("SELF"), 0);
    EXPECT_EQ(static_cast<ALIAS_VARIABLE*>(get_shrd_mem(ALIAS_MEM, 0))[0].active, 1);
    EXPECT_EQ(static_cast<ALIAS_VARIABLE*>(get_shrd_mem(ALIAS_MEM, 0))[1].active, 0);
}

TEST_F(Server, AnArrayThatStaysKeepsItsElementsAndOneOfAnotherShapeGetsNewOnes) {
    configure({"array 15 GRID 3 4", "array 15 OTHER 2"});
    SHARED_MEMORY old = handle("GRID:2:3");
    ASSERT_EQ(ostrel_set_array_element(&old, 5, nullptr), 0);
    server.tell("begin -1");
    ASSERT_EQ(server.tell("array 15 GRID 3 4"), "ok 0");
    server.tell("commit");
    EXPECT_EQ(handle("GRID:2:3").member_adr, old.member_adr);
    EXPECT_EQ(+static_cast<REAL_ARRAY_MEMBER*>(old.member_adr)->value, 5);
    server.tell("begin -1");
    ASSERT_EQ(server.tell("array 15 GRID 4 4"), "ok 1");
    server.tell("commit");
    const SHARED_MEMORY now = handle("GRID:2:3");
    EXPECT_NE(now.member_adr, old.member_adr);
    EXPECT_EQ(+static_cast<REAL_ARRAY_MEMBER*>(now.member_adr)->value, 0);
    EXPECT_EQ(+static_cast<REAL_ARRAY_MEMBER*>(old.member_adr)->value, 5);
    EXPECT_NE(ostrel_set_array_element(&old, 6, nullptr), 0);
    EXPECT_EQ(find("GRID:3:3"), 0);
}

TEST_F(Server, AReconfigurationIsAnnounced) {
    int eid = 0;
    ASSERT_EQ(event_attach("config", 10, &eid), 0);
    server.tell("begin 54");
    server.tell("commit");
    for (const unsigned state : {1u, 0u}) {
        GLOBAL_CONFIG_EVENT event{};
        int came = 0;
        ASSERT_EQ(event_wait(&event, sizeof event, &came), 0);
        EXPECT_EQ(came, eid);
        EXPECT_EQ(event.new_state, state);
        EXPECT_EQ(event.pid, server.pid());
        EXPECT_STREQ(event.taskname, "ostrel-cell");
        EXPECT_EQ(+event.memcode, GU_REAL_MEM);
    }
    EXPECT_EQ(event_detach(eid), 0);
}

TEST_F(Server, ASecondServerIsRefusedAndNamesTheFirst) {
    ServerProcess second;
    const std::string answer = second.tell("open " + store);
    EXPECT_EQ(answer, "error store " + store + ": is served by process " + std::to_string(server.pid()) +
                          " already; end that one first");
}

TEST_F(Server, NothingIsLeftAfterACleanEndButWhatClientsHold) {
    configure({"put 54 1 A"});
    auto* a = record<REAL_VARIABLE>("A");
    set_real_variable(a, 3);
    ASSERT_EQ(server.tell("close"), "ok");
    EXPECT_TRUE(objectsOf(store).empty());
    EXPECT_EQ(+a->value, 3);
    EXPECT_EQ(find("A"), 0);
    EXPECT_EQ(status().found, 1);
    EXPECT_EQ(status().alive, 0);
    EXPECT_EQ(status().server_pid, 0);
}

TEST_F(Server, TheNextStoreOfTheNameIsUsedInstead) {
    configure({"put 54 1 A"});
    const uint64_t first = status().instance;
    auto* a = record<REAL_VARIABLE>("A");
    server.tell("close");
    ASSERT_EQ(server.tell("open " + store), "ok 0");
    configure({"put 54 1 B"});
    EXPECT_NE(find("A"), 0);
    EXPECT_EQ(find("B"), 0);
    EXPECT_NE(status().instance, first);
    EXPECT_STREQ(a->label, "A");
}

// Somebody cleared /dev/shm after the server had died: the old memory looked like a living store for ever.
TEST_F(Server, AStoreWhoseObjectsWereRemovedIsLeftForTheNextOne) {
    configure({"put 54 1 A"});
    server.killHard();
    removeObjectsOf(store);
    ServerProcess next;
    ASSERT_EQ(next.tell("open " + store), "ok 0");
    EXPECT_EQ(status().server_pid, next.pid());
    EXPECT_NE(find("A"), 0);
    next.tell("close");
}

TEST_F(Server, AKilledServerIsFollowedByOneThatAdopts) {
    configure({"put 54 1 A", "put 54 1 B", "put 58 9 ENG.", "array 15 GRID 2 2", "alias FOR_B B 1",
               "alias CORNER GRID:1:1 0", "limits A 9"});
    configure({"put 54 1 B", "put 58 9 ENG.", "array 15 GRID 2 2", "alias FOR_B B 1", "alias CORNER GRID:1:1 0",
               "limits B 9"});
    auto* b = record<REAL_VARIABLE>("B");
    set_real_variable(b, 11);
    SHARED_MEMORY corner = handle("CORNER");
    ASSERT_EQ(ostrel_set_array_element(&corner, 12, nullptr), 0);
    const uint64_t instance = status().instance;

    server.killHard();
    EXPECT_EQ(status().alive, 0);
    EXPECT_EQ(status().found, 1);
    EXPECT_EQ(find("B"), 0);
    ServerProcess next;
    ASSERT_EQ(next.tell("open " + store), "ok 1");
    EXPECT_EQ(status().alive, 1);
    EXPECT_EQ(status().server_pid, next.pid());
    EXPECT_EQ(status().instance, instance);
    EXPECT_EQ(record<REAL_VARIABLE>("B"), b);
    EXPECT_EQ(handle("CORNER").member_adr, corner.member_adr);
    double limits[NUM_LIMIT_TYPES];
    EXPECT_EQ(get_limit_info(text("FOR_B"), nullptr, limits, nullptr, nullptr), 0);
    EXPECT_EQ(limits[0], 9);

    next.tell("begin -1");
    EXPECT_EQ(next.tell("put 54 1 NEW"), "ok 1");
    EXPECT_EQ(next.tell("put 54 1 A"), "ok 0");
    EXPECT_EQ(next.tell("put 54 1 B"), "ok 0");
    EXPECT_EQ(next.tell("array 15 GRID 2 2"), "ok 0");
    next.tell("commit");
    EXPECT_EQ(+b->value, 11);
    EXPECT_EQ(handle("A").index, 0);
    EXPECT_EQ(+static_cast<REAL_ARRAY_MEMBER*>(handle("GRID:1:1").member_adr)->value, 12);
    EXPECT_NE(find("FOR_B"), 0);
    next.tell("close");
}

TEST_F(Server, AServerKilledAtAnyPointOfAReconfigurationLeavesAStoreToAdopt) {
    configure({"put 54 1 V0", "put 54 1 V1", "put 54 1 V2"});
    auto* v1 = record<REAL_VARIABLE>("V1");
    set_real_variable(v1, 5);
    auto* data = static_cast<RECONFIG_DATA*>(get_private_shrd_mem(text("reconfig_data"), sizeof(RECONFIG_DATA)));
    for (int round = 0; round < 10; ++round) {
        ServerProcess victim;
        if (round == 0)
            server.killHard();
        ASSERT_EQ(victim.tell("open " + store), "ok 1");
        const int before = data->generic_reconfig_count;
        victim.send("churn 1000000 500");
        ASSERT_TRUE(comesTrue([&] { return data->generic_reconfig_count - before > round; }));
        victim.killHard();
        for (const char* name : {"V0", "V1", "V2", "V499"})
            EXPECT_EQ(find(name), 0) << name;
        EXPECT_EQ(record<REAL_VARIABLE>("V1"), v1);
        EXPECT_EQ(+v1->value, 5);
    }
}

TEST_F(Server, ReadersFindWhatStandsDuringReconfigurations) {
    configure({"put 54 1 V0", "put 54 1 V1"});
    auto* v1 = record<REAL_VARIABLE>("V1");
    std::atomic<bool> isOver = false;
    std::atomic<int> wrong = 0;
    std::vector<std::thread> readers;
    for (int i = 0; i < 2; ++i)
        readers.emplace_back([&] {
            while (!isOver) {
                SHARED_MEMORY mem{};
                wrong += find_variable(text("V1"), &mem) != 0 || get_vrbl_adr(mem) != v1;
                wrong += find_variable(text("V0.AV"), &mem) == 0;
            }
        });
    EXPECT_EQ(server.tell("churn 300 300"), "ok");
    isOver = true;
    for (std::thread& reader : readers)
        reader.join();
    EXPECT_EQ(wrong, 0);
}

TEST_F(Server, ModeAndGroupApplyToEveryObject) {
    ServerProcess other;
    const std::string name = newStoreName();
    ASSERT_EQ(other.tell("open " + name + " 640"), "ok 0");
    int seen = 0;
    for (const std::string& object : objectsOf(name)) {
        struct stat status {};
        ASSERT_EQ(stat(("/dev/shm/" + object).c_str(), &status), 0);
        if (object.ends_with(".lock"))
            continue;
        EXPECT_EQ(status.st_mode & 0777, 0640u) << object;
        ++seen;
    }
    EXPECT_GT(seen, 20);
    other.tell("close");
    for (const std::string& object : objectsOf(store)) {
        struct stat status {};
        ASSERT_EQ(stat(("/dev/shm/" + object).c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777, 0600u) << object;
    }
}

TEST_F(Server, APrivateStoreIsUsedByItsOwnProcessAlone) {
    ostrel_server_options options{};
    char message[200] = "";
    ostrel_server* own = ostrel_server_open(&options, message, sizeof message);
    ASSERT_NE(own, nullptr) << message;
    ostrel_server_begin(own, static_cast<SM_AREA_ID>(-1));
    int created = 0;
    ASSERT_NE(ostrel_server_put(own, GU_REAL_MEM, REAL_TYPE, "MINE", &created, nullptr, 0), nullptr);
    EXPECT_EQ(created, 1);
    ostrel_server_commit(own);
    EXPECT_EQ(find("MINE"), 0);
    EXPECT_EQ(status().embedded, 1);
    EXPECT_EQ(status().alive, 1);
    ostrel_server_close(own);
    EXPECT_EQ(status().embedded, 0);
    EXPECT_NE(find("MINE"), 0);
}

TEST_F(Server, CallsWithoutAServerDoNothing) {
    char message[200] = "";
    EXPECT_EQ(ostrel_server_open(nullptr, message, sizeof message), nullptr);
    ostrel_server_options options{};
    options.name = "no/name";
    EXPECT_EQ(ostrel_server_open(&options, message, sizeof message), nullptr);
    EXPECT_STREQ(message,
                 "store no/name: is no name for a store; use 1 to 63 letters, digits, points, hyphens and underscores");
    ostrel_server_close(nullptr);
    ostrel_server_begin(nullptr, GU_REAL_MEM);
    ostrel_server_commit(nullptr);
    ostrel_server_beat(nullptr);
    EXPECT_EQ(ostrel_server_adopted(nullptr), 0);
    EXPECT_EQ(ostrel_server_put(nullptr, GU_REAL_MEM, REAL_TYPE, "A", nullptr, nullptr, 0), nullptr);
}

}  // namespace
