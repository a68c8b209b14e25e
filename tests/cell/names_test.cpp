// Names, and what somebody meant who mistyped one.
#include "names.h"

#include <gtest/gtest.h>

#include "nearestname.h"

using namespace ostrelcell;

namespace {

TEST(Names, TakeLettersDigitsAndUnderscores) {
    for (const char* good : {"A", "_a", "OIL_TEMP_2", "x9"})
        EXPECT_EQ(name_fault(good, false), "") << good;
    for (const char* bad : {"", "2A", "A B", "A.B", "A:1", "A-B", "\xc3\x84"})
        EXPECT_NE(name_fault(bad, false), "") << bad;
}

TEST(Names, HaveRoomFor79Characters) {
    EXPECT_EQ(name_fault(std::string(79, 'A'), false), "");
    EXPECT_NE(name_fault(std::string(80, 'A'), false), "");
    EXPECT_EQ(name_fault(std::string(78, 'A'), true), "");
    EXPECT_NE(name_fault(std::string(79, 'A'), true), "");
}

TEST(Names, FindMembersOfEachKind) {
    EXPECT_EQ(member_index(STAT_TYPE, "AV"), AV);
    EXPECT_EQ(member_index(STAT_TYPE, "NR"), NR);
    EXPECT_EQ(member_index(COMP_TYPE, "N2"), N2);
    EXPECT_EQ(member_index(PROP_TYPE, "AT"), AT);
    EXPECT_EQ(member_index(EMIS_TYPE, "BSNOX_G1"), BSNOX_G1);
    EXPECT_EQ(member_index(STAT_TYPE, "N2"), -1);
    EXPECT_EQ(member_index(STAT_TYPE, ""), -1);
    EXPECT_EQ(member_index(REAL_TYPE, "AV"), -1);
}

TEST(Names, CountElementsInRowMajorOrder) {
    Variable array;
    array.kind = REAL_ARRAY_TYPE;
    array.name = "A";
    array.shape = {{2, 3}, {{"IN", "OUT"}, {}}};
    std::string why;
    EXPECT_EQ(element_position(array, {"0", "0"}, why), 0);
    EXPECT_EQ(element_position(array, {"1", "0"}, why), 3);
    EXPECT_EQ(element_position(array, {"OUT", "2"}, why), 5);
    EXPECT_FALSE(element_position(array, {"2", "0"}, why));
    EXPECT_EQ(why, "index 2 of A is out of range; it ends at 1");
    EXPECT_FALSE(element_position(array, {"0"}, why));
    EXPECT_FALSE(element_position(array, {"UP", "0"}, why));
    EXPECT_FALSE(element_position(array, {"-1", "0"}, why));
    EXPECT_FALSE(element_position(array, {"99999999999999999999", "0"}, why));
    EXPECT_EQ(array.shape.indexes(5), (std::vector<int>{1, 2}));
}

TEST(NearestName, FindsWhatWasMeant) {
    const std::vector<std::string> names = {"units", "value", "format"};
    EXPECT_EQ(nearest_name("unit", names), "units");
    EXPECT_EQ(nearest_name("VALUE", names), "value");
    EXPECT_EQ(nearest_name("fromat", names), "format");
    EXPECT_EQ(nearest_name("colour", names), "");
    EXPECT_EQ(nearest_name("anything", {}), "");
}

}  // namespace
