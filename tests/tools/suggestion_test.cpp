#include "suggestion.h"

#include <gtest/gtest.h>

TEST(Suggestion, IsASentence) {
    EXPECT_EQ(didYouMean("AB", {"AC"}, "; none"), "; did you mean AC?");
    EXPECT_EQ(didYouMean("AB", {"AC", "AD", "AE"}, "; none"), "; did you mean AC, AD or AE?");
    EXPECT_EQ(didYouMean("AB", {"XY"}, "; none"), "; none");
}
