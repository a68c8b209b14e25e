#include "ground/nearestnames.h"

#include <gtest/gtest.h>

using Names = std::vector<std::string>;

TEST(NearestNames, FindsOneLetterTooFewTooManyOtherOrSwapped) {
    for (const char* mistyped : {"OIL_TMP", "OIL_TEMPP", "OIL_TEMB", "OLI_TEMP", "oil_temp"})
        EXPECT_EQ(nearestNames(mistyped, {"OIL_TEMP", "FUEL_FLOW"}), Names{"OIL_TEMP"}) << mistyped;
}

TEST(NearestNames, NamesAtMostThreeTheNearestFirst) {
    EXPECT_EQ(nearestNames("TEMP_1", {"TEMP_44", "TEMP_2", "TEMP_3", "TEMP_1A", "TEMP_"}),
              (Names{"TEMP_", "TEMP_1A", "TEMP_2"}));
}

TEST(NearestNames, LeavesOutWhatIsMuchFurtherOff) {
    EXPECT_EQ(nearestNames("oil_temp", {"CYL_TEMP", "OIL_TEMP"}), Names{"OIL_TEMP"});
}

TEST(NearestNames, IsSilentWhereNothingIsSimilar) {
    EXPECT_EQ(nearestNames("ABCDEF", {"UVWXYZ"}), Names{});
    EXPECT_EQ(nearestNames("", {"UVWXYZ"}), Names{});
    EXPECT_EQ(nearestNames("A", {}), Names{});
}
