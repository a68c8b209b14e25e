// Linking to memory: areas, arrays and private blocks.
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>

#include "ostrel/storefixture.h"

namespace {

char* text(const std::string& s) {
    return const_cast<char*>(s.c_str());
}

class Link : public StoreTest {};

TEST_F(Link, TheSectionsTellTheLayoutOfTheAreas) {
    int count = 0;
    const ostrel_section* sections = ostrel_sections(&count);
    ASSERT_EQ(count, 34);
    EXPECT_STREQ(sections[0].name, "gu-real");
    EXPECT_STREQ(sections[0].title, "General Use (real)");
    EXPECT_STREQ(sections[count - 1].name, "alias");
    const ostrel_section* emissions = ostrel_section_of(PROPERTIES_MEM, EMIS_TYPE);
    ASSERT_NE(emissions, nullptr);
    EXPECT_EQ(+emissions->start, 377648u);
    EXPECT_EQ(+emissions->capacity, 34);
    EXPECT_EQ(ostrel_section_of(GU_REAL_MEM, INT_TYPE), nullptr);
    EXPECT_EQ(ostrel_section_capacity(GU_REAL_MEM, REAL_TYPE), 20000);
    EXPECT_EQ(ostrel_section_capacity(GU_REAL_MEM, INT_TYPE), 0);
}

TEST_F(Link, SectionsOfOneAreaDoNotOverlap) {
    int count = 0;
    const ostrel_section* sections = ostrel_sections(&count);
    for (int i = 0; i < count; ++i)
        for (int j = 0; j < count; ++j)
            if (i != j && sections[i].area == sections[j].area && sections[i].start <= sections[j].start) {
                EXPECT_LE(sections[i].start + sections[i].record_size * static_cast<size_t>(sections[i].capacity),
                          sections[j].start)
                    << sections[i].name << " and " << sections[j].name;
            }
}

TEST_F(Link, AnAreaIsInUseBetweenItsLinkAndItsRelease) {
    EXPECT_EQ(shrd_mem_in_use(GU_REAL_MEM), 0);
    void* base = nullptr;
    ASSERT_EQ(link_to_memory(GU_REAL_MEM, &base), 0);
    EXPECT_EQ(get_shrd_mem(GU_REAL_MEM, 0), base);
    fre_shrd_mem(GU_REAL_MEM);
    EXPECT_EQ(shrd_mem_in_use(GU_REAL_MEM), 1);
    fre_shrd_mem(GU_REAL_MEM);
    EXPECT_EQ(shrd_mem_in_use(GU_REAL_MEM), 0);
    fre_shrd_mem(GU_REAL_MEM);
    EXPECT_EQ(shrd_mem_in_use(GU_REAL_MEM), 0);
    EXPECT_EQ(get_shrd_mem(GU_REAL_MEM, 390), base);
}

TEST_F(Link, AreasThatTheStoreHasNotDoNotLink) {
    void* base = &base;
    for (const int area : {0, -1, 32, 85, 86, 32767, -32768}) {
        EXPECT_NE(link_to_memory(static_cast<short>(area), &base), 0) << area;
        EXPECT_EQ(get_shrd_mem(static_cast<SM_AREA_ID>(area), 0), nullptr) << area;
        EXPECT_EQ(shrd_mem_in_use(static_cast<SM_AREA_ID>(area)), 0) << area;
        fre_shrd_mem(static_cast<SM_AREA_ID>(area));
    }
    EXPECT_EQ(base, &base);
    EXPECT_NE(link_to_memory(GU_REAL_MEM, nullptr), 0);
    EXPECT_EQ(get_shrd_mem(GU_REAL_MEM, size_t{1} << 40), nullptr);
}

TEST_F(Link, AWalkThroughTheAreasMeetsEveryVariable) {
    configure({"put 54 1 A", "put 54 1 B", "put 6 1 INPUT", "put 24 1 COUNTER", "put 8 2 COUNT_A", "put 8 2 COUNT_B"});
    void* base = nullptr;
    ASSERT_EQ(link_to_memory(SYS_ATTR_MEM, &base), 0);
    const auto* counts = static_cast<SYSTEM_ATTRIBUTES*>(base);
    EXPECT_EQ(+counts->max_num_gu_real, 2);
    EXPECT_EQ(+counts->logical_num_ai, 1);
    EXPECT_EQ(+counts->logical_num_ci, 2);
    EXPECT_EQ(+counts->max_array_real, 0);
    const auto* reals = static_cast<REAL_VARIABLE*>(get_shrd_mem(GU_REAL_MEM, 0));
    EXPECT_STREQ(reals[0].label, "A");
    EXPECT_STREQ(reals[1].label, "B");
    EXPECT_EQ(static_cast<REAL_VARIABLE*>(get_shrd_mem(CI_REAL_MEM, 0))[1].active, 0);
}

TEST_F(Link, AWalkAsFarAsTheCountsMeetsEveryActiveRecordWhateverHasGone) {
    configure({"put 54 1 A", "put 54 1 B", "put 54 1 C", "put 24 1 COUNTER", "put 8 2 N0", "put 8 2 N1", "put 8 2 N2"});
    configure({"put 54 1 C", "put 8 2 N2", "put 24 1 COUNTER"});
    const auto* counts = static_cast<const SYSTEM_ATTRIBUTES*>(get_shrd_mem(SYS_ATTR_MEM, 0));
    const auto* reals = static_cast<const REAL_VARIABLE*>(get_shrd_mem(GU_REAL_MEM, 0));
    const auto* counters = static_cast<const REAL_VARIABLE*>(get_shrd_mem(CI_REAL_MEM, 0));
    ASSERT_TRUE(counts && reals && counters);
    std::vector<std::string> active;
    for (short i = 0; i < counts->max_num_gu_real; ++i)
        if (reals[i].active != 0)
            active.emplace_back(reals[i].label);
    EXPECT_EQ(active, std::vector<std::string>{"C"});
    EXPECT_EQ(+counts->max_num_gu_real, 3) << "slots that have gone are walked over; none beyond them is";
    // Counts of pulses and their real values share a count.
    EXPECT_EQ(+counts->logical_num_ci, 3);
    EXPECT_EQ(+counters[0].active, 1);
    EXPECT_EQ(+counters[2].active, 0);
    for (const SM_AREA_ID area : {SYS_ATTR_MEM, GU_REAL_MEM, CI_REAL_MEM})
        fre_shrd_mem(area);
}

TEST_F(Link, AnArrayLinksByItsNameAlone) {
    configure({"array 16 COUNTS 5 2", "alias TALLY COUNTS 0", "put 54 1 SPEED"});
    size_t size = 0;
    void* elements = link_to_array_mem(text("COUNTS"), &size);
    ASSERT_NE(elements, nullptr);
    EXPECT_EQ(size, 10 * sizeof(INTEGER_ARRAY_MEMBER));
    EXPECT_EQ(link_to_array_mem(text("TALLY"), nullptr), elements);
    for (const char* name : {"COUNTS:1:1", "SPEED", "UNKNOWN", ""})
        EXPECT_EQ(link_to_array_mem(text(name), &size), nullptr) << name;
    EXPECT_EQ(link_to_array_mem(nullptr, &size), nullptr);
    EXPECT_EQ(_MEMORY_LINK_SIZE("COUNTS", nullptr), elements);
    EXPECT_EQ(_MEMORY_LINK_SIZE("COUNTS:1:1", &size), elements);
    EXPECT_EQ(_MEMORY_LINK_SIZE("SPEED", &size), nullptr);
    EXPECT_EQ(_MEMORY_LINK_SIZE(nullptr, &size), nullptr);
}

TEST_F(Link, GivingBackMoreThanWasLinkedIsForgiven) {
    fre_shrd_mem(GU_REAL_MEM);
    fre_shrd_mem(GU_REAL_MEM);
    ASSERT_NE(get_shrd_mem(GU_REAL_MEM, 0), nullptr);
    EXPECT_EQ(shrd_mem_in_use(GU_REAL_MEM), 1);
    fre_shrd_mem(GU_REAL_MEM);
    EXPECT_EQ(shrd_mem_in_use(GU_REAL_MEM), 0);
}

TEST_F(Link, AnAreaIsLinkedUpToItsWholeSize) {
    constexpr size_t part = 65536;  // areas are whole parts
    const ostrel_section* section = ostrel_section_of(GU_REAL_MEM, REAL_TYPE);
    const size_t records = static_cast<size_t>(ostrel_section_capacity(GU_REAL_MEM, REAL_TYPE)) * sizeof(REAL_VARIABLE);
    const size_t whole = (section->start + records + part - 1) / part * part;
    EXPECT_NE(get_shrd_mem(GU_REAL_MEM, whole), nullptr);
    EXPECT_EQ(get_shrd_mem(GU_REAL_MEM, whole + 1), nullptr);
    fre_shrd_mem(GU_REAL_MEM);
}

TEST_F(Link, APrivateBlockIsOneForAllProcesses) {
    const pid_t other = fork();
    if (other == 0) {
        auto* block = static_cast<char*>(get_private_shrd_mem(text("shared_block"), 5000));
        std::strcpy(block + 4000, "from another process");
        _exit(0);
    }
    ASSERT_EQ(waitpid(other, nullptr, 0), other);
    const auto* block = static_cast<const char*>(get_private_shrd_mem(text("shared_block"), 5000));
    EXPECT_STREQ(block + 4000, "from another process");
}

TEST_F(Link, APrivateBlockIsSharedByItsName) {
    auto* block = static_cast<char*>(get_private_shrd_mem(text("recipes"), 5000));
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(block[0], 0);
    EXPECT_EQ(block[4999], 0);
    block[4999] = 7;
    EXPECT_EQ(get_private_shrd_mem(text("recipes"), 1 << 20), block);
    EXPECT_NE(get_private_shrd_mem(text("other"), 5000), block);
    EXPECT_EQ(get_private_shrd_mem(text("recipes"), (1 << 20) + 1), nullptr);
    EXPECT_EQ(get_private_shrd_mem(nullptr, 8), nullptr);
}

TEST_F(Link, MoreBlocksThanTheStoreHasAreMemoryOfTheProcess) {
    for (int i = 0; i < 100; ++i) {
        auto* block = static_cast<char*>(get_private_shrd_mem(text("block" + std::to_string(i)), 16));
        ASSERT_NE(block, nullptr) << i;
        block[0] = static_cast<char>(i + 1);
    }
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(*static_cast<char*>(get_private_shrd_mem(text("block" + std::to_string(i)), 16)), i + 1);
}

TEST_F(Link, ReconfigurationsAreCounted) {
    auto* data = static_cast<RECONFIG_DATA*>(get_private_shrd_mem(text("reconfig_data"), sizeof(RECONFIG_DATA)));
    ASSERT_NE(data, nullptr);
    const RECONFIG_DATA before = *data;
    configure({"put 54 1 A"});
    EXPECT_EQ(+data->generic_reconfig_count, before.generic_reconfig_count + 1);
    EXPECT_EQ(+data->go_count, before.go_count + 1);
    EXPECT_EQ(+data->real_reconfig_count, before.real_reconfig_count + 1);
}

TEST_F(Link, TheCounterShowsTheNextStoreAtItsOldAddress) {
    auto* data = static_cast<RECONFIG_DATA*>(get_private_shrd_mem(text("reconfig_data"), sizeof(RECONFIG_DATA)));
    const int before = data->generic_reconfig_count;
    ASSERT_EQ(server.tell("close"), "ok");
    EXPECT_EQ(+data->generic_reconfig_count, before);
    ASSERT_EQ(server.tell("open " + store), "ok 0");
    EXPECT_NE(find("A"), 0);
    const int after = data->generic_reconfig_count;
    EXPECT_NE(after, before);
    configure({"put 54 1 A"});
    EXPECT_EQ(+data->generic_reconfig_count, after + 1);
    EXPECT_EQ(get_private_shrd_mem(text("reconfig_data"), sizeof(RECONFIG_DATA)), data);
}

}  // namespace
