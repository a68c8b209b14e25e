// Opening stores that are cut short, of another version, or no stores at all. On the objects themselves.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>

#include "events/eventmemory.h"
#include "fuzzinputs.h"
#include "store/storeobjects.h"
#include "store/storeowner.h"

namespace {

class StoreOpen : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(createStoreObjects(made, name, defaultCapacities(), {}, problem)) << problem;
        StoreHeader& header = *made.storeHeader();
        header.layoutVersion = storeLayoutVersion;
        header.eventBytes = eventMemorySize();
        header.sectionCount = storeSections;
        header.magic = storeMagic;
        header.state = Live;
        ASSERT_EQ(open(), StoreLook::Usable);
    }

    void TearDown() override { unlinkStoreObjects(name); }

    StoreLook open() {
        StoreObjects objects;
        problem.clear();
        return openStoreObjects(objects, name, problem);
    }

    void resize(const std::string& suffix, size_t size) {
        const int fd = shm_open(("/ostrel-" + name + suffix).c_str(), O_RDWR, 0);
        ASSERT_GE(fd, 0) << suffix;
        ASSERT_EQ(ftruncate(fd, static_cast<off_t>(size)), 0);
        close(fd);
    }

    const std::string name = "test-open-" + std::to_string(getpid());
    StoreObjects made;
    std::string problem;
};

TEST_F(StoreOpen, AnotherVersionIsSaid) {
    made.storeHeader()->layoutVersion = 7;
    EXPECT_EQ(open(), StoreLook::Damaged);
    EXPECT_EQ(problem, "has layout version 7, this program knows " + std::to_string(storeLayoutVersion));
}

TEST_F(StoreOpen, WhatIsNoStoreIsSaid) {
    std::memset(made.header.data(), 'x', 4096);
    EXPECT_EQ(open(), StoreLook::Damaged);
    EXPECT_EQ(problem, "is no store");
}

TEST_F(StoreOpen, ObjectsCutShortAreSaid) {
    FuzzInputs random(21);
    const struct {
        std::string suffix;
        size_t size;
    } objects[] = {{"-area54", made.areas[GU_REAL_MEM].size()},
                   {"-area63", made.areas[ALIAS_MEM].size()},
                   {"-elements", made.elements.size()},
                   {"-events", made.events.size()},
                   {"-blocks", made.blocks.size()},
                   {"-writes", made.writes.size()}};
    for (int i = 0; i < FuzzInputs::scaled(300); ++i) {
        const auto& object = objects[random.below(std::size(objects))];
        resize(object.suffix, random.below(object.size));
        EXPECT_EQ(open(), StoreLook::Damaged) << object.suffix;
        resize(object.suffix, object.size);
        EXPECT_EQ(open(), StoreLook::Usable) << object.suffix << ": " << problem;
    }
}

TEST_F(StoreOpen, AHeaderCutShortIsSaid) {
    FuzzInputs random(22);
    const size_t size = made.header.size();
    for (int i = 0; i < FuzzInputs::scaled(300); ++i) {
        // The page at the front stays as this test has it mapped.
        resize("", 4096 + random.below(size - 4096));
        EXPECT_EQ(open(), StoreLook::Damaged);
    }
    resize("", size);
    made = StoreObjects();
    resize("", 0);
    EXPECT_EQ(open(), StoreLook::Absent) << "as one that is just being made";
}

TEST_F(StoreOpen, ARandomHeaderNeverHarms) {
    FuzzInputs random(23);
    constexpr size_t size = sizeof(StoreHeader);
    const std::string whole(made.header.data(), size);
    int usable = 0;
    for (int i = 0; i < FuzzInputs::scaled(15000); ++i) {
        for (size_t spoils = 1 + random.below(3); spoils > 0; --spoils)
            random.spoil(made.header.data(), i % 2 == 0 ? 1488 : 64);
        usable += open() == StoreLook::Usable;
        std::memcpy(made.header.data(), whole.data(), size);
    }
    EXPECT_GT(usable, 0) << "names of files may be anything";
    EXPECT_EQ(open(), StoreLook::Usable);
}

TEST_F(StoreOpen, CapacitiesThatTheObjectsHaveNoRoomForAreSaid) {
    made.storeHeader()->sections[0].capacity = INT16_MAX;
    EXPECT_EQ(open(), StoreLook::Damaged);
    made.storeHeader()->sections[0].capacity = 0;
    EXPECT_EQ(open(), StoreLook::Damaged);
    made.storeHeader()->sections[0].capacity = UINT32_MAX;
    EXPECT_EQ(open(), StoreLook::Damaged);
}

// Stores and parts of stores that another user made. Only root can make these here.
class ForeignStore : public StoreOpen {
protected:
    static constexpr uid_t somebody = 65534;
    static inline const std::string foreign =
        "belongs to nobody; used are stores of one's own user, of root and of the user that OSTREL_OWNER names";

    void SetUp() override {
        if (geteuid() != 0)
            GTEST_SKIP() << "only root can give files away";
        unsetenv("OSTREL_OWNER");
        StoreOpen::SetUp();
    }

    void TearDown() override {
        unsetenv("OSTREL_OWNER");
        StoreOpen::TearDown();
    }

    std::string path(const std::string& suffix) const { return "/dev/shm/ostrel-" + name + suffix; }
    void giveAway(const std::string& suffix) const {
        ASSERT_EQ(chown(path(suffix).c_str(), somebody, static_cast<gid_t>(-1)), 0);
    }
};

TEST_F(ForeignStore, IsRefusedWithItsOwner) {
    giveAway("");
    EXPECT_EQ(open(), StoreLook::Forbidden);
    EXPECT_EQ(problem, path("") + " " + foreign);
}

TEST_F(ForeignStore, IsRefusedForOnePartToo) {
    giveAway("-area54");
    EXPECT_EQ(open(), StoreLook::Damaged);
    EXPECT_EQ(problem, "its part area54: " + path("-area54") + " " + foreign);
}

TEST_F(ForeignStore, IsUsedWhereItsOwnerIsNamed) {
    giveAway("");
    for (const char* named : {"nobody", "65534"}) {
        setenv("OSTREL_OWNER", named, 1);
        EXPECT_EQ(open(), StoreLook::Usable) << problem;
    }
    for (const char* named : {"", "root", "65533", "65534 ", "no-such-user"}) {
        setenv("OSTREL_OWNER", named, 1);
        EXPECT_EQ(open(), StoreLook::Forbidden) << named;
    }
}

// Root may own the store that a user reads.
TEST_F(ForeignStore, IsUsedWhereItIsRoots) {
    for (const char* suffix : {"", "-area54"})
        ASSERT_EQ(chmod(path(suffix).c_str(), 0666), 0);
    ASSERT_EQ(seteuid(somebody), 0);
    EXPECT_TRUE(mayOwnStores(0));
    EXPECT_TRUE(mayOwnStores(somebody));
    EXPECT_FALSE(mayOwnStores(12345));
    ASSERT_EQ(seteuid(0), 0);
}

TEST_F(ForeignStore, CannotBeMadeWhereTheNameIsALink) {
    unlinkStoreObjects(name);
    const std::string target = "/tmp/" + name;
    ASSERT_EQ(symlink(target.c_str(), path("").c_str()), 0);
    EXPECT_EQ(open(), StoreLook::Forbidden);
    EXPECT_EQ(problem, path("") + ": Too many levels of symbolic links");
    EXPECT_NE(access(target.c_str(), F_OK), 0);
}

}  // namespace
