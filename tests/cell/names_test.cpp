// Names, and what somebody meant who mistyped one.
#include "names.h"

#include <gtest/gtest.h>

#include "suggestion.h"

using namespace ostrelcell;

namespace {

TEST(Names, TakeLettersDigitsAndUnderscores) {
    for (const char* good : {"A", "_a", "OIL_TEMP_2", "x9"})
        EXPECT_EQ(nameFault(good, false), "") << good;
    for (const char* bad : {"", "2A", "A B", "A.B", "A:1", "A-B", "\xc3\x84"})
        EXPECT_NE(nameFault(bad, false), "") << bad;
}

TEST(Names, HaveRoomFor79Characters) {
    EXPECT_EQ(nameFault(std::string(79, 'A'), false), "");
    EXPECT_NE(nameFault(std::string(80, 'A'), false), "");
    EXPECT_EQ(nameFault(std::string(78, 'A'), true), "");
    EXPECT_NE(nameFault(std::string(79, 'A'), true), "");
}

TEST(Names, FindMembersOfEachKind) {
    EXPECT_EQ(memberIndex(STAT_TYPE, "AV"), AV);
    EXPECT_EQ(memberIndex(STAT_TYPE, "NR"), NR);
    EXPECT_EQ(memberIndex(COMP_TYPE, "N2"), N2);
    EXPECT_EQ(memberIndex(PROP_TYPE, "AT"), AT);
    EXPECT_EQ(memberIndex(EMIS_TYPE, "BSNOX_G1"), BSNOX_G1);
    EXPECT_EQ(memberIndex(STAT_TYPE, "N2"), -1);
    EXPECT_EQ(memberIndex(STAT_TYPE, ""), -1);
    EXPECT_EQ(memberIndex(REAL_TYPE, "AV"), -1);
}

TEST(Names, CountElementsInRowMajorOrder) {
    Variable array;
    array.kind = REAL_ARRAY_TYPE;
    array.name = "A";
    array.shape = {{2, 3}, {{"IN", "OUT"}, {}}};
    std::string why;
    EXPECT_EQ(elementPosition(array, {"0", "0"}, why), 0);
    EXPECT_EQ(elementPosition(array, {"1", "0"}, why), 3);
    EXPECT_EQ(elementPosition(array, {"OUT", "2"}, why), 5);
    EXPECT_FALSE(elementPosition(array, {"2", "0"}, why));
    EXPECT_EQ(why, "index 2 of A is out of range; it ends at 1");
    EXPECT_FALSE(elementPosition(array, {"0"}, why));
    EXPECT_FALSE(elementPosition(array, {"UP", "0"}, why));
    EXPECT_FALSE(elementPosition(array, {"-1", "0"}, why));
    EXPECT_FALSE(elementPosition(array, {"99999999999999999999", "0"}, why));
    EXPECT_EQ(array.shape.indexes(5), (std::vector<int>{1, 2}));
}

TEST(Suggestion, NamesWhatWasMeant) {
    const std::vector<std::string> names = {"units", "value", "format"};
    EXPECT_EQ(didYouMean("unit", names), "; did you mean \"units\"?");
    EXPECT_EQ(didYouMean("VALUE", names), "; did you mean \"value\"?");
    EXPECT_EQ(didYouMean("fromat", names), "; did you mean \"format\"?");
    EXPECT_EQ(didYouMean("colour", names), "");
    EXPECT_EQ(didYouMean("anything", {}), "");
}

}  // namespace
