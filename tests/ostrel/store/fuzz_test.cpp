// Names of any kind, and stores whose memory somebody has written over, under a client that goes on using them.
#include <fcntl.h>
#include <ostrel/events.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>

#include "fuzzinputs.h"
#include "ostrel/storefixture.h"

namespace {

char* text(const std::string& s) {
    return const_cast<char*>(s.c_str());
}

const std::vector<std::string> nameCount = {"A",          "B",     "NICK",        "GAS.",    "GAS.AV",
                                            "FLOW.",      "FIELD", "FIELD:1:2:0", "WORDS:3", "FLAGS:1",
                                            "COUNTS:0:1", "TEXT",  "ON",          "NUMBER",  "NOBODY"};

class Fuzz : public StoreTest {
protected:
    void SetUp() override {
        StoreTest::SetUp();
        configure({"put 54 1 A", "put 54 1 B", "put 55 2 NUMBER", "put 56 3 ON", "put 57 7 TEXT", "put 58 9 GAS.",
                   "put 53 10 AIR.", "put 53 11 FLOW.", "put 53 12 EXHAUST.", "array 15 FIELD 2 3 4",
                   "array 16 COUNTS 2 2", "array 17 WORDS 5", "array 18 FLAGS 2", "alias NICK A 1",
                   "alias CELL FIELD:1:1:1 1", "limits A 5", "rule A 1 0 1"});
    }

    // Everything a client does with a name.
    static void use(const std::string& name) {
        SHARED_MEMORY mem{};
        short index = 0;
        char* alias = nullptr;
        LIMIT_STATUS status{};
        double limits[NUM_LIMIT_TYPES];
        short exists[NUM_LIMIT_TYPES];
        short display[NUM_LIMIT_TYPES];
        find_alias_label(text(name), &mem, &index);
        find_alias_of_target(text(name), &mem, &alias);
        find_stat_label(text(name), &mem);
        find_prop_label(text(name), &mem);
        get_limit_info(text(name), &status, limits, exists, display);
        link_to_array_mem(text(name), nullptr);
        _MEMORY_LINK_SIZE(name.c_str(), nullptr);
        if (find_variable(text(name), &mem) == 0)
            useHandle(mem);
    }

    static void useHandle(SHARED_MEMORY mem) {
        void* record = get_vrbl_adr(mem);
        get_variable_units(mem);
        if (!record)
            return;
        short kind = 0;
        std::memcpy(&kind, &mem.vari_type, sizeof kind);
        switch (kind) {
            case REAL_TYPE:
                set_real_variable(static_cast<REAL_VARIABLE*>(record), 0.5);
                break;
            case INT_TYPE:
                set_integer(static_cast<INTEGER_VARIABLE*>(record), 3);
                break;
            case LOGI_TYPE:
                set_logical(static_cast<LOGICAL_VARIABLE*>(record), 1);
                break;
            case STRING_TYPE:
                set_string_variable(static_cast<STRING_VARIABLE*>(record), text("words"));
                break;
            case STAT_TYPE:
                get_stat_format(static_cast<STAT_VARIABLE*>(record), static_cast<STAT_MEMBER_TYPE>(mem.offset % 256));
                break;
            case REAL_ARRAY_TYPE:
                get_real_array_adr(static_cast<REAL_ARRAY_VARIABLE*>(record), &mem);
                ostrel_set_array_element(&mem, 0.5, nullptr);
                break;
            case INT_ARRAY_TYPE:
            case LOGI_ARRAY_TYPE:
            case STRING_ARRAY_TYPE:
                ostrel_set_array_element(&mem, 1, "words");
                break;
            default:
                break;
        }
    }

    static void useStore() {
        ostrel_store_status status{};
        ostrel_store_get_status(&status);
        ostrel_section_capacity(GU_REAL_MEM, REAL_TYPE);
        ostrel_write write{};
        uint64_t after = 0;
        for (int i = 0; i < 3 && ostrel_next_write(after, &write) == 0; ++i)
            after = write.number;
    }

    std::string randomName(FuzzInputs& random) {
        static const std::vector<std::string> parts = {
            "A",  "NICK", "GAS", "FIELD",       "WORDS", ".", ":",  "AV",   "0",    "1",    "2",  "-1",
            ":1", "9999", "::",  "99999999999", ".C",    " ", "\n", "\xff", "CELL", "FLOW", "%n", "0x1"};
        std::string name;
        for (size_t count = random.below(7); count > 0; --count) {
            if (random.below(8) == 0)
                name += std::string(random.below(120), static_cast<char>(random() | 1));
            else
                name += parts[random.below(parts.size())];
        }
        return name;
    }

