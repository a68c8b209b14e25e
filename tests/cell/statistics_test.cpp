// Statistics against what a table or a plain computation says.
#include "statistics.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "studentt.h"

using namespace ostrelcell;

namespace {

// x: 2 4 4 4 5 5 7 9, one second apart from s = 10. Mean 5, sum of squared deviations 32.
StatMembers knownMembers() {
    StatWindow window(8, 1, 95);
    double time = 10;
    for (double value : {2, 4, 4, 4, 5, 5, 7, 9})
        window.add(time++, value);
    return window.compute();
}

TEST(Statistics, DescribesTheLevel) {
    const StatMembers members = knownMembers();
    EXPECT_DOUBLE_EQ(members[AV], 5);
    EXPECT_DOUBLE_EQ(members[SD], std::sqrt(32.0 / 7));
    EXPECT_DOUBLE_EQ(members[RMS], std::sqrt(232.0 / 8));
    EXPECT_DOUBLE_EQ(members[CV], std::sqrt(32.0 / 7) / 5);
    EXPECT_DOUBLE_EQ(members[MEDIAN], 4.5);
    EXPECT_DOUBLE_EQ(members[MAD], 0.5) << "of 2.5 0.5 0.5 0.5 0.5 0.5 2.5 4.5";
}

TEST(Statistics, DescribesTheOrder) {
    const StatMembers members = knownMembers();
    EXPECT_DOUBLE_EQ(members[MN], 2);
    EXPECT_DOUBLE_EQ(members[MX], 9);
    EXPECT_DOUBLE_EQ(members[RN], 7);
    EXPECT_DOUBLE_EQ(members[RA], 4.5);
    EXPECT_DOUBLE_EQ(members[IV], 2);
    EXPECT_DOUBLE_EQ(members[FV], 9);
    EXPECT_DOUBLE_EQ(members[DL], 7);
    EXPECT_DOUBLE_EQ(members[ST], 10);
    EXPECT_DOUBLE_EQ(members[EN], 17);
    EXPECT_DOUBLE_EQ(members[TN], 10);
    EXPECT_DOUBLE_EQ(members[TX], 17);
    EXPECT_DOUBLE_EQ(members[NM], 8);
    EXPECT_DOUBLE_EQ(members[NR], 0);
    EXPECT_DOUBLE_EQ(members[QUAL_F], 1);
}

// Sxx = 42, Sxy = 34, Syy = 32 for times 0 to 7.
TEST(Statistics, DescribesTheLine) {
    const StatMembers members = knownMembers();
    const double slope = 34.0 / 42;
    const double rest = (32 - 34.0 * 34 / 42) / 6;
    EXPECT_NEAR(members[C1], slope, 1e-12);
    EXPECT_NEAR(members[C0], 5 - slope * 3.5, 1e-12);
    EXPECT_NEAR(members[RS], 34.0 * 34 / 42 / 32, 1e-12);
    EXPECT_NEAR(members[E0], std::sqrt(rest * (1.0 / 8 + 3.5 * 3.5 / 42)), 1e-12);
    EXPECT_NEAR(members[E1], std::sqrt(rest / 42) / slope, 1e-12);
}

// The same line falling: the relative error of the slope has no sign.
TEST(Statistics, DescribesALineThatFalls) {
    StatWindow window(8, 1, 95);
    double time = 10;
    for (double value : {9, 7, 5, 5, 4, 4, 4, 2})
        window.add(time++, value);
    const StatMembers members = window.compute();
    const StatMembers rising = knownMembers();
    EXPECT_NEAR(members[C1], -rising[C1], 1e-12);
    EXPECT_NEAR(members[RS], rising[RS], 1e-12);
    EXPECT_NEAR(members[E0], rising[E0], 1e-12);
    EXPECT_NEAR(members[E1], rising[E1], 1e-12);
    EXPECT_GT(members[E1], 0);
}

TEST(Statistics, DescribesTheConfidence) {
    const StatMembers members = knownMembers();
    const double error = std::sqrt(32.0 / 7) / std::sqrt(8.0);
    EXPECT_NEAR(members[STUD_T], 2.364624, 1e-5);
    EXPECT_DOUBLE_EQ(members[REQ_CONF], 95);
    EXPECT_NEAR(members[CONF_INT], 2.364624 * error, 1e-5);
    EXPECT_NEAR(members[INT_90], 1.894579 * error, 1e-5);
    EXPECT_NEAR(members[INT_95], 2.364624 * error, 1e-5);
    EXPECT_NEAR(members[INT_99], 3.499483 * error, 1e-5);
}

TEST(Statistics, Integrates) {
    const StatMembers members = knownMembers();
    EXPECT_DOUBLE_EQ(members[INN], 38) << "each value for the second before it, the first for none";
    EXPECT_DOUBLE_EQ(members[IT], 38);
}

// From the tables of the distribution.
TEST(Statistics, KnowsStudentsT) {
    EXPECT_NEAR(studentT(0.95, 1), 12.7062, 1e-4);
    EXPECT_NEAR(studentT(0.90, 2), 2.91999, 1e-4);
    EXPECT_NEAR(studentT(0.99, 5), 4.03214, 1e-4);
    EXPECT_NEAR(studentT(0.95, 10), 2.22814, 1e-4);
    EXPECT_NEAR(studentT(0.95, 30), 2.04227, 1e-4);
    EXPECT_NEAR(studentT(0.95, 1000), 1.96234, 1e-4);
    EXPECT_NEAR(studentT(0.99, 100000), 2.57588, 1e-4);
}

TEST(Statistics, ForgetsWhatLeftTheWindow) {
    StatWindow window(1, 0.1, 95);
    for (int sample = 0; sample < 105; ++sample)
        window.add(sample * 0.1, sample);
    const StatMembers members = window.compute();
    EXPECT_DOUBLE_EQ(members[NM], 10);
    EXPECT_DOUBLE_EQ(members[IV], 95);
    EXPECT_DOUBLE_EQ(members[FV], 104);
    EXPECT_DOUBLE_EQ(members[AV], 99.5);
    EXPECT_NEAR(members[C1], 10, 1e-9);
    EXPECT_NEAR(members[IT], 0.1 * 104 * 105 / 2, 1e-6) << "the total goes on";
}

TEST(Statistics, StartsWithOneSample) {
    StatWindow window(10, 1, 95);
    window.add(0, 7);
    const StatMembers members = window.compute();
    EXPECT_DOUBLE_EQ(members[AV], 7);
    EXPECT_DOUBLE_EQ(members[MEDIAN], 7);
    EXPECT_DOUBLE_EQ(members[C0], 7);
    EXPECT_DOUBLE_EQ(members[SD], 0);
    EXPECT_DOUBLE_EQ(members[CONF_INT], 0);
    EXPECT_DOUBLE_EQ(members[NM], 1);
    EXPECT_DOUBLE_EQ(members[QUAL_F], 0.1);
}

TEST(Statistics, KnowsNoErrorOfALineThroughTwoPoints) {
    StatWindow window(10, 1, 95);
    window.add(0, 7);
    window.add(1, 9);
    const StatMembers members = window.compute();
    EXPECT_DOUBLE_EQ(members[C1], 2);
    EXPECT_DOUBLE_EQ(members[E0], 0);
    EXPECT_DOUBLE_EQ(members[E1], 0);
    EXPECT_NEAR(members[STUD_T], studentT(0.95, 1), 1e-9);
    window.add(2, 8);
    EXPECT_NEAR(window.compute()[STUD_T], studentT(0.95, 2), 1e-9) << "of as many samples as there are now";
}

TEST(Statistics, LeavesOutWhatIsNoNumber) {
    StatWindow window(4, 1, 95);
    window.add(0, 1);
    window.add(1, std::numeric_limits<double>::quiet_NaN());
    window.add(2, 3);
    window.add(3, std::numeric_limits<double>::infinity());
    const StatMembers members = window.compute();
    EXPECT_DOUBLE_EQ(members[AV], 2);
    EXPECT_DOUBLE_EQ(members[NM], 2);
    EXPECT_DOUBLE_EQ(members[NR], 2);
    EXPECT_DOUBLE_EQ(members[QUAL_F], 0.5);
}

TEST(Statistics, IsQuietAboutAConstant) {
    StatWindow window(5, 1, 95);
    for (int sample = 0; sample < 5; ++sample)
        window.add(sample, 0);
    for (double member : window.compute())
        EXPECT_TRUE(std::isfinite(member));
}

TEST(Statistics, MembersHaveTheirUnits) {
    EXPECT_EQ(unitsOfStatMember(AV), StatUnits::source);
    EXPECT_EQ(unitsOfStatMember(RMS), StatUnits::source);
    EXPECT_EQ(unitsOfStatMember(ST), StatUnits::seconds);
    EXPECT_EQ(unitsOfStatMember(TX), StatUnits::seconds);
    EXPECT_EQ(unitsOfStatMember(C1), StatUnits::none);
    EXPECT_EQ(unitsOfStatMember(NM), StatUnits::none);
}

}  // namespace
