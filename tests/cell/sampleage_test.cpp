// The age of a sample while somebody sets the clock.
#include "sampleage.h"

#include <gtest/gtest.h>

using namespace ostrelcell;

namespace {

Moment at(time_t day, int64_t seconds) {
    return {{day, 0}, seconds * 1'000'000'000};
}

TEST(SampleAge, GrowsWhileTheClockGoesBackOrForth) {
    SampleAge age;
    EXPECT_EQ(age.seconds({1000, 0}, at(1003, 50)), 3);
    EXPECT_EQ(age.seconds({1000, 0}, at(1004, 51)), 4);
    EXPECT_EQ(age.seconds({1000, 0}, at(1004 - 3600, 52)), 5);
    EXPECT_EQ(age.seconds({1000, 0}, at(1004 + 3600, 53)), 6);
}

TEST(SampleAge, BeginsAnewWithEachSample) {
    SampleAge age;
    age.seconds({1000, 0}, at(1003, 50));
    EXPECT_EQ(age.seconds({1004, 0}, at(1004, 51)), 0);
    EXPECT_EQ(age.seconds({1004, 0}, at(1006, 53)), 2);
    EXPECT_EQ(age.seconds({1000, 0}, at(1006, 54)), 0) << "the clock was set back, and a sample has come since";
    EXPECT_EQ(age.seconds({1000, 7}, at(1006, 55)), 0);
}

TEST(SampleAge, OfASampleFromTheFutureIsThatOfTheFirstLook) {
    SampleAge age;
    EXPECT_EQ(age.seconds({5000, 0}, at(1000, 50)), 0);
    EXPECT_EQ(age.seconds({5000, 0}, at(1010, 60)), 10);
}

}  // namespace