    // An object of the store as somebody who writes astray has it.
    struct Object {
        char* bytes = nullptr;
        size_t size = 0;
    };

    Object map(const std::string& suffix, size_t size) {
        const int fd = shm_open(("/ostrel-" + store + suffix).c_str(), O_RDWR, 0);
        EXPECT_GE(fd, 0) << suffix;
        void* memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0);
        close(fd);
        mapped.push_back({static_cast<char*>(memory), size});
        return mapped.back();
    }

    // Spoils the object again and again, and puts it right in between.
    void spoil(const Object& object, uint64_t seed, int count, size_t from = 0) {
        FuzzInputs random(seed);
        const std::string whole(object.bytes, object.size);
        for (int i = 0; i < FuzzInputs::scaled(count); ++i) {
            for (size_t spoils = 1 + random.below(3); spoils > 0; --spoils)
                random.spoil(object.bytes + from, object.size - from);
            use(nameCount[random.below(nameCount.size())]);
            if (i % 16 == 0)
                useStore();
            std::memcpy(object.bytes, whole.data(), whole.size());
        }
    }

    void TearDown() override {
        for (const Object& object : mapped)
            munmap(object.bytes, object.size);
        StoreTest::TearDown();
    }

    std::vector<Object> mapped;
};

TEST_F(Fuzz, NoNameHarmsALookUp) {
    FuzzInputs random(1);
    for (int i = 0; i < FuzzInputs::scaled(200000); ++i)
        use(randomName(random));
    EXPECT_EQ(find("FIELD:1:2:3"), 0);
}

TEST_F(Fuzz, NoNumberInAHandleHarms) {
    FuzzInputs random(2);
    for (int i = 0; i < FuzzInputs::scaled(100000); ++i) {
        SHARED_MEMORY mem = handle(nameCount[random.below(5)]);
        char bytes[sizeof mem];
        std::memcpy(bytes, &mem, sizeof mem);
        random.spoil(bytes, sizeof bytes);
        std::memcpy(&mem, bytes, sizeof mem);
        useHandle(mem);
    }
    EXPECT_EQ(find("A"), 0);
}

TEST_F(Fuzz, AHeaderWrittenOverGivesErrorsAtWorst) {
    // Behind magic, version and state, which belong to a client only when it attaches.
    spoil(map("", 10240), 3, 60000, 16);
    EXPECT_EQ(find("A"), 0);
}

TEST_F(Fuzz, ANameIndexWrittenOverGivesErrorsAtWorst) {
    const Object object = map("", size_t{60} << 20);
    for (size_t table = 0; table < 2; ++table) {
        const size_t start =
            131072 + table * ((size_t{64} + 524288 * 8 + 200000 * 96 + 40000 * 80 + 65535) / 65536 * 65536);
        spoil({object.bytes + start, 2048}, 4, 20000);
        spoil({object.bytes + start + 64 + 524288 * 8, 4096}, 5, 20000);
        spoil({object.bytes + start + 64 + 524288 * 8 + 200000 * 96, 256}, 6, 5000);
    }
    EXPECT_EQ(find("A"), 0);
}

TEST_F(Fuzz, RecordsWrittenOverGiveErrorsAtWorst) {
    spoil(map("-area54", 4096), 7, 20000);
    spoil(map("-area58", 4096), 8, 10000);
    spoil(map("-area63", 4096), 9, 10000);
    // Dimensions and sizes of arrays stand behind their label.
    for (const char* area : {"-area64", "-area65", "-area66", "-area67"})
        spoil(map(area, 4096), 10, 15000);
    spoil(map("-elements", 8192), 11, 10000);
    EXPECT_EQ(find("FIELD:1:2:3"), 0);
}

TEST_F(Fuzz, AListOfWritesWrittenOverGivesErrorsAtWorst) {
    const Object object = map("-writes", 8192);
    set_real_variable(record<REAL_VARIABLE>("A"), 1);
    FuzzInputs random(12);
    for (int i = 0; i < FuzzInputs::scaled(5000); ++i) {
        random.spoil(object.bytes, object.size);
        useStore();
        use("A");
    }
    EXPECT_EQ(find("A"), 0);
}

}  // namespace
