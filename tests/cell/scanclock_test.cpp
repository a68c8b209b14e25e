// Scans stand on a grid.
#include "scanclock.h"

#include <gtest/gtest.h>

using ostrelcell::ScanClock;

namespace {

constexpr int64_t ms = 1'000'000;

TEST(ScanClock, StartsAtOnce) {
    ScanClock clock(100 * ms, 5000 * ms);
    EXPECT_TRUE(clock.due(5000 * ms));
    const ScanClock::Tick tick = clock.take(5000 * ms);
    EXPECT_DOUBLE_EQ(tick.t, 0);
    EXPECT_DOUBLE_EQ(tick.dt, 0);
    EXPECT_EQ(clock.next(), 5100 * ms);
}

TEST(ScanClock, DoesNotDriftWhenItIsLate) {
    ScanClock clock(100 * ms, 0);
    clock.take(0);
    EXPECT_FALSE(clock.due(99 * ms));
    EXPECT_DOUBLE_EQ(clock.take(130 * ms).t, 0.1);
    EXPECT_EQ(clock.next(), 200 * ms);
    EXPECT_DOUBLE_EQ(clock.take(299 * ms).dt, 0.1);
    EXPECT_EQ(clock.next(), 300 * ms);
}

TEST(ScanClock, LeavesOutWhatWasMissed) {
    ScanClock clock(100 * ms, 0);
    clock.take(0);
    const ScanClock::Tick tick = clock.take(1050 * ms);
    EXPECT_DOUBLE_EQ(tick.t, 1.0);
    EXPECT_DOUBLE_EQ(tick.dt, 1.0);
    EXPECT_FALSE(clock.due(1050 * ms));
    EXPECT_EQ(clock.next(), 1100 * ms);
}

TEST(ScanClock, StaysDueWithAnotherPeriod) {
    ScanClock clock(100 * ms, 5000 * ms);
    clock.setPeriod(20 * ms);
    EXPECT_TRUE(clock.due(5000 * ms));
    clock.take(5000 * ms);
    EXPECT_EQ(clock.next(), 5020 * ms);
}

TEST(ScanClock, ChangesItsPeriod) {
    ScanClock clock(100 * ms, 0);
    clock.take(0);
    clock.take(100 * ms);
    clock.setPeriod(20 * ms);
    EXPECT_EQ(clock.next(), 120 * ms);
    EXPECT_DOUBLE_EQ(clock.take(120 * ms).t, 0.12);
    EXPECT_EQ(clock.next(), 140 * ms);
}

}  // namespace
