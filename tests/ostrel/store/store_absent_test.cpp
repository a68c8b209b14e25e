// What is answered where no store runs, where one comes later, and where one is damaged.
#include <fcntl.h>
#include <ostrel/events.h>
#include <ostrel/server.h>
#include <pwd.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>
#include <fstream>
#include <random>

#include "ostrel/storefixture.h"

namespace {

char* text(const std::string& s) {
    return const_cast<char*>(s.c_str());
}

class Absent : public StoreTest {
protected:
    void SetUp() override { ASSERT_EQ(ostrel_store_open(store.c_str(), nullptr, nullptr, 0), 1); }
};

TEST_F(Absent, EveryCallAnswersAtOnce) {
    SHARED_MEMORY mem{};
    short index = 0;
    char* alias = nullptr;
    void* base = nullptr;
    EXPECT_NE(find("SPEED"), 0);
    EXPECT_NE(find_alias_label(text("SPEED"), &mem, &index), 0);
    EXPECT_NE(find_alias_of_target(text("SPEED"), &mem, &alias), 0);
    EXPECT_NE(find_stat_label(text("SPEED"), &mem), 0);
    mem.code = GU_REAL_MEM;
    mem.vari_type = REAL_TYPE;
    EXPECT_EQ(get_vrbl_adr(mem), nullptr);
    EXPECT_STREQ(get_variable_units(mem), "");
    EXPECT_NE(get_limit_info(text("SPEED"), nullptr, nullptr, nullptr, nullptr), 0);
    EXPECT_NE(link_to_memory(GU_REAL_MEM, &base), 0);
    EXPECT_EQ(get_shrd_mem(GU_REAL_MEM, 0), nullptr);
    EXPECT_EQ(shrd_mem_in_use(GU_REAL_MEM), 0);
    fre_shrd_mem(GU_REAL_MEM);
    EXPECT_EQ(link_to_array_mem(text("GRID"), nullptr), nullptr);
    EXPECT_EQ(_MEMORY_LINK_SIZE("GRID", nullptr), nullptr);
    EXPECT_EQ(ostrel_section_capacity(GU_REAL_MEM, REAL_TYPE), 0);
    EXPECT_NE(ostrel_section_of(GU_REAL_MEM, REAL_TYPE), nullptr);
}

TEST_F(Absent, TheStatusTellsWhatIsLookedFor) {
    ostrel_store_status status{};
    EXPECT_EQ(ostrel_store_get_status(&status), 0);
    EXPECT_EQ(status.found, 0);
    EXPECT_EQ(status.alive, 0);
    EXPECT_EQ(status.name, store);
    EXPECT_EQ(status.heartbeat_age_s, -1);
    EXPECT_EQ(ostrel_store_get_status(nullptr), 0);
}

TEST_F(Absent, PrivateBlocksAreMemoryOfTheProcess) {
    auto* block = static_cast<char*>(get_private_shrd_mem(text("absent_block"), 1 << 20));
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(block[(1 << 20) - 1], 0);
    block[0] = 1;
    EXPECT_EQ(get_private_shrd_mem(text("absent_block"), 10), block);
}

TEST_F(Absent, AStoreThatComesLaterIsUsedAndShowsInTheCounter) {
    auto* data = static_cast<RECONFIG_DATA*>(get_private_shrd_mem(text("reconfig_data"), sizeof(RECONFIG_DATA)));
    const int before = data->generic_reconfig_count;
    ASSERT_EQ(server.tell("open " + store), "ok 0");
    configure({"put 54 1 SPEED"});
    EXPECT_EQ(find("SPEED"), 0);
    EXPECT_NE(+data->generic_reconfig_count, before);
}

TEST_F(Absent, NamesThatNoStoreCanHaveAreRefused) {
    char message[200] = "";
    for (const std::string& name : {std::string(), std::string("a/b"), std::string("a b"), std::string(64, 'a'),
                                    std::string("x-elements"), std::string("x.lock"), std::string("x-area54")}) {
        EXPECT_GT(ostrel_store_open(name.c_str(), nullptr, message, sizeof message), 1) << name;
        EXPECT_NE(std::strlen(message), 0u) << name;
    }
}

// A store that this user may not even read: another user's, or the owner's own without any permission.
TEST(ForbiddenStore, IsSaidToBeSomebodyElses) {
    const std::string store = newStoreName();
    ServerProcess server;
    ASSERT_EQ(server.tell("open " + store + (geteuid() == 0 ? " 0600" : " 0200")), "ok 0");
    const std::string owner = getpwuid(geteuid())->pw_name;
    const std::string expected = "exists, but this user may not read it: it belongs to " + owner + " and has mode " +
                                 (geteuid() == 0 ? "0600" : "0200");
    const pid_t client = fork();
    if (client == 0) {
        const uid_t nobody = 65534;
        if (geteuid() == 0 && setresuid(nobody, nobody, nobody) != 0)
            _exit(100);
        char message[300] = "";
        EXPECT_EQ(ostrel_store_open(store.c_str(), nullptr, message, sizeof message), 1);
        EXPECT_TRUE(std::string(message).starts_with("'" + store + "': " + expected)) << message;
        ServerProcess second;
        const std::string answer = second.tell("open " + store);
        const bool isRunning = second.pid() > 0;  // where this user may start the program
        EXPECT_TRUE(!isRunning || answer.find(store + ": it belongs to " + owner) != std::string::npos) << answer;
        _exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int status = -1;
    EXPECT_EQ(waitpid(client, &status, 0), client);
    EXPECT_EQ(status, 0);
    server.killHard();
    removeObjectsOf(store);
}

// Nobody serves it, and its lock is gone.
TEST(ForbiddenStore, IsNotReplacedByAnotherUsersServer) {
    const std::string store = newStoreName();
    const uid_t nobody = 65534;
    ServerProcess server;
    ASSERT_EQ(server.tell("open " + store + (geteuid() == 0 ? " 0600" : " 0200")), "ok 0");
    server.killHard();
    ASSERT_EQ(unlink(("/dev/shm/ostrel-" + store + ".lock").c_str()), 0);
    const std::vector<std::string> before = objectsOf(store);
    const pid_t client = fork();
    if (client == 0) {
        if (geteuid() == 0 && setresuid(nobody, nobody, nobody) != 0)
            _exit(100);
        ostrel_server_options options{};
        options.name = store.c_str();
        char message[300] = "";
        EXPECT_EQ(ostrel_server_open(&options, message, sizeof message), nullptr);
        EXPECT_NE(std::string(message).find("exists, but this user may not read it"), std::string::npos) << message;
        _exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int status = -1;
    EXPECT_EQ(waitpid(client, &status, 0), client);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(objectsOf(store), before);
    removeObjectsOf(store);
}

// Serves a store of the name that is used where none is given, which the tests must not be found in.
class Misnamed : public StoreTest {
protected:
    void SetUp() override {
        setenv("OSTREL_STORE", store.c_str(), 1);
        ASSERT_EQ(server.tell("open " + store), "ok 0");
        configure({"put 54 1 SPEED"});
        ASSERT_EQ(ostrel_store_open(nullptr, nullptr, nullptr, 0), 0);
        ASSERT_EQ(find("SPEED"), 0);
    }

    void TearDown() override {
        unsetenv("OSTREL_STORE");
        StoreTest::TearDown();
    }

    static int event() { return event_get_id(text("config"), &eventId); }
    static inline int eventId = 0;
};

TEST_F(Misnamed, ANameThatIsRefusedLeadsToNoOtherStore) {
    for (const char* name : {"a b", "", "x-elements"}) {
        EXPECT_GT(ostrel_store_open(name, nullptr, nullptr, 0), 1) << name;
        EXPECT_NE(find("SPEED"), 0) << name;
        EXPECT_NE(event(), 0) << name;
        EXPECT_EQ(ostrel_store_get_status(nullptr), 0) << name;
    }
    EXPECT_EQ(ostrel_store_open(store.c_str(), nullptr, nullptr, 0), 0);
    EXPECT_EQ(find("SPEED"), 0);
}

TEST_F(Misnamed, ARefusedNameFromTheEnvironmentIsSaid) {
    char message[200] = "";
    setenv("OSTREL_STORE", "a b", 1);
    EXPECT_GT(ostrel_store_open(nullptr, nullptr, message, sizeof message), 1);
    EXPECT_STREQ(message,
                 "'a b': is no name for a store; use 1 to 63 letters, digits, points, hyphens and underscores");
    EXPECT_NE(find("SPEED"), 0);
}

TEST_F(Misnamed, ACellFileThatCannotBeServedLeadsToNoOtherStore) {
    char message[400] = "";
    EXPECT_GT(ostrel_store_open(nullptr, "/no/such/cell.toml", message, sizeof message), 1);
    EXPECT_NE(find("SPEED"), 0);
    EXPECT_EQ(ostrel_store_get_status(nullptr), 0);
}

// Puts something else in the place of the store's header.
class Damaged : public Absent {
protected:
    void place(const std::string& bytes, size_t size) {
        std::ofstream("/dev/shm/ostrel-" + store, std::ios::binary) << bytes;
        ASSERT_EQ(truncate(("/dev/shm/ostrel-" + store).c_str(), static_cast<off_t>(size)), 0);
    }

    void TearDown() override { removeObjectsOf(store); }
};

TEST_F(Damaged, HeadersOfRandomBytesAreNoStore) {
    std::mt19937 random(1);
    for (const size_t size : {size_t{1}, size_t{63}, size_t{4096}, size_t{70000}, size_t{256} << 20}) {
        std::string bytes(std::min<size_t>(size, 1 << 20), '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random());
        place(bytes, size);
        EXPECT_NE(find("SPEED"), 0) << size;
        EXPECT_EQ(ostrel_store_get_status(nullptr), 0) << size;
    }
}

TEST_F(Damaged, AHeaderOfAnotherVersionIsNoStore) {
    ASSERT_EQ(server.tell("open " + store), "ok 0");
    std::fstream header("/dev/shm/ostrel-" + store, std::ios::binary | std::ios::in | std::ios::out);
    header.seekp(8).write("\x63\0\0\0", 4);
    header.close();
    EXPECT_NE(find("SPEED"), 0);
    EXPECT_EQ(ostrel_store_get_status(nullptr), 0);
}

TEST_F(Damaged, APartThatIsMissingOrCutShortIsNoStore) {
    for (const char* part : {"-area54", "-elements", "-events", "-blocks"}) {
        ServerProcess victim;
        ASSERT_EQ(victim.tell("open " + store), "ok 0");
        const std::string path = "/dev/shm/ostrel-" + store + part;
        ASSERT_EQ(truncate(path.c_str(), 100), 0);
        EXPECT_EQ(ostrel_store_get_status(nullptr), 0) << part;
        ASSERT_EQ(unlink(path.c_str()), 0);
        EXPECT_EQ(ostrel_store_get_status(nullptr), 0) << part;
        victim.killHard();
        removeObjectsOf(store);
    }
}

TEST_F(Damaged, AServerReplacesWhatIsNoStore) {
    place(std::string(100, 'x'), 100);
    ASSERT_EQ(server.tell("open " + store), "ok 0");
    configure({"put 54 1 SPEED"});
    EXPECT_EQ(find("SPEED"), 0);
}

TEST_F(Damaged, OpeningTellsWhatIsThere) {
    char message[200] = "none";
    EXPECT_EQ(ostrel_store_open(store.c_str(), nullptr, message, sizeof message), 1);
    EXPECT_STREQ(message, "");
    place(std::string(100, 'x'), 1 << 28);
    EXPECT_EQ(ostrel_store_open(store.c_str(), nullptr, message, sizeof message), 1);
    EXPECT_EQ(message, "'" + store + "': is no store");
}

// Random bytes over a store in use: answers may be wrong then, but nothing may be read or written outside of it.
TEST_F(Damaged, AStoreOverwrittenWhileInUseKillsNobody) {
    ASSERT_EQ(server.tell("open " + store), "ok 0");
    configure({"put 54 1 SPEED", "array 15 GRID 3 4", "alias S SPEED 0", "put 58 9 ENG.", "limits SPEED 1"});
    ASSERT_EQ(find("GRID:1:2"), 0);
    const int fd = shm_open(("/ostrel-" + store).c_str(), O_RDWR, 0);
    struct stat status {};
    ASSERT_EQ(fstat(fd, &status), 0);
    const auto size = static_cast<size_t>(status.st_size);
    auto* bytes = static_cast<unsigned char*>(mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0));
    close(fd);
    ASSERT_NE(static_cast<void*>(bytes), MAP_FAILED);
    // Leaves the words that say that the store lives, and the size.
    std::mt19937 random(2);
    for (int round = 0; round < 20; ++round) {
        for (size_t i = 640; i < 12000; ++i)
            bytes[i] = static_cast<unsigned char>(random());
        for (size_t i = 128 << 10; i < (140 << 10); ++i)
            bytes[i] = static_cast<unsigned char>(random());
        for (const char* name : {"SPEED", "S", "GRID", "GRID:1:2", "ENG.MX", "UNKNOWN"}) {
            SHARED_MEMORY mem{};
            char* alias = nullptr;
            if (find_variable(text(name), &mem) == 0) {
                get_vrbl_adr(mem);
                get_variable_units(mem);
                ostrel_set_array_element(&mem, 1, "x");
            }
            find_alias_of_target(text(name), &mem, &alias);
            get_limit_info(text(name), nullptr, nullptr, nullptr, nullptr);
            link_to_array_mem(text(name), nullptr);
        }
        ostrel_store_get_status(nullptr);
    }
    munmap(bytes, size);
}

}  // namespace
