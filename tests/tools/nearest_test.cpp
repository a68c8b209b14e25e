#include "nearest.h"

#include <gtest/gtest.h>

using Names = std::vector<std::string>;

TEST(Nearest, FindsOneLetterTooFewTooManyOtherOrSwapped) {
    for (const char* mistyped : {"OIL_TMP", "OIL_TEMPP", "OIL_TEMB", "OLI_TEMP", "oil_temp"})
        EXPECT_EQ(nearest(mistyped, {"OIL_TEMP", "FUEL_FLOW"}), Names{"OIL_TEMP"}) << mistyped;
}

TEST(Nearest, NamesAtMostThreeTheNearestFirst) {
    EXPECT_EQ(nearest("TEMP_1", {"TEMP_44", "TEMP_2", "TEMP_3", "TEMP_1A", "TEMP_"}),
              (Names{"TEMP_", "TEMP_1A", "TEMP_2"}));
}

TEST(Nearest, LeavesOutWhatIsMuchFurtherOff) {
    EXPECT_EQ(nearest("oil_temp", {"CYL_TEMP", "OIL_TEMP"}), Names{"OIL_TEMP"});
}

TEST(Nearest, IsSilentWhereNothingIsSimilar) {
    EXPECT_EQ(nearest("ABCDEF", {"UVWXYZ"}), Names{});
    EXPECT_EQ(nearest("", {"UVWXYZ"}), Names{});
    EXPECT_EQ(nearest("A", {}), Names{});
}

TEST(Nearest, MakesASentence) {
    EXPECT_EQ(didYouMean("AB", {"AC"}, "; none"), "; did you mean AC?");
    EXPECT_EQ(didYouMean("AB", {"AC", "AD", "AE"}, "; none"), "; did you mean AC, AD or AE?");
    EXPECT_EQ(didYouMean("AB", {"XY"}, "; none"), "; none");
}
